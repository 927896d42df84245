#include "library/RuntimeLibrary.h"

#include <dlfcn.h>
#include <QDir>
#include <QFileInfo>

namespace {

/// The folder above the program's. The commands have no QCoreApplication to ask.
QString folderAbove()
{
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath() + QStringLiteral("/../");
}

} // namespace

QString RuntimeLibrary::moduleFolder()
{
    return QDir::cleanPath(folderAbove() + QStringLiteral(KELO_INSTALL_LIBDIR "/kelo"));
}

QString RuntimeLibrary::installedFile(const QString& name)
{
    const QString above = folderAbove();
    const QString folders[] = {QStringLiteral("lib/"), QStringLiteral(KELO_INSTALL_LIBDIR "/"),
                               QStringLiteral(KELO_INSTALL_LIBDIR "/kelo/")};
    for (const QString& folder : folders) {
        const QFileInfo file(above + folder + name);
        if (file.exists())
            return file.canonicalFilePath();
    }
    return QFileInfo(above + folders[0] + name).absoluteFilePath();
}

RuntimeLibrary::RuntimeLibrary(const QString& file)
{
    const QFileInfo info(file);
    if (!info.isFile()) {
        m_reason = QStringLiteral("there is no such file");
        return;
    }
    // A bare name would be looked up on the library path instead.
    const QByteArray name = QFile::encodeName(info.absoluteFilePath());
    m_handle = dlopen(name.constData(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!m_handle)
        m_reason = QString::fromLocal8Bit(dlerror());
}

void* RuntimeLibrary::find(const char* symbol) const
{
    return m_handle ? dlsym(m_handle, symbol) : nullptr;
}
