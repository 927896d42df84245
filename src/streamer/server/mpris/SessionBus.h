#pragma once
#include <QString>

/// Where the session bus of this process listens: DBUS_SESSION_BUS_ADDRESS, else the socket "bus"
/// of XDG_RUNTIME_DIR. Empty when there is none; an address that would start a bus counts as none.
QString sessionBusAddress();
