#pragma once
#include "PlayQueue.h"
#include "QueueEdit.h"

#include <deque>

/// Finds what clients want to add to the queue, one wish after the other. Owned by the player's
/// engine, lives on the player's thread.
class QueueAdder : public QObject
{
    Q_OBJECT
public:
    using Items = std::vector<PlayQueue::Item>;
    /// Gets all of a wish, or an error that is set.
    using Done = std::function<void(const CMError& error, const Items& items)>;

    explicit QueueAdder(ListRows& rows) : m_finder(rows) {}
    /// Those who wait are told that nothing becomes of it.
    ~QueueAdder() override;

    void find(const QueueEdit& edit, const Done& done);
    /// Of an item's list, from what was found of it.
    static PlayQueue::List listOf(const CMPath& path, const RowFinder::Found& found);

private:
    struct Wish
    {
        QueueEdit edit;
        Done done;
        Items items; ///< found so far
    };

    void goOn();
    void onFound(const RowFinder::Found& found);
    void end(const CMError& error);

    RowFinder m_finder;
    std::deque<Wish> m_wishes; ///< the first is being looked for
};
