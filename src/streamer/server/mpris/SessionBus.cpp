#include "SessionBus.h"
#include <QFile>
#include <sys/stat.h>

namespace {
bool isSocket(const QString& file)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(file).constData(), &status) == 0 && S_ISSOCK(status.st_mode);
}

/// A path as a value in an address of a bus, where most characters stand as %XX.
QString escaped(const QString& path)
{
    return QString::fromLatin1(QFile::encodeName(path).toPercentEncoding("/\\*", "~"));
}
} // namespace

QString sessionBusAddress()
{
    const QString named = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!named.isEmpty())
        return named.contains(QLatin1String("autolaunch:")) ? QString() : named;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString file = folder + QStringLiteral("/bus");
    return !folder.isEmpty() && isSocket(file) ? QStringLiteral("unix:path=") + escaped(file)
                                               : QString();
}
