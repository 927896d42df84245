#include "Text.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace kelosim {

namespace {

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// Lower case of the two-byte code points that the catalogue's scripts use.
unsigned foldCodePoint(unsigned c)
{
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return c + 0x20;
    if (c >= 0x100 && c <= 0x137)
        return c | 1u;
    if (c >= 0x391 && c <= 0x3A9)
        return c + 0x20;
    if (c >= 0x410 && c <= 0x42F)
        return c + 0x20;
    if (c >= 0x400 && c <= 0x40F)
        return c + 0x50;
    return c;
}

std::tm calendar(std::int64_t epochMs)
{
    const std::time_t seconds = static_cast<std::time_t>(epochMs / 1000);
    std::tm result{};
    gmtime_r(&seconds, &result);
    return result;
}

} // namespace

std::string percentDecode(std::string_view text, bool plusIsBlank)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '%' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 &&
            hexDigit(text[i + 2]) >= 0) {
            out += static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]));
            i += 2;
        } else {
            out += c == '+' && plusIsBlank ? ' ' : c;
        }
    }
    return out;
}

Pairs parsePairs(std::string_view text)
{
    Pairs pairs;
    if (text.empty())
        return pairs;
    for (const std::string& part : split(text, '&')) {
        if (part.empty())
            continue;
        const std::size_t equals = part.find('=');
        const std::string_view view = part;
        pairs.emplace_back(
            percentDecode(view.substr(0, equals), true),
            equals == std::string::npos ? "" : percentDecode(view.substr(equals + 1), true));
    }
    return pairs;
}

const std::string* findValue(const Pairs& pairs, std::string_view key)
{
    for (const auto& pair : pairs) {
        if (pair.first == key)
            return &pair.second;
    }
    return nullptr;
}

std::vector<std::string> split(std::string_view text, char separator)
{
    std::vector<std::string> parts;
    std::size_t begin = 0;
    while (true) {
        const std::size_t end = text.find(separator, begin);
        if (end == std::string_view::npos) {
            parts.emplace_back(text.substr(begin));
            return parts;
        }
        parts.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
}

bool startsWith(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

std::string lowerAscii(std::string_view text)
{
    std::string out(text);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + 32);
    }
    return out;
}

std::string fold(std::string_view text)
{
    std::string out = lowerAscii(text);
    for (std::size_t i = 0; i + 1 < out.size(); ++i) {
        const unsigned first = static_cast<unsigned char>(out[i]);
        if (first < 0xC0 || first > 0xDF)
            continue;
        const unsigned second = static_cast<unsigned char>(out[i + 1]);
        const unsigned folded = foldCodePoint((first & 0x1Fu) << 6 | (second & 0x3Fu));
        out[i] = static_cast<char>(0xC0u | folded >> 6);
        out[i + 1] = static_cast<char>(0x80u | (folded & 0x3Fu));
        ++i;
    }
    return out;
}

std::optional<std::int64_t> toNumber(std::string_view text)
{
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (text.empty() || result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return value;
}

std::string dateTime(std::int64_t epochMs)
{
    const std::tm t = calendar(epochMs);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03d+0000", t.tm_year + 1900,
                  t.tm_mon + 1, t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec,
                  static_cast<int>(epochMs % 1000));
    return text;
}

std::string dateOnly(std::int64_t epochMs)
{
    return dateTime(epochMs).substr(0, 10);
}

// Not strftime: the names are English whatever the locale is.
std::string httpDate(std::int64_t epochMs)
{
    static const char* const days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::tm t = calendar(epochMs);
    char text[64];
    std::snprintf(text, sizeof text, "%s, %02d %s %04d %02d:%02d:%02d GMT", days[t.tm_wday],
                  t.tm_mday, months[t.tm_mon], t.tm_year + 1900, t.tm_hour, t.tm_min, t.tm_sec);
    return text;
}

std::int64_t nowMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

std::string base64(std::string_view bytes)
{
    static const char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        unsigned group = 0;
        for (std::size_t j = 0; j < 3; ++j)
            group =
                group << 8 | (i + j < bytes.size() ? static_cast<unsigned char>(bytes[i + j]) : 0u);
        out += digits[group >> 18 & 63];
        out += digits[group >> 12 & 63];
        out += i + 1 < bytes.size() ? digits[group >> 6 & 63] : '=';
        out += i + 2 < bytes.size() ? digits[group & 63] : '=';
    }
    return out;
}

std::string base64Decode(std::string_view text)
{
    std::string out;
    unsigned bits = 0;
    int count = 0;
    for (const char c : text) {
        int value = -1;
        if (c >= 'A' && c <= 'Z')
            value = c - 'A';
        else if (c >= 'a' && c <= 'z')
            value = c - 'a' + 26;
        else if (c >= '0' && c <= '9')
            value = c - '0' + 52;
        else if (c == '+' || c == '/')
            value = c == '+' ? 62 : 63;
        if (value < 0)
            break;
        bits = bits << 6 | static_cast<unsigned>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            out += static_cast<char>(bits >> count & 0xFFu);
        }
    }
    return out;
}

std::string escapeHtml(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '"')
            out += "&quot;";
        else
            out += c;
    }
    return out;
}

std::uint64_t mix(std::uint64_t a, std::uint64_t b, std::uint64_t c, std::uint64_t d)
{
    std::uint64_t state = 0;
    for (const std::uint64_t part : {a, b, c, d}) {
        state += part + 0x9E3779B97F4A7C15ull;
        state = (state ^ state >> 30) * 0xBF58476D1CE4E5B9ull;
        state = (state ^ state >> 27) * 0x94D049BB133111EBull;
        state ^= state >> 31;
    }
    return state;
}

std::string hex(std::uint64_t value, int digits)
{
    char text[20];
    std::snprintf(text, sizeof text, "%0*llx", digits, static_cast<unsigned long long>(value));
    const std::string full = text;
    return full.substr(full.size() - static_cast<std::size_t>(digits));
}

} // namespace kelosim
