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
    QString titleOf(const QString& id)
    {
        return read("/playlists/" + id).value("title").toString();
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

TEST_F(FormTest, TitlesArriveWhole)
{
    const QString id = newPlaylist("before");
    for (const QString& title :
         {q("100 % + 1&b=c?#/;,:@\r\n\"'%41%2B \U0001F389 \u0635"), QString(500, QChar(0x00e5))}) {
        SCOPED_TRACE(title.toStdString());
        fill(create, title, title + "!");
        EXPECT_EQ(errorOf(accept(create)), "");
        const QJsonObject held = playlist(title);
        EXPECT_EQ(held.value("description").toString(), title + "!");
        EXPECT_EQ(held.value("numberOfTracks").toInt(-1), 0);
        EXPECT_EQ(field(create + "/title"), "");
        EXPECT_EQ(field(create + "/description"), "");

        fill(update, title, QString());
        EXPECT_EQ(errorOf(accept(update, "?type=Playlists&id=" + id)), "");
        EXPECT_EQ(titleOf(id), title);
        EXPECT_EQ(field(update + "/title"), "");
    }
}

TEST_F(FormTest, AnswersSendTheClientWhereItBelongs)
{
    fill(create, "t", QString());
    const KeloActionReply made = actionOf(accept(create));
    EXPECT_EQ(onlyEvent(made), create);
    EXPECT_TRUE(made.result().isEmpty());

    const QString id = playlist("t").value("uuid").toString();
    fill(update, "u", QString());
    const KeloActionReply changed = actionOf(accept(update, "?id=wrong&playlistId=" + id));
    EXPECT_EQ(onlyEvent(changed), update);
    EXPECT_EQ(changed.result().path(), CMPath("/tidal/myMusic"));
    EXPECT_EQ(titleOf(id), "u");
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

TEST_F(FormTest, PutsTheItemThatItWasOpenedForIntoTheNewPlaylist)
{
    const QList<qint64> tracks = playable("/featured/new/tracks?limit=50").mid(0, 1);
    fill(create, "of a track", QString());
    wait(accept(create, q("?type=Tracks&artists=A_1&id=%1").arg(tracks.first())));
    const QString id = playlist("of a track").value("uuid").toString();
    // The second request is the list that follows the addition.
    EXPECT_TRUE(m_sim.waitForRequests("/playlists/" + id.toStdString() + "/tracks", 2, 20000));
    EXPECT_EQ(tracksIn(id), tracks);

    // Whatever is no track is looked up as an album, which a playlist is not.
    const QString other = newPlaylist("other", tracks);
    fill(create, "of a playlist", QString());
    wait(accept(create, "?type=Playlists&id=" + other));
    EXPECT_TRUE(m_sim.waitForRequests("/albums/" + other.toStdString() + "/tracks", 1, 20000));
}
} // namespace
