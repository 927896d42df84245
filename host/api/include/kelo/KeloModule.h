#pragma once
#include <QVariantHash>

/// What a module exports under its plain name "worker_create": called once, on the thread that the
/// worker is to live on. `name` is the module's name or null, `settings` points to a QVariantHash.
/// Returns a CMAbstractWorker, owned by the host. A loaded module is never unloaded.
using KeloWorkerCreate = void* (*)(const char* name, void* settings);
