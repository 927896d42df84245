#pragma once

#include <QStringList>

/// What `kelo serve` is told beside the settings. A plain value; --listen, --output, --log-level
/// and -o are already part of the settings.
struct ServeOptions
{
    bool isDemo = false;     ///< start the simulated service inside and log in by itself
    QString stateDirectory;  ///< absolute, chosen, not created yet
    QStringList moduleFiles; ///< --module; empty: those of the settings
};
