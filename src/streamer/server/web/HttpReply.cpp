#include "HttpReply.h"

#include "JsonText.h"

namespace {

QString reason(int status)
{
    switch (status) {
    case 400:
        return QStringLiteral("Bad request");
    case 403:
        return QStringLiteral("Forbidden");
    case 404:
        return QStringLiteral("Not found");
    case 405:
        return QStringLiteral("Method not allowed");
    case 413:
        return QStringLiteral("Body too large");
    case 414:
        return QStringLiteral("Address too long");
    case 415:
        return QStringLiteral("Wrong content type");
    case 500:
        return QStringLiteral("Internal error");
    case 502:
        return QStringLiteral("Error");
    case 503:
        return QStringLiteral("Not available");
    case 504:
        return QStringLiteral("No answer in time");
    default:
        return QStringLiteral("Status %1").arg(status);
    }
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
    else if (error.name() == CMError::DeadlineName())
        status = 504;
    else if (error.name() == stoppingName())
        status = 503;
    const bool isPlain = error.title() == CMError::DefaultTitle();
    return problem(status, error.message(), isPlain ? QString() : error.title(), error.name());
}
