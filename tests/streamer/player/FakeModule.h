#pragma once
#include <condition_variable>
#include <kelo/CMAbstractWorker.h>
#include <map>
#include <mutex>

/// A module of a few lists whose pre-play answers a test scripts. Like a real one it completes one
/// item at a time. Its tracks stand at LIST?trackId=ID, their address is "fake:ID".
class FakeModule : public CMAbstractWorker
{
public:
    /// How a pre-play request of a track is answered.
    struct Answer
    {
        QString error;       ///< empty: with the item
        bool isHeld = false; ///< not before release()
        qint64 maxIdleMs = 0;
        QString uri = {};     ///< empty: "fake:ID"
        CMPath itemPath = {}; ///< empty: that of the request
    };

    static CMPath prePlayPath(const QString& id) { return CMPath("/fake/prePlay/" + id); }
    static KeloRoles track(const CMPath& list, const QString& id);
    static KeloRoles row(KeloRolesType::Enum type, const QString& title);
    /// The item that the module hands over for a request path.
    static KeloRoles item(const CMPath& path, const QString& id, const Answer& answer);

    void addList(const CMPath& path, const QList<KeloRoles>& rows);
    void removeList(const CMPath& path);
    void setAnswer(const QString& id, const Answer& answer);
    /// Waits until a held request is there.
    bool waitForHeld();
    /// Answers the held request, if there is one.
    void release();
    /// The next request for rows is not answered before releaseRows().
    void holdRows();
    /// Waits until it is there, and has it answered.
    void releaseRows();
    /// Pre-play requests so far: "ID at OFFSET", in order.
    QStringList asked();
    /// Requests for rows since the last call: "FROM-TO", in order.
    QString rowsAsked();

    QStringList prefixes() const override { return {"/fake", "/tidal"}; }
    CMSubscribe* subscription() const override { return &m_subscription; }
    void getDataRequest(const CMGetDataRequest& request) override;
    void setDataRequest(const CMSetDataRequest& request) override;
    void getRowsRequest(const CMGetRowsRequest& request) override;

private:
    void answer(const CMSetDataRequest& request, const QString& id, const Answer& answer);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<QString, QList<KeloRoles>> m_lists; ///< by encoded path
    std::map<QString, Answer> m_answers;
    QStringList m_asked;
    QStringList m_rowsAsked;
    mutable CMSubscribe m_subscription;
    std::function<void()> m_held; ///< answers it; empty when there is none
    bool m_areRowsHeld = false;
    CMGetRowsRequest m_heldRows;
};
