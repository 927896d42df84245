#include "ModuleLoader.h"

#include <dlfcn.h>
#include <kelo/CMAbstractWorker.h>
#include <kelo/KeloTidalConstants.h>
#include <QCoreApplication>
#include <QFileInfo>

namespace {

constexpr char entryName[] = "worker_create";

} // namespace

QString ModuleLoader::installedFile()
{
    const QString name = QStringLiteral("libkelo_cb_tidal.so");
    const QString above = QCoreApplication::applicationDirPath() + QStringLiteral("/../");
    const QString folders[] = {QStringLiteral("lib/"), QStringLiteral(KELO_INSTALL_LIBDIR "/"),
                               QStringLiteral(KELO_INSTALL_LIBDIR "/kelo/")};
    for (const QString& folder : folders) {
        const QFileInfo file(above + folder + name);
        if (file.exists())
            return file.canonicalFilePath();
    }
    return QFileInfo(above + folders[0] + name).absoluteFilePath();
}

KeloWorkerCreate ModuleLoader::load(const QString& file, QString* error)
{
    const QFileInfo info(file);
    if (!info.isFile()) {
        *error = QStringLiteral("cannot load the module %1: there is no such file").arg(file);
        return nullptr;
    }
    // A bare name would be looked up on the library path instead.
    const QByteArray name = QFile::encodeName(info.absoluteFilePath());
    void* library = dlopen(name.constData(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!library) {
        *error = QStringLiteral("cannot load the module %1: %2")
                     .arg(file, QString::fromLocal8Bit(dlerror()));
        return nullptr;
    }
    auto* create = reinterpret_cast<KeloWorkerCreate>(dlsym(library, entryName));
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
