#pragma once
#include "EventHub.h"
#include "RouteTable.h"

/// The event calls of the HTTP API: checks what is asked for. Owned by the web server; any thread.
/// Who gets which event is the hub's business.
class EventsApi
{
public:
    explicit EventsApi(EventHub& hub) : m_hub(hub) {}

    void addRoutes(RouteTable& routes);

private:
    HttpReply open(const HttpCall& call);
    HttpReply setPaths(const HttpCall& call);
    /// Nothing with a sentence in `fault` when one is malformed or there are too many.
    static std::optional<QList<CMPath>> readPaths(const QStringList& texts, QString* fault);

    EventHub& m_hub;
};
