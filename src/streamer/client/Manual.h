#pragma once

#include "client/CommandShape.h"

/// The manual pages that are made from the program: its commands and its settings. Free functions
/// without state; the pages are installed, `kelo` itself shows help instead.
namespace cli {

/// kelo(1), with all of \p program.
QString commandManual(const ShapeCommand& program, const QString& date);
/// kelo.toml(5), with all settings.
QString settingsManual(const QString& date);

} // namespace cli
