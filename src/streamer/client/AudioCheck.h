#pragma once

#include <QString>
#include <QStringList>

namespace cli {

/// What the machine's audio library offers. Safe on one thread at a time.
struct AudioCheck
{
    QString version;     ///< empty: the library cannot start
    QStringList missing; ///< elements without which nothing plays
    bool hasAac = false; ///< the lossy qualities play

    /// Looks into the library's registry; may take a second the first time on a machine.
    static AudioCheck look();
};

} // namespace cli
