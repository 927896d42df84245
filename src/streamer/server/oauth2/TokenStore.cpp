#include "TokenStore.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <kelo/KeloJson.h>
#include <QDir>
#include <QFile>
#include <QVariantHash>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 longestFile = 64 * 1024;

void logFailure(const char* what, const QString& file)
{
    const int number = errno;
    KELO_LOG("OAuth2", ERROR) << what << " " << file << ": " << std::strerror(number);
}

bool writeAll(int fd, const QByteArray& bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t step = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (step < 0 && errno == EINTR)
            continue;
        if (step <= 0)
            return false;
        done += step;
    }
    return true;
}

/// Writes a new file of the owner's alone and waits until it is on disk.
bool writeFile(const QByteArray& name, const QByteArray& bytes)
{
    const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW,
                          S_IRUSR | S_IWUSR);
    if (fd < 0)
        return false;
    const bool isWritten =
        ::fchmod(fd, S_IRUSR | S_IWUSR) == 0 && writeAll(fd, bytes) && ::fsync(fd) == 0;
    const int number = errno;
    ::close(fd);
    errno = number;
    return isWritten;
}

bool syncFolder(const QByteArray& name)
{
    const int fd = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool isSynced = ::fsync(fd) == 0;
    ::close(fd);
    return isSynced;
}

} // namespace

QString TokenStore::fileName(const KeloOAuth2ServiceInfo& info) const
{
    return m_folder + '/' + info.serviceName() + QStringLiteral(".json");
}

TokenSet TokenStore::load(const KeloOAuth2ServiceInfo& info) const
{
    TokenSet tokens;
    QFile file(fileName(info));
    if (!file.exists())
        return tokens;
    if (!file.open(QIODevice::ReadOnly)) {
        KELO_LOG("OAuth2", WARN) << "Cannot read " << file.fileName() << ": " << file.errorString();
        return tokens;
    }
    const KeloJson json = KeloJson::parse(file.read(longestFile));
    if (!json.isObject()) {
        KELO_LOG("OAuth2", WARN) << file.fileName() << " is damaged; a new login is needed";
        return tokens;
    }
    if (json.value("tokenUrl").toString() != info.tokenUrl() ||
        json.value("clientId").toString() != info.clientId()) {
        KELO_LOG("OAuth2", INFO) << file.fileName() << " belongs to another service or client";
        return tokens;
    }
    tokens.access = KeloSecret(json.value("accessToken").toString());
    tokens.refresh = KeloSecret(json.value("refreshToken").toString());
    tokens.obtainedAtMs = json.value("obtainedAtMs").toInt64();
    tokens.lifetimeMs = json.value("lifetimeMs").toInt64();
    if (tokens.isEmpty())
        KELO_LOG("OAuth2", WARN) << file.fileName() << " holds no token; a new login is needed";
    return tokens;
}

bool TokenStore::makeFolder() const
{
    if (!QDir().mkpath(m_folder)) {
        logFailure("Cannot make", m_folder);
        return false;
    }
    if (::chmod(QFile::encodeName(m_folder).constData(), S_IRWXU) != 0) {
        logFailure("Cannot protect", m_folder);
        return false;
    }
    return true;
}

bool TokenStore::save(const KeloOAuth2ServiceInfo& info, const TokenSet& tokens) const
{
    if (!makeFolder())
        return false;
    QVariantHash fields;
    fields.insert(QStringLiteral("tokenUrl"), info.tokenUrl());
    fields.insert(QStringLiteral("clientId"), info.clientId());
    fields.insert(QStringLiteral("accessToken"), tokens.access.reveal());
    fields.insert(QStringLiteral("refreshToken"), tokens.refresh.reveal());
    fields.insert(QStringLiteral("obtainedAtMs"), tokens.obtainedAtMs);
    fields.insert(QStringLiteral("lifetimeMs"), tokens.lifetimeMs);

    const QByteArray name = QFile::encodeName(fileName(info));
    const QByteArray draft = name + ".new";
    if (!writeFile(draft, KeloJson::write(fields)) ||
        ::rename(draft.constData(), name.constData()) != 0) {
        logFailure("Cannot write", fileName(info));
        ::unlink(draft.constData());
        return false;
    }
    if (!syncFolder(QFile::encodeName(m_folder))) {
        logFailure("Cannot write", m_folder);
        return false;
    }
    return true;
}

void TokenStore::remove(const KeloOAuth2ServiceInfo& info) const
{
    const QByteArray name = QFile::encodeName(fileName(info));
    if (::unlink(name.constData()) != 0 && errno != ENOENT)
        logFailure("Cannot remove", fileName(info));
    else
        syncFolder(QFile::encodeName(m_folder));
}
