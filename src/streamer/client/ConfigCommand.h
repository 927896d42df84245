#pragma once

#include "client/Terminal.h"
#include "settings/SettingsLoader.h"

namespace cli {

/// `kelo config`: the settings that `kelo serve` would run with, and where each comes from. Made
/// for one run, used on the main thread. It talks to no streamer; secrets are masked.
struct ConfigCommand
{
    LoadedSettings loaded;
    bool isJson = false;

    int run(Terminal& terminal) const;
};

/// Prints what is wrong with the settings, one line each; true when something is.
bool printProblems(Terminal& terminal, const LoadedSettings& loaded);

} // namespace cli
