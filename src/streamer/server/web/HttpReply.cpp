#include "HttpReply.h"

#include "JsonText.h"
#include "PlayerControl.h"
#include "texts/TextCatalogue.h"

#include <algorithm>
#include <kelo/TrString.h>
#include <QCryptographicHash>
#include <QHash>

namespace {

QString reason(int status)
{
    static const QHash<int, const char*> reasons{
        {400, QT_TRANSLATE_NOOP("HttpReply", "Bad request")},
        {403, QT_TRANSLATE_NOOP("HttpReply", "Forbidden")},
        {404, QT_TRANSLATE_NOOP("HttpReply", "Not found")},
        {405, QT_TRANSLATE_NOOP("HttpReply", "Method not allowed")},
        {409, QT_TRANSLATE_NOOP("HttpReply", "Conflict")},
        {413, QT_TRANSLATE_NOOP("HttpReply", "Body too large")},
        {414, QT_TRANSLATE_NOOP("HttpReply", "Address too long")},
        {415, QT_TRANSLATE_NOOP("HttpReply", "Wrong content type")},
        {500, QT_TRANSLATE_NOOP("HttpReply", "Internal error")},
        {502, QT_TRANSLATE_NOOP("HttpReply", "Error")},
        {503, QT_TRANSLATE_NOOP("HttpReply", "Not available")},
        {504, QT_TRANSLATE_NOOP("HttpReply", "No answer in time")}};
    const char* known = reasons.value(status);
    return known ? QString::fromLatin1(known) : QStringLiteral("Status %1").arg(status);
}

/// A text of an error; the service's module has plain ones, too.
QString text(const QVariant& value, const TextCatalogue& texts)
{
    return value.userType() == qMetaTypeId<TrString>() ? value.value<TrString>().toString(texts)
                                                       : texts.plain(value.toString());
}

} // namespace

HttpReply HttpReply::json(const QJsonObject& object)
{
    return json(JsonText::fromObject(object));
}

HttpReply HttpReply::json(std::string text)
{
    HttpReply reply;
    reply.body = std::move(text);
    return reply;
}

HttpReply HttpReply::problem(int status, const QString& detail, const QString& title,
                             const QString& name)
{
    QJsonObject document{{QStringLiteral("type"), QStringLiteral("about:blank")},
                         {QStringLiteral("status"), status},
                         {QStringLiteral("title"), title.isEmpty() ? reason(status) : title},
                         {QStringLiteral("detail"), detail}};
    if (!name.isEmpty())
        document.insert(QStringLiteral("name"), name);
    HttpReply reply = json(document);
    reply.status = status;
    reply.contentType = "application/problem+json";
    return reply;
}

HttpReply HttpReply::wrongMethod(const std::string& method)
{
    return problem(
        405, QStringLiteral("this address does not take %1").arg(QString::fromStdString(method)));
}

HttpReply HttpReply::error(const CMError& error)
{
    int status = 502;
    if (error.name() == CMError::NotFoundName())
        status = 404;
    else if (error.name() == CMError::BadRequestName())
        status = 400;
    else if (error.name() == PlayerControl::staleName())
        status = 409;
    else if (error.name() == CMError::DeadlineName())
        status = 504;
    else if (error.name() == stoppingName())
        status = 503;
    const bool isPlain = error.title() == CMError::DefaultTitle();
    HttpReply reply =
        problem(status, error.message(), isPlain ? QString() : error.title(), error.name());
    reply.treeError = error;
    return reply;
}

void HttpReply::translate(const TextCatalogue& texts)
{
    if (!treeError || texts.isEmpty())
        return;
    const bool isPlain = treeError->title() == CMError::DefaultTitle();
    const QString title =
        isPlain ? texts.plain(reason(status)) : text(treeError->value(CMError::Title()), texts);
    body =
        problem(status, text(treeError->value(CMError::Message()), texts), title, treeError->name())
            .body;
}

std::string HttpReply::tagOf(const QByteArray& body)
{
    const QByteArray hash = QCryptographicHash::hash(body, QCryptographicHash::Sha256);
    return "W/\"" + hash.toHex().left(32).toStdString() + '"';
}

void HttpReply::setTag(const std::string& tag, const std::string& ifNoneMatch)
{
    headers.emplace_back("Cache-Control", "no-cache");
    headers.emplace_back("ETag", tag);
    const QList<QByteArray> known = QByteArray::fromStdString(ifNoneMatch).split(',');
    const QByteArray opaque = QByteArray::fromStdString(tag).mid(2);
    const bool isKnown = std::any_of(known.begin(), known.end(), [&](const QByteArray& item) {
        const QByteArray one = item.trimmed();
        return one == "*" || one == opaque || one == "W/" + opaque;
    });
    if (isKnown) {
        status = 304;
        body.clear();
    }
}
