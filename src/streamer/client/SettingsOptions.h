#pragma once

#include "client/Command.h"
#include "settings/SettingsLoader.h"

namespace cli {

/// The options of commands that look at the settings of this machine, and the settings with them.
/// Owned by such a command, used on the main thread.
class SettingsOptions
{
public:
    /// Adds --config and -o.
    void addTo(Command& command);
    /// Adds an option that sets the setting \p key.
    void add(Command& command, const QString& form, const QString& key, const QString& text);

    LoadedSettings load() const;
    /// Prints what is wrong with the settings, one line each; true when something is.
    static bool printProblems(Terminal& terminal, const LoadedSettings& loaded);

private:
    QString m_file;
    std::vector<SettingsOverride> m_overrides;
    std::vector<SettingsOverride> m_own; ///< of add(), which win
};

} // namespace cli
