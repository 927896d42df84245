#pragma once
#include "ListRows.h"
#include "PlayQueue.h"

#include <set>

/// Reads the rows that stand in the queue, a page at a time, and shows the queue what its lists
/// say. Owned by the player's engine, lives on the player's thread. Several questions may be under
/// way.
class QueueReader : public QObject
{
    Q_OBJECT
public:
    struct Row
    {
        PlayQueue::Slot slot;
        QueueEntry entry; ///< empty when it could not be read
    };
    struct Rows
    {
        std::vector<Row> rows; ///< fewer than asked for where the queue ends
        CMError error;         ///< set when a page could not be read
    };
    using Done = std::function<void(const Rows&)>;

    /// `changed` runs after a page has changed the queue.
    QueueReader(PlayQueue& queue, ListRows& rows, std::function<void()> changed)
        : m_queue(queue), m_rows(rows), m_changed(std::move(changed))
    {
    }

    /// Reads the rows at some positions of the queue, after those went that are not to be played.
    /// `done` may run before the return.
    void read(int from, int to, const Done& done);
    /// Answers what is under way with an error.
    void end(const CMError& error);
    /// Finds a row that played, where it stands now, and what it is. `done` gets one row, of an
    /// empty entry when it is gone.
    void find(const PlayQueue::Played& played, const Done& done);

private:
    struct Job
    {
        int from = 0;
        int to = 0;
        Done done;
        QHash<quint64, KeloRoles> rows;             ///< by slot
        std::vector<std::pair<CMPath, int>> failed; ///< pages
        CMError error;
        int awaited = 0; ///< pages that are asked for
        int pages = 0;   ///< that were asked for so far
        int changes = 0; ///< of lists, while it was under way
    };
    struct Wanted
    {
        CMPath list;
        int row = 0;
        bool isWhole = false; ///< a part of its page will not do
    };
    using JobPtr = std::shared_ptr<Job>;

    void go(const JobPtr& job);
    /// What is to be read for it next, of different pages.
    std::vector<Wanted> missing(const Job& job) const;
    /// Whether something came of it.
    bool takeKept(const JobPtr& job, const Wanted& wanted);
    void take(const JobPtr& job, const CMPath& list, const ListRows::Page& page);
    void finish(const JobPtr& job);
    static bool isPageFailed(const Job& job, const CMPath& list, int row);

    PlayQueue& m_queue;
    ListRows& m_rows;
    std::function<void()> m_changed;
    std::set<JobPtr> m_jobs; ///< under way
};
