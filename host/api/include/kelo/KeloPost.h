#pragma once
#include "KeloExport.h"
#include <functional>
#include <QObject>

/// Runs a function on the receiver's thread, in a later turn of its event loop; nothing runs when
/// the receiver is gone by then. May be called from any thread while the receiver is alive. This is
/// the way by which functions cross threads; it carries an acquire-release step of its own, so what
/// the caller wrote before is seen there.
KELO_EXPORT void keloPost(QObject* receiver, std::function<void()> function);
