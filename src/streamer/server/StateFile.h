#pragma once
#include <QJsonObject>

/// A file of the state folder that holds a JSON object, with the version of its form under
/// "version". Owned by the store whose content it is, used on that one's thread.
///
/// A file of a later version, or one that the system does not let it read, is left as it is:
/// nothing is written until the end. One that is no such object is put aside, so that nothing is
/// lost that somebody may want to look at. What cannot be kept is said once in the log, not at each
/// attempt.
class StateFile
{
public:
    enum class Found {
        Nothing,
        Content,
        Damaged, ///< and put aside
        Later,   ///< of a later version
        Closed   ///< problem() says why
    };

    /// The form that the program writes, and the oldest that it reads: a file without a number is
    /// of the first version. An empty name keeps nothing. `loss` is said of a file that cannot be
    /// written: "the queue does not outlast a restart".
    StateFile(const QString& name, const QString& loss, int version, qint64 largest = 65536)
        : m_name(name), m_loss(loss), m_version(version), m_largest(largest)
    {
    }

    const QString& name() const { return m_name; }
    /// Whether write() does anything.
    bool isOurs() const { return !m_name.isEmpty() && !m_isLeft; }
    /// Where a damaged file goes.
    QString asideName() const { return m_name + QStringLiteral(".unreadable"); }
    static QString versionKey() { return QStringLiteral("version"); }

    /// For the start: a draft that an end in the middle of write() left goes. `content` is what
    /// stands there, of a later version too; else it is empty.
    Found read(QJsonObject* content);
    /// For an object that is none of this file's.
    void putAside(const QString& reason) const;
    /// Whether it is on disk; makes the folder. Not what read() would not read again.
    [[nodiscard]] bool write(const QByteArray& text);
    /// Removes the file and what was put aside of it, but for a later version's.
    void remove();

    /// The system's words for why the latest read() or write() failed; empty when it did not.
    const QString& problem() const { return m_problem; }

private:
    void leave(const QString& reason);
    Found close(const QString& problem);

    QString m_name;
    QString m_loss;
    int m_version;
    qint64 m_largest; ///< bytes
    bool m_isLater = false;
    bool m_isLeft = false; ///< stays as it is
    QString m_problem;
};
