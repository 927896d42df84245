#include "PlayerApi.h"

#include "JsonText.h"
#include "PlayerControl.h"
#include "ReplyWaiter.h"

void PlayerApi::addRoutes(RouteTable& routes)
{
    const std::string path = "/api/v1/player";
    routes.add("GET", path, [this](const HttpCall& call) { return state(call); });
    for (const char* name :
         {"play", "pause", "resume", "stop", "next", "previous", "seek", "volume"}) {
        routes.add("POST", path + "/" + name, [this, name](const HttpCall& call) {
            return command(QString::fromLatin1(name), call);
        });
    }
}

HttpReply PlayerApi::command(const QString& name, const HttpCall& call)
{
    QString fault;
    const auto arguments = call.object(&fault);
    if (!arguments)
        return HttpReply::badRequest(fault);
    const CMReply<QVariant> reply = m_player.command(name, arguments->toVariant().toHash());
    if (const CMError error = m_waiter.wait(reply); error.isSet())
        return HttpReply::error(error);
    return state(call);
}

HttpReply PlayerApi::state(const HttpCall& call) const
{
    return HttpReply::json(JsonText::fromState(m_player.status(), call.texts));
}
