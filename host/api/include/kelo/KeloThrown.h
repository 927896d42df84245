#pragma once
#include "KeloExport.h"
#include <functional>
#include <QString>

/// Runs a function of a module, which may throw. What it threw, as a sentence that begins with
/// `who`; empty when nothing.
KELO_EXPORT QString keloThrownBy(const QString& who, const std::function<void()>& function);
