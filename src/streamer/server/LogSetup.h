#pragma once
#include "settings/Settings.h"

/// Sends the log to stderr or a file, from the level of the settings on. Called once, before
/// threads start. False with a sentence in `error` when the file cannot be written.
[[nodiscard]] bool setUpLog(const LogSettings& settings, QString* error);

/// Whether stderr leads to the system's journal, which takes a priority at the start of each line
/// in place of a time stamp.
bool isErrorTheJournal();
