#include "EventsApi.h"

#include "EventStream.h"

#include <algorithm>
#include <QJsonArray>

void EventsApi::addRoutes(RouteTable& routes)
{
    routes.add("GET", "/api/v1/events", [this](const HttpCall& call) { return open(call); });
    routes.add("POST", "/api/v1/events/paths",
               [this](const HttpCall& call) { return setPaths(call); });
}

std::optional<QList<CMPath>> EventsApi::readPaths(const QStringList& texts, QString* fault)
{
    if (texts.size() > EventHub::mostPaths) {
        *fault = QStringLiteral("path: more than %1 in one stream").arg(EventHub::mostPaths);
        return std::nullopt;
    }
    QList<CMPath> paths;
    for (const QString& text : texts) {
        const auto path = HttpCall::readPath(text, fault);
        if (!path)
            return std::nullopt;
        paths.append(*path);
    }
    return paths;
}

HttpReply EventsApi::open(const HttpCall& call)
{
    QString fault;
    const auto paths = readPaths(call.parameters("path"), &fault);
    if (!paths)
        return HttpReply::badRequest(fault);
    EventWishes wishes;
    for (const auto& [name, wish] :
         {std::pair("requests", &wishes.requests), {"logins", &wishes.logins}}) {
        const QString given = call.parameter(name).value_or(QStringLiteral("0"));
        *wish = given == QLatin1String("1");
        if (!*wish && given != QLatin1String("0"))
            return HttpReply::badRequest(QStringLiteral("%1: wanted 0 or 1").arg(name));
    }
    HttpReply reply;
    if (auto client = m_hub.open(*paths, call.texts, wishes, &reply))
        reply.stream = std::make_shared<EventStream>(m_hub, std::move(client));
    return reply;
}

HttpReply EventsApi::setPaths(const HttpCall& call)
{
    QString fault;
    const auto body = call.object(&fault);
    if (!body)
        return HttpReply::badRequest(fault);
    if (!body->value("stream").isString())
        return HttpReply::badRequest(QStringLiteral("stream: wanted the name of an event stream"));
    const QVariant given = body->value("paths").toVariant();
    const QVariantList items = given.toList();
    const bool isTexts = std::all_of(items.begin(), items.end(), [](const QVariant& item) {
        return item.type() == QVariant::String;
    });
    if (given.type() != QVariant::List || !isTexts)
        return HttpReply::badRequest(QStringLiteral("paths: wanted a list of paths"));
    const auto paths = readPaths(given.toStringList(), &fault);
    if (!paths)
        return HttpReply::badRequest(fault);
    const auto change = m_hub.setPaths(body->value("stream").toString().toStdString(), *paths);
    if (!change)
        return HttpReply::problem(404, QStringLiteral("there is no such event stream"));
    return HttpReply::json(
        QJsonObject{{QStringLiteral("paths"), QJsonArray::fromStringList(change->opened)},
                    {QStringLiteral("refused"), QJsonArray::fromStringList(change->refused)}});
}
