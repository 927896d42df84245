#include "EditWorld.h"
#include <gtest/gtest.h>
#include <kelo/KeloActionReply.h>
#include <kelo/KeloTidalConstants.h>

namespace {
QString q(const char* text)
{
    return QString::fromUtf8(text);
}

QVariant text(const QString& text)
{
    KeloValue value;
    value.setString(text);
    return value.toVariant();
}

/// The two forms, as a screen fills them in.
class Form : public testing::Test
{
protected:
    void fill(const QString& form, const QString& title, const QString& description)
    {
        EXPECT_FALSE(world.set(form + q("/title"), text(title)).reply().error().isSet());
        EXPECT_FALSE(
            world.set(form + q("/description"), text(description)).reply().error().isSet());
    }
    /// A field once the worker is idle: a form is cleared in the turn in which it is answered.
    QString field(const QString& path)
    {
        world.onWorker([] {});
        return CMRoot().value(CMPath(path)).string_();
    }
    /// The user's playlist of that title, as the service holds it.
    QJsonObject playlist(const QString& title)
    {
        const QString path = world.userPath(q("/playlists?limit=50"));
        const QJsonArray lists = world.read(path).value(q("items")).toArray();
        for (const QJsonValue& list : lists) {
            if (list.toObject().value(q("title")).toString() == title)
                return list.toObject();
        }
        return QJsonObject();
    }
    /// Submits the form as it was opened under these parameters: by the accept path of its rows.
    CMSetDataRequest accept(const QString& form, const QString& params)
    {
        const CMPath path = CMPath::fromEncoded(form + params);
        const KeloRowsRoles rows = world.rows(path, 0, 9, {}).reply().value();
        return world.set(rows.roles().value(KeloRoles::AcceptPath()).toString());
    }

    EditWorld world;
    const QString create = q("/tidal/createPlaylist");
    const QString update = q("/tidal/updatePlaylists");
};
} // namespace

TEST_F(Form, TitlesArriveWhole)
{
    const QString titles[] = {q("a&b=c"),
                              q("100 % + 1"),
                              q("\"quoted\" 'single'"),
                              q("two\nlines\r\n"),
                              q("\U0001F389 \u0635\u0628\u0627\u062d"),
                              q("?#/;,:@"),
                              q("%41%2B"),
                              QString(500, QChar(0x00e5))};
    const QString id = world.newPlaylist("before", {});
    for (const QString& title : titles) {
        SCOPED_TRACE(title.toStdString());
        fill(create, title, title + q("!"));
        const CMSetDataRequest made = accept(create, QString());
        EXPECT_FALSE(made.reply().error().isSet());
        const QJsonObject held = playlist(title);
        EXPECT_EQ(held.value(q("description")).toString(), title + q("!"));
        EXPECT_EQ(held.value(q("numberOfTracks")).toInt(-1), 0);
        EXPECT_EQ(field(create + q("/title")), QString());
        EXPECT_EQ(field(create + q("/description")), QString());

        fill(update, title, QString());
        accept(update, q("?type=Playlists&id=") + id);
        EXPECT_EQ(world.read(q("/playlists/") + id).value(q("title")).toString(), title);
        EXPECT_EQ(field(update + q("/title")), QString());
    }
}

TEST_F(Form, AnswersSendTheClientWhereItBelongs)
{
    fill(create, q("t"), QString());
    const KeloActionReply made(KeloHash(accept(create, QString()).reply().value().toHash()));
    ASSERT_EQ(made.events().size(), 1);
    EXPECT_EQ(made.events().first().path().toEncoded(), create);
    EXPECT_TRUE(made.result().isEmpty());

    const QString id = playlist(q("t")).value(q("uuid")).toString();
    fill(update, q("u"), QString());
    const CMSetDataRequest changed = accept(update, q("?id=wrong&playlistId=") + id);
    const KeloActionReply reply(KeloHash(changed.reply().value().toHash()));
    ASSERT_EQ(reply.events().size(), 1);
    EXPECT_EQ(reply.events().first().path().toEncoded(), update);
    EXPECT_EQ(reply.result().value(KeloRoles::Path()).toString(), q("/tidal/myMusic"));
    EXPECT_EQ(world.read(q("/playlists/") + id).value(q("title")).toString(), q("u"));
}

TEST_F(Form, KeepsWhatWasFilledInUntilTheServiceTakesIt)
{
    fill(create, QString(), q("d"));
    const QString refusal = accept(create, QString()).reply().error().message();
    EXPECT_TRUE(refusal.contains(q("title"))) << refusal.toStdString();
    EXPECT_EQ(field(create + q("/description")), q("d"));

    fill(update, q("t"), q("d"));
    EXPECT_TRUE(accept(update, q("?id=gone")).reply().error().isSet());
    EXPECT_EQ(field(update + q("/title")), q("t"));

    // Created is what the service calls so, and nothing else.
    EXPECT_EQ(world.sim().addFault("create-status status=200"), "");
    fill(create, q("t"), QString());
    EXPECT_TRUE(accept(create, QString()).reply().error().isSet());
}

TEST_F(Form, PutsTheItemThatItWasOpenedForIntoTheNewPlaylist)
{
    const QList<qint64> tracks = world.someTracks(1);
    fill(create, q("of a track"), QString());
    accept(create, q("?type=Tracks&artists=A_1&id=%1").arg(tracks.first()));
    const QString id = playlist(q("of a track")).value(q("uuid")).toString();
    // The second request is the list that follows the addition.
    const std::string path = q("/playlists/%1/tracks").arg(id).toStdString();
    EXPECT_TRUE(world.sim().waitForRequests(path, 2, 20000));
    EXPECT_EQ(world.tracksOf(id), tracks);

    // Whatever is no track is looked up as an album, which a playlist is not.
    const QString other = world.newPlaylist("other", tracks);
    fill(create, q("of a playlist"), QString());
    accept(create, q("?type=Playlists&id=") + other);
    EXPECT_TRUE(
        world.sim().waitForRequests(q("/albums/%1/tracks").arg(other).toStdString(), 1, 20000));
}
