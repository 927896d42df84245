#include "HealthApi.h"

#include "LateAnswer.h"
#include "texts/TextCatalogue.h"

#include <kelo/CMRoot.h>
#include <kelo/CMWorker.h>
#include <kelo/KeloTidalConstants.h>
#include <QJsonArray>

namespace {

constexpr int longestPingMs = 2000;

} // namespace

HttpReply HealthApi::health() const
{
    QJsonArray workers;
    const auto all = CMRoot().workers();
    for (const CMAbstractWorker* worker : all) {
        const QStringList prefixes = worker->prefixes();
        for (const QString& prefix : prefixes)
            workers.append(prefix);
    }
    return HttpReply::json(QJsonObject{{QStringLiteral("status"), QStringLiteral("ok")},
                                       {QStringLiteral("module"), m_moduleFile},
                                       {QStringLiteral("workers"), workers}});
}

HttpReply HealthApi::readiness(const TextCatalogue& texts) const
{
    bool hasModule = false;
    const auto all = CMRoot().workers();
    for (CMAbstractWorker* worker : all) {
        hasModule = hasModule || worker->prefixes().contains('/' + KeloService_Tidal_Id());
        auto* service = qobject_cast<CMWorker*>(worker);
        if (service && !service->ping().waitForFinished(longestPingMs)) {
            return HttpReply::problem(
                503, QStringLiteral("the worker of %1 does not answer").arg(service->serviceId()));
        }
    }
    if (!hasModule)
        return HttpReply::problem(503, QStringLiteral("no module is loaded"));
    QJsonObject state{{QStringLiteral("status"), QStringLiteral("ready")}};
    if (const LateAnswer late = LateAnswer::now(); late.isSet()) {
        state.insert(QStringLiteral("waiting"),
                     QJsonObject{{QStringLiteral("for"), late.from},
                                 {QStringLiteral("seconds"), late.seconds()},
                                 {QStringLiteral("text"), late.text().toString(texts)}});
    }
    return HttpReply::json(state);
}
