#pragma once
#include <functional>
#include <kelo/CMRequest.h>
#include <kelo/KeloRowsRoles.h>

/// Looks for a row in one list after the other: says which page of which list to read next and
/// takes what came. A value, used on one thread by whoever sends the requests; it sends none.
class RowSearch
{
public:
    static constexpr int pageSize = 50;

    /// What a request for rows with itemRoles() was answered with.
    struct Page
    {
        explicit Page(const CMReply<KeloRowsRoles>& reply);
        explicit Page(const KeloRowsRoles& answer);

        /// The place of the track with a path: of several this one, else the first; -1 for none.
        int indexOf(const CMPath& path, int place) const;

        QList<KeloRoles> rows = {};
        int count = 0;  ///< rows of the whole list
        TrString title; ///< of the list; empty where the answer leaves it out
        CMError error;
    };
    using Match = std::function<bool(const KeloRoles&)>;

    /// Every list is read to its end.
    RowSearch(QList<CMPath> lists, Match match)
        : m_lists(std::move(lists)), m_match(std::move(match))
    {
    }
    /// For the row at a path, in listsOf() it. Of several lists, one whose first page holds no row
    /// with a path built alike is not read on.
    explicit RowSearch(const CMPath& path, QList<CMPath> lists);

    /// The lists in which the row at a path may stand: the path with parameters left out, few
    /// before many, and one level up at last. What names a playing item is left out first: such an
    /// item has no rows, while other parameters may belong to the list.
    static QList<CMPath> listsOf(const CMPath& path);

    bool isDone() const { return m_lists.isEmpty() || hasFound(); }
    bool hasFound() const { return !m_row.isEmpty(); }
    /// The list that is read, or the row stands in, and where the next page begins.
    CMPath list() const { return m_lists.value(0); }
    int from() const { return m_from; }
    /// Takes the page of pageSize rows at from().
    void take(const Page& page);

    const KeloRoles& row() const { return m_row; }
    int index() const { return m_index; }

private:
    QList<CMPath> m_lists; ///< the first is being read, those behind it are tried next
    Match m_match;
    Match m_isAlike; ///< null: lists are read to their end
    int m_from = 0;
    KeloRoles m_row; ///< what was found
    int m_index = -1;
};
