#pragma once
#include "QueueEntry.h"

#include <kelo/TrString.h>
#include <optional>
#include <QJsonObject>
#include <random>
#include <vector>

/// What plays after the present item, and what played before it: rows put in by hand in front, then
/// the rest of the list that was started from, in its order or shuffled. A value type. It knows
/// rows by list and number and reads none: whoever reads a page shows it with see().
class PlayQueue
{
public:
    enum class Repeat { Off, All, One };
    static constexpr int mostQueued = 20000;    ///< rows put in by hand
    static constexpr int mostKept = 10000;      ///< different ones among them that are no list's
    static constexpr int mostOfList = 100000;   ///< rows of one list; those behind are not played
    static constexpr size_t mostHistory = 1000; ///< of what played

    /// A row that plays some time.
    struct Slot
    {
        qint32 origin = -1; ///< number of where it comes from; negative for none
        qint32 index = -1;  ///< in the origin's list
        bool operator==(const Slot& other) const
        {
            return origin == other.origin && index == other.index;
        }
        bool operator!=(const Slot& other) const { return !(*this == other); }
    };
    /// A row that played; the key tells whether that row is still there.
    struct Played
    {
        Slot slot;
        quint64 key = 0;
    };
    /// What see() is shown of a row.
    struct Seen
    {
        quint64 key = 0;
        bool isItem = false; ///< others are no part of the queue
    };
    enum class Sight {
        Same,   ///< the queue stands
        Other,  ///< slots went that are not to be played, or came
        Changed ///< the list is another than it was
    };
    /// A list to play.
    struct List
    {
        CMPath path;
        TrString title;
        int count = -1; ///< of its rows; negative while unknown
    };
    /// What is put in by hand: a row, or every row of a list.
    struct Item
    {
        QueueEntry row;
        List list; ///< where the row is empty; of a row, the title of its list
    };

    explicit PlayQueue(quint32 seed = std::random_device()()) : m_random(seed) {}
    static constexpr int pageSize = 50; ///< a page begins at a multiple of it

    /// Tells a row from others of its list; the same over restarts. At most 52 bits.
    static quint64 keyOf(const QueueEntry& entry);

    // What is there. Positions count from the row after the present item.
    quint64 version() const { return m_version; } ///< another after each change
    quint64 edits() const { return m_edits; }     ///< changes by hand so far
    int size() const { return int(m_upcoming.size()); }
    int queued() const { return m_queued; } ///< so many rows in front were put in by hand
    Slot at(int position) const { return m_upcoming.at(size_t(position)); }
    Slot front() const { return m_upcoming.empty() ? Slot() : m_upcoming.front(); }
    const Played& present() const { return m_present; }
    Slot last() const { return m_history.empty() ? Slot() : m_history.back().slot; }
    quint64 lastKey() const { return m_history.empty() ? 0 : m_history.back().key; }
    bool isShuffled() const { return m_isShuffled; }
    Repeat repeat() const { return m_repeat; }
    bool hasList() const { return m_source >= 0; }
    CMPath list() const { return hasList() ? m_origins[size_t(m_source)].list : CMPath(); }
    /// Where a slot stands that stood at or before a position; negative when it is gone.
    int positionOf(Slot slot, int position) const;
    bool isOfList(Slot slot) const { return hasList() && slot.origin == m_source; }
    /// The list that a slot stands in, and its row there: as far as known.
    CMPath listOf(Slot slot) const;
    TrString titleOf(Slot slot) const;
    TrString listTitle() const { return titleOf({m_source, 0}); }
    int indexOf(Slot slot) const;
    /// The present row's number in the list that was started from; negative when it is none of it.
    int indexInList() const { return isOfList(m_present.slot) ? m_present.slot.index : -1; }
    /// Whether the slot's row is to be read from its list; else entry() has it.
    bool isRead(Slot slot) const;
    QueueEntry entry(Slot slot) const;

    // What plays.
    /// Starts a list at a row, or before its first one with a negative index and no key. A key
    /// alone is looked for. What was put in by hand stays in front.
    void begin(const List& list, int index, quint64 key);
    /// Starts a row that stands in no list.
    void beginAlone(const QueueEntry& entry);
    /// The row at a position becomes the present one. Those put in by hand before it go; of the
    /// list, those before it, unless shuffled.
    void take(int position, quint64 key);
    /// The row at a position cannot be played.
    void pass(int position);
    /// The present row could not be played: it is not part of the way back.
    void dropPresent() { m_present = Played(); }
    /// The last of the history becomes the present one, in the slot where it was found; the one
    /// that was present stands in front again.
    void goBack(Slot slot);
    void dropLast() { m_history.pop_back(); }
    /// As goBack(), to an earlier row of the list.
    void backTo(int index, quint64 key);
    /// All rows of the list are to come again. False when there is no list.
    bool beginRound();

    // By hand. False, and nothing is done, when the queue is full or there is no such position.
    bool add(const std::vector<Item>& items, bool isNext);
    bool move(int from, int to);
    bool remove(int position, int count);
    void clear();
    void setShuffled(bool on);
    void setRepeat(Repeat repeat);

    // What the list says.
    /// Number of a row of the list near which a page is to be shown before anything else.
    std::optional<int> wanted() const;
    /// A page: its first row's number, its rows, how many the list has, and the list's title.
    Sight see(const CMPath& list, int from, const std::vector<Seen>& rows, int count,
              const TrString& title = {});
    /// The list is to be looked at anew.
    void listChanged();
    /// The slots of a list that cannot be read go.
    void drop(qint32 origin);

    /// Takes another's place with a version of its own.
    void restore(const PlayQueue& other);
    QJsonObject toJson() const;
    /// Nothing when this is no queue.
    static std::optional<PlayQueue> fromJson(const QJsonObject& json);
    /// No version before this one was ever given out.
    void setVersion(quint64 version) { m_version = version; }

    static QString nameOf(Repeat repeat);
    static std::optional<Repeat> repeatOf(const QString& name);

private:
    struct Origin
    {
        CMPath list;
        TrString title;
        QByteArray row;  ///< of a single row, as JSON; empty for a list
        QString id;      ///< of a track of which nothing else is known
        int index = -1;  ///< of a single row in its list
        int count = -1;  ///< of a list
        uint digest = 0; ///< equal ones are quickly told from others
        bool isList() const { return row.isEmpty() && id.isEmpty(); }
    };
    /// A row of the list that played in this round.
    struct Credit
    {
        quint64 key = 0;
        qint32 index = -1; ///< negative since the list changed
    };

    void touched() { ++m_version; }
    bool readOrigins(const QJsonValue& value);
    bool readSlots(const QJsonObject& json);
    qint32 originOf(const Item& item);
    qint32 addOrigin(const Origin& origin);
    /// Forgets the list, what played and what plays; what was put in by hand stays.
    void endList();
    /// Forgets origins that nothing comes from any more.
    void sweep();
    template <class Function>
    void eachSlot(const Function& function);
    void makePresent(const Played& next, bool isByHand);
    /// The present row is to come again before all others.
    void pushPresent();
    void makeRest();
    void dropFrom(int position, qint32 origin);
    bool isAsSeen(int from, const std::vector<Seen>& rows) const;
    void findAnchor(int from, const std::vector<Seen>& rows);
    void giveAnchorUp();
    /// Numbers of rows in a page that have played already in this round.
    std::vector<bool> findPlayed(int from, const std::vector<Seen>& rows);

    std::vector<Origin> m_origins;
    std::vector<Slot> m_upcoming;
    int m_queued = 0;
    Played m_present;
    std::vector<Played> m_history;
    qint32 m_source = -1;        ///< the list that was started from
    int m_count = -1;            ///< of its rows; negative: its rest is not known
    Credit m_anchor;             ///< behind this row of the list it goes on, unless shuffled
    bool m_isAnchorLost = false; ///< its row has this number no more, perhaps
    int m_searched = -1; ///< pages looked at for it from the list's beginning; -1: not even its own
    std::vector<Credit> m_played; ///< of the list, in this round
    bool m_isShuffled = false;
    Repeat m_repeat = Repeat::Off;
    quint64 m_version = 1;
    quint64 m_edits = 0;
    size_t m_sweepAt = 64; ///< origins
    std::mt19937 m_random;
};
