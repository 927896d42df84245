#include "ModuleTest.h"

namespace {
const QString create = "/tidal/createPlaylist";
const QString update = "/tidal/updatePlaylists";

/// The two forms, as a screen fills them in.
class FormTest : public SimulatedTest
{
protected:
    void fill(const QString& form, const QString& title, const QString& description)
    {
        EXPECT_EQ(errorOf(set(form + "/title", title)), "");
        EXPECT_EQ(errorOf(set(form + "/description", description)), "");
    }
    /// A field once the worker is idle: a form is cleared in the turn in which it is answered.
    QString field(const QString& path)
    {
        settle();
        return CMRoot().value(CMPath(path)).string_();
    }
    /// The user's playlist of that title, as the service holds it.
    QJsonObject playlist(const QString& title)
    {
        for (const QJsonValue& list : itemsOf(userPath + "/playlists?limit=50")) {
            if (list["title"].toString() == title)
                return list.toObject();
        }
        return QJsonObject();
    }
    /// Submits the form as it was opened under these parameters: by the accept path of its rows.
    CMSetDataRequest accept(const QString& form, const QString& params = QString())
    {
        const CMGetRowsRequest rows = askRows(form + params);
        EXPECT_EQ(errorOf(rows), "");
        return set(rows.reply().value().roles().value(KeloRoles::AcceptPath()).toString());
    }
    static QString onlyEvent(const KeloActionReply& reply)
    {
        return reply.events().size() == 1 ? reply.events().first().path().toEncoded() : "";
    }
};

TEST_F(FormTest, IsEmptiedWithWhatTheServiceTookAndSendsTheClientWhereItBelongs)
{
    fill(create, "t", "d");
    const KeloActionReply made = actionOf(accept(create));
    EXPECT_EQ(onlyEvent(made), create);
    EXPECT_TRUE(made.result().isEmpty());
    EXPECT_EQ(playlist("t").value("description").toString(), "d");
    EXPECT_EQ(field(create + "/title") + field(create + "/description"), "");

    const QString id = playlist("t").value("uuid").toString();
    fill(update, "u", QString());
    const KeloActionReply changed = actionOf(accept(update, "?id=wrong&playlistId=" + id));
    EXPECT_EQ(onlyEvent(changed), update);
    EXPECT_EQ(changed.result().path(), CMPath("/tidal/myMusic"));
    EXPECT_EQ(playlist("u").value("uuid").toString(), id);
    EXPECT_EQ(field(update + "/title"), "");
}

TEST_F(FormTest, KeepsWhatWasFilledInUntilTheServiceTakesIt)
{
    fill(create, QString(), "d");
    EXPECT_TRUE(errorOf(accept(create)).contains("title"));
    EXPECT_EQ(field(create + "/description"), "d");

    fill(update, "t", "d");
    EXPECT_NE(errorOf(accept(update, "?id=gone")), "");
    EXPECT_EQ(field(update + "/title"), "t");
}
} // namespace
