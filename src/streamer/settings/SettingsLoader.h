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
/// where it is kept. Owned by whoever starts the program and used once, on any one thread. It reads
/// files and the environment and changes nothing.
class SettingsLoader
{
public:
    /// \p file from the command line; empty: the user's file, else the system's, else none.
    explicit SettingsLoader(QString file = QString(), std::vector<SettingsOverride> overrides = {});

    /// Collects all problems rather than stopping at the first. Never throws.
    [[nodiscard]] LoadedSettings load() const;

    /// Splits "section.key=value". A text without "=" is kept as a key without a value, which
    /// load() refuses by name.
    static SettingsOverride splitOverride(const QString& text);

private:
    QString m_file;
    std::vector<SettingsOverride> m_overrides;
};
