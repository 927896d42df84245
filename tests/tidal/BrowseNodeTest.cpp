#include "ModuleWorld.h"
#include "TidalBrowseNode.h"
#include <gtest/gtest.h>

TEST(BrowseNode, AsksTheServiceForWhatPathAndParametersSay)
{
    ModuleWorld world;
    const QString user = QString::number(world.worker()->getHandler()->getAccount().userId());
    const struct
    {
        const char* path;
        const char* asked; ///< below the API's base
    } table[] = {
        {"/tidal/req/featured/new/albums", "/featured/new/albums"},
        {"/tidal/req/featured/new/albums?contentId=77&query=x&artistId=5", "/albums/77/tracks"},
        {"/tidal/req/playlists?contentId=u-7", "/playlists/u-7/tracks"},
        {"/tidal/search/choose/req/tracks?query=x", "/search/tracks"},
        {"/tidal/myMusic/req/favorites/users/tracks", "/users/USER/favorites/tracks"},
        {"/tidal/myMusic/req/created/users/playlists", "/users/USER/playlists"},
        {"/tidal/req/artists?artistId=9&artistContent=toptracks", "/artists/9/toptracks"},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.path);
        world.sim().reset();
        const auto request = world.rows(CMPath::fromEncoded(QLatin1String(row.path)), 0, 9, {});
        EXPECT_TRUE(request.reply().isFinished());
        const QByteArray asked =
            QString::fromLatin1(row.asked).replace(QLatin1String("USER"), user).toUtf8();
        EXPECT_TRUE(world.sim().waitForRequests(asked.toStdString(), 1, 0)) << asked.data();
    }
}

TEST(BrowseNode, RefusesRangesBelowZero)
{
    ModuleWorld world;
    world.sim().reset();
    const CMPath path(QStringLiteral("/tidal/req/featured/top/albums"));
    for (const auto& range : {std::pair<int, int>(-1, 5), {0, -1}, {-9, -5}}) {
        const auto request = world.rows(path, range.first, range.second, {});
        EXPECT_EQ(request.reply().error().name(), QStringLiteral("Error"));
        EXPECT_EQ(request.reply().error().message(), QStringLiteral("Bad rows request range"));
    }
    EXPECT_FALSE(world.sim().waitForRequests("/featured/top", 1, 0));
}

TEST(BrowseNode, LeavesPathsThatNoRequestAnswersWithoutAnAnswer)
{
    ModuleWorld world;
    for (const char* path : {"/tidal/req/artists", "/tidal/req/albums",
                             "/tidal/req/featured/new/tracks?contentId=7"}) {
        const auto request = world.rows(CMPath::fromEncoded(QLatin1String(path)), 0, 9, {});
        EXPECT_EQ(request.reply().error().name(), CMError::NoAnswerName()) << path;
    }
}
