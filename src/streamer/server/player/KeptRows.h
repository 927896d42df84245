#pragma once
#include "Clock.h"
#include "QueueEntry.h"
#include "RowSearch.h"

#include <atomic>
#include <memory>
#include <optional>

/// The page of a list that was read last, so that a step in it needs no request. A notice of the
/// list ends it, and so does time, as not every change is told. Owned by the row finder and of its
/// thread; it sends no request.
class KeptRows
{
public:
    using Page = RowSearch::Page;
    /// Rows that follow one another in a list.
    struct Slice
    {
        Page page;
        int from = 0; ///< number of the first
    };

    explicit KeptRows(Clock& clock) : m_clock(clock) {}
    ~KeptRows() { clear(); }
    KeptRows(const KeptRows&) = delete;
    KeptRows& operator=(const KeptRows&) = delete;

    /// A page of the list is about to be asked for: from here on its notices count.
    void begin(const CMPath& list);
    /// The page that was asked for last.
    void take(int from, const Page& page);
    /// The track at a path; empty when it is not kept.
    QueueEntry find(const CMPath& path) const;
    /// The kept rows right after (`step` 1) or before (-1) a row of a list: none, where the list is
    /// known to end. Nothing when they are to be asked for.
    std::optional<Slice> beside(const CMPath& list, int index, int step) const;

private:
    void clear();
    bool isValid() const;

    Clock& m_clock;
    CMPath m_list;
    std::optional<Slice> m_rows;
    quint64 m_open = 0; ///< the list, open for its notices; zero when nobody serves it
    std::shared_ptr<std::atomic<bool>> m_isChanged; ///< set by a notice, on its thread
    qint64 m_takenAtMs = 0;
};
