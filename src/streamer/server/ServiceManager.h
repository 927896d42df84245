#pragma once
#include <QByteArray>

/// Tells the service manager that started the program how far it is: "READY=1", "STOPPING=1"
/// (sd_notify(3): a datagram to the socket that NOTIFY_SOCKET names). Nothing happens without one.
void tellServiceManager(const QByteArray& state);
