#pragma once
#include "settings/Settings.h"
#include <string>

/// What the command line of `kelo serve` says beside the settings.
struct ServeOptions
{
    bool isDemo = false;  ///< start the simulated service inside and log in by itself
    std::string stateDir; ///< empty: by the environment
    std::string module;   ///< the module's file; empty: beside the program
};

/// Runs the streamer until SIGTERM or SIGINT. Prints "listening on http://ADDR:PORT" as the first line
/// on stdout. Returns the process's exit status; what went wrong is on stderr.
int keloServe(const ServeOptions& options, const Settings& settings);
