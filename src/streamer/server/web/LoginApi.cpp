#include "LoginApi.h"

#include "JsonText.h"
#include "LoginControl.h"
#include "qr/QrMatrix.h"
#include "ReplyWaiter.h"
#include "texts/TextCatalogue.h"

std::string LoginApi::text(const KeloOAuth2Info& info, const TextCatalogue* texts)
{
    QJsonObject json{{QStringLiteral("loggedIn"), info.loggedIn()}};
    if (info.isPending()) {
        QJsonObject pending{{KeloOAuth2Info::UserCode(), info.userCode()},
                            {KeloOAuth2Info::VerificationUri(), info.verificationUri()},
                            {KeloOAuth2Info::ExpiresIn(), info.expiresIn()}};
        if (!info.verificationUriComplete().isEmpty())
            pending.insert(KeloOAuth2Info::VerificationUriComplete(),
                           info.verificationUriComplete());
        json.insert(QStringLiteral("pending"), pending);
    }
    for (const auto& [name, text] : {std::pair(KeloOAuth2Info::User(), info.user()),
                                     {KeloOAuth2Info::Subscription(), info.subscription()}}) {
        if (info.loggedIn() && !text.isEmpty())
            json.insert(name, text);
    }
    const TrString problem = info.problem();
    if (!problem.isEmpty()) {
        json.insert(KeloOAuth2Info::Problem(), texts ? problem.toString(*texts) : problem.source());
        json.insert(KeloOAuth2Info::Reason(), info.reason());
    }
    return JsonText::fromObject(json);
}

namespace {

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

void LoginApi::addRoutes(RouteTable& routes)
{
    const std::string path = "/api/v1/login";
    routes.add("GET", path, [this](const HttpCall& call) { return state(call); });
    routes.add("POST", path, [this](const HttpCall& call, const HttpAnswer& answer) {
        finish(m_login.start(), call, answer);
    });
    routes.add("DELETE", path, [this](const HttpCall& call, const HttpAnswer& answer) {
        finish(m_login.logout(), call, answer);
    });
    routes.add("GET", path + "/qr", [this](const HttpCall&) { return qrCode(); });
}

void LoginApi::finish(const CMReply<QVariant>& reply, const HttpCall& call,
                      const HttpAnswer& answer)
{
    m_waiter.whenFinished(reply, [this, reply, call, answer] {
        const CMError error = reply.error();
        answer(error.isSet() ? HttpReply::error(error) : state(call));
    });
}

HttpReply LoginApi::state(const HttpCall& call) const
{
    return HttpReply::json(text(m_login.status(), call.texts));
}

HttpReply LoginApi::qrCode() const
{
    const KeloOAuth2Info info = m_login.status();
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
