#include "ModuleLoader.h"

#include "library/LibraryFile.h"
#include "library/RuntimeLibrary.h"

#include <kelo/CMAbstractWorker.h>
#include <kelo/KeloTidalConstants.h>

namespace {

constexpr char entryName[] = "worker_create";
constexpr char interfaceName[] = "kelo_module_interface";

QString without(const char* symbol)
{
    return QStringLiteral("it has no symbol \"%1\"").arg(QLatin1String(symbol));
}

/// Why the file is none that fits this program, as the end of a sentence; empty when it fits. The
/// file is only read: loading it would run its first code.
QString misfit(const QString& file)
{
    const LibraryFile library(file);
    if (!library.reason().isEmpty())
        return library.reason();
    const QByteArray version = library.text(interfaceName);
    if (version.isNull())
        return without(interfaceName);
    if (version != KELO_INTERFACE_VERSION) {
        return QStringLiteral("it was built for version %1 of the interface, this is %2")
            .arg(QString::fromLatin1(version), QLatin1String(KELO_INTERFACE_VERSION));
    }
    return QString();
}

} // namespace

QString ModuleLoader::installedFile()
{
    return RuntimeLibrary::installedFile(QStringLiteral("libkelo_cb_tidal.so"));
}

KeloWorkerCreate ModuleLoader::load(const QString& file, QString* error)
{
    const QString refusal = QStringLiteral("cannot use the module %1: %2").arg(file);
    if (const QString reason = misfit(file); !reason.isEmpty()) {
        *error = refusal.arg(reason);
        return nullptr;
    }
    const RuntimeLibrary library(file);
    if (!library.isLoaded()) {
        *error = QStringLiteral("cannot load the module %1: %2").arg(file, library.reason());
        return nullptr;
    }
    const auto create = library.function<KeloWorkerCreate>(entryName);
    if (!create)
        *error = refusal.arg(without(entryName));
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
