#include "client/UserState.h"

#include <QDir>
#include <QJsonDocument>
#include <QSaveFile>
#include <unistd.h>

namespace cli {

namespace {

constexpr int mostTerminals = 32;
constexpr int mostServers = 32;
const char* const volumes = "volumes.json";

/// Terminals have sessions of their own (POSIX, 11.1), and a session's number is no file's path.
QString terminalOfProcess()
{
    const bool hasTerminal = isatty(STDIN_FILENO) || isatty(STDOUT_FILENO) || isatty(STDERR_FILENO);
    return hasTerminal ? QString::number(getsid(0)) : QString();
}

QString folderOfProcess()
{
    for (const char* name : {"XDG_RUNTIME_DIR", "XDG_CACHE_HOME"}) {
        const QString folder = qEnvironmentVariable(name);
        if (QDir::isAbsolutePath(folder))
            return folder + "/kelo";
    }
    return QDir::homePath() + "/.cache/kelo";
}

} // namespace

UserState::UserState(const QString& folder, const QString& terminal)
    : m_folder(folder), m_terminal(terminal.isEmpty() ? QString() : "listing-" + terminal)
{
}

UserState UserState::ofProcess()
{
    return {folderOfProcess(), terminalOfProcess()};
}

std::optional<Listing> UserState::listing(const QString& server) const
{
    const Listing kept = Listing::fromJson(read(m_terminal));
    if (kept.server.isEmpty() || kept.server != server)
        return std::nullopt;
    return kept;
}

void UserState::keep(const Listing& listing) const
{
    write(m_terminal, listing.toJson());
    prune();
}

int UserState::volumeBefore(const QString& server) const
{
    return QJsonDocument::fromJson(read(volumes)).object().value(server).toInt();
}

void UserState::keepVolumeBefore(const QString& server, int percent) const
{
    QJsonObject all = QJsonDocument::fromJson(read(volumes)).object();
    if (percent <= 0 && !all.contains(server))
        return;
    all.remove(server);
    if (percent > 0 && all.size() < mostServers)
        all.insert(server, percent);
    write(volumes, QJsonDocument(all).toJson(QJsonDocument::Compact));
}

QByteArray UserState::read(const QString& name) const
{
    constexpr qint64 most = 8 * 1024 * 1024;
    QFile file(QDir(m_folder).filePath(name));
    if (m_folder.isEmpty() || name.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(most);
}

void UserState::write(const QString& name, const QByteArray& content) const
{
    if (m_folder.isEmpty() || name.isEmpty() || !QDir().mkpath(m_folder))
        return;
    QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QSaveFile file(QDir(m_folder).filePath(name));
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    file.write(content);
    file.commit();
}

void UserState::prune() const
{
    if (m_folder.isEmpty() || m_terminal.isEmpty())
        return;
    const QDir folder(m_folder);
    const QStringList all = folder.entryList({"listing-*"}, QDir::Files, QDir::Time);
    for (const QString& name : all.mid(mostTerminals))
        QFile::remove(folder.filePath(name));
}

} // namespace cli
