#pragma once
#include "settings/ServeOptions.h"
#include "settings/Settings.h"

/// Runs the streamer until SIGTERM or SIGINT. Prints "listening on http://ADDR:PORT" as the first
/// line on stdout. Returns the process's exit status; what went wrong is on stderr.
int keloServe(const ServeOptions& options, const Settings& settings);
