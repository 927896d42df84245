#pragma once

#include <QStringList>

namespace cli {

/// \p text as a QR code of half blocks, two modules per character cell, with a quiet zone of
/// \p margin modules. Blocks stand for light modules when \p lightBlocks (for dark terminals),
/// else for dark ones. Empty when the text is too long for a code. Safe on any thread.
QStringList qrCode(const QString& text, bool lightBlocks, int margin = 2);

} // namespace cli
