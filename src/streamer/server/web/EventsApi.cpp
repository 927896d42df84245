#include "EventsApi.h"

#include "EventStream.h"

void EventsApi::addRoutes(RouteTable& routes)
{
    routes.add("GET", "/api/v1/events", [this](const HttpCall& call) { return open(call); });
}

HttpReply EventsApi::open(const HttpCall& call)
{
    QList<CMPath> paths;
    const QStringList texts = call.parameters("path");
    for (const QString& text : texts) {
        QString fault;
        const auto path = HttpCall::readPath(text, &fault);
        if (!path)
            return HttpReply::badRequest(fault);
        paths.append(*path);
    }
    HttpReply reply;
    if (auto client = m_hub.open(paths, &reply))
        reply.stream = std::make_shared<EventStream>(m_hub, std::move(client));
    return reply;
}
