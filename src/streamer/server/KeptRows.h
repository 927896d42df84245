#pragma once
#include "Clock.h"
#include "RowSearch.h"

#include <list>
#include <mutex>
#include <optional>

/// The pages of tracks that were read last, by clients or by the player, so that playing what has
/// just been read and a step in it need no request. A notice of the list ends a page, and so does
/// time, as not every change is told. Owned by the player; any thread. It sends no request.
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
    /// A row and where it stands.
    struct Found
    {
        KeloRoles row; ///< empty when it is not kept
        CMPath list;
        int index = -1;
    };
    class Watch;

    explicit KeptRows(Clock& clock) : m_clock(clock) {}

    /// A page of the list is about to be asked for: from here on its notices count.
    std::shared_ptr<Watch> begin(const CMPath& list) const;
    /// What was answered to a request with itemRoles(), or more behind them.
    void take(const std::shared_ptr<Watch>& watch, int from, const CMReply<KeloRowsRoles>& reply);
    /// Ends all pages, and those that are being read: something was changed that no notice may
    /// tell.
    void clear();

    /// The track at a path, in the page that holds this row of a list; in any, if the list is
    /// empty.
    Found find(const CMPath& path, const CMPath& list, int index) const;
    /// A kept page with a row of a list, or with the list's end before it. Nothing when it is to be
    /// asked for.
    std::optional<Slice> at(const CMPath& list, int index) const;

private:
    struct Kept
    {
        std::shared_ptr<Watch> watch;
        int from;
        KeloRowsRoles answer;
        qint64 takenAtMs;
    };

    bool isValid(const Kept& kept) const;

    Clock& m_clock;
    mutable std::mutex m_mutex; ///< guards the others
    std::list<Kept> m_kept;     ///< what was taken last stands first
    int m_changes = 0;          ///< how often clear() ran
};
