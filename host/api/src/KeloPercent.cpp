#include "KeloPercent.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace {
constexpr bool isUnreserved(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

constexpr bool isAmong(std::string_view bytes, char c)
{
    return bytes.find(c) != std::string_view::npos;
}

/// For each byte, in which of KeloPercent::Plain it is plain.
constexpr std::array<quint8, 256> plainBytes = [] {
    std::array<quint8, 256> table{};
    for (char c = 0x21; c < 0x7f; ++c) {
        table[std::size_t(c)] = quint8((isUnreserved(c) ? KeloPercent::Unreserved : 0) |
                                       (isAmong("%\"<>\\^`{|}", c) ? 0 : KeloPercent::Url) |
                                       (isAmong("%?#", c) ? 0 : KeloPercent::Base));
    }
    return table;
}();

bool isEscape(std::string_view text, std::size_t at)
{
    return text[at] == '%' && at + 2 < text.size() && std::isxdigit(uchar(text[at + 1])) &&
           std::isxdigit(uchar(text[at + 2]));
}

std::string_view viewOf(const QByteArray& text)
{
    return {text.constData(), std::size_t(text.size())};
}
} // namespace

char* KeloPercent::write(char* out, std::string_view utf8, Plain plain)
{
    constexpr char digits[] = "0123456789ABCDEF";
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = quint8(utf8[i]);
        if ((plainBytes[byte] & plain) != 0 || (plain == Url && isEscape(utf8, i))) {
            *out++ = char(byte);
        } else {
            *out++ = '%';
            *out++ = digits[byte >> 4];
            *out++ = digits[byte & 15];
        }
    }
    return out;
}

QByteArray KeloPercent::encoded(const QByteArray& utf8, Plain plain)
{
    if (std::all_of(utf8.begin(), utf8.end(),
                    [plain](char byte) { return (plainBytes[quint8(byte)] & plain) != 0; }))
        return utf8;
    QByteArray result(utf8.size() * 3, Qt::Uninitialized);
    result.resize(int(write(result.data(), viewOf(utf8), plain) - result.constData()));
    return result;
}

std::optional<QString> KeloPercent::decoded(const QByteArray& text)
{
    for (int at = text.indexOf('%'); at >= 0; at = text.indexOf('%', at + 1)) {
        if (!isEscape(viewOf(text), std::size_t(at)))
            return std::nullopt;
    }
    const QByteArray bytes = QByteArray::fromPercentEncoding(text);
    // With the size said, so that a zero byte does not end the text.
    const QString result = QString::fromUtf8(bytes.constData(), std::max(0, bytes.size()));
    if (result.toUtf8() != bytes)
        return std::nullopt;
    return result;
}
