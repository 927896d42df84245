#include "HealthApi.h"

#include "LateAnswer.h"
#include "texts/TextCatalogue.h"

#include <kelo/CMRoot.h>
#include <kelo/CMWorker.h>
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
    QJsonArray modules;
    const auto states = this->modules();
    for (const ModuleState& state : states) {
        QJsonObject module{{QStringLiteral("name"), state.name},
                           {QStringLiteral("file"), state.file},
                           {QStringLiteral("prefix"), state.prefix}};
        if (!state.problem.isEmpty())
            module.insert(QStringLiteral("problem"), state.problem);
        modules.append(module);
    }
    return HttpReply::json(QJsonObject{{QStringLiteral("status"), QStringLiteral("ok")},
                                       {QStringLiteral("module"), states.value(0).file},
                                       {QStringLiteral("modules"), modules},
                                       {QStringLiteral("workers"), workers}});
}

HttpReply HealthApi::readiness(const TextCatalogue& texts) const
{
    const auto all = CMRoot().workers();
    for (CMAbstractWorker* worker : all) {
        auto* service = qobject_cast<CMWorker*>(worker);
        if (service && !service->ping().waitForFinished(longestPingMs)) {
            return HttpReply::problem(
                503, QStringLiteral("the worker of %1 does not answer").arg(service->serviceId()));
        }
    }
    const auto states = modules();
    QJsonArray problems;
    for (const ModuleState& state : states) {
        if (!state.problem.isEmpty())
            problems.append(state.problem);
    }
    if (problems.size() == states.size())
        return HttpReply::problem(503, QStringLiteral("no module is loaded"));
    QJsonObject state{{QStringLiteral("status"), QStringLiteral("ready")}};
    if (!problems.isEmpty())
        state.insert(QStringLiteral("problems"), problems);
    if (const LateAnswer late = LateAnswer::now(); late.isSet()) {
        state.insert(QStringLiteral("waiting"),
                     QJsonObject{{QStringLiteral("for"), late.from},
                                 {QStringLiteral("seconds"), late.seconds()},
                                 {QStringLiteral("text"), late.text().toString(texts)}});
    }
    return HttpReply::json(state);
}
