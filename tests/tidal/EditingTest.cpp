#include "ModuleTest.h"

namespace {
const QString addList = "/tidal/context/addToPlaylists/req/created/users/playlists";
const QString playlistAddList = "/tidal/playlistcontext/addToPlaylists/req/created/users/playlists";
const QString removal = "/tidal/playlistcontext/removeFromPlaylists?";
const QString menu = "/tidal/playlistcontext";
const QString moveMenu = "/tidal/myPlaylistTrackscontext/moveTrack";

class EditingTest : public SimulatedTest
{
protected:
    using Tracks = QList<qint64>;
    /// What the clients are told to reload, after the answer.
    static QStringList eventPaths(const CMSetDataRequest& request)
    {
        QStringList paths;
        for (const KeloEvent& event : actionOf(request).events()) {
            EXPECT_EQ(event.rowsType(), 1);
            paths << event.path().toEncoded();
        }
        return paths;
    }
    QStringList erase(const QString& id)
    {
        return eventPaths(set(removal + "type=Playlists&id=" + id));
    }
    /// Where the tracks of one of the user's playlists are listed.
    QString tracksPath(const QString& id) const { return list + "?contentId=" + id; }
    const QString list = KeloTidalMyPlaylistsPath().toEncoded();
    const Tracks tracks = playable("/featured/new/tracks?limit=50").mid(0, 4);
};

TEST_F(EditingTest, TogglesAFavoriteByWhatTheServiceSays)
{
    OpenRows shown("/tidal/myMusic/req/favorites/users/tracks");
    const QString path = "/tidal/context/favorites?type=Playlists&id=" + newPlaylist("p");
    const auto title = [&] {
        const CMGetDataRequest request = askData(path, {"unknown", KeloRoles::Title()});
        EXPECT_EQ(errorOf(request), "");
        return request.reply().value().value(1).toString();
    };
    const auto count = [&] {
        return read(userPath + "/favorites/playlists").value("totalNumberOfItems").toInt();
    };
    const int before = count();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(title(), "Add to favorites");
        EXPECT_EQ(eventPaths(set(path)), QStringList("/tidal/context"));
        // The menu names the list that is told, not the item.
        EXPECT_EQ(shown.next(), "reset");
        EXPECT_EQ(count(), before + 1);
        EXPECT_EQ(title(), "Remove from favorites");
        setAndWait(path);
        EXPECT_EQ(shown.next(), "reset");
        EXPECT_EQ(count(), before);
    }
    EXPECT_EQ(eventPaths(set("/tidal/basecontext/favorites?id=4000003&type=Artists")),
              QStringList("/tidal/basecontext"));
    EXPECT_EQ(shown.pending(), 0);
}

TEST_F(EditingTest, AddsAndRemovesTracksAndTellsOpenViews)
{
    const QString id = newPlaylist("p", {tracks[0], tracks[1], tracks[0]});
    OpenRows view(tracksPath(id) + "&playlistId=" + id);
    OpenRows chooser(addList);
    OpenRows playlistChooser(playlistAddList);

    const QString add = "/tidal/context/addToPlaylists?type=Tracks&playlistId=" + id + "&id=";
    EXPECT_EQ(eventPaths(set(add + QString::number(tracks[3]))),
              (QStringList{addList, "/tidal/context"}));
    EXPECT_EQ(view.next(), "+1 of 4");
    EXPECT_EQ(chooser.next(), "close");
    EXPECT_EQ(tracksIn(id), (Tracks{tracks[0], tracks[1], tracks[0], tracks[3]}));

    const QString remove = removal + "type=Tracks&playlistId=" + id + "&rowNum=";
    EXPECT_EQ(eventPaths(set(remove + "2")), (QStringList{playlistAddList, menu}));
    EXPECT_EQ(view.next(), "-2 of 0");
    EXPECT_EQ(playlistChooser.next(), "close");
    EXPECT_EQ(tracksIn(id), (Tracks{tracks[0], tracks[1], tracks[3]}));

    // In another order the row that showed a place is not known.
    setAndWait(add + QString::number(tracks[2]));
    EXPECT_EQ(view.next(), "+1 of 4");
    for (const auto& [setting, value] : {std::pair("orderDirection", "Desc"), {"order", "Name"}}) {
        const QString path = q("/tidal/trackOrderingcontext/") + setting;
        const KeloValue before = CMRoot().value(CMPath(path));
        setAndWait(path, value);
        setAndWait(remove + "1");
        EXPECT_EQ(view.next(), "reset");
        setAndWait(path, before.toVariant());
    }
    EXPECT_EQ(tracksIn(id).size(), 2);
    setAndWait(remove + "0");
    EXPECT_EQ(view.next(), "-0 of 0");

    // The list of ids of a playlist that is added ends in a comma, and that counts.
    const QString list = menu + "/addToPlaylists?type=Playlists&id=" + newPlaylist("q", tracks);
    setAndWait(list + "&playlistId=" + id);
    EXPECT_EQ(view.next(), "+5 of 5");
    EXPECT_EQ(tracksIn(id).mid(1), tracks);

    // What could name another thing than a row is not sent at all.
    m_sim.reset();
    const QString move = moveMenu + "/move?playlistId=" + id + "&rowNum=";
    for (const char* row : {"", "..", "-1", "a", "1,", "1,,2", " 1", "99999999999"}) {
        const QString text = "Which row of the playlist is not said";
        EXPECT_EQ(errorOf(set(remove + row)), text) << row;
        EXPECT_EQ(errorOf(set(move + row)), text) << row;
    }
    EXPECT_NE(errorOf(set(move + "0,1")), "");
    EXPECT_EQ(requestLog(), QStringList());
    EXPECT_EQ(view.pending(), 0);
}

TEST_F(EditingTest, SendsNobodyToTheTracksOfADeletedPlaylist)
{
    // While no list has been shown there is none to reload.
    EXPECT_EQ(erase(newPlaylist("p")), (QStringList{playlistAddList, menu}));
    const QString id = newPlaylist("p", tracks.mid(0, 2));
    const QString move = moveMenu + "/move?rowNum=1&playlistId=";
    EXPECT_EQ(eventPaths(set(move + id)), QStringList());
    EXPECT_EQ(tracksIn(id), (Tracks{tracks[1], tracks[0]}));

    const QString other = newPlaylist("q", tracks);
    OpenRows lists(list);
    OpenRows view(tracksPath(id));
    OpenRows otherView(tracksPath(other));
    wait(askRows(tracksPath(other)));
    EXPECT_EQ(erase(newPlaylist("r")), (QStringList{playlistAddList, menu, tracksPath(other)}));
    wait(askRows(tracksPath(id)));
    EXPECT_EQ(erase(id), (QStringList{playlistAddList, menu, list}));
    EXPECT_EQ(view.next(), "close");
    EXPECT_EQ(eventPaths(set(move + other)), QStringList(list));

    // An edit of a playlist that is gone ends with reading it.
    m_sim.reset();
    EXPECT_EQ(erase("gone").size(), 3);
    EXPECT_EQ(eventPaths(set(removal + "playlistId=gone&id=gone&type=Tracks&rowNum=1")).size(), 2);
    EXPECT_EQ(errorOf(set(move + "gone")), "Non existing track index");
    EXPECT_EQ(requestLog().filter("gone").count("GET /playlists/gone"), 3);
    EXPECT_EQ(requestLog().filter("gone").size(), 3);
    EXPECT_EQ(lists.pending() + view.pending() + otherView.pending(), 0);
}

TEST_F(EditingTest, MovesATrackAndReloadsTheListThatWasOpen)
{
    const QString id = newPlaylist("p", tracks);
    const QString item = moveMenu + "?playlistId=" + id + "&rowNum=3&type=Tracks";
    OpenRows open(item);

    // Which list counts as open: the user's playlists, then the tracks of one; no other list.
    const QString view = tracksPath(id);
    for (const QString& path :
         {list, view, "/tidal/req/playlists?contentId=" + id, addList, playlistAddList})
        wait(askRows(path));

    const QStringList rows = column(item, KeloRoles::Path());
    ASSERT_EQ(rows.size(), 2);
    setAndWait(rows[0], 1);
    EXPECT_EQ(eventPaths(set(rows[1])), QStringList(view));
    EXPECT_EQ(open.next(), "close");
    EXPECT_EQ(tracksIn(id), (Tracks{tracks[0], tracks[3], tracks[1], tracks[2]}));

    // What is no row is not stored, and no place before the first one is moved to.
    EXPECT_EQ(setAndWait(rows[0], "abc").reply().error().name(), CMError::BadRequestName());
    setAndWait(rows[0], "-1");
    EXPECT_EQ(errorOf(set(rows[1])), "The rows of a playlist are counted from 0");

    // Nobody is sent to a list of the login before.
    setLoggedIn(false);
    settle();
    onWorker([&](TidalHandler&) { EXPECT_TRUE(worker()->playlistPath().isEmpty()); });
    // Genres and moods stay; they are not asked for again.
    setLoggedIn(true, QString::fromStdString(m_sim.issueToken()));
    EXPECT_TRUE(m_sim.waitForRequests("/featured", 2, 20000));
    wait(askRows(list));
    EXPECT_EQ(requestLog().count("GET /genres"), 1);
}

TEST_F(EditingTest, TellsEveryClientWhatHasHappenedAndNothingElse)
{
    std::mutex mutex;
    std::condition_variable changed;
    QStringList told;
    const quint64 watch = CMRoot().watchEdits([&](const CMEdit& edit) {
        std::lock_guard<std::mutex> lock(mutex);
        EXPECT_TRUE(edit.reply.toHash().contains("events"));
        told << edit.action + ' ' + edit.path.base() + ' ' + edit.item.toEncoded();
        changed.notify_all();
    });
    const auto isTold = [&](const CMSetDataRequest& edit, const QString& action,
                            const QString& item) {
        EXPECT_EQ(errorOf(edit), "");
        std::unique_lock<std::mutex> lock(mutex);
        // The answer may be faster.
        return changed.wait_for(lock, std::chrono::seconds(20), [&] { return !told.isEmpty(); }) &&
               told.takeFirst() == action + ' ' + edit.path().base() + ' ' + item;
    };
    const QString id = newPlaylist("p", tracks.mid(0, 2));
    const QString favorite = "/tidal/context/favorites?type=Albums&id=500003";
    const QString item = "/tidal/req/albums?contentId=500003";
    // Who says what it is to be gets that, whatever was asked about last.
    for (const bool isWanted : {true, false}) {
        EXPECT_EQ(errorOf(askData("/tidal/context/favorites?type=Artists&id=1")), "");
        EXPECT_TRUE(isTold(set(favorite, isWanted, KeloRoles::Favorite()),
                           isWanted ? "favorite" : "unfavorite", item));
    }
    EXPECT_TRUE(isTold(set("/tidal/basecontext/favorites?id=900391&type=Artists"), "favorite",
                       "/tidal/req/artists?artistId=900391"));
    const QString track = QString::number(tracks[3]);
    EXPECT_TRUE(isTold(set("/tidal/context/favorites?type=Tracks&id=" + track), "favorite", ""));
    EXPECT_TRUE(
        isTold(set("/tidal/context/addToPlaylists?type=Tracks&playlistId=" + id + "&id=" + track),
               "add", tracksPath(id)));
    EXPECT_TRUE(isTold(set(moveMenu + "/move?rowNum=1&playlistId=" + id), "move", tracksPath(id)));
    EXPECT_TRUE(
        isTold(set(removal + "type=Tracks&rowNum=0&playlistId=" + id), "remove", tracksPath(id)));
    setAndWait("/tidal/createPlaylist/title", "made");
    EXPECT_TRUE(isTold(set("/tidal/createPlaylist/accept"), "create", ""));
    setAndWait("/tidal/updatePlaylists/title", "renamed");
    EXPECT_TRUE(isTold(set("/tidal/updatePlaylists/accept?id=" + id), "rename", tracksPath(id)));
    EXPECT_TRUE(isTold(set(removal + "type=Playlists&id=" + id), "delete", tracksPath(id)));

    // A refusal, which some edits answer like a success.
    EXPECT_EQ(m_sim.addFault("status status=500 path=" + userPath.toStdString() + "/favorites"),
              "");
    EXPECT_EQ(eventPaths(set(favorite, true, KeloRoles::Favorite())).size(), 1);
    EXPECT_NE(errorOf(set("/tidal/createPlaylist/accept")), "");
    EXPECT_EQ(erase("gone").size(), 2);
    setAndWait("/tidal/trackOrderingcontext/orderDirection", "Asc");
    settle();
    CMRoot().unwatch(watch);
    EXPECT_EQ(told.join('\n'), "");
}

TEST_F(EditingTest, BeginsAgainUntilTheTagHolds)
{
    const QString id = newPlaylist("p", tracks.mid(0, 3));
    EXPECT_EQ(m_sim.addFault("tag-lag count=3"), "");
    const QString remove = removal + "type=Tracks&rowNum=1&playlistId=" + id;
    EXPECT_EQ(eventPaths(set(remove)).size(), 2);
    EXPECT_EQ(tracksIn(id), (Tracks{tracks[0], tracks[2]}));
    EXPECT_EQ(requestLog().filter("DELETE").size(), 4);

    EXPECT_EQ(m_sim.addFault("tag-lag count=2"), "");
    EXPECT_EQ(erase(id).size(), 2);
    EXPECT_EQ(read("/playlists/" + id).value("_status").toInt(), 404);
}
} // namespace
