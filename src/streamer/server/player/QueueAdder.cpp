#include "QueueAdder.h"

#include <kelo/CMRoot.h>
#include <kelo/KeloPost.h>

namespace {
constexpr size_t mostWishes = 500;

CMError refusal(const TrString& text)
{
    return CMError(CMError::BadRequestName(), text);
}
} // namespace

QueueAdder::~QueueAdder()
{
    while (!m_wishes.empty()) {
        m_wishes.front().done(CMError(TrString::in("Player", "the player ends")), {});
        m_wishes.pop_front();
    }
}

PlayQueue::List QueueAdder::listOf(const CMPath& path, const RowFinder::Found& found)
{
    PlayQueue::List list{path, found.title, found.count};
    if (list.title.isEmpty())
        list.title =
            TrString::fromVariant(CMRoot().servingRoles(path).toHash().value(KeloRoles::Title()));
    return list;
}

void QueueAdder::find(const QueueEdit& edit, const Done& done)
{
    if (m_wishes.size() >= mostWishes)
        return done(refusal(TrString::in("Player", "too much is being added at once")), {});
    m_wishes.push_back({edit, done, {}});
    if (m_wishes.size() == 1)
        goOn();
}

void QueueAdder::goOn()
{
    const Wish& wish = m_wishes.front();
    if (wish.items.size() == size_t(wish.edit.paths.size()))
        return end(CMError());
    const CMPath path = wish.edit.paths.at(int(wish.items.size()));
    const QString id = path.param(KeloRoles::Id());
    if (path.base().isEmpty()) {
        RowFinder::Found found;
        found.entry.id = id;
        return onFound(found);
    }
    const RowFinder::Place place = wish.items.empty() ? wish.edit.place : RowFinder::Place();
    m_finder.find(path, place, [this](const RowFinder::Found& found) { onFound(found); });
}

void QueueAdder::onFound(const RowFinder::Found& found)
{
    Wish& wish = m_wishes.front();
    const QueueEntry& entry = found.entry;
    if (entry.isEmpty() && found.error.isSet())
        return end(found.error);
    if (entry.isEmpty())
        return end(found.isList
                       ? refusal(TrString::in("Player", "nothing in this list can be played"))
                       : CMError(CMError::NotFoundName(), TrString::in("Player", "no such row")));
    if (found.isList)
        wish.items.push_back({{}, listOf(entry.list, found)});
    else if (entry.id.isEmpty() && !entry.isPlayable())
        return end(refusal(TrString::in("Player", "%1 cannot be played", {entry.row.title()})));
    else
        wish.items.push_back({entry, listOf(entry.list, found)});
    // Later, since what is kept is found at once.
    keloPost(this, [this] { goOn(); });
}

void QueueAdder::end(const CMError& error)
{
    const Wish wish = std::move(m_wishes.front());
    m_wishes.pop_front();
    if (!m_wishes.empty())
        keloPost(this, [this] { goOn(); });
    wish.done(error, error.isSet() ? Items() : wish.items);
}
