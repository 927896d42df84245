#include "HttpClientHeaders.h"
#include <algorithm>
#include <utility>

namespace {
bool isSameName(const QString& left, const QString& right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}
} // namespace

HttpClientHeaders::Fields& HttpClientHeaders::read() const
{
    const QByteArray lines = std::exchange(m_unread, QByteArray());
    const char* at = lines.constData();
    const char* end = at + lines.size();
    while (at < end) {
        const char* lineEnd = std::find(at, end, '\n');
        const char* colon = std::find(at, lineEnd, ':');
        if (colon != lineEnd && colon != at) {
            const QByteArray value =
                QByteArray::fromRawData(colon + 1, int(lineEnd - colon) - 1).trimmed();
            m_fields.append({QString::fromLatin1(at, int(colon - at)), QString::fromLatin1(value)});
        }
        at = lineEnd + 1;
    }
    return m_fields;
}

void HttpClientHeaders::insert(const QString& name, const QString& value)
{
    const auto isNamed = [&](const QPair<QString, QString>& field) {
        return isSameName(field.first, name);
    };
    Fields& fields = read();
    fields.erase(std::remove_if(fields.begin(), fields.end(), isNamed), fields.end());
    fields.append({name, value});
}

void HttpClientHeaders::append(const QString& name, const QString& value)
{
    read().append({name, value});
}

QString HttpClientHeaders::value(const QString& name, const QString& fallback) const
{
    for (const auto& field : fields()) {
        if (isSameName(field.first, name))
            return field.second;
    }
    return fallback;
}

bool HttpClientHeaders::contains(const QString& name) const
{
    return std::any_of(fields().begin(), fields().end(),
                       [&](const auto& field) { return isSameName(field.first, name); });
}
