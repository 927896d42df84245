#pragma once

#include <QString>
#include <QStringList>

/// Text as a terminal shows it: what may be sent to it and how many columns it takes. Free
/// functions without state, safe on any thread; they do not depend on the process's locale.
namespace cli {

/// \p text with control characters, line breaks and invisible direction marks written out
/// ("\n", "\x1b", "\u202e"), so that it cannot move the cursor or recolour the screen.
QString shown(const QString& text);

/// Columns that \p text takes: 2 for wide characters, 0 for combining marks.
int columns(const QString& text);

/// \p text cut to \p width columns, ending in an ellipsis where something was cut off. A combining
/// mark stays with its letter.
QString cut(const QString& text, int width);

/// \p text followed by as many spaces as it lacks to \p width columns.
QString padded(const QString& text, int width);

/// The lines of \p text, broken at blanks so that none is wider than \p width; only a longer word
/// is.
QStringList wrapped(const QString& text, int width);

/// "m:ss", or "h:mm:ss" from an hour on; negative durations count as 0.
QString clockTime(qint64 milliseconds);

} // namespace cli
