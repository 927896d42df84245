#pragma once

#include "settings/Settings.h"

#include <functional>
#include <QVariant>
#include <vector>

/// One key of the settings file: its name, what it accepts and where its value lives. The table of
/// all keys is made once and never changes; it is safe to read on any thread.
struct SettingsKey
{
    /// The types that values of each kind have.
    enum class Kind {
        Text = QVariant::String,
        Integer = QVariant::LongLong,
        Number = QVariant::Double,
        Boolean = QVariant::Bool,
        TextList = QVariant::StringList
    };

    QString name;             ///< with its section: "tidal.oauth2.scope"
    QString meaning;          ///< what it sets, as one sentence for people
    Kind kind;                ///< what a text from the command line is read as; a list has commas
    QString wanted;           ///< what a value has to be, to follow the word "wanted"
    QStringList choices = {}; ///< the only values there are; empty: more than can be listed
    bool isSecret = false;
    /// Stores a bool, qlonglong, double, QString or QStringList; false and nothing stored when it
    /// is not wanted.
    std::function<bool(Settings&, const QVariant&)> store = {};
    /// The value for people, a secret masked.
    std::function<QVariant(const Settings&)> read = {};

    QString section() const { return name.left(name.lastIndexOf('.')); }
    QString word() const { return name.mid(name.lastIndexOf('.') + 1); }
};

/// All keys, in the order of the settings file.
const std::vector<SettingsKey>& settingsKeys();
/// The key of that full name, or null.
const SettingsKey* findSettingsKey(const QString& name);
/// All sections, in the order of the settings file.
QStringList settingsSections();
