#include "KeloThrown.h"

#include <exception>

QString keloThrownBy(const QString& who, const std::function<void()>& function)
{
    try {
        function();
        return QString();
    } catch (const std::exception& fault) {
        return QStringLiteral("%1 threw an exception: %2")
            .arg(who, QString::fromLocal8Bit(fault.what()));
    } catch (...) {
        return QStringLiteral("%1 threw an exception of an unknown type").arg(who);
    }
}
