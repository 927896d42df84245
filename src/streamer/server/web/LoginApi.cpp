#include "LoginApi.h"

#include "JsonText.h"
#include "LoginControl.h"
#include "qr/QrMatrix.h"
#include "ReplyWaiter.h"
#include "texts/TextCatalogue.h"

#include <QJsonArray>

namespace {

QJsonObject jsonOf(const LoginState& state, const TextCatalogue* texts)
{
    const KeloOAuth2Info& info = state.info;
    const QString name = info.displayName().isEmpty() ? state.service : info.displayName();
    QJsonObject json{{QStringLiteral("service"), state.service},
                     {KeloOAuth2Info::DisplayName(), name},
                     {QStringLiteral("loggedIn"), info.loggedIn()}};
    if (info.isPending()) {
        QJsonObject pending{{KeloOAuth2Info::UserCode(), info.userCode()},
                            {KeloOAuth2Info::VerificationUri(), info.verificationUri()},
                            {KeloOAuth2Info::ExpiresIn(), info.expiresIn()}};
        if (!info.verificationUriComplete().isEmpty())
            pending.insert(KeloOAuth2Info::VerificationUriComplete(),
                           info.verificationUriComplete());
        json.insert(QStringLiteral("pending"), pending);
    }
    for (const auto& [key, text] : {std::pair(KeloOAuth2Info::User(), info.user()),
                                    {KeloOAuth2Info::Subscription(), info.subscription()}}) {
        if (info.loggedIn() && !text.isEmpty())
            json.insert(key, text);
    }
    const TrString problem = info.problem();
    if (!problem.isEmpty()) {
        json.insert(KeloOAuth2Info::Problem(), texts ? problem.toString(*texts) : problem.source());
        json.insert(KeloOAuth2Info::Reason(), info.reason());
    }
    return json;
}

/// Light squares around the code (ISO/IEC 18004).
constexpr int quietZone = 4;

/// A QR code as an SVG picture, black on white, with the quiet zone that readers want.
std::string qrPicture(const QrMatrix& code)
{
    const std::string side = std::to_string(code.size() + 2 * quietZone);
    std::string picture = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + side + ' ' +
                          side + "\" shape-rendering=\"crispEdges\"><rect width=\"" + side +
                          "\" height=\"" + side + "\" fill=\"#fff\"/><path fill=\"#000\" d=\"";
    for (int y = 0; y < code.size(); ++y) {
        for (int x = 0; x < code.size(); ++x) {
            const int begin = x;
            while (code.isDark(x, y))
                ++x;
            if (x == begin)
                continue;
            const std::string width = std::to_string(x - begin);
            picture += 'M';
            picture += std::to_string(begin + quietZone);
            picture += ' ';
            picture += std::to_string(y + quietZone);
            picture.append("h").append(width).append("v1h-").append(width).append("z");
        }
    }
    return picture + "\"/></svg>\n";
}

} // namespace

std::string LoginApi::text(const LoginState& state, const TextCatalogue* texts)
{
    return JsonText::fromObject(jsonOf(state, texts));
}

void LoginApi::addRoutes(RouteTable& routes)
{
    const std::string path = "/api/v1/login";
    routes.add("GET", "/api/v1/logins", [this](const HttpCall& call) { return list(call); });
    add(routes, "GET", path,
        [this](const QString& service, const HttpCall& call, const HttpAnswer& answer) {
            answer(state(service, call));
        });
    add(routes, "POST", path,
        [this](const QString& service, const HttpCall& call, const HttpAnswer& answer) {
            finish(m_login.start(service), service, call, answer);
        });
    add(routes, "DELETE", path,
        [this](const QString& service, const HttpCall& call, const HttpAnswer& answer) {
            finish(m_login.logout(service), service, call, answer);
        });
    add(routes, "GET", path + "/qr",
        [this](const QString& service, const HttpCall&, const HttpAnswer& answer) {
            answer(qrCode(service));
        });
}

void LoginApi::add(RouteTable& routes, const char* method, const std::string& path,
                   const Handler& handler)
{
    routes.add(method, path, [this, handler](const HttpCall& call, const HttpAnswer& answer) {
        const QStringList all = m_login.services();
        const QString named = call.parameter("service").value_or(m_login.usual());
        if (all.contains(named))
            return handler(named, call, answer);
        answer(HttpReply::problem(
            404, all.isEmpty() ? QStringLiteral("there is no login service")
                               : QStringLiteral("there is no login service \"%1\", only: %2")
                                     .arg(named, all.join(QStringLiteral(", ")))));
    });
}

void LoginApi::finish(const CMReply<QVariant>& reply, const QString& service, const HttpCall& call,
                      const HttpAnswer& answer)
{
    m_waiter.whenFinished(reply, [this, reply, service, call, answer] {
        const CMError error = reply.error();
        answer(error.isSet() ? HttpReply::error(error) : state(service, call));
    });
}

HttpReply LoginApi::state(const QString& service, const HttpCall& call) const
{
    return HttpReply::json(text({service, m_login.status(service)}, call.texts));
}

HttpReply LoginApi::list(const HttpCall& call) const
{
    QJsonArray logins;
    const QStringList all = m_login.services();
    for (const QString& service : all)
        logins.append(jsonOf({service, m_login.status(service)}, call.texts));
    return HttpReply::json(QJsonObject{{QStringLiteral("logins"), logins}});
}

HttpReply LoginApi::qrCode(const QString& service) const
{
    const KeloOAuth2Info info = m_login.status(service);
    QString address = info.verificationUriComplete();
    if (address.isEmpty())
        address = info.verificationUri();
    // Services leave the scheme out, and telephones take the rest for a search.
    if (!address.isEmpty() && !address.contains(QLatin1String("://")))
        address.prepend(QLatin1String("https://"));
    const QrMatrix code = QrMatrix::encode(address);
    if (code.isEmpty())
        return HttpReply::problem(404, QStringLiteral("no login waits for its confirmation"));
    return HttpReply{200, "image/svg+xml", qrPicture(code)};
}
