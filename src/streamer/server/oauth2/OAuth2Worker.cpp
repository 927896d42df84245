#include "OAuth2Worker.h"

#include <kelo/CMActivateNode.h>
#include <kelo/KeloLog.h>
#include <QRegularExpression>
#include <QUrl>

namespace {

constexpr int mostServices = 16;

bool isHttpUrl(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

} // namespace

OAuth2Worker::OAuth2Worker(const QString& folder, std::unique_ptr<TokenEndpoint> endpoint,
                           std::unique_ptr<Clock> clock)
    : CMNodesWorker(QVariantHash(), QStringLiteral("oauth2")), m_store(folder),
      m_endpoint(endpoint ? std::move(endpoint) : std::make_unique<HttpTokenEndpoint>()),
      m_clock(clock ? std::move(clock) : std::make_unique<SystemClock>()),
      m_list(CMListRowsNode::create(nodes(), KeloOAuth2ServicePath()))
{
    m_list->setTitle(KELO_TR("Logins"));
    m_list->setContainerType(KeloRolesContainerType::List_);
    CMActivateNode::create(nodes(), KeloOAuth2AddServicePath(), this,
                           SLOT(on_add(CMSetDataRequest)), Qt::QueuedConnection)
        ->setTitle(KELO_TR("Add a login service"));
}

OAuth2Worker::~OAuth2Worker()
{
    // Services end before the endpoint and the clock that they use.
    qDeleteAll(m_services);
}

QString OAuth2Worker::fault(const KeloOAuth2ServiceInfo& info) const
{
    static const QRegularExpression name(QStringLiteral("\\A[A-Za-z0-9_-]{1,64}\\z"));
    if (!name.match(info.serviceName()).hasMatch())
        return QStringLiteral("serviceName: wanted letters, digits, \"-\" and \"_\", at most 64");
    if (!isHttpUrl(info.tokenUrl()))
        return QStringLiteral("tokenUrl: wanted an http or https address");
    if (!isHttpUrl(info.deviceCodeUrl()))
        return QStringLiteral("deviceCodeUrl: wanted an http or https address");
    if (!m_services.contains(info.serviceName()) && m_services.size() >= mostServices)
        return QStringLiteral("there are %1 login services already").arg(mostServices);
    return QString();
}

void OAuth2Worker::on_add(CMSetDataRequest request)
{
    KeloOAuth2ServiceInfo info(KeloHash(request.value().toHash()));
    const QString problem = fault(info);
    if (!problem.isEmpty()) {
        KELO_LOG("OAuth2", ERROR) << "A login service is not added: " << problem;
        request.reply().setError(CMError(CMError::BadRequestName(), problem));
        return;
    }
    if (info.displayName().isEmpty())
        info.setDisplayName(info.serviceName());
    if (OAuth2Service* known = m_services.value(info.serviceName())) {
        known->setInfo(info);
    } else {
        auto* service = new OAuth2Service(info, nodes(), m_store, *m_endpoint, *m_clock, this);
        m_services.insert(info.serviceName(), service);
        CMPath path = KeloOAuth2ServicePath();
        path.appendSubpath(info.serviceName());
        m_list->rowsAppend(path);
    }
    request.reply().setValue(QVariant());
}
