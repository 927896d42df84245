#include "Demo.h"

bool Demo::start(QString* error)
{
    kelosim::SimOptions options;
    options.approvals = 1; // later ones are a person's, at the service's page
    options.faults = {
        "device-code interval=1 expires=300"}; // a start that waits for the login is quick
    m_server = std::make_unique<kelosim::SimServer>(options);
    std::string fault;
    if (m_server->start(&fault))
        return true;
    *error =
        QStringLiteral("cannot start the simulated service: %1").arg(QString::fromStdString(fault));
    return false;
}

void Demo::stop()
{
    if (m_server)
        m_server->stop();
}

void Demo::apply(TidalSettings& settings) const
{
    const QString base = QString::fromStdString(m_server->baseUrl());
    settings.apiUrl = base + QStringLiteral("/v1");
    settings.imageUrl = base + QStringLiteral("/images/");
    settings.oauth2.deviceCodeUrl = base + QStringLiteral("/v1/oauth2/device_authorization");
    settings.oauth2.authorizationUrl = base + QStringLiteral("/v1/oauth2/authorize");
    settings.oauth2.tokenUrl = base + QStringLiteral("/v1/oauth2/token");
    settings.oauth2.clientId = QStringLiteral("kelo-demo");
    settings.oauth2.clientSecret = Secret(QStringLiteral("kelo-demo-secret"));
    settings.oauth2.clientSecretFile.clear();
}
