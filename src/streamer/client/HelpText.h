#pragma once

#include "client/Command.h"

namespace cli {

/// The help of \p command, with the examples first: what it does, how it looks in use, and only
/// then its options, wrapped to \p width. \p words are the command as it is written.
QString helpText(const Command& command, const QString& words, int width);

} // namespace cli
