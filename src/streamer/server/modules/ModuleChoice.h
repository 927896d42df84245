#pragma once
#include "settings/Settings.h"

#include <vector>

/// A module that is to be served: which file, under which name and prefix. A plain value.
struct ModuleChoice
{
    QString file;
    QString name;          ///< NAME of libkelo_cb_NAME.so or libNAME.so
    QString prefix;        ///< below which it is asked, such as "/radio"
    QVariantHash settings; ///< for its entry: "prefix", and its own under "settings"

    /// The module of a file, with what the settings say for its name.
    static ModuleChoice ofFile(const QString& file, const ModuleSettings& settings);
    /// The files that are served when none is named: all of the module folder that belongs to the
    /// program; in a build tree, which has none, its one module.
    static QStringList installedFiles();
    /// A warning for each section of the settings that belongs to none of these modules.
    static QStringList strayingSections(const std::vector<ModuleChoice>& choices,
                                        const ModuleSettings& settings);
};
