#include "settings/StateDirectory.h"

#include <QDir>

QString stateDirectory(const QString& given)
{
    if (!given.isEmpty())
        return QDir(given).absolutePath();
    // The service manager may list several, separated by colons; the first is ours.
    const QString managed = qEnvironmentVariable("STATE_DIRECTORY").section(':', 0, 0);
    if (!managed.isEmpty())
        return managed;
    const QString user = qEnvironmentVariable("XDG_STATE_HOME");
    return (user.isEmpty() ? QDir::homePath() + "/.local/state" : user) + "/kelo";
}
