#pragma once
#include "Options.h"
#include <kelo/CMWorkerThread.h>
#include <kelo/KeloModule.h>
#include <kelo/KeloRoles.h>
#include <kelo/PlayLogicInterface.h>
#include <mutex>

/// What a module finds around it: the values that it was given, a login state, a login service and
/// a player that only keep what they are sent. Owned by Conformance, used on its thread.
class MinimalHost : private PlayLogicInterface
{
public:
    explicit MinimalHost(const Options& options);
    ~MinimalHost() override;

    /// Looks at the file, and loads it. A sentence about what is wrong with it; empty when nothing
    /// is. The module is not unloaded.
    QString load();
    /// Has the module make its worker; what is wrong, as above.
    QString start();
    /// Returns when the worker is deleted and its thread has ended.
    void stop();
    CMAbstractWorker* worker() const { return m_worker; }
    /// The items that the module has handed over since the last call.
    QList<KeloRoles> takePlayed();

private:
    QVariant play(const KeloRoles& item, int options) override;

    const Options m_options;
    CMWorkerThread m_hostThread;
    CMWorkerThread m_moduleThread;
    KeloWorkerCreate m_create = nullptr;
    CMAbstractWorker* m_worker = nullptr;
    std::mutex m_mutex; ///< guards what follows
    QList<KeloRoles> m_played;
};
