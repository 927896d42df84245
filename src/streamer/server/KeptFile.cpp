#include "KeptFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <kelo/KeloLog.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>
#include <unistd.h>

namespace {

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

/// Whether the file is not there any more. Where nothing may be written, the system says that
/// before it looks for the file.
bool unlinkFile(const QString& file)
{
    const QByteArray name = QFile::encodeName(file);
    if (::unlink(name.constData()) == 0)
        return true;
    const int number = errno;
    struct stat status = {};
    if (::lstat(name.constData(), &status) != 0)
        return errno == ENOENT || errno == ENOTDIR;
    errno = number;
    return false;
}

QString reason(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

} // namespace

bool KeptFile::makeFolder(const QString& name, QString* error)
{
    if (QFileInfo(name).isDir())
        return true;
    QDir().mkpath(QFileInfo(name).path());
    if (::mkdir(QFile::encodeName(name).constData(), S_IRWXU) == 0)
        return true;
    *error = reason(errno);
    return false;
}

bool KeptFile::write(const QByteArray& bytes, QString* error) const
{
    const QByteArray draft = QFile::encodeName(draftName());
    if (writeFile(draft, bytes) &&
        ::rename(draft.constData(), QFile::encodeName(m_name).constData()) == 0) {
        if (syncFolder())
            return true;
        *error = reason(errno);
        return false;
    }
    *error = reason(errno);
    ::unlink(draft.constData());
    return false;
}

void KeptFile::removeDraft() const
{
    if (!unlinkFile(draftName()))
        KELO_LOG("Serve", WARN) << "cannot remove " << draftName() << ": " << reason(errno);
}

bool KeptFile::remove(QString* error) const
{
    removeDraft();
    if (!unlinkFile(m_name)) {
        *error = reason(errno);
        return false;
    }
    syncFolder();
    return true;
}

bool KeptFile::syncFolder() const
{
    const QByteArray folder = QFile::encodeName(QFileInfo(m_name).path());
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool isSynced = ::fsync(fd) == 0;
    const int number = errno;
    ::close(fd);
    errno = number;
    return isSynced;
}
