#include "Faults.h"

#include "Json.h"

#include <algorithm>

namespace kelosim {

namespace {

// One kind of fault. `keys` lists what it takes besides the common ones, "*" marks a number, "!" a
// required key; the first is the main key that "name=value" sets.
struct Kind
{
    const char* name;
    std::vector<const char*> keys;
    const char* effect;
};

const std::vector<Kind>& kinds()
{
    static const std::vector<Kind> list = {
        {"status",
         {"*!status", "body", "*sub", "message", "*retry-after"},
         "answers with this status; body=json (default), html or none; sub is the subStatus"},
        {"delay", {"*!ms"}, "answers that much later"},
        {"hang", {}, "never answers"},
        {"reset", {"when"}, "TCP reset; when=before (default) or after the headers"},
        {"truncate",
         {"*!bytes", "framing"},
         "body ends after so many bytes; framing=broken (default) closes early, framing=ok ends "
         "the message properly"},
        {"drip", {"*bytes", "*ms"}, "body in pieces (64 bytes) with pauses (50 ms)"},
        {"size", {"*!bytes"}, "valid body padded to exactly so many bytes before compression"},
        {"empty", {}, "usual status, empty body"},
        {"plain", {}, "never compressed"},
        {"token-expired", {}, "every token issued so far is expired (at once, not per request)"},
        {"token-lifetime", {"*!seconds"}, "new access tokens live so long (604800)"},
        {"rotate-refresh", {}, "a refresh answer carries a new refresh token, the old one ends"},
        {"oauth", {"!error"}, "token requests fail with this OAuth error"},
        {"oauth-code", {"!error"}, "requests for a device code fail with this OAuth error"},
        {"date", {"*ahead", "*behind"}, "Date headers are so many seconds ahead or behind"},
        {"device-code", {"*interval", "*expires"}, "other numbers for new device codes (2, 300)"},
        {"bare-link", {}, "verification addresses without \"http://\", as the service sends them"},
        {"quality", {"!grant"}, "playback grants at most this quality"},
        {"manifest",
         {"!kind"},
         "kind=dash, unknown, badbase64, nonjson, nourls, manyurls or encrypted"},
        {"playback-limit",
         {"*!calls", "*seconds"},
         "401/4006 for a while (60 s) once so many playback calls were made"},
        {"subscription", {"!quality"}, "highestSoundQuality is this name, or null"},
        {"session-country", {"!country"}, "the session names this country"},
        {"hidden-items", {}, "pages leave items out that the total counts"},
        {"tag-lag", {"*count"}, "the next edits (1) with a fresh tag fail with 412/7002"},
        {"refuse-no-body", {}, "refused edits answer without a JSON body"},
        {"create-status", {"*!status"}, "creating a playlist answers with this status (201)"},
        {"strict-ids", {}, "trailing commas and repeated ids in an add are 400/1002"},
        {"short-tracks", {"*!seconds"}, "every track lasts so long"},
    };
    return list;
}

constexpr const char* commonKeys[] = {"path", "method", "count", "after"};

const Kind* kindOf(const std::string& name)
{
    for (const Kind& kind : kinds()) {
        if (name == kind.name)
            return &kind;
    }
    return nullptr;
}

std::string bareKey(const char* key)
{
    while (*key == '*' || *key == '!')
        ++key;
    return key;
}

bool isNumber(const Kind& kind, const std::string& key)
{
    if (key == "count" || key == "after")
        return true;
    return std::any_of(kind.keys.begin(), kind.keys.end(),
                       [&](const char* known) { return *known == '*' && bareKey(known) == key; });
}

bool isKnown(const Kind& kind, const std::string& key)
{
    const auto same = [&](const char* known) { return bareKey(known) == key; };
    return std::any_of(kind.keys.begin(), kind.keys.end(), same) ||
           std::any_of(std::begin(commonKeys), std::end(commonKeys), same);
}

// Words with a fixed set of values.
std::string checkWord(const std::string& key, const std::string& value)
{
    static const std::vector<std::pair<std::string, std::string>> sets = {
        {"body", "json|html|none"},
        {"when", "before|after"},
        {"framing", "broken|ok"},
        {"kind", "dash|unknown|badbase64|nonjson|nourls|manyurls|encrypted"},
        {"grant", "LOW|HIGH|LOSSLESS|HI_RES|HI_RES_LOSSLESS"}};
    const std::string* allowed = findValue(sets, key);
    if (!allowed)
        return {};
    const std::vector<std::string> words = split(*allowed, '|');
    if (std::find(words.begin(), words.end(), value) != words.end())
        return {};
    return "key '" + key + "' is one of " + *allowed + ", not '" + value + "'";
}

std::string checkKey(const Kind& kind, const std::string& key, const std::string& value)
{
    if (!isKnown(kind, key))
        return std::string("fault '") + kind.name + "' has no key '" + key + "'";
    if (isNumber(kind, key)) {
        const auto number = toNumber(value);
        if (!number || *number < 0 || *number > 1000000000)
            return "key '" + key + "' wants a number, not '" + value + "'";
    }
    return checkWord(key, value);
}

HttpResponse errorAnswer(const Pairs& keys)
{
    const int status = static_cast<int>(numberKey(keys, "status", 500));
    const std::string form = textKey(keys, "body", "json");
    HttpResponse response = HttpResponse::empty(status);
    if (form == "html") {
        const std::string text = std::to_string(status) + " " + statusText(status);
        response =
            HttpResponse::html(status, "<html><head><title>" + text + "</title></head><body><h1>" +
                                           text + "</h1></body></html>");
    } else if (form == "json") {
        JsonWriter json;
        json.beginObject().field("status", status);
        if (findValue(keys, "sub") || status == 500)
            json.field("subStatus", numberKey(keys, "sub", 999));
        json.field("userMessage", textKey(keys, "message", "Unexpected error occurred."));
        response = HttpResponse::json(status, json.endObject().take());
    }
    if (findValue(keys, "retry-after"))
        response.headers.emplace_back("Retry-After", textKey(keys, "retry-after"));
    return response;
}

// The blanks go in front of the last bracket, so that a body that was cut is no JSON any more.
void pad(std::string& body, std::size_t size)
{
    if (body.empty())
        body = "{}";
    if (body.size() < size)
        body.insert(body.size() - 1, size - body.size(), ' ');
}

} // namespace

std::string textKey(const Pairs& keys, std::string_view key, const std::string& otherwise)
{
    const std::string* value = findValue(keys, key);
    return value ? *value : otherwise;
}

std::int64_t numberKey(const Pairs& keys, std::string_view key, std::int64_t otherwise)
{
    const std::string* value = findValue(keys, key);
    return value ? toNumber(*value).value_or(otherwise) : otherwise;
}

std::string Faults::add(const std::string& line)
{
    Fault fault;
    const Kind* kind = nullptr;
    for (const std::string& word : split(line, ' ')) {
        if (word.empty())
            continue;
        const std::size_t equals = word.find('=');
        std::string key = word.substr(0, equals);
        const std::string value = equals == std::string::npos ? "" : word.substr(equals + 1);
        if (!kind) {
            kind = kindOf(key);
            if (!kind)
                return "there is no fault '" + key + "'";
            fault.name = key;
            if (equals == std::string::npos)
                continue;
            key = kind->keys.empty() ? "" : bareKey(kind->keys.front());
        }
        const std::string problem = checkKey(*kind, key, value);
        if (!problem.empty())
            return problem;
        fault.keys.emplace_back(key, value);
    }
    if (!kind)
        return "the fault line is empty";
    for (const char* key : kind->keys) {
        if (std::string_view(key).find('!') < 2 && !findValue(fault.keys, bareKey(key)))
            return "fault '" + fault.name + "' needs the key '" + bareKey(key) + "'";
    }
    fault.count = numberKey(fault.keys, "count", fault.name == "tag-lag" ? 1 : -1);
    fault.skip = numberKey(fault.keys, "after", 0);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_faults.push_back(std::move(fault));
    return {};
}

void Faults::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_faults.clear();
}

bool Faults::matches(const Fault& fault, const HttpRequest& request) const
{
    const std::string method = textKey(fault.keys, "method");
    if (!method.empty() && method != request.method)
        return false;
    const std::string prefix = textKey(fault.keys, "path", "*");
    if (prefix == "*")
        return true;
    return startsWith(request.path, "/v1" + prefix) || startsWith(request.path, prefix);
}

std::optional<Pairs> Faults::use(const std::string& name, const HttpRequest& request)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (Fault& fault : m_faults) {
        if (fault.name != name || fault.count == 0 || !matches(fault, request))
            continue;
        if (fault.skip > 0) {
            --fault.skip;
            continue;
        }
        if (fault.count > 0)
            --fault.count;
        return fault.keys;
    }
    return std::nullopt;
}

std::optional<Pairs> Faults::use(const std::string& name)
{
    return use(name, HttpRequest());
}

std::optional<HttpResponse> Faults::instead(const HttpRequest& request)
{
    HttpResponse response;
    if (use("hang", request)) {
        response.transport.hang = true;
        return response;
    }
    const auto reset = use("reset", request);
    if (reset && textKey(*reset, "when", "before") == "before") {
        response.transport.reset = Transport::Reset::BeforeHeaders;
        return response;
    }
    if (reset) {
        response = HttpResponse::json(200, std::string(512, ' '));
        response.transport.reset = Transport::Reset::AfterHeaders;
        return response;
    }
    if (const auto status = use("status", request))
        return errorAnswer(*status);
    return std::nullopt;
}

void Faults::onTheWay(const HttpRequest& request, HttpResponse& response)
{
    Transport& transport = response.transport;
    if (const auto keys = use("delay", request))
        transport.delayMs += static_cast<int>(numberKey(*keys, "ms", 0));
    if (const auto keys = use("size", request))
        pad(response.body, static_cast<std::size_t>(numberKey(*keys, "bytes", 0)));
    if (use("empty", request)) {
        response.body.clear();
        response.source.reset();
    }
    if (const auto keys = use("truncate", request)) {
        const auto bytes = numberKey(*keys, "bytes", 0);
        transport.compress = false;
        if (textKey(*keys, "framing", "broken") == "broken")
            transport.cutAfter = bytes;
        else
            response.body.resize(std::min(response.body.size(), static_cast<std::size_t>(bytes)));
    }
    if (const auto keys = use("drip", request)) {
        transport.dripMs = std::max(1, static_cast<int>(numberKey(*keys, "ms", 50)));
        transport.dripBytes =
            std::max<std::size_t>(1, static_cast<std::size_t>(numberKey(*keys, "bytes", 64)));
    }
    if (use("plain", request))
        transport.compress = false;
}

std::int64_t Faults::dateShiftMs(const HttpRequest& request)
{
    const auto keys = use("date", request);
    return keys ? (numberKey(*keys, "ahead", 0) - numberKey(*keys, "behind", 0)) * 1000 : 0;
}

std::string Faults::help()
{
    std::string text = "Every fault also takes path=PREFIX (below /v1, * for all), method=NAME, "
                       "count=N (strikes) and after=N (requests that pass first).\n";
    for (const Kind& kind : kinds()) {
        std::string usage = kind.name;
        for (const char* key : kind.keys) {
            const bool required = std::string_view(key).find('!') < 2;
            const std::string bare = bareKey(key);
            usage += required ? " " + bare + "=.." : " [" + bare + "=..]";
        }
        if (usage.size() < 44)
            usage.resize(44, ' ');
        text += "  " + usage + "  " + kind.effect + "\n";
    }
    return text;
}

} // namespace kelosim
