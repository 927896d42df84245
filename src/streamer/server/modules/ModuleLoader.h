#pragma once
#include <kelo/KeloModule.h>
#include <QString>

/// Loads the shared libraries of modules. A loaded library is never unloaded. Any thread.
class ModuleLoader
{
public:
    /// The entry of a module; null with a sentence that names the file in `error`. Nothing of a
    /// file runs that was built for another machine or another version of the interface.
    [[nodiscard]] static KeloWorkerCreate load(const QString& file, QString* error);
    /// The sentence that says why a module cannot be used.
    static QString refusal(const QString& file, const QString& reason);
};
