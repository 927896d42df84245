#pragma once

#include <QString>

/// The completion functions of shells: short scripts that ask `kelo complete` for everything, so
/// that they need no change when commands and options do.
namespace cli {

/// The script for "bash" or "zsh"; it can be installed where the shell looks, or sourced.
QString completionScript(const QString& shell);

} // namespace cli
