#pragma once

#include "settings/Settings.h"

#include <QHash>
#include <QStringList>
#include <vector>

/// A value given beside the file: the key's full name, the value as text, and where it was given
/// ("-o", "--listen").
struct SettingsOverride
{
    QString key;
    QString value;
    QString origin;
};

/// What loading gave: the settings, where each came from, and everything that was wrong.
struct LoadedSettings
{
    Settings settings;
    QString file;                    ///< the file that was read; empty: none
    QHash<QString, QString> origins; ///< key name -> "file:line", "-o", ...; absent: the default
    QStringList problems;            ///< one sentence each; not empty: do not use the settings

    QString origin(const QString& key) const { return origins.value(key, "default"); }
};

/// Reads the settings: defaults, then the file, then the overrides, then the client secret from
/// where it is kept. It reads files and the environment and changes nothing; all problems are
/// collected. \p file is the command line's; empty: the user's file, else the system's, else none.
[[nodiscard]] LoadedSettings loadSettings(const QString& file = {},
                                          const std::vector<SettingsOverride>& overrides = {});

/// Splits "section.key=value". A text without "=" is kept as a key without a value, which
/// loadSettings() refuses by name.
SettingsOverride splitOverride(const QString& text);
