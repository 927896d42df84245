#include "ModuleApplication.h"

#include "ModuleThread.h"

bool ModuleApplication::notify(QObject* receiver, QEvent* event)
{
    if (!ModuleThread::isCurrent())
        return QCoreApplication::notify(receiver, event);
    return ModuleThread::handle([&] { QCoreApplication::notify(receiver, event); });
}
