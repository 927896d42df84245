#pragma once
#include <kelo/KeloModule.h>
#include <QString>

/// Loads the shared libraries of modules. A loaded library is never unloaded. Any thread.
class ModuleLoader
{
public:
    /// Why a file is none that fits this program, as the end of a sentence; empty when it fits. It
    /// is only read: loading it would run its first code.
    static QString misfit(const QString& file);
    /// The entry of a module that fits; null with the end of a sentence in `error`.
    [[nodiscard]] static KeloWorkerCreate load(const QString& file, QString* error);
    /// The sentence that says why a module cannot be used.
    static QString refusal(const QString& file, const QString& reason);
};
