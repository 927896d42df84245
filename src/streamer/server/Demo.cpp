#include "Demo.h"

#ifdef KELO_DEMO
#include <kelosim/SimServer.h>
#endif

Demo::Demo() = default;
Demo::~Demo() = default;

QString Demo::start(QString* error)
{
#ifdef KELO_DEMO
    kelosim::SimOptions options;
    options.approvals = 1; // a newcomer sees music at once; later logins are a person's to approve
    options.faults = {"device-code interval=1 expires=300"}; // the start waits for the login
    m_service = std::make_shared<kelosim::SimServer>(options);
    std::string fault;
    if (m_service->start(&fault))
        return QString::fromStdString(m_service->baseUrl());
    *error =
        QStringLiteral("cannot start the simulated service: %1").arg(QString::fromStdString(fault));
#else
    *error =
        QStringLiteral("cannot start the simulated service: it is not built into this program");
#endif
    return {};
}
