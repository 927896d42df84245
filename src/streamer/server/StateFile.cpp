#include "StateFile.h"

#include "KeptFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <kelo/KeloLog.h>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <sys/stat.h>

namespace {

/// The number in a file; the first version's has none. Zero when it is no version.
int versionOf(const QJsonObject& json)
{
    const QJsonValue value = json.value(StateFile::versionKey());
    return value.isUndefined() ? 1 : value.toInt();
}

} // namespace

StateFile::Found StateFile::read(QJsonObject* content)
{
    *content = {};
    m_isLater = m_isLeft = false;
    m_problem.clear();
    if (m_name.isEmpty())
        return Found::Nothing;
    KeptFile(m_name).removeDraft();
    QFile file(m_name);
    if (!file.exists())
        return Found::Nothing;
    // Opening a pipe would wait for somebody who writes.
    if (!QFileInfo(m_name).isFile())
        return close(QStringLiteral("it is no file"));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const QByteArray text = isOpen ? file.read(m_largest) : QByteArray();
    if (!isOpen || file.error() != QFile::NoError)
        return close(file.errorString());
    QJsonParseError error;
    *content = QJsonDocument::fromJson(text, &error).object();
    if (content->isEmpty() || versionOf(*content) < 1) {
        *content = {};
        putAside(error.error == QJsonParseError::NoError
                     ? QStringLiteral("is no state of the program")
                     : QStringLiteral("is damaged: ") + error.errorString());
        return Found::Damaged;
    }
    m_isLater = versionOf(*content) > m_version;
    if (!m_isLater)
        return Found::Content;
    leave(QStringLiteral("was written by a later version of the program (form %1, not %2)")
              .arg(versionOf(*content))
              .arg(m_version));
    return Found::Later;
}

StateFile::Found StateFile::close(const QString& problem)
{
    m_problem = problem;
    leave(QStringLiteral("cannot be read: ") + problem);
    return Found::Closed;
}

void StateFile::leave(const QString& reason)
{
    m_isLeft = true;
    KELO_LOG("Serve", WARN) << m_name << " " << reason << ". It is left alone, and " << m_loss;
}

void StateFile::putAside(const QString& reason) const
{
    const QByteArray aside = QFile::encodeName(asideName());
    ::chmod(QFile::encodeName(m_name).constData(), S_IRUSR | S_IWUSR); // it may hold a secret
    if (std::rename(QFile::encodeName(m_name).constData(), aside.constData()) == 0)
        KELO_LOG("Serve", WARN) << m_name << " " << reason << "; put aside as " << asideName();
    else
        KELO_LOG("Serve", WARN) << m_name << " " << reason
                                << "; it cannot be put aside: " << std::strerror(errno);
}

bool StateFile::write(const QByteArray& text)
{
    if (!isOurs())
        return false;
    QString problem = QStringLiteral("%1 bytes are too many").arg(text.size());
    const bool isKept = text.size() <= m_largest &&
                        KeptFile::makeFolder(QFileInfo(m_name).path(), &problem) &&
                        KeptFile(m_name).write(text, &problem);
    if (isKept && !m_problem.isEmpty())
        KELO_LOG("Serve", INFO) << m_name << " is written again";
    if (!isKept && m_problem.isEmpty())
        KELO_LOG("Serve", ERROR) << "cannot write " << m_name << ": " << problem << "; " << m_loss;
    m_problem = isKept ? QString() : problem;
    return isKept;
}

void StateFile::remove()
{
    if (m_name.isEmpty() || m_isLater)
        return;
    m_isLeft = false;
    for (const QString& name : {m_name, asideName()}) {
        QString problem;
        if (!KeptFile(name).remove(&problem))
            KELO_LOG("Serve", ERROR) << "cannot remove " << name << ": " << problem;
    }
}
