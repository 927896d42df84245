#pragma once
#include <kelo/CMSubscribe.h>
#include <map>
#include <mutex>
#include <QStringList>

/// The rows paths that one event stream keeps open. Belongs to its client; any thread.
class OpenPaths
{
public:
    /// Encoded paths, in the order asked for, each once.
    struct Change
    {
        QStringList opened;
        QStringList refused; ///< nobody serves them
    };

    OpenPaths() = default;
    ~OpenPaths() { close(); }
    OpenPaths(const OpenPaths&) = delete;
    OpenPaths& operator=(const OpenPaths&) = delete;

    /// Opens these paths and closes the others; one that stays is not touched. After close() nothing
    /// opens.
    Change replace(const QList<CMPath>& paths, const CMSubscribe::RowsListener& listener);
    void close();

private:
    /// Held while paths open and close, so that two changes do not mix; no listener takes it.
    std::mutex m_mutex;
    std::map<QString, quint64> m_open; ///< numbers of the open rows, by encoded path
    bool m_isClosed = false;
};
