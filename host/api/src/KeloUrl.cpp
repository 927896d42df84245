#include "KeloUrl.h"
#include <array>

namespace {
/// What a byte may be in an encoded URL (RFC 3986 2).
enum ByteClass : quint8 {
    Escaped,    ///< may not stand in a URL
    Unreserved, ///< never needs an escape
    Reserved    ///< a delimiter or sub-delimiter
};

constexpr std::array<ByteClass, 256> makeClasses()
{
    std::array<ByteClass, 256> classes{};
    for (int c = '0'; c <= '9'; ++c)
        classes[std::size_t(c)] = Unreserved;
    for (int c = 'a'; c <= 'z'; ++c) {
        classes[std::size_t(c)] = Unreserved;
        classes[std::size_t(c - 'a' + 'A')] = Unreserved;
    }
    for (const char c : {'-', '.', '_', '~'})
        classes[std::size_t(c)] = Unreserved;
    for (const char c : {':', '/', '?', '#', '[', ']', '@', '!', '$', '&', '\'', '(', ')', '*', '+',
                         ',', ';', '='})
        classes[std::size_t(c)] = Reserved;
    return classes;
}

constexpr std::array<ByteClass, 256> byteClasses = makeClasses();

ByteClass classOf(char c)
{
    return byteClasses[quint8(c)];
}

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Writes %XX with upper case digits (RFC 3986 2.1).
char* writeEscape(char* out, char c)
{
    constexpr char digits[] = "0123456789ABCDEF";
    *out++ = '%';
    *out++ = digits[quint8(c) >> 4];
    *out++ = digits[quint8(c) & 15];
    return out;
}

/// Brings text into the form of a URL: existing escapes and delimiters stay.
QByteArray normalized(const QByteArray& text)
{
    const int size = text.size();
    const auto mayStay = [&](int i) {
        if (text[i] == '%')
            return i + 2 < size && isHexDigit(text[i + 1]) && isHexDigit(text[i + 2]);
        return classOf(text[i]) != Escaped;
    };
    int first = 0;
    while (first < size && mayStay(first))
        ++first;
    if (first == size)
        return text;
    QByteArray result(size * 3, Qt::Uninitialized);
    char* out = std::copy_n(text.constData(), first, result.data());
    for (int i = first; i < size; ++i) {
        if (mayStay(i))
            *out++ = text[i];
        else
            out = writeEscape(out, text[i]);
    }
    result.resize(int(out - result.constData()));
    return result;
}

int indexOrEnd(const QByteArray& text, char c)
{
    const int index = text.indexOf(c);
    return index < 0 ? text.size() : index;
}
} // namespace

void KeloUrl::setUrl(const QString& url)
{
    m_encoded = normalized(url.toUtf8());
}

KeloUrl KeloUrl::fromEncoded(const QByteArray& url)
{
    KeloUrl result;
    result.m_encoded = normalized(url);
    return result;
}

void KeloUrl::setQueryItems(const QueryItems& items)
{
    const int fragmentAt = indexOrEnd(m_encoded, '#');
    const QByteArray fragment = m_encoded.mid(fragmentAt);
    m_encoded.truncate(fragmentAt);
    m_encoded.truncate(indexOrEnd(m_encoded, '?'));
    char separator = '?';
    for (const auto& item : items) {
        m_encoded += separator;
        m_encoded += toPercentEncoding(item.first);
        m_encoded += '=';
        m_encoded += toPercentEncoding(item.second);
        separator = '&';
    }
    m_encoded += fragment;
}

void KeloUrl::addEncodedQueryItem(const QByteArray& key, const QByteArray& value)
{
    const int fragmentAt = indexOrEnd(m_encoded, '#');
    const int queryAt = indexOrEnd(m_encoded, '?');
    QByteArray item;
    item.reserve(key.size() + value.size() + 2);
    if (queryAt >= fragmentAt)
        item += '?';
    else if (queryAt + 1 < fragmentAt)
        item += '&';
    item += key;
    item += '=';
    item += value;
    m_encoded.insert(fragmentAt, item);
}

QByteArray KeloUrl::toPercentEncoding(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    int escapes = 0;
    for (const char c : utf8)
        escapes += classOf(c) != Unreserved;
    if (escapes == 0)
        return utf8;
    QByteArray result(utf8.size() + 2 * escapes, Qt::Uninitialized);
    char* out = result.data();
    for (const char c : utf8) {
        if (classOf(c) == Unreserved)
            *out++ = c;
        else
            out = writeEscape(out, c);
    }
    return result;
}

QString KeloUrl::toString() const
{
    return QString::fromLatin1(m_encoded);
}
