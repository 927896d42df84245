#include "HttpClientHeaders.h"
#include <algorithm>

namespace {
bool isSameName(const QString& left, const QString& right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}
} // namespace

void HttpClientHeaders::insert(const QString& name, const QString& value)
{
    const auto isNamed = [&](const QPair<QString, QString>& field) {
        return isSameName(field.first, name);
    };
    m_fields.erase(std::remove_if(m_fields.begin(), m_fields.end(), isNamed), m_fields.end());
    m_fields.append({name, value});
}

void HttpClientHeaders::append(const QString& name, const QString& value)
{
    m_fields.append({name, value});
}

QString HttpClientHeaders::value(const QString& name, const QString& fallback) const
{
    for (const auto& field : m_fields) {
        if (isSameName(field.first, name))
            return field.second;
    }
    return fallback;
}

bool HttpClientHeaders::contains(const QString& name) const
{
    return std::any_of(m_fields.begin(), m_fields.end(),
                       [&](const auto& field) { return isSameName(field.first, name); });
}
