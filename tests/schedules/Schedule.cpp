#include "Schedule.h"

const std::vector<Ask>& asks()
{
    static const std::vector<Ask> all = {
        {Ask::Rows, "/tidal"},
        {Ask::Rows, "/tidal/new"},
        {Ask::Rows, "/tidal/myMusic"},
        {Ask::Rows, "/tidal/req/featured/new/albums", "|/featured/new/albums|"},
        {Ask::Rows, "/tidal/req/featured/new/playlists", "|/featured/new/playlists|"},
        {Ask::Rows, "/tidal/myMusic/req/favorites/users/tracks", "/favorites/tracks|"},
        {Ask::Rows, "/tidal/myMusic/req/favorites/users/artists", "/favorites/artists|"},
        {Ask::Rows, "/tidal/myMusic/req/created/users/playlists", "/playlists|"},
        {Ask::Rows, "/tidal/myMusic/req/created/users/playlists?contentId=p%t",
         "|/playlists/p%t/tracks|"},
        {Ask::Rows, "/tidal/req/albums?contentId=%t", "|/albums/%t/tracks|"},
        {Ask::Rows, "/tidal/req/artists?artistId=%t"},
        {Ask::Rows, "/tidal/req/artists?artistId=%t&artistContent=toptracks",
         "|/artists/%t/toptracks|"},
        {Ask::Rows, "/tidal/req/artists?artistId=1&artistContent=radio", "|/artists/1/radio|"},
        {Ask::Rows, "/tidal/search/choose/req/tracks?query=%t", "|/search/tracks|"},
        {Ask::Rows, "/tidal/search/choose/req/tracks", nullptr, nullptr, false},
        {Ask::Rows, "/tidal/playlistcontext?id=p1&type=Playlists"},
        {Ask::Rows, "/tidal/context?id=%t&type=Tracks&artists=x_5"},
        {Ask::Rows, "/tidal/context/addToPlaylists/req/created/users/playlists?id=%t&type=Tracks",
         "/playlists|", nullptr, false},
        {Ask::Data, "/tidal/myMusic"},
        {Ask::Data, "/tidal/context/favorites?id=%t&type=Tracks"},
        {Ask::Set, "/tidal/context/favorites?id=%t&type=Tracks"},
        {Ask::Set, "/tidal/context/addToPlaylists?playlistId=p1&type=Tracks&id=%t"},
        {Ask::Set, "/tidal/playlistcontext/addToPlaylists?playlistId=p1&type=Playlists&id=p%t"},
        {Ask::Set, "/tidal/playlistcontext/removeFromPlaylists?playlistId=p1&type=Tracks&rowNum=0"},
        {Ask::Set, "/tidal/playlistcontext/removeFromPlaylists?id=p%t&type=Playlists"},
        {Ask::Set,
         "/tidal/myPlaylistTrackscontext/moveTrack/move?playlistId=p1&type=Tracks&rowNum=1"},
        {Ask::Set, "/tidal/createPlaylist/title", nullptr, "new"},
        {Ask::Set, "/tidal/createPlaylist/accept"},
        {Ask::Set, "/tidal/createPlaylist/accept?id=%t&type=Tracks"},
        {Ask::Set, "/tidal/updatePlaylists/accept?id=p%t&type=Playlists"},
        {Ask::Set, "/tidal/orderingcontext/order", nullptr, "Date"},
        {Ask::Set, "/tidal/req/artists?artistId=%t&artistContent=bio"},
        {Ask::Play, "/tidal/playId", nullptr, "%t"},
        {Ask::Play, "/tidal/prePlay/%t", nullptr, "%t"},
        {Ask::Play, "/tidal/playMedia", nullptr, "%t"}};
    return all;
}

Schedule::Schedule(std::uint64_t seed)
{
    std::mt19937_64 random(seed);
    const auto number = [&random](int below) { return int(random() % std::uint64_t(below)); };
    const auto oneOf = [&](std::initializer_list<unsigned> values) {
        return values.begin()[number(int(values.size()))];
    };
    mood.seed = random();
    mood.holds = oneOf({0, 40, 80});
    const bool isCalm = number(4) == 0;
    mood.faults = isCalm ? 0 : oneOf({0, 0, 15, 40});
    isImpatient = !isCalm && number(12) == 0;
    const int clients = 1 + number(mostClients);
    const int settles = int(oneOf({0, 30, 70, 100}));
    // Some schedules dwell on one kind of request.
    const int favourite = number(int(asks().size()));
    const int loyalty = int(oneOf({0, 0, 60}));
    if (isCalm || number(4) > 0)
        steps.push_back({Step::Login, number(Account::count), 0});
    static const Step::Kind others[] = {Step::Release, Step::Release, Step::Release, Step::Release,
                                        Step::Release, Step::Release, Step::Drop,    Step::Login,
                                        Step::Login,   Step::Login,   Step::Logout,  Step::Logout,
                                        Step::Renew,   Step::Expire,  Step::Settings};
    for (int count = 4 + number(20); count > 0; --count) {
        Step step{Step::Ask, number(clients), number(100)};
        if (number(100) < 55) {
            const int ask = number(100) < loyalty ? favourite : number(int(asks().size()));
            step.what = ask * 100 + step.what;
        } else {
            step.kind = !isCalm && number(60) == 0
                            ? Step::Restart
                            : others[number(isCalm ? 6 : int(std::size(others)))];
            if (step.kind == Step::Login)
                step.who = number(Account::count);
        }
        steps.push_back(step);
        if (number(100) < settles)
            steps.push_back({Step::Settle, 0, 0});
    }
}

std::string Schedule::toString() const
{
    static const char* const names[] = {"ask",   "release", "drop",     "login",   "logout",
                                        "renew", "expire",  "settings", "restart", "settle"};
    std::string text = "holds " + std::to_string(mood.holds) + " %, faults " +
                       std::to_string(mood.faults) + (isImpatient ? " %, impatient\n" : " %\n");
    for (const Step& step : steps) {
        text += std::string("  ") + names[step.kind];
        if (step.kind == Step::Ask)
            text += " client " + std::to_string(step.who) + ": " +
                    asks()[std::size_t(step.what / 100)].path +
                    " %t=" + std::to_string(step.what % 100);
        else if (step.kind == Step::Login)
            text += " account " + std::to_string(step.who);
        text += '\n';
    }
    return text;
}
