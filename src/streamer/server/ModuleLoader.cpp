#include "ModuleLoader.h"

#include "library/RuntimeLibrary.h"

#include <kelo/CMAbstractWorker.h>
#include <kelo/KeloTidalConstants.h>

namespace {

constexpr char entryName[] = "worker_create";

} // namespace

QString ModuleLoader::installedFile()
{
    return RuntimeLibrary::installedFile(QStringLiteral("libkelo_cb_tidal.so"));
}

KeloWorkerCreate ModuleLoader::load(const QString& file, QString* error)
{
    const RuntimeLibrary library(file);
    if (!library.isLoaded()) {
        *error = QStringLiteral("cannot load the module %1: %2").arg(file, library.reason());
        return nullptr;
    }
    const auto create = library.function<KeloWorkerCreate>(entryName);
    if (!create) {
        *error = QStringLiteral("cannot use the module %1: it has no symbol \"%2\"")
                     .arg(file, QLatin1String(entryName));
    }
    return create;
}

bool ModuleLoader::start(const QString& file, const QVariantHash& settings, QString* error)
{
    const KeloWorkerCreate create = load(file, error);
    if (!create)
        return false;
    const QByteArray name = KeloService_Tidal_Id().toUtf8();
    QVariantHash copy = settings;
    const auto factory = [&] {
        return static_cast<CMAbstractWorker*>(create(name.constData(), &copy));
    };
    if (m_thread.start(name.constData(), factory))
        return true;
    *error =
        QStringLiteral("cannot use the module %1: \"%2\" gave no worker, or its place is taken")
            .arg(file, QLatin1String(entryName));
    return false;
}

void ModuleLoader::stop()
{
    m_thread.stop();
}
