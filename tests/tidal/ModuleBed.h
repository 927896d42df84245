#pragma once
#include "TidalHandler.h"
#include "TidalWorker.h"
#include <kelo/CMNodesWorker.h>
#include <kelo/CMWorkerThread.h>
#include <kelosim/SimServer.h>
#include <QJsonArray>
#include <QJsonObject>

/// What the module finds in the host tree: its settings and a logged-in OAuth2 service.
class HostValues : public CMNodesWorker
{
    Q_OBJECT
public:
    HostValues(const QString& apiUrl, const QString& token);
    QStringList prefixes() const override;
    void setValue(const CMPath& path, const KeloValue& value);
};

/// The module's worker on a thread of its own, beside the simulated service that it talks to.
class ModuleWorld
{
public:
    ModuleWorld();
    ~ModuleWorld();

    TidalWorker* worker() { return m_worker; }
    HostValues* host() { return m_host; }
    kelosim::SimServer& sim() { return m_sim; }
    /// Runs a function on the worker's thread and waits for it.
    void onWorker(const std::function<void()>& function);
    /// Sends a rows request from outside and waits for its answer.
    CMGetRowsRequest rows(const CMPath& path, int from, int to, const QStringList& roles);
    /// Sends by a function of the handler and returns what arrived at the service for it.
    QJsonObject sent(const QString& path, const std::function<void(TidalHandler&)>& send);
    /// The request's reply after an answer of the service has been given to the responder.
    CMGetRowsRequest answered(const CMPath& path, int from, int to, const QStringList& roles,
                              int status, const QByteArray& body, const QString& etag = QString());

    static const QStringList& allRoles();

private:
    kelosim::SimServer m_sim;
    CMWorkerThread m_hostThread;
    CMWorkerThread m_workerThread;
    HostValues* m_host = nullptr;
    TidalWorker* m_worker = nullptr;
};

QString queryText(const QJsonObject& request);
