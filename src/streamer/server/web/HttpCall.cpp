#include "HttpCall.h"

#include <kelo/KeloPercent.h>
#include <QRegularExpression>

namespace {

constexpr int longestPath = 4096;
constexpr int mostRoles = 64;

} // namespace

std::optional<QVector<QPair<QString, QString>>> HttpCall::parseQuery(const std::string& target)
{
    QVector<QPair<QString, QString>> query;
    const size_t mark = target.find('?');
    if (mark == std::string::npos)
        return query;
    // As forms write it, "+" is a blank.
    const QByteArray text = QByteArray::fromStdString(target.substr(mark + 1)).replace('+', ' ');
    const QList<QByteArray> items = text.split('&');
    for (const QByteArray& item : items) {
        if (item.isEmpty())
            continue;
        const int equals = item.indexOf('=');
        const auto key = KeloPercent::decoded(equals < 0 ? item : item.left(equals));
        const auto value = KeloPercent::decoded(equals < 0 ? QByteArray() : item.mid(equals + 1));
        if (!key || !value)
            return std::nullopt;
        query.append({*key, *value});
    }
    return query;
}

std::optional<QString> HttpCall::parameter(const char* name) const
{
    const QStringList values = parameters(name);
    return values.isEmpty() ? std::nullopt : std::optional(values.first());
}

QStringList HttpCall::parameters(const char* name) const
{
    QStringList values;
    for (const auto& [key, value] : query) {
        if (key == QLatin1String(name))
            values.append(value);
    }
    return values;
}

std::optional<CMPath> HttpCall::readPath(const QString& text, QString* fault)
{
    if (text.isEmpty()) {
        *fault = QStringLiteral("path: is missing");
        return std::nullopt;
    }
    if (text.size() > longestPath) {
        *fault = QStringLiteral("path: is longer than %1 characters").arg(longestPath);
        return std::nullopt;
    }
    bool isOk = false;
    const CMPath path = CMPath::fromEncoded(text, &isOk);
    if (!isOk) {
        *fault = QStringLiteral("path: is malformed; wanted BASE?NAME=VALUE&..., percent-encoded");
        return std::nullopt;
    }
    return path;
}

std::optional<CMPath> HttpCall::path(QString* fault) const
{
    return readPath(parameter("path").value_or(QString()), fault);
}

std::optional<int> HttpCall::integer(const char* name, int fallback, QString* fault) const
{
    const std::optional<QString> text = parameter(name);
    if (!text)
        return fallback;
    static const QRegularExpression digits(QStringLiteral("\\A-?[0-9]+\\z"));
    bool isOk = false;
    const int number = text->toInt(&isOk);
    if (isOk && digits.match(*text).hasMatch())
        return number;
    *fault = QStringLiteral("%1: wanted a whole number").arg(QLatin1String(name));
    return std::nullopt;
}

std::optional<QStringList> HttpCall::roles(const QStringList& fallback, QString* fault) const
{
    const std::optional<QString> text = parameter("roles");
    if (!text)
        return fallback;
    static const QRegularExpression name(QStringLiteral("\\A[A-Za-z0-9_]{1,64}\\z"));
    const QStringList roles = text->split(',');
    if (roles.size() > mostRoles) {
        *fault = QStringLiteral("roles: more than %1 names").arg(mostRoles);
        return std::nullopt;
    }
    for (const QString& role : roles) {
        if (!name.match(role).hasMatch()) {
            *fault = QStringLiteral("roles: wanted role names with commas between them");
            return std::nullopt;
        }
    }
    return roles;
}

std::optional<KeloJson> HttpCall::object(QString* fault) const
{
    KeloError error;
    const KeloJson json =
        KeloJson::parse(body.trimmed().isEmpty() ? QByteArray("{}") : body, &error);
    if (json.isObject())
        return json;
    *fault = error.isSet() ? QStringLiteral("the body is no JSON: %1").arg(error.message())
                           : QStringLiteral("the body is no JSON object");
    return std::nullopt;
}
