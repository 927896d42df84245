#include "Text.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <QDateTime>
#include <QLocale>

namespace kelosim {

namespace {

QByteArray bytesOf(std::string_view text)
{
    return {text.data(), int(text.size())};
}

QDateTime utc(std::int64_t epochMs)
{
    return QDateTime::fromMSecsSinceEpoch(epochMs, Qt::UTC);
}

} // namespace

std::string percentDecode(std::string_view text)
{
    return QByteArray::fromPercentEncoding(bytesOf(text)).toStdString();
}

Pairs parsePairs(std::string_view text)
{
    Pairs pairs;
    for (std::string part : split(text, '&')) {
        std::replace(part.begin(), part.end(), '+', ' ');
        const std::size_t equals = part.find('=');
        if (!part.empty())
            pairs.emplace_back(
                percentDecode(part.substr(0, equals)),
                equals == std::string::npos ? "" : percentDecode(part.substr(equals + 1)));
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
    for (char& c : out)
        c = c >= 'A' && c <= 'Z' ? char(c + 32) : c;
    return out;
}

std::string upperAscii(std::string_view text)
{
    std::string out(text);
    for (char& c : out)
        c = c >= 'a' && c <= 'z' ? char(c - 32) : c;
    return out;
}

std::string fold(std::string_view text)
{
    return QString::fromUtf8(bytesOf(text)).toLower().toStdString();
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

std::string dateTime(std::int64_t epochMs)
{
    return utc(epochMs).toString(Qt::ISODateWithMs).chopped(1).toStdString() + "+0000";
}

std::string dateOnly(std::int64_t epochMs)
{
    return dateTime(epochMs).substr(0, 10);
}

std::string httpDate(std::int64_t epochMs)
{
    return QLocale::c().toString(utc(epochMs), "ddd, dd MMM yyyy HH:mm:ss 'GMT'").toStdString();
}

std::int64_t nowMs()
{
    return QDateTime::currentMSecsSinceEpoch();
}

std::string base64(std::string_view bytes)
{
    return bytesOf(bytes).toBase64().toStdString();
}

std::string base64Decode(std::string_view text)
{
    return QByteArray::fromBase64(bytesOf(text)).toStdString();
}

std::string escapeHtml(std::string_view text)
{
    return QString::fromUtf8(bytesOf(text)).toHtmlEscaped().toStdString();
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

std::uint64_t mixText(std::string_view text)
{
    std::uint64_t state = 0;
    for (const char c : text)
        state = mix(state, static_cast<unsigned char>(c));
    return state;
}

std::string hex(std::uint64_t value, int digits)
{
    char text[20];
    std::snprintf(text, sizeof text, "%0*llx", digits, static_cast<unsigned long long>(value));
    const std::string full = text;
    return full.substr(full.size() - digits);
}

} // namespace kelosim
