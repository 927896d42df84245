#pragma once

#include <QString>
#include <QStringList>

namespace cli {

/// A command line as far as it is typed, split into words as a POSIX shell does. A plain value. It
/// expands nothing.
struct ShellLine
{
    QStringList words; ///< without their quotes; the last one is being typed, maybe still empty
    /// How much of the last word stands before the place where the shell puts in a completion.
    int fixed = 0;

    /// \p breaks are the characters at which the shell begins a completion anew, outside quotes
    /// (bash's COMP_WORDBREAKS).
    static ShellLine parse(const QString& line, const QString& breaks);
};

} // namespace cli
