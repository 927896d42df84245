#include "OAuth2.h"

#include "Json.h"
#include "Library.h"

#include <algorithm>
#include <random>

namespace kelosim {

namespace {

constexpr std::int64_t lifetimeSeconds = 604800;
constexpr std::size_t maxDevices = 1000;
constexpr std::size_t maxTokens = 10000;
constexpr const char* deviceGrant = "urn:ietf:params:oauth:grant-type:device_code";

// The authorisation server spells sub_status unlike the web API.
HttpResponse namedError(const std::string& name)
{
    struct Error
    {
        int status;
        int subStatus;
        const char* description;
    };
    static const std::map<std::string, Error> errors = {
        {"authorization_pending", {400, 1002, "Device Authorization code is not authorized yet"}},
        {"slow_down", {400, 1003, "Polling too fast"}},
        {"expired_token", {400, 1004, "Device code has expired"}},
        {"access_denied", {400, 1006, "The user denied the authorization"}},
        {"unsupported_grant_type", {400, 1002, "Grant type is not supported"}},
        {"invalid_grant", {400, 11101, "Token could not be verified"}},
        {"invalid_client", {401, 1005, "Client not found"}}};
    const auto it = errors.find(name);
    const Error error = it == errors.end() ? Error{400, 1002, "Refused"} : it->second;
    JsonWriter json;
    json.beginObject().field("status", error.status).field("error", name);
    json.field("sub_status", error.subStatus).field("error_description", error.description);
    return HttpResponse::json(error.status, json.endObject().take());
}

// Client id and secret from the form or from Basic authorisation.
bool clientKnown(const HttpRequest& request, const Pairs& form, bool withSecret)
{
    std::string id = textKey(form, "client_id");
    std::string secret = textKey(form, "client_secret");
    const std::string* header = request.header("Authorization");
    if (header && startsWith(*header, "Basic ")) {
        const std::string pair = base64Decode(std::string_view(*header).substr(6));
        const std::size_t colon = pair.find(':');
        id = percentDecode(pair.substr(0, colon));
        secret = colon == std::string::npos ? "" : percentDecode(pair.substr(colon + 1));
    }
    return id == OAuth2::clientId && (!withSecret || secret == OAuth2::clientSecret);
}

void writeUser(JsonWriter& json)
{
    json.key("user").beginObject().field("userId", Library::userId);
    json.field("email", "x@example.invalid").field("countryCode", Catalogue::homeCountry);
    for (const char* name : {"fullName", "firstName", "lastName", "nickname"})
        json.field(name, nullptr);
    json.field("username", "x@example.invalid");
    for (const char* name : {"address", "city", "postalcode", "usState", "phoneNumber", "birthday"})
        json.field(name, nullptr);
    json.field("channelId", 1).field("parentId", 0).field("acceptedEULA", true);
    json.field("created", 1546300800000).field("updated", 1714500000000).field("facebookUid", 0);
    json.field("appleUid", nullptr).field("googleUid", nullptr).field("accountLinkCreated", false);
    json.field("emailVerified", true).field("newUser", false).endObject();
}

} // namespace

std::string OAuth2::secret(const char* prefix)
{
    std::random_device source;
    const std::uint64_t random = std::uint64_t(source()) << 32 | source();
    ++m_secrets;
    return prefix + hex(mix(random, m_secrets), 16) + hex(mix(random, m_secrets, 1), 16);
}

HttpResponse OAuth2::deviceAuthorization(const HttpRequest& request, const std::string& address)
{
    const Pairs form = parsePairs(request.body);
    if (const auto fault = m_faults.use("oauth-code", request))
        return namedError(textKey(*fault, "error"));
    if (!clientKnown(request, form, false))
        return namedError("invalid_client");
    const Pairs numbers = m_faults.use("device-code").value_or(Pairs());
    const std::int64_t expires = numberKey(numbers, "expires", 300);
    const std::int64_t interval = numberKey(numbers, "interval", 2);
    const bool bare = m_faults.use("bare-link").has_value();
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_devices.size() >= maxDevices)
        m_devices.clear();
    Device device;
    const std::string code = secret("d0d0-");
    for (std::uint64_t i = 0; i < 5; ++i)
        device.userCode += char('A' + mix(m_secrets, i, code.size(), code[9]) % 26);
    device.state = m_approvals-- > 0 ? State::Approved : State::Pending;
    device.expires = nowMs() + expires * 1000;
    device.interval = interval * 1000;
    m_devices[code] = device;
    const std::string link = address.substr(bare ? address.find("//") + 2 : 0) + "/link";
    JsonWriter json;
    json.beginObject().field("deviceCode", code).field("userCode", device.userCode);
    json.field("verificationUri", link);
    json.field("verificationUriComplete", link + "/" + device.userCode);
    json.field("expiresIn", expires).field("interval", interval).endObject();
    return HttpResponse::json(200, json.take());
}

HttpResponse OAuth2::token(const HttpRequest& request)
{
    const Pairs form = parsePairs(request.body);
    if (const auto fault = m_faults.use("oauth", request))
        return namedError(textKey(*fault, "error"));
    if (!clientKnown(request, form, true))
        return namedError("invalid_client");
    const std::lock_guard<std::mutex> lock(m_mutex);
    const std::string type = textKey(form, "grant_type");
    if (type == deviceGrant)
        return deviceToken(form);
    if (type == "refresh_token")
        return refreshToken(form);
    return namedError("unsupported_grant_type");
}

HttpResponse OAuth2::deviceToken(const Pairs& form)
{
    const auto it = m_devices.find(textKey(form, "device_code"));
    if (it == m_devices.end() || nowMs() >= it->second.expires)
        return namedError("expired_token");
    Device& device = it->second;
    const std::int64_t now = nowMs();
    const bool tooFast = device.lastPoll != 0 && now - device.lastPoll < device.interval - 250;
    device.lastPoll = now;
    if (device.state == State::Denied)
        return namedError("access_denied");
    if (device.state == State::Pending)
        return namedError(tooFast ? "slow_down" : "authorization_pending");
    m_devices.erase(it);
    const std::string refresh = secret("sim-rt-");
    m_refreshTokens[refresh] = true;
    return grant(refresh);
}

HttpResponse OAuth2::refreshToken(const Pairs& form)
{
    const auto it = m_refreshTokens.find(textKey(form, "refresh_token"));
    if (it == m_refreshTokens.end() || !it->second)
        return namedError("invalid_grant");
    if (!m_faults.use("rotate-refresh"))
        return grant({});
    it->second = false;
    const std::string next = secret("sim-rt-");
    m_refreshTokens[next] = true;
    return grant(next);
}

HttpResponse OAuth2::grant(const std::string& refreshToken)
{
    std::int64_t seconds = lifetimeSeconds;
    if (const auto fault = m_faults.use("token-lifetime"))
        seconds = numberKey(*fault, "seconds", seconds);
    JsonWriter json;
    json.beginObject().field("scope", "r_usr w_usr w_sub");
    writeUser(json);
    json.field("clientName", "Example_1.0").field("token_type", "Bearer");
    json.field("access_token", newAccessToken(seconds));
    if (!refreshToken.empty())
        json.field("refresh_token", refreshToken);
    json.field("expires_in", seconds).field("user_id", Library::userId).endObject();
    return HttpResponse::json(200, json.take());
}

std::string OAuth2::newAccessToken(std::int64_t seconds)
{
    if (m_accessTokens.size() >= maxTokens)
        m_accessTokens.clear();
    const std::string token = secret("sim-at-");
    m_accessTokens[token] = nowMs() + seconds * 1000;
    return token;
}

bool OAuth2::decide(const std::string& userCode, bool approve)
{
    const State wanted = approve ? State::Approved : State::Denied;
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto& entry : m_devices) {
        Device& device = entry.second;
        if (device.userCode != userCode || nowMs() >= device.expires)
            continue;
        if (device.state == State::Pending)
            device.state = wanted;
        return device.state == wanted;
    }
    return false;
}

bool OAuth2::isWaiting(const std::string& userCode) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::any_of(m_devices.begin(), m_devices.end(), [&](const auto& entry) {
        return entry.second.userCode == userCode && entry.second.state == State::Pending &&
               nowMs() < entry.second.expires;
    });
}

std::optional<OAuth2::Refusal> OAuth2::check(const HttpRequest& request) const
{
    const std::string* header = request.header("Authorization");
    const bool isBearer = header && startsWith(lowerAscii(*header), "bearer");
    const std::size_t begin = isBearer ? header->find_first_not_of(' ', 6) : std::string::npos;
    if (begin == std::string::npos)
        return Refusal(1005, "Missing auth parameter");
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_accessTokens.find(header->substr(begin));
    if (it == m_accessTokens.end())
        return Refusal(11002, "Token has invalid payload");
    if (nowMs() >= it->second)
        return Refusal(11003, "The token has expired. (Expired on time)");
    return std::nullopt;
}

std::string OAuth2::issueToken()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return newAccessToken(lifetimeSeconds);
}

void OAuth2::expireTokens()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto& token : m_accessTokens)
        token.second = 0;
}

} // namespace kelosim
