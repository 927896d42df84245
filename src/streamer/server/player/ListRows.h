#pragma once
#include "KeptRows.h"

#include <functional>
#include <map>
#include <QObject>

/// Reads lists by the page, from what is kept or else from their module, and follows one list for
/// its notices. Owned by the player's engine, lives on the player's thread.
class ListRows : public QObject
{
    Q_OBJECT
public:
    static constexpr int pageSize = RowSearch::pageSize;
    /// Where the page with a row begins.
    static int pageOf(int index) { return index / pageSize * pageSize; }

    /// Rows that follow each other in a list.
    struct Page : RowSearch::Page
    {
        int from = 0; ///< number of the first row
        const KeloRoles* row(int index) const
        {
            return index >= from && index - from < rows.size() ? &rows.at(index - from) : nullptr;
        }
        /// Whether the list ends with it.
        bool isLast() const { return rows.isEmpty() || from + rows.size() >= count; }
    };
    using Then = std::function<void(const Page&)>;

    explicit ListRows(KeptRows& kept) : m_kept(kept) {}
    ~ListRows() override { follow(CMPath(), nullptr); }

    /// Asks for the page that begins at a row; `then` runs later. One that is asked for already is
    /// not asked for twice.
    void fetch(const CMPath& list, int from, const Then& then);
    /// What is kept around a row of a list; nothing when that is to be fetched.
    std::optional<Page> page(const CMPath& list, int index) const;
    /// The kept track at a path: at a place, or anywhere if the list is empty.
    KeptRows::Found find(const CMPath& path, const CMPath& list, int index) const
    {
        return m_kept.find(path, list, index);
    }
    /// What is kept may be of another time.
    void forget() { m_kept.clear(); }
    /// `changed` runs after each notice of the list, until another is followed.
    void follow(const CMPath& list, std::function<void()> changed);

private:
    struct Asked
    {
        CMPath list;
        int from = 0;
        quint64 changes = 0;
        std::vector<Then> thens;
    };

    KeptRows& m_kept;
    std::map<quint64, Asked> m_asked; ///< what is not answered yet
    quint64 m_number = 0;             ///< of the last that was asked for
    CMPath m_followed;
    quint64 m_open = 0;    ///< the followed list; zero when nobody serves it
    quint64 m_changes = 0; ///< notices of followed lists
};
