#pragma once
#include "KeloVersion.h"
#include <QVariantHash>

/// What a module exports under its plain name "worker_create": called once, on the thread that the
/// worker is to live on. `name` is the module's name or null, `settings` points to a QVariantHash.
/// Returns a CMAbstractWorker, owned by the host. A loaded module is never unloaded.
using KeloWorkerCreate = void* (*)(const char* name, void* settings);

/// Says for which version of the interface a module was built. Stands once in each module, in a
/// .cpp at namespace scope. The host reads it from the file before it loads that, and refuses a
/// module of another version or without it.
#define KELO_MODULE_INTERFACE                                                                      \
    extern "C" {                                                                                   \
    Q_DECL_EXPORT extern const char kelo_module_interface[];                                       \
    const char kelo_module_interface[] = KELO_INTERFACE_VERSION;                                   \
    }
