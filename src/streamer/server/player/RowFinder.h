#pragma once
#include "ListRows.h"
#include "QueueEntry.h"

#include <QObject>

/// Finds rows in the host tree: the row that a path names, and the playable row before one. Owned
/// by the player's engine, lives on the player's thread. Follows one question at a time, reads
/// lists a page at a time, and plays nothing.
class RowFinder : public QObject
{
    Q_OBJECT
public:
    struct Found
    {
        QueueEntry entry;    ///< empty when there is no such row
        bool isList = false; ///< the path named a list, whose first playable row this is
        int count = -1;      ///< rows of the list in which it was found
        TrString title;      ///< of that list
        QStringList skipped; ///< titles of rows on the way that cannot be played
        CMError error;       ///< set when a list could not be read
    };
    using Done = std::function<void(const Found&)>;

    /// What a client knows of where a row stands.
    struct Place
    {
        CMPath list; ///< empty when it knows nothing
        int index = 0;
    };

    explicit RowFinder(ListRows& rows) : m_rows(rows) {}

    /// Finds the row at a path, or the first playable row when a list stands there. A path that
    /// names a track below no list is found as that track alone. `done` may run before the return.
    void find(const CMPath& path, const Place& place, Done done);
    /// Finds the nearest playable row before one of a list. `done` may run before the return.
    void findBefore(const CMPath& list, int index, Done done);
    /// Drops the question; its `done` does not run.
    void cancel();

private:
    using Page = ListRows::Page;

    void fetch(const CMPath& list, int from, std::function<void(const Page&)> then);
    void findAnywhere(const CMPath& path);
    /// Follows a search to its end; `then` gets an empty entry when no list has the row.
    void search(const RowSearch& search, const std::function<void(const QueueEntry&)>& then);
    void walk(const CMPath& list, int index, int step);
    void walkPage(const CMPath& list, int index, int step, const Page& page);
    void onOwnRows(const CMPath& path, const Page& page);
    void note(const Page& page);
    void finish(const QueueEntry& entry = QueueEntry());

    ListRows& m_rows;
    Done m_done;
    Found m_found;            ///< what is known of the answer so far
    quint64 m_generation = 0; ///< grows with each question; answers for earlier ones are dropped
    int m_pagesLeft = 0;      ///< pages that the question may still read
};

/// Headers and texts are no items, so that passing over them is not worth a word.
bool isItemRow(const KeloRoles& row);
