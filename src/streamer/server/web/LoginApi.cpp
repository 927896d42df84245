#include "LoginApi.h"

#include "JsonText.h"
#include "LoginControl.h"
#include "qr/QrMatrix.h"
#include "QrPicture.h"
#include "ReplyWaiter.h"

void LoginApi::addRoutes(RouteTable& routes)
{
    const std::string path = "/api/v1/login";
    routes.add("GET", path, [this](const HttpCall& call) { return state(call); });
    routes.add("POST", path,
               [this](const HttpCall& call) { return answer(m_login.start(), call); });
    routes.add("DELETE", path,
               [this](const HttpCall& call) { return answer(m_login.logout(), call); });
    routes.add("GET", path + "/qr", [this](const HttpCall&) { return qrCode(); });
}

HttpReply LoginApi::answer(const CMReply<QVariant>& reply, const HttpCall& call)
{
    m_waiter.wait(reply);
    if (reply.error().isSet())
        return HttpReply::error(reply.error());
    return state(call);
}

HttpReply LoginApi::state(const HttpCall& call) const
{
    return HttpReply::json(JsonText::fromState(m_login.status(), call.texts));
}

HttpReply LoginApi::qrCode() const
{
    const QJsonObject pending = m_login.status().value(QLatin1String("pending")).toObject();
    QString address = pending.value(QLatin1String("verificationUriComplete")).toString();
    if (address.isEmpty())
        address = pending.value(QLatin1String("verificationUri")).toString();
    // Services leave the scheme out, and telephones take the rest for a search.
    if (!address.isEmpty() && !address.contains(QLatin1String("://")))
        address.prepend(QLatin1String("https://"));
    const QrMatrix code = QrMatrix::encode(address);
    if (code.isEmpty())
        return HttpReply::problem(404, QStringLiteral("no login waits for its confirmation"));
    return HttpReply{200, "image/svg+xml", qrPicture(code)};
}
