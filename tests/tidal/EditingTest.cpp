#include "EditWorld.h"
#include <gtest/gtest.h>
#include <kelo/KeloActionReply.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloTidalConstants.h>

namespace {
QString q(const char* text)
{
    return QString::fromUtf8(text);
}

CMSetDataRequest nobody(const char* path = "/x")
{
    return CMSetDataRequest(CMPath::fromEncoded(q(path)), QString(), 1);
}

QString headerOf(const QJsonObject& arrived, const char* name)
{
    for (const QJsonValue& header : arrived.value(q("headers")).toArray()) {
        if (header.toArray().at(0).toString().compare(q(name), Qt::CaseInsensitive) == 0)
            return header.toArray().at(1).toString();
    }
    return q("(none)");
}

QStringList eventPaths(const CMSetDataRequest& answered)
{
    const KeloActionReply reply(KeloHash(answered.reply().value().toHash()));
    EXPECT_EQ(reply.xclass(), q("KeloActionReply"))
        << answered.reply().error().message().toStdString();
    QStringList paths;
    for (const KeloEvent& event : reply.events()) {
        EXPECT_EQ(event.rowsType(), 1);
        paths << event.path().toEncoded();
    }
    return paths;
}

const QString addList = q("/tidal/context/addToPlaylists/req/created/users/playlists");
const QString playlistAddList =
    q("/tidal/playlistcontext/addToPlaylists/req/created/users/playlists");

struct Wire
{
    const char* name;
    const char* method;
    const char* path; ///< below the API's base; "USER" stands for the user's id
    const char* query;
    const char* body;
    const char* tag;
    std::function<void(TidalHandler&)> send;
};
} // namespace

TEST(Editing, SendsMethodPathQueryBodyAndTag)
{
    EditWorld world;
    const char* const none = "(none)";
    const char* const country = "countryCode=NO";
    const Wire wires[] = {
        {"is favorite", "GET", "/users/USER/favorites/tracks", "countryCode=NO&limit=50", "", none,
         [](TidalHandler& h) {
             h.on_isFavorite_invoke(CMGetDataRequest(CMPath(q("/x")), {}), nobody(), q("Tracks"));
         }},
        {"album", "POST", "/users/USER/favorites/albums", country, "albumId=7", none,
         [](TidalHandler& h) { h.on_addToFavorites_invoke(nobody(), q("Albums"), q("7")); }},
        {"artist", "POST", "/users/USER/favorites/artists", country, "artistId=7", none,
         [](TidalHandler& h) { h.on_addToFavorites_invoke(nobody(), q("Artists"), q("7")); }},
        {"playlist", "POST", "/users/USER/favorites/playlists", country, "uuid=u-7", none,
         [](TidalHandler& h) { h.on_addToFavorites_invoke(nobody(), q("Playlists"), q("u-7")); }},
        {"track", "POST", "/users/USER/favorites/tracks", country, "trackId=7", none,
         [](TidalHandler& h) { h.on_addToFavorites_invoke(nobody(), q("Tracks"), q("7")); }},
        {"no favorite", "DELETE", "/users/USER/favorites/albums/7", country, "", none,
         [](TidalHandler& h) { h.on_removeFromFavorites_invoke(nobody(), q("Albums"), q("7")); }},
        {"create", "POST", "/users/USER/playlists", country,
         "title=a%26b%3Dc%25d%2Be%20%22%0A%C3%A5&description=x%20y", none,
         [](TidalHandler& h) {
             h.createNewPlaylist(nobody(), q("a&b=c%d+e \"\n\u00e5"), q("x y"));
         }},
        {"create without description", "POST", "/users/USER/playlists", country, "title=t", none,
         [](TidalHandler& h) { h.createNewPlaylist(nobody(), q("t"), QString()); }},
        {"update", "POST", "/playlists/u-1", country, "title=t&description=d", none,
         [](TidalHandler& h) { h.updatePlaylist(nobody(), q("t"), q("d"), q("u-1")); }},
        {"delete", "DELETE", "/playlists/u-2", country, "", "\"171\"",
         [](TidalHandler& h) { h.removePlaylist(nobody(), q("u-2"), q(" \"1 71\" ")); }},
        {"add", "POST", "/playlists/u-3/tracks", country, "trackIds=1,2,&toIndex=-1", "172",
         [](TidalHandler& h) { h.addToPlaylist(nobody(), q("u-3"), q("1,2,"), q("17 2"), -1); }},
        {"remove", "DELETE", "/playlists/u-4/tracks/4", country, "", "173",
         [](TidalHandler& h) { h.removeFromPlaylist(nobody(), q("u-4"), q("4"), q("173")); }},
        {"move", "POST", "/playlists/u-5/tracks/3", "", "toIndex=0", "174",
         [](TidalHandler& h) { h.moveTrack(nobody(), q("3"), q("0"), q("u-5"), q("174")); }},
        {"begin", "GET", "/playlists/u-6", country, "", none,
         [](TidalHandler& h) { h.loopPlaylistManipulation(nobody(), q("u-6"), QVariant()); }},
        {"tracks to add", "GET", "/albums/77/tracks", "countryCode=NO&offset=0&limit=50", "", none,
         [](TidalHandler& h) { h.getTracksForPlaylists(nobody(), q("Albums"), q("77")); }},
        // Whatever a name holds, it stays one segment, or one value of the body.
        {"delimiters in an address", "DELETE", "/users/USER/favorites/albums/a?b#c%2Fd&e=", country,
         "", none,
         [](TidalHandler& h) {
             h.on_removeFromFavorites_invoke(nobody(), q("Albums"), q("a?b#c%2Fd&e="));
         }},
        {"delimiters in a body", "POST", "/users/USER/favorites/albums", country,
         "albumId=1%26x%3D2%25", none,
         [](TidalHandler& h) { h.on_addToFavorites_invoke(nobody(), q("Albums"), q("1&x=2%")); }},
        {"delimiters in a list", "POST", "/playlists/u-8/tracks", country,
         "trackIds=1,2%26x%3D3&toIndex=-1", "175",
         [](TidalHandler& h) { h.addToPlaylist(nobody(), q("u-8"), q("1,2&x=3"), q("175"), -1); }},
        {"no playlist named", "POST", "/playlists/", country, "title=t", none,
         [](TidalHandler& h) { h.updatePlaylist(nobody(), q("t"), QString(), QString()); }},
    };
    for (const Wire& wire : wires) {
        SCOPED_TRACE(wire.name);
        const QString path = q(wire.path).replace(q("USER"), q("770011"));
        const QJsonObject arrived = world.sent(path, wire.send);
        EXPECT_EQ(arrived.value(q("method")).toString(), q(wire.method));
        EXPECT_EQ(queryText(arrived), q(wire.query));
        EXPECT_EQ(arrived.value(q("body")).toString(), q(wire.body));
        EXPECT_EQ(headerOf(arrived, "If-None-Match"), q(wire.tag));
        EXPECT_TRUE(headerOf(arrived, "Authorization").startsWith(q("Bearer ")));
    }
}

TEST(Editing, RefusesWhatItCannotSend)
{
    EditWorld world;
    TidalHandler* handler = world.worker()->getHandler();
    const CMGetDataRequest query(CMPath(q("/x")), {KeloRoles::Title()});
    CMSetDataRequest add = nobody();
    CMSetDataRequest create = nobody();
    CMSetDataRequest edit = nobody();
    for (const char* path :
         {"/tidal/context/favorites?id=1&type=tracks", "/tidal/context/favorites?id=1"})
        EXPECT_EQ(world.set(q(path)).reply().error().message(), q("This cannot be a favorite"));
    EXPECT_EQ(world.data(q("/tidal/context/favorites?id=1&type=x"), {KeloRoles::Title()})
                  .reply()
                  .error()
                  .name(),
              q("TIDAL"));
    world.onWorker([&] {
        handler->resetAccount();
        handler->on_isFavorite_invoke(query, nobody(), q("Tracks"));
        handler->on_addToFavorites_invoke(add, q("Tracks"), q("1"));
        handler->createNewPlaylist(create, q("t"), QString());
    });
    const QString text = q("User not logged in. Cannot get favorites");
    EXPECT_EQ(query.reply().error().message(), text);
    EXPECT_EQ(query.reply().error().name(), q("TIDAL"));
    EXPECT_EQ(add.reply().error().message(), text);
    EXPECT_EQ(add.reply().error().name(), KeloService_Tidal_Id());
    EXPECT_EQ(create.reply().error().message(), text);

    CMPath tokenPath = KeloOAuth2ServicePath();
    tokenPath.appendSubpath(KeloTidalName());
    tokenPath.appendSubpath(KeloOAuth2AccessTokenSubPath());
    KeloValue empty;
    empty.setString(QString());
    world.host()->setValue(tokenPath, empty);
    world.onWorker([&] { handler->loopPlaylistManipulation(edit, q("u"), QVariant()); });
    EXPECT_EQ(edit.reply().error().message(), q("Access token is not set"));
}

TEST(Editing, SendsNothingToAnAddressThatANameWouldChange)
{
    EditWorld world;
    using Name = const QString&;
    const auto rows = [] { return CMGetRowsRequest(CMPath(q("/x")), 0, 9, {}); };
    KeloTidalBrowseSetting setting;
    CMGetRowsRequest list;
    CMSetDataRequest edit;
    const std::function<void(TidalHandler&, Name)> operations[] = {
        [&](TidalHandler& h, Name n) { h.baseRequest(list, q("featured"), n, q("albums")); },
        [&](TidalHandler& h, Name n) { h.baseRequest(list, q("featured"), q("new"), n); },
        [&](TidalHandler& h, Name n) { h.getAlbumTracks(list, n); },
        [&](TidalHandler& h, Name n) { h.search(list, q("q"), n); },
        [&](TidalHandler& h, Name n) { h.getArtist(list, n); },
        [&](TidalHandler& h, Name n) { h.getArtistContent(list, n, q("albums"), QString()); },
        [&](TidalHandler& h, Name n) { h.getArtistContent(list, q("7"), n, QString()); },
        [&](TidalHandler& h, Name n) { h.getPlaylistTracks(list, n, setting, QString()); },
        [&](TidalHandler& h, Name n) { h.getMyMusic(list, n, q("favorites"), &setting); },
        [&](TidalHandler& h, Name n) { h.getMyMusic(list, n, q("created"), &setting); },
        [&](TidalHandler& h, Name n) { h.getArtistBio(edit, n); },
        [&](TidalHandler& h, Name n) { h.on_addToFavorites_invoke(edit, q("Tracks"), n); },
        [&](TidalHandler& h, Name n) { h.on_removeFromFavorites_invoke(edit, q("Tracks"), n); },
        [&](TidalHandler& h, Name n) {
            h.updatePlaylist(edit, q("t"), q("d"), n.isEmpty() ? q("..") : n);
        },
        [&](TidalHandler& h, Name n) { h.removePlaylist(edit, n, QString()); },
        [&](TidalHandler& h, Name n) { h.addToPlaylist(edit, n, q("1"), QString(), 0); },
        [&](TidalHandler& h, Name n) { h.removeFromPlaylist(edit, n, q("1"), QString()); },
        [&](TidalHandler& h, Name n) { h.removeFromPlaylist(edit, q("u"), n, QString()); },
        [&](TidalHandler& h, Name n) { h.moveTrack(edit, q("1"), q("0"), n, QString()); },
        [&](TidalHandler& h, Name n) { h.moveTrack(edit, n, q("0"), q("u"), QString()); },
        [&](TidalHandler& h, Name n) { h.loopPlaylistManipulation(edit, n, QVariant()); },
        [&](TidalHandler& h, Name n) { h.getTracksForPlaylists(edit, n, q("7")); },
        [&](TidalHandler& h, Name n) { h.getTracksForPlaylists(edit, q("Albums"), n); },
        [&](TidalHandler& h, Name n) { EXPECT_FALSE(h.track(edit, n)); },
        [&](TidalHandler& h, Name n) {
            EXPECT_FALSE(h.streamUrl(n, edit, KeloTidalSoundQualities::LOW_, false));
        },
    };
    world.sim().reset();
    int number = 0;
    for (const auto& operation : operations) {
        for (const char* name : {"", ".", "..", "u-1/tracks/0", "/"}) {
            list = rows();
            edit = nobody();
            world.onWorker([&] { operation(*world.worker()->getHandler(), q(name)); });
            EXPECT_EQ(list.reply().error().name() + edit.reply().error().name(), q("TIDAL"))
                << number << " " << name;
        }
        ++number;
    }
    // A request behind them all shows that none of them was sent.
    world.onWorker([&] {
        world.worker()->getHandler()->loopPlaylistManipulation(nobody(), q("u-6"), QVariant());
    });
    world.sim().waitForRequests("/playlists/u-6", 1, 20000);
    EXPECT_EQ(world.requestLog(), QStringList{q("GET /playlists/u-6")});

    // An edit of a playlist that is gone ends with reading it.
    const QString menu = q("/tidal/playlistcontext/removeFromPlaylists?playlistId=gone&id=gone");
    EXPECT_EQ(eventPaths(world.set(menu + q("&type=Tracks&rowNum=1"))).size(), 2);
    world.set(menu + q("&type=Playlists"));
    const QString move =
        q("/tidal/myPlaylistTrackscontext/moveTrack/move?playlistId=gone&rowNum=1");
    EXPECT_EQ(world.set(move).reply().error().message(), q("Non existing track index"));
    EXPECT_EQ(world.requestLog().filter(q("gone")),
              (QStringList{q("GET /playlists/gone"), q("GET /playlists/gone"),
                           q("GET /playlists/gone")}));
}

TEST(Editing, AnswersByStatusAndBody)
{
    QStringList log;
    EditWorld world;
    using Slot = void (TidalNodeResponder::*)(KeloUrl const&, HttpClientPrivate const&, int, int,
                                              QByteArray const&, HttpClientHeaders);
    TidalNodeResponder* responder = world.worker()->getHandler()->responder();
    world.onWorker([&] {
        QObject::connect(responder, &TidalNodeResponder::newPlaylistFinished, responder,
                         [&](CMSetDataRequest, QString uuid, QString etag) {
                             log << q("new ") + uuid + q(" ") + etag;
                         });
        QObject::connect(responder, &TidalNodeResponder::updatePlaylistFinished, responder,
                         [&] { log << q("updated"); });
        QObject::connect(responder, &TidalNodeResponder::movePlaylistTrackFinished, responder,
                         [&] { log << q("moved"); });
    });
    const Slot created = &TidalNodeResponder::on_newPlaylist_invoke;
    const Slot updated = &TidalNodeResponder::on_updatePlaylist_invoke;
    const Slot moved = &TidalNodeResponder::on_movePlaylistTrack_invoke;
    const Slot repeat = &TidalNodeResponder::on_playlistRepeatReponse_invoke;
    const char* const refusal = R"({"status":400,"subStatus":1002,"userMessage":"title & more"})";
    const char* const unanswered = "(unanswered)";
    const struct
    {
        Slot slot;
        const char* path;
        int status;
        const char* body;
        const char* expected; ///< what is emitted, or the error
    } table[] = {
        {created, "/f?id=1&type=x", 201, R"({"uuid":"u-9"})", "new u-9 \"5\""},
        {created, "/f", 201, "no JSON", "new  "},
        {created, "/f?id=1", 200, R"({"uuid":"u-9"})", "Error, failed to parse error message"},
        {created, "/f", 400, refusal, "title & more"},
        {updated, "/f", 200, "", "updated"},
        {updated, "/f", 201, "", "Error, failed to parse error message"},
        {updated, "/f", 404, refusal, "title & more"},
        {moved, "/f", 200, "", "moved"},
        {moved, "/f", 404, refusal, "Non existing track index"},
        {moved, "/f", 404, R"({"userMessage":"x"})", unanswered},
        {moved, "/f", 0, "", unanswered},
        {repeat, "/tidal/playlistcontext/removeFromPlaylists", 200, "<html>", unanswered},
        {repeat, "/tidal/playlistcontext/removeFromPlaylists", 0, "", unanswered},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.expected);
        log.clear();
        const CMSetDataRequest request = nobody(row.path);
        HttpClientHeaders headers;
        headers.insert(q("eTaG"), q("\"5\""));
        world.onWorker([&] {
            (responder->*row.slot)(KeloUrl(), HttpClientPrivate(HttpClientPrivate::Data(request)),
                                   row.status, 0, row.body, headers);
        });
        if (request.reply().error().isSet()) {
            EXPECT_EQ(request.reply().error().name(), q("TIDAL"));
            log << request.reply().error().message();
        }
        if (log.isEmpty() && !request.reply().isFinished())
            log << q(unanswered);
        EXPECT_EQ(log.join(q("|")).toStdString(), row.expected);
    }
    // A body that cannot be read tells the reader's own fault.
    const CMSetDataRequest broken = nobody("/f?id=1");
    world.onWorker([&] {
        responder->on_newPlaylist_invoke(KeloUrl(),
                                         HttpClientPrivate(HttpClientPrivate::Data(broken)), 201, 0,
                                         "{\"uuid\":", HttpClientHeaders());
    });
    EXPECT_TRUE(broken.reply().error().isSet());
    EXPECT_FALSE(broken.reply().error().message().isEmpty());
}

TEST(Editing, TogglesAFavoriteByWhatTheServiceSays)
{
    EditWorld world;
    OpenRows list(CMPath(q("/tidal/myMusic/req/favorites/users/tracks")));
    const QString path =
        q("/tidal/context/favorites?id=%1&type=Playlists").arg(world.newPlaylist("p", {}));
    const QStringList roles = {KeloRoles::Type(), KeloRoles::Title(), q("unknown"),
                               KeloRoles::Title()};
    const auto title = [&] {
        const QVariantList values = world.data(path, roles).reply().value();
        EXPECT_EQ(values.size(), roles.size());
        EXPECT_EQ(values.value(0).toString(), KeloRolesType::Action());
        EXPECT_FALSE(values.value(2).isValid());
        EXPECT_EQ(values.value(1), values.value(3));
        return values.value(1).toString();
    };
    const auto count = [&] {
        return world.read(world.userPath(q("/favorites/playlists")))
            .value(q("totalNumberOfItems"))
            .toInt();
    };
    const int before = count();
    EXPECT_EQ(title(), q("Add to favorites"));
    EXPECT_EQ(eventPaths(world.set(path)), QStringList{q("/tidal/context")});
    // The menu names the list that is told, not the item.
    EXPECT_EQ(list.next(), q("reset"));
    EXPECT_EQ(count(), before + 1);
    EXPECT_EQ(title(), q("Remove from favorites"));
    world.set(path);
    EXPECT_EQ(list.next(), q("reset"));
    EXPECT_EQ(count(), before);
    EXPECT_EQ(title(), q("Add to favorites"));

    EXPECT_EQ(eventPaths(world.set(q("/tidal/basecontext/favorites?id=4000003&type=Artists"))),
              QStringList{q("/tidal/basecontext")});
    EXPECT_EQ(eventPaths(world.set(q("/tidal/playlistcontext/favorites?id=u&type=Playlists"))),
              QStringList{q("/tidal/playlistcontext")});
    EXPECT_EQ(list.pending(), 0);

    // An entry that says no identifier is none that could be asked about.
    for (const char* id : {"", "0", "12"}) {
        const CMGetDataRequest asked(
            CMPath::fromEncoded(q("/tidal/context/favorites?type=Tracks&id=") + q(id)), roles);
        const CMSetDataRequest prepared(CMPath(), QString(), QVariantList{0, 0, 0, 0});
        world.onWorker([&] {
            world.worker()->getHandler()->responder()->on_isFavoriteReponse_invoke(
                KeloUrl(), HttpClientPrivate(HttpClientPrivate::Data(asked, prepared)), 200, 0,
                R"({"items":[{"item":null},{"item":{"id":"12"}},{"item":{"id":1.5}}]})",
                HttpClientHeaders());
        });
        EXPECT_EQ(asked.reply().value().value(1).toString(), q("Add to favorites")) << id;
    }
}

TEST(Editing, AddsAndRemovesTracksAndTellsOpenViews)
{
    EditWorld world;
    const QList<qint64> tracks = world.someTracks(4);
    const QString id = world.newPlaylist("p", {tracks[0], tracks[1], tracks[0]});
    CMPath open = KeloTidalMyPlaylistsPath();
    open.addParam(q("contentId"), id);
    open.addParam(q("playlistId"), id);
    OpenRows view(open);
    OpenRows chooser{CMPath(addList)};
    OpenRows playlistChooser{CMPath(playlistAddList)};

    const QString add = q("/tidal/context/addToPlaylists?playlistId=%1&type=Tracks&id=").arg(id);
    EXPECT_EQ(eventPaths(world.set(add + QString::number(tracks[3]))),
              (QStringList{addList, q("/tidal/context")}));
    EXPECT_EQ(view.next(), q("+1 of 4"));
    EXPECT_EQ(chooser.next(), q("close"));
    EXPECT_EQ(world.tracksOf(id), (QList<qint64>{tracks[0], tracks[1], tracks[0], tracks[3]}));

    const QString remove =
        q("/tidal/playlistcontext/removeFromPlaylists?type=Tracks&playlistId=%1&rowNum=").arg(id);
    EXPECT_EQ(eventPaths(world.set(remove + q("2"))),
              (QStringList{playlistAddList, q("/tidal/playlistcontext")}));
    EXPECT_EQ(view.next(), q("-2 of 0"));
    EXPECT_EQ(playlistChooser.next(), q("close"));
    world.set(remove + q("0"));
    EXPECT_EQ(view.next(), q("-0 of 0"));
    EXPECT_EQ(world.tracksOf(id), (QList<qint64>{tracks[1], tracks[3]}));

    // In another order the row that showed a place is not known.
    world.set(add + QString::number(tracks[2]));
    EXPECT_EQ(view.next(), q("+1 of 3"));
    for (const char* setting : {"orderDirection Desc", "order Name"}) {
        const QStringList words = q(setting).split(QLatin1Char(' '));
        const QString path = q("/tidal/trackOrderingcontext/") + words[0];
        const KeloValue before = CMRoot().value(CMPath(path));
        world.set(path, words[1]);
        world.set(remove + q("1"));
        EXPECT_EQ(view.next(), q("reset"));
        world.set(path, before.toVariant());
    }
    EXPECT_EQ(world.tracksOf(id), QList<qint64>{tracks[1]});
    world.set(remove + q("0"));
    EXPECT_EQ(view.next(), q("-0 of 0"));

    // What could name another thing than a row is not sent at all.
    world.sim().reset();
    const QString move =
        q("/tidal/myPlaylistTrackscontext/moveTrack/move?playlistId=%1&rowNum=").arg(id);
    for (const char* row :
         {"", "..", "-1", "a", ",", "1,", ",1", "1,,2", " 1", "1.0", "99999999999", "1,-1"}) {
        const QString text = q("Which row of the playlist is not said");
        EXPECT_EQ(world.set(remove + q(row)).reply().error().message(), text) << row;
        EXPECT_EQ(world.set(move + q(row)).reply().error().message(), text) << row;
    }
    EXPECT_TRUE(world.set(move + q("0,1")).reply().error().isSet());
    EXPECT_EQ(world.requestLog(), QStringList());
    EXPECT_EQ(view.pending(), 0);
}

TEST(Editing, SendsNobodyToTheTracksOfADeletedPlaylist)
{
    EditWorld world;
    const QString menu = q("/tidal/playlistcontext");
    const auto erase = [&](const QString& id) {
        return eventPaths(world.set(menu + q("/removeFromPlaylists?type=Playlists&id=") + id));
    };
    // While no list has been shown there is none to reload.
    EXPECT_EQ(erase(world.newPlaylist("p", {})), (QStringList{playlistAddList, menu}));
    const QList<qint64> tracks = world.someTracks(2);
    const QString id = world.newPlaylist("p", tracks);
    const QString move = q("/tidal/myPlaylistTrackscontext/moveTrack/move?rowNum=1&playlistId=");
    EXPECT_EQ(eventPaths(world.set(move + id)), QStringList());
    EXPECT_EQ(world.tracksOf(id), (QList<qint64>{tracks[1], tracks[0]}));

    const CMPath list = KeloTidalMyPlaylistsPath();
    CMPath open = list;
    open.addParam(q("contentId"), id);
    CMPath others = list;
    const QString other = world.newPlaylist("q", tracks);
    others.addParam(q("contentId"), other);
    OpenRows lists(list);
    OpenRows view(open);
    OpenRows otherView(others);
    world.rows(others, 0, 9, {});
    EXPECT_EQ(erase(world.newPlaylist("r", {})),
              (QStringList{playlistAddList, menu, others.toEncoded()}));
    world.rows(open, 0, 9, {});
    EXPECT_EQ(erase(id), (QStringList{playlistAddList, menu, list.toEncoded()}));
    EXPECT_EQ(view.next(), q("close"));
    EXPECT_EQ(eventPaths(world.set(move + other)), QStringList{list.toEncoded()});
    EXPECT_EQ(erase(q("gone")).size(), 3);
    EXPECT_EQ(lists.pending() + view.pending() + otherView.pending(), 0);
}

TEST(Editing, AddsTheFirstFiftyPlayableTracksOfAList)
{
    EditWorld world;
    const QJsonArray lists =
        world.read(world.userPath(q("/playlists?limit=50"))).value(q("items")).toArray();
    QString whole;
    for (const QJsonValue& list : lists) {
        if (list.toObject().value(q("numberOfTracks")).toInt() > 50)
            whole = list.toObject().value(q("uuid")).toString();
    }
    ASSERT_FALSE(whole.isEmpty());
    QList<qint64> expected;
    const QJsonArray items =
        world.read(q("/playlists/%1/tracks?limit=50").arg(whole)).value(q("items")).toArray();
    for (const QJsonValue& item : items) {
        if (item.toObject().value(q("allowStreaming")).toBool())
            expected.append(qint64(item.toObject().value(q("id")).toDouble()));
    }
    const QString id = world.newPlaylist("p", {});
    CMPath open = KeloTidalMyPlaylistsPath();
    open.addParam(q("contentId"), id);
    OpenRows view(open);
    world.set(q("/tidal/playlistcontext/addToPlaylists?type=Playlists&id=%1&playlistId=%2")
                  .arg(whole, id));
    EXPECT_EQ(world.tracksOf(id), expected);
    // The list of ids ends in a comma, and that counts.
    EXPECT_EQ(view.next(), q("+%1 of %2").arg(expected.size() + 1).arg(expected.size()));

    // Of these the fourth alone: it may be played, and it is said which one it is.
    QByteArray offered;
    for (const char* fields :
         {"%", R"(%,"allowStreaming":null)", R"(%,"allowStreaming":"true")",
          R"(%,"allowStreaming":true)", R"(%,"allowStreaming":1)",
          R"("title":"T","allowStreaming":true)", R"("id":1.5,"allowStreaming":true)"})
        offered += (offered.isEmpty() ? "{" : ",{") +
                   QByteArray(fields).replace("%", "\"id\":" + QByteArray::number(expected[0])) +
                   "}";
    const QString other = world.newPlaylist("q", {});
    const CMSetDataRequest request(
        CMPath::fromEncoded(q("/tidal/context/addToPlaylists?playlistId=") + other), QString(), 1);
    world.onWorker([&] {
        world.worker()->getHandler()->responder()->on_addToPlaylistResponse_invoke(
            KeloUrl(), HttpClientPrivate(HttpClientPrivate::Data(request)), 200, 0,
            "{\"items\":[" + offered + "]}", HttpClientHeaders());
    });
    request.reply().waitForFinished(20000);
    EXPECT_EQ(world.tracksOf(other), QList<qint64>{expected[0]});
}

TEST(Editing, MovesATrackAndReloadsTheListThatWasOpen)
{
    EditWorld world;
    const QList<qint64> tracks = world.someTracks(4);
    const QString id = world.newPlaylist("p", tracks);
    const QString menu = q("/tidal/myPlaylistTrackscontext/moveTrack");
    const QString params = q("?playlistId=%1&rowNum=3&type=Tracks").arg(id);
    OpenRows open(CMPath::fromEncoded(menu + params));

    // Which list counts as open: the user's playlists, then the tracks of one; no other list.
    CMPath view = KeloTidalMyPlaylistsPath();
    world.rows(view, 0, 9, {});
    world.onWorker([&] { EXPECT_EQ(world.worker()->playlistPath(), view); });
    view.addParam(q("contentId"), id);
    world.rows(view, 0, 9, {});
    CMPath editorial(q("/tidal/req/playlists"));
    editorial.addParam(q("contentId"), id);
    world.rows(editorial, 0, 9, {});
    world.rows(CMPath(addList), 0, 9, {});
    world.rows(CMPath(playlistAddList), 0, 9, {});

    const CMGetRowsRequest rows =
        world.rows(CMPath::fromEncoded(menu + params), 0, 9, {KeloRoles::Path()});
    const QVariantList paths = rows.reply().value().rows().toList();
    ASSERT_EQ(paths.size(), 2);
    KeloValue row;
    row.setI64(1);
    world.set(paths.at(0).toList().value(0).toString(), row.toVariant());
    EXPECT_EQ(eventPaths(world.set(paths.at(1).toList().value(0).toString())),
              QStringList{view.toEncoded()});
    EXPECT_EQ(open.next(), q("close"));
    EXPECT_EQ(world.tracksOf(id), (QList<qint64>{tracks[0], tracks[3], tracks[1], tracks[2]}));

    // What is no row is not stored, and no place before the first one is moved to.
    const QString target = paths.at(0).toList().value(0).toString();
    EXPECT_EQ(world.set(target, q("abc")).reply().error().name(), CMError::BadRequestName());
    world.set(target, q("-1"));
    const CMSetDataRequest early = world.set(paths.at(1).toList().value(0).toString());
    EXPECT_EQ(early.reply().error().message(), q("The rows of a playlist are counted from 0"));
    world.set(target, q("1"));

    const QString beyond = menu + q("/move?playlistId=%1&rowNum=77").arg(id);
    EXPECT_EQ(world.set(beyond).reply().error().message(), q("Non existing track index"));
    EXPECT_TRUE(world.set(menu + q("/move?playlistId=") + id).reply().error().isSet());
}

TEST(Editing, BeginsAgainUntilTheTagHolds)
{
    EditWorld world;
    const QList<qint64> tracks = world.someTracks(3);
    const QString id = world.newPlaylist("p", tracks);
    EXPECT_EQ(world.sim().addFault("tag-lag count=3"), "");
    const QString remove =
        q("/tidal/playlistcontext/removeFromPlaylists?type=Tracks&playlistId=%1&rowNum=1").arg(id);
    EXPECT_EQ(eventPaths(world.set(remove)).size(), 2);
    EXPECT_EQ(world.tracksOf(id), (QList<qint64>{tracks[0], tracks[2]}));
    EXPECT_EQ(world.requestLog().filter(q("DELETE")).size(), 4);

    EXPECT_EQ(world.sim().addFault("tag-lag count=2"), "");
    // The whole playlist: named by the item's id alone.
    const QString erase = q("/tidal/playlistcontext/removeFromPlaylists?type=Playlists&id=") + id;
    EXPECT_EQ(eventPaths(world.set(erase)).size(), 2);
    EXPECT_EQ(world.read(q("/playlists/") + id).value(q("_status")).toInt(), 404);

    // A tag that never holds ends with the request's deadline, and so does the loop: what is on its
    // way then is the last of it.
    const QString other = world.newPlaylist("q", tracks);
    const QString path = q("/playlists/") + other;
    EXPECT_EQ(world.sim().addFault("tag-lag count=1000000 path=" + path.toStdString()), "");
    CMDeadlines deadlines;
    deadlines.set = std::chrono::milliseconds(50);
    CMRoot().setDeadlines(deadlines);
    const QString eraseOther = q("/tidal/playlistcontext/removeFromPlaylists?type=Playlists&id=");
    const auto given = world.set(eraseOther + other);
    CMRoot().setDeadlines(CMDeadlines());
    EXPECT_EQ(given.reply().error().name(), CMError::DeadlineName());
    const auto tries = [&] { return world.requestLog().filter(q("DELETE ") + path).size(); };
    const int before = tries();
    for (int i = 0; i < 10; ++i)
        world.set(eraseOther + world.newPlaylist("r", {}));
    EXPECT_LE(tries(), before + 1);
    EXPECT_EQ(world.tracksOf(other), tracks);
}
