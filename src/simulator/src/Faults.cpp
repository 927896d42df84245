#include "Faults.h"

#include "Json.h"

#include <algorithm>

namespace kelosim {

namespace {

// What a fault may be told, written as "NAME" or "NAME=WORD|WORD"; "*" in front marks a number, "!"
// a key that must be there.
struct Key
{
    std::string name;
    std::string words; // that it may be; empty for any
    bool isNumber;
    bool isNeeded;

    Key(const std::string& spec)
        : isNumber(spec[0] == '*'), isNeeded(spec.find('!') != std::string::npos)
    {
        const std::size_t begin = spec.find_first_not_of("*!");
        const std::size_t equals = spec.find('=');
        name = spec.substr(begin, equals - begin);
        words = equals == std::string::npos ? "" : spec.substr(equals + 1);
    }
    Key(const char* spec) : Key(std::string(spec)) {}
};

// One kind of fault with the keys that it takes besides the common ones; the first is the main key
// that "name=value" sets.
struct Kind
{
    std::string name;
    std::vector<Key> keys;
    std::string effect;
};

const std::vector<Kind>& kinds()
{
    static const std::vector<Kind> list = {
        {"status",
         {"*!status", "body=json|html|none", "*sub", "message", "*retry-after"},
         "answers with this status; body=json (default), html or none; sub is the subStatus"},
        {"delay", {"*!ms"}, "answers that much later"},
        {"hang", {}, "never answers"},
        {"reset", {"when=before|after"}, "TCP reset; when=before (default) or after the headers"},
        {"truncate",
         {"*!bytes", "framing=broken|ok"},
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
        {"quality",
         {"!grant=LOW|HIGH|LOSSLESS|HI_RES|HI_RES_LOSSLESS"},
         "playback grants at most this quality"},
        {"manifest",
         {"!kind=dash|unknown|badbase64|nonjson|nourls|manyurls|encrypted"},
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

// "" or what is wrong with the key or its value.
std::string checkKey(const Kind& kind, const std::string& name, const std::string& value)
{
    static const std::vector<Key> common = {"path", "method", "*count", "*after"};
    const Key* key = nullptr;
    for (const auto* keys : {&common, &kind.keys}) {
        for (const Key& one : *keys)
            key = one.name == name ? &one : key;
    }
    if (!key)
        return "fault '" + kind.name + "' has no key '" + name + "'";
    const std::int64_t number = toNumber(value).value_or(-1);
    if (key->isNumber && (number < 0 || number > 1000000000))
        return "key '" + name + "' wants a number, not '" + value + "'";
    const std::vector<std::string> words = split(key->words, '|');
    if (!key->words.empty() && std::find(words.begin(), words.end(), value) == words.end())
        return "key '" + name + "' is one of " + key->words + ", not '" + value + "'";
    return {};
}

HttpResponse errorAnswer(const Pairs& keys)
{
    const int status = int(numberKey(keys, "status", 500));
    const std::string form = textKey(keys, "body", "json");
    HttpResponse response{status};
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

std::string Faults::add(const std::string& line)
{
    Fault fault;
    auto kind = kinds().end();
    for (const std::string& word : split(line, ' ')) {
        if (word.empty())
            continue;
        const std::size_t equals = word.find('=');
        std::string key = word.substr(0, equals);
        const std::string value = equals == std::string::npos ? "" : word.substr(equals + 1);
        if (kind == kinds().end()) {
            kind = std::find_if(kinds().begin(), kinds().end(),
                                [&](const Kind& one) { return one.name == key; });
            if (kind == kinds().end())
                return "there is no fault '" + key + "'";
            fault.name = key;
            if (equals == std::string::npos)
                continue;
            key = kind->keys.empty() ? "" : kind->keys.front().name;
        }
        const std::string problem = checkKey(*kind, key, value);
        if (!problem.empty())
            return problem;
        fault.keys.emplace_back(key, value);
    }
    if (kind == kinds().end())
        return "the fault line is empty";
    for (const Key& key : kind->keys) {
        if (key.isNeeded && !findValue(fault.keys, key.name))
            return "fault '" + fault.name + "' needs the key '" + key.name + "'";
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

std::optional<HttpResponse> Faults::instead(const HttpRequest& request)
{
    HttpResponse response = HttpResponse::json(200, std::string(512, ' '));
    if (use("hang", request)) {
        response.transport.hang = true;
        return response;
    }
    if (const auto reset = use("reset", request)) {
        const bool before = textKey(*reset, "when", "before") == "before";
        response.transport.reset =
            before ? Transport::Reset::BeforeHeaders : Transport::Reset::AfterHeaders;
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
        transport.delayMs += int(numberKey(*keys, "ms", 0));
    if (const auto keys = use("size", request))
        pad(response.body, (numberKey(*keys, "bytes", 0)));
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
            response.body.resize(std::min(response.body.size(), std::size_t(bytes)));
    }
    if (const auto keys = use("drip", request)) {
        transport.dripMs = std::max(1, int(numberKey(*keys, "ms", 50)));
        transport.dripBytes = std::max<std::size_t>(1, (numberKey(*keys, "bytes", 64)));
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
        for (const Key& key : kind.keys)
            usage += key.isNeeded ? " " + key.name + "=.." : " [" + key.name + "=..]";
        if (usage.size() < 44)
            usage.resize(44, ' ');
        text += "  " + usage + "  " + kind.effect + "\n";
    }
    return text;
}

} // namespace kelosim
