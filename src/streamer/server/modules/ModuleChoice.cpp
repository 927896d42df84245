#include "ModuleChoice.h"

#include "library/RuntimeLibrary.h"

#include <kelo/KeloTidalConstants.h>
#include <QDir>

namespace {

const QString prefixKey = QStringLiteral("prefix");
/// The program's own parts stand in the folder, too.
const QStringList notModules{QStringLiteral("libkelo_audio.so"),
                             QStringLiteral("libkelo_mpris.so")};

QString nameOf(const QString& file)
{
    QString name = QFileInfo(file).baseName();
    for (const char* start : {"lib", "kelo_cb_"}) {
        if (name.startsWith(QLatin1String(start)))
            name.remove(0, int(qstrlen(start)));
    }
    return name;
}

} // namespace

ModuleChoice ModuleChoice::ofFile(const QString& file, const ModuleSettings& settings)
{
    ModuleChoice choice;
    choice.file = file;
    choice.name = nameOf(file);
    QVariantHash own = settings.sections.value(choice.name);
    choice.prefix = own.take(prefixKey).toString();
    // The paths of this module are known to clients.
    if (choice.prefix.isEmpty() || choice.name == KeloService_Tidal_Id())
        choice.prefix = '/' + choice.name;
    choice.settings = {{prefixKey, choice.prefix}, {QStringLiteral("settings"), own}};
    return choice;
}

QStringList ModuleChoice::installedFiles()
{
    const QFileInfo own(RuntimeLibrary::installedFile(QStringLiteral("libkelo_cb_tidal.so")));
    const QDir folder(RuntimeLibrary::moduleFolder());
    if (!folder.exists())
        return own.exists() ? QStringList(own.filePath()) : QStringList();
    QStringList files;
    const QStringList names = folder.entryList({QStringLiteral("*.so")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        if (!notModules.contains(name))
            files.append(folder.filePath(name));
    }
    return files;
}

QStringList ModuleChoice::strayingSections(const std::vector<ModuleChoice>& choices,
                                           const ModuleSettings& settings)
{
    QStringList names;
    for (const ModuleChoice& choice : choices)
        names.append(choice.name);
    QStringList sections = settings.sections.keys();
    sections.sort();
    QStringList warnings;
    for (const QString& section : qAsConst(sections)) {
        if (!names.contains(section))
            warnings.append(
                QStringLiteral("[module.%1] is not used: no module is called %1; served are %2")
                    .arg(section, names.join(QStringLiteral(", "))));
    }
    return warnings;
}
