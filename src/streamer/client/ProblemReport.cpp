#include "client/ProblemReport.h"

#include "client/DisplayText.h"
#include "settings/SettingsKeys.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <link.h>
#include <memory>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QJsonDocument>
#include <QMap>
#include <QStorageInfo>
#include <QSysInfo>
#include <unistd.h>

namespace cli {

namespace {

constexpr int mostLogLines = 200;

/// The files of the libraries that this process has loaded; their names hold their versions.
QStringList loadedLibraries()
{
    QStringList names;
    dl_iterate_phdr(
        [](dl_phdr_info* info, size_t, void* data) {
            const QFileInfo file(QFile::decodeName(info->dlpi_name));
            const QString name = QFileInfo(file.canonicalFilePath()).fileName();
            if (name.contains(".so"))
                static_cast<QStringList*>(data)->append(name);
            return 0;
        },
        &names);
    names.sort();
    return names;
}

QString libraryOfC()
{
#ifdef _CS_GNU_LIBC_VERSION
    char version[64] = "";
    confstr(_CS_GNU_LIBC_VERSION, version, sizeof version);
    return QString::fromLatin1(version);
#else
    return QStringLiteral("a C library that does not say its version");
#endif
}

/// The last lines of \p text.
QStringList endOf(const QByteArray& text)
{
    const QStringList lines = QString::fromUtf8(text).trimmed().split('\n', Qt::SkipEmptyParts);
    return lines.mid(qMax(0, lines.size() - mostLogLines));
}

QByteArray readEnd(const QString& name)
{
    constexpr qint64 mostBytes = 128 * 1024;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const bool isCut = file.size() > mostBytes && file.seek(file.size() - mostBytes);
    const QByteArray end = file.read(mostBytes);
    // What a cut line holds is not told any more by its name.
    return isCut ? end.mid(end.indexOf('\n') + 1) : end;
}

/// What the service manager's journal has of the units, where there is one that may be read.
QByteArray readJournal()
{
    for (const char* whose : {"--system", "--user"}) {
        const std::string command = std::string("journalctl ") + whose +
                                    " --unit=kelo --lines=" + std::to_string(mostLogLines) +
                                    " --no-pager --quiet 2>/dev/null </dev/null";
        const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "re"), &pclose);
        QByteArray text;
        char part[4096];
        size_t got = 0;
        while (pipe && (got = fread(part, 1, sizeof part, pipe.get())) > 0)
            text.append(part, static_cast<int>(got));
        if (!text.trimmed().isEmpty())
            return text;
    }
    return {};
}

/// As `ls` writes them in octal: "600".
QString modeOf(const QFileInfo& file)
{
    const int all = static_cast<int>(file.permissions());
    return QStringLiteral("%1%2%3").arg(all >> 12 & 7).arg(all >> 4 & 7).arg(all & 7);
}

QStringList rowsOf(ApiClient& api, const QString& path)
{
    const ApiReply reply = api.rows(path, 0, 19);
    if (!reply.isDone() && path == "/")
        return {}; // not every streamer has rows there
    if (!reply.isDone())
        return {path + ": " + reply.message};
    QStringList lines{QStringLiteral("%1: %2 rows").arg(path).arg(rowsCountIn(reply.document))};
    for (const QJsonObject& row : rowsIn(reply.document))
        lines.append("  " + textIn(row, "Title") + "  " + textIn(row, "Path"));
    return lines;
}

} // namespace

ProblemReport::ProblemReport(const LoadedSettings& loaded, const QString& stateFolder)
    : m_loaded(loaded), m_stateFolder(stateFolder)
{
    m_redaction.add(loaded.settings.tidal.oauth2.clientSecret.reveal());
    m_redaction.add(loaded.settings.tidal.oauth2.clientId);
    m_redaction.addTokensBelow(stateFolder);
    for (const QVariantHash& section : loaded.settings.modules.sections)
        m_redaction.addSecretsOf(QJsonObject::fromVariantHash(section));
    m_text = QStringLiteral("kelo problem report, %1\n"
                            "*** stands for what was left out. Look through it before you send "
                            "it.\n")
                 .arg(QDateTime::currentDateTimeUtc().toString(Qt::ISODate));
}

void ProblemReport::section(const QString& title, const QStringList& lines)
{
    m_text += "\n== " + title + '\n';
    for (const QString& line : lines)
        m_text += shown(line) + '\n';
}

void ProblemReport::addVersions(const QString& audio)
{
    QStringList lines{
        "kelo " KELO_VERSION,
        QStringLiteral("Qt %1, built with " QT_VERSION_STR).arg(qVersion()),
        audio,
        libraryOfC(),
        QSysInfo::prettyProductName(),
        QStringLiteral("%1 %2").arg(QSysInfo::kernelType(), QSysInfo::kernelVersion()),
        QStringLiteral("%1, built for %2")
            .arg(QSysInfo::currentCpuArchitecture(), QSysInfo::buildAbi())};
    for (const char* name : {"KELO_SERVER", "LANG", "LC_ALL", "LC_MESSAGES"}) {
        if (qEnvironmentVariableIsSet(name))
            lines.append(
                QStringLiteral("%1=%2").arg(name, m_redaction.cleaned(qEnvironmentVariable(name))));
    }
    section("Versions", lines);
    section("Libraries", loadedLibraries());
}

void ProblemReport::addChecks(const QStringList& lines)
{
    QStringList cleaned;
    for (const QString& line : lines)
        cleaned.append(m_redaction.cleaned(line));
    section("Checks", cleaned);
}

/// Of a setting the value alone is cleaned: its name may sound like a secret.
void ProblemReport::addSettings()
{
    QStringList lines;
    for (const SettingsKey& key : settingsKeys()) {
        const QByteArray value = json(QJsonValue::fromVariant(key.read(m_loaded.settings)));
        lines.append(QStringLiteral("%1 = %2  # %3")
                         .arg(key.name, m_redaction.cleaned(QString::fromUtf8(value)),
                              m_loaded.origin(key.name)));
    }
    section("Settings", lines);
}

void ProblemReport::addState()
{
    constexpr int mostFiles = 200;
    QMap<QString, QString> found;
    QDirIterator files(m_stateFolder,
                       QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext() && found.size() < mostFiles) {
        files.next();
        const QFileInfo file = files.fileInfo();
        const QString name = m_redaction.cleaned(file.filePath().mid(m_stateFolder.size() + 1));
        const QString time = file.lastModified().toUTC().toString(Qt::ISODate);
        found.insert(
            name,
            QStringLiteral("%1  %2 %3  %4").arg(modeOf(file)).arg(file.size(), 9).arg(time, name));
    }
    QStringList lines = found.values();
    const QStorageInfo storage(m_stateFolder);
    lines.prepend(QStringLiteral("%1, %2 MiB free%3")
                      .arg(m_redaction.cleaned(m_stateFolder))
                      .arg(storage.bytesAvailable() / 1024 / 1024)
                      .arg(storage.isReadOnly() ? ", read-only" : ""));
    section("State folder", lines);
}

void ProblemReport::addLog()
{
    const QString& file = m_loaded.settings.log.file;
    QStringList lines = endOf(file.isEmpty() ? readJournal() : readEnd(file));
    for (QString& line : lines)
        line = m_redaction.cleaned(line);
    if (lines.isEmpty())
        lines.append("no log file, and no journal of the unit kelo, can be read here");
    section("Log", lines);
}

void ProblemReport::addStreamer(ApiClient& api)
{
    const ApiReply player = api.get("player");
    const QByteArray status = QJsonDocument(player.document).toJson(QJsonDocument::Indented);
    QStringList lines =
        player.isDone() ? QString::fromUtf8(status).trimmed().split('\n') : QStringList();
    if (!player.isDone())
        lines.append(player.message);
    else
        lines += rowsOf(api, "/") + rowsOf(api, topPath());
    for (QString& line : lines)
        line = m_redaction.cleaned(line);
    section("Streamer " + m_redaction.cleaned(api.server()), lines);
}

QString ProblemReport::write(const QString& file) const
{
    const auto failed = [&file] {
        return QStringLiteral("cannot write %1: %2")
            .arg(shown(file), QString::fromLocal8Bit(strerror(errno)));
    };
    const QByteArray name = QFile::encodeName(file);
    const int handle = open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (handle < 0 && errno == EEXIST)
        return QStringLiteral("%1 is there already; name a new file").arg(shown(file));
    if (handle < 0)
        return failed();
    QFile out;
    out.open(handle, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
    const QByteArray bytes = m_text.toUtf8();
    if (out.write(bytes) == bytes.size())
        return {};
    const QString problem = failed();
    unlink(name.constData());
    return problem;
}

} // namespace cli
