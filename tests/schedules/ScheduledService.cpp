#include "ScheduledService.h"
#include <iterator>
#include <QByteArray>
#include <sys/socket.h>

namespace {
/// More are answered at once, so that the client's connections do not run out.
constexpr std::size_t mostHeld = 24;
constexpr int listLength = 3;
constexpr std::chrono::seconds patience(5);

std::uint64_t mixed(std::uint64_t value)
{
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9u;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebu;
    return value ^ (value >> 31);
}

std::string between(const std::string& text, const std::string& from, const std::string& ends)
{
    const auto start = text.find(from);
    if (start == std::string::npos)
        return {};
    const auto begin = start + from.size();
    return text.substr(begin, text.find_first_of(ends, begin) - begin);
}

bool contains(const std::string& text, const char* part)
{
    return text.find(part) != std::string::npos;
}

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// The last segment of a path, or the one before it.
std::string trackOf(const std::string& path)
{
    return between(path, "/tracks/", "/");
}

/// Of the path of a playlist itself; else empty.
std::string playlistOf(const std::string& path)
{
    const std::string rest = path.rfind("/playlists/", 0) == 0 ? path.substr(11) : std::string();
    return contains(rest, "/") ? std::string() : rest;
}

/// Whether a request changes what a playlist holds, or deletes it: the playlist is read before.
bool isTagged(const std::string& method, const std::string& path)
{
    return path.rfind("/playlists/", 0) == 0 &&
           (method == "DELETE" || (method == "POST" && contains(path, "/tracks")));
}

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}
} // namespace

const char* Account::quality() const
{
    static const char* const names[count] = {"LOW", "HIGH", "LOSSLESS", "HI_RES"};
    return names[number];
}

void ScheduledService::begin(const ServiceMood& mood)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_mood = mood;
    m_seen.clear();
    m_tokens.clear();
    m_good.clear();
    m_read.clear();
    m_lastToken.clear();
    m_refused.clear();
    m_owed.clear();
    m_wrong.clear();
}

void ScheduledService::behave()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_mood.holds = 0;
    m_mood.faults = 0;
}

std::string ScheduledService::issueToken(int account)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return makeToken(account);
}

std::string ScheduledService::makeToken(int account)
{
    m_lastToken = "t" + std::to_string(account) + "-" + std::to_string(m_tokens.size());
    m_tokens[m_lastToken] = account;
    m_good[account] = m_lastToken;
    return m_lastToken;
}

void ScheduledService::expireToken()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_good[m_tokens[m_lastToken]].clear();
}

std::string ScheduledService::tokenReported(const std::string& token)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_refused.count(token) && m_wrong.empty())
        m_wrong = "the token " + quoted(token) + " is reported, but was not refused";
    m_owed.erase(token);
    const int account = m_tokens[m_lastToken];
    return token == m_lastToken && m_good[account].empty() ? makeToken(account) : std::string();
}

void ScheduledService::forgetRefusals()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_owed.clear();
}

bool ScheduledService::isReportOwed() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_owed.count(m_lastToken) > 0;
}

void ScheduledService::release(unsigned pick, bool isDropped)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_held.empty())
        return;
    const auto found = std::next(m_held.begin(), pick % m_held.size());
    Request request = found->second;
    m_held.erase(found);
    if (isDropped)
        request.fate = Dropped;
    answer(request);
}

int ScheduledService::heldCount() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return int(m_held.size());
}

void ScheduledService::happened()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    ++m_events;
    m_changed.notify_all();
}

bool ScheduledService::waitForEvent(std::uint64_t seen) const
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_changed.wait_for(lock, patience, [&] { return m_events != seen; });
}

std::string ScheduledService::wrong() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_wrong;
}

void ScheduledService::setWrong(const std::string& text)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_wrong.empty())
        m_wrong = text;
}

void ScheduledService::ended(int fd)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    for (auto it = m_held.begin(); it != m_held.end();)
        it = it->second.fd == fd ? m_held.erase(it) : std::next(it);
    ++m_events;
    m_changed.notify_all();
}

ScriptedServer::Answer ScheduledService::take(const std::string& text, int fd)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Request request;
    request.fd = fd;
    request.method = text.substr(0, text.find(' '));
    const std::string target = between(text, " ", " ");
    request.path = target.substr(3, target.find('?') - 3); // behind "/v1" or "/v2"
    request.query = between(target, "?", " ") + '&';
    request.token = between(text, "Authorization: Bearer ", "\r");
    const auto known = m_tokens.find(request.token);
    if (known != m_tokens.end())
        request.account = known->second;
    check(request);

    const std::string address = request.method + request.path;
    const Key key(address, m_seen[address]++);
    const std::uint64_t dice =
        mixed(m_mood.seed + mixed(std::hash<std::string>()(address) + std::uint64_t(key.second)));
    if (dice / 100 % 100 < m_mood.faults)
        request.fate = Fate(dice / 10000 % (StaleTag + 1));
    if (dice % 100 < m_mood.holds && m_held.size() < mostHeld)
        m_held.emplace(key, request);
    else
        answer(request);
    ++m_events;
    m_changed.notify_all();
    return {};
}

void ScheduledService::check(const Request& request)
{
    std::string wrong;
    const std::string user = between(request.path, "/users/", "/");
    const std::string playlist = between(request.path, "/playlists/", "/");
    const std::string quality = between(request.query, "audioquality=", "&");
    const std::string country = between(request.query, "countryCode=", "&");
    if (request.account < 0) {
        wrong = "no token of an account";
    } else {
        const Account account{request.account};
        if (!user.empty() && user != std::to_string(account.userId()))
            wrong = "another user";
        else if (!quality.empty() && quality != account.quality())
            wrong = "the quality of another subscription";
        else if (contains(request.query, "countryCode=&"))
            wrong = "no country";
        else if (isTagged(request.method, request.path) &&
                 !m_read.count({request.account, playlist}))
            wrong = "an edit that another login has begun";
        for (int other = 0; other < Account::count; ++other) {
            if (other != account.number && country == Account{other}.country())
                wrong = "another country";
        }
    }
    if (!wrong.empty() && m_wrong.empty())
        m_wrong = wrong + ": " + request.method + ' ' + request.path + '?' + request.query +
                  " with the token " + quoted(request.token);
}

ScheduledService::Answer ScheduledService::refusal(const Request& request)
{
    // The first one after a login may be sent ahead of the worker's notice of it, and count for
    // none.
    const bool isFirst = request.path == "/sessions";
    m_refused.insert(request.token);
    // Nor does one whose worker has gone meanwhile.
    char next = 0;
    const bool isOpen = ::recv(request.fd, &next, 1, MSG_PEEK | MSG_DONTWAIT) != 0;
    if (!isFirst && isOpen)
        m_owed.insert(request.token);
    return {401, R"({"status":401,"subStatus":6001,"userMessage":"The token has expired"})"};
}

ScheduledService::Answer ScheduledService::answerTo(const Request& request)
{
    const bool isSetUp =
        contains(request.path, "/sessions") || endsWith(request.path, "/subscription");
    if (request.fate == Refused || request.token != m_good[request.account])
        return refusal(request);
    if (request.fate == FailedBare || (request.fate == Broken && isSetUp))
        return {503, {}};
    if (request.fate == Failed)
        return {404,
                R"({"status":404,"userMessage":"[)" + trackOf(request.path) + R"(] not found"})"};
    if (request.fate == StaleTag && request.method != "GET")
        return {412, R"({"status":412,"subStatus":7002,"userMessage":"stale"})"};
    const bool isCreation = request.method == "POST" && endsWith(request.path, "/playlists");
    const std::string body = goodBody(request);
    return {isCreation ? 201 : 200,
            request.fate == Broken ? body.substr(0, body.size() / 2) : body};
}

std::string ScheduledService::goodBody(const Request& request)
{
    const Account account{request.account};
    const std::string owner = "A" + std::to_string(account.number);
    const std::string& path = request.path;
    if (path == "/sessions")
        return R"({"sessionId":"s","countryCode":")" + account.country() + R"(","userId":)" +
               std::to_string(account.userId()) + "}";
    if (endsWith(path, "/subscription"))
        return R"({"highestSoundQuality":")" + std::string(account.quality()) + R"("})";
    if (path == "/featured" || path == "/genres" || path == "/moods")
        return R"([{"name":"New","path":"new"}])";
    if (endsWith(path, "/bio"))
        return R"({"text":")" + owner + R"("})";
    if (path.rfind("/tracks/", 0) == 0) {
        const std::string id = (request.fate == OtherId ? "9" : "") + trackOf(path);
        if (!contains(path, "/playbackinfo"))
            return R"({"id":)" + id + R"(,"title":")" + owner + '|' + id +
                   R"(","artist":{"id":5,"name":"x"},"album":{"id":6,"title":"y","cover":"z"}})";
        const std::string manifest =
            R"({"mimeType":"audio/flac","urls":["http://audio/)" + owner + '|' + id + R"("]})";
        return R"({"trackId":)" + id +
               R"(,"manifestMimeType":"application/vnd.tidal.bts","manifest":")" +
               QByteArray::fromStdString(manifest).toBase64().toStdString() + R"("})";
    }
    if (request.method != "GET")
        return endsWith(path, "/playlists") ? R"({"uuid":"p7"})" : "{}";
    if (const std::string playlist = playlistOf(path); !playlist.empty())
        return R"({"uuid":")" + playlist + R"("})";
    return listBody(request, owner);
}

std::string ScheduledService::listBody(const Request& request, const std::string& owner)
{
    const bool isWrapped = contains(request.path, "/favorites/");
    std::string items;
    for (int i = 1; i <= listLength; ++i) {
        const std::string number = std::to_string(i);
        const std::string title = quoted(owner + '|' + request.path + '|' + number);
        items += (i > 1 ? "," : "") + std::string(isWrapped ? R"({"item":)" : "") + R"({"id":)" +
                 number + R"(,"uuid":"p)" + number + R"(","title":)" + title + R"(,"name":)" +
                 title + R"(,"allowStreaming":true,"artist":{"id":5,"name":"x"}})" +
                 (isWrapped ? "}" : "");
    }
    return R"({"totalNumberOfItems":)" + std::to_string(listLength) + R"(,"items":[)" + items +
           "]}";
}

void ScheduledService::answer(const Request& request)
{
    if (request.fate == Dropped) {
        ::shutdown(request.fd, SHUT_RDWR);
        return;
    }
    const Answer answer = answerTo(request);
    if (const std::string playlist = playlistOf(request.path); request.method == "GET")
        m_read.insert({request.account, answer.status == 200 ? playlist : std::string()});
    const std::string bytes =
        ScriptedServer::whole(answer.body, "ETag: \"e\"\r\n", std::to_string(answer.status) + " x");
    // Small enough for the socket's buffer; a client that is gone is noticed when it is read.
    ::send(request.fd, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
}
