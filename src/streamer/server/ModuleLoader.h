#pragma once
#include <kelo/CMWorkerThread.h>
#include <kelo/KeloModule.h>
#include <QString>

/// Loads a module's shared library and runs its worker on a thread of its own. Owned by serve, used
/// on its thread. A loaded library is never unloaded.
class ModuleLoader
{
public:
    /// The file that belongs to the program: beside it in a build tree or an installation.
    static QString installedFile();

    /// Loads `file`, makes its worker and adds it to the tree. False with a sentence that names the
    /// file, and the symbol where that is missing, in `error`.
    [[nodiscard]] bool start(const QString& file, const QVariantHash& settings, QString* error);
    /// Stops and deletes the worker.
    void stop();

private:
    static KeloWorkerCreate load(const QString& file, QString* error);

    CMWorkerThread m_thread;
};
