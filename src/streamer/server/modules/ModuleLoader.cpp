#include "ModuleLoader.h"

#include "library/LibraryFile.h"
#include "library/RuntimeLibrary.h"

namespace {

constexpr char entryName[] = "worker_create";
constexpr char interfaceName[] = "kelo_module_interface";

QString without(const char* symbol)
{
    return QStringLiteral("it has no symbol \"%1\"").arg(QLatin1String(symbol));
}

} // namespace

QString ModuleLoader::misfit(const QString& file)
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

QString ModuleLoader::refusal(const QString& file, const QString& reason)
{
    return QStringLiteral("cannot use the module %1: %2").arg(file, reason);
}

KeloWorkerCreate ModuleLoader::load(const QString& file, QString* error)
{
    const RuntimeLibrary library(file);
    const auto create = library.function<KeloWorkerCreate>(entryName);
    if (!create)
        *error = library.isLoaded() ? without(entryName) : library.reason();
    return create;
}
