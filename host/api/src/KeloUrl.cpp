#include "KeloUrl.h"

namespace {
int indexOrEnd(const QByteArray& text, char c)
{
    const int index = text.indexOf(c);
    return index < 0 ? text.size() : index;
}
} // namespace

void KeloUrl::setUrl(const QString& url)
{
    *this = fromEncoded(url.toUtf8());
}

KeloUrl KeloUrl::fromEncoded(const QByteArray& url)
{
    KeloUrl result;
    result.m_encoded = KeloPercent::encoded(url, KeloPercent::Url);
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
