// The part of PlayerEngine that leads from a row to an item.
#include "PlayerEngine.h"

namespace {
constexpr int maxFailures = 10;
/// So many rows of the queue are passed over, and no more, to find one that can be played.
constexpr int mostPassed = 2000;

bool isPlayable(const QueueEntry& entry)
{
    return !entry.id.isEmpty() || entry.isPlayable();
}

TrString textOf(const CMError& error)
{
    return TrString::fromVariant(error.value(CMError::Message()));
}
} // namespace

void PlayerEngine::startChain(Chain::Aim aim, const QueueEntry& at)
{
    endChain();
    m_chain.aim = aim;
    m_chain.at = at;
    m_chain.number = ++m_chains;
}

void PlayerEngine::endChain()
{
    m_chain = Chain();
    m_finder.cancel();
    m_resolver.cancel();
}

void PlayerEngine::walk()
{
    m_chain.slot = PlayQueue::Slot();
    m_chain.position = 0;
    m_chain.isTaken = false;
    m_chain.begins.reset();
    if (m_chain.step < 0 && !m_queue.wanted())
        return walkBack();
    readFront();
}

void PlayerEngine::readFront()
{
    // Before the way back, too, the list may have to be looked at.
    const int position = m_chain.step > 0 ? m_chain.position : m_queue.queued();
    m_reader.read(position, position,
                  [this, number = m_chain.number](const QueueReader::Rows& rows) {
                      if (number != m_chain.number)
                          return;
                      if (m_chain.step > 0)
                          return onFront(rows);
                      m_chain.backFrom = m_queue.indexInList();
                      walkBack();
                  });
}

void PlayerEngine::onFront(const QueueReader::Rows& rows)
{
    if (rows.rows.empty() && !rows.error.isSet())
        return onQueueEnd();
    RowFinder::Found end;
    end.error = rows.error;
    if (rows.rows.empty() || m_chain.passed > mostPassed)
        return onListEnd(end);
    const auto [slot, entry] = rows.rows.front();
    if (isPlayable(entry)) {
        m_chain.at = entry;
        m_chain.slot = slot;
        return resolve();
    }
    if (entry.isEmpty() && rows.error.isSet() && m_queue.isOfList(slot))
        return onListEnd(end);
    remember();
    ++m_chain.passed;
    if (entry.isEmpty() && rows.error.isSet()) {
        addNote(
            TrString::in("Player", "skipped: %1: %2", {m_queue.titleOf(slot), textOf(rows.error)}));
        m_queue.drop(slot.origin);
    } else {
        if (!entry.isEmpty())
            addNote(TrString::in("Player", "skipped: %1 cannot be played", {entry.row.title()}));
        m_queue.pass(m_chain.position);
    }
    queueChanged();
    readFront();
}

void PlayerEngine::onQueueEnd()
{
    const bool isRepeated =
        m_queue.repeat() == PlayQueue::Repeat::All && !std::exchange(m_chain.hasWrapped, true);
    if (!isRepeated)
        return onListEnd(RowFinder::Found());
    remember();
    if (m_queue.beginRound()) {
        queueChanged();
        return walk();
    }
    if (!m_item.entry.canResolve())
        return onListEnd(RowFinder::Found());
    m_chain.at = m_item.entry;
    m_chain.of = Chain::Present;
    resolve();
}

void PlayerEngine::walkBack()
{
    const auto found = [this, number = m_chain.number](const QueueReader::Rows& rows) {
        if (number != m_chain.number)
            return;
        if (rows.error.isSet()) {
            RowFinder::Found end;
            end.error = rows.error;
            return onListEnd(end);
        }
        const auto& [slot, entry] = rows.rows.front();
        if (!isPlayable(entry)) {
            m_queue.dropLast();
            return walkBack();
        }
        m_chain.at = entry;
        m_chain.slot = slot;
        m_chain.isOfHistory = true;
        resolve();
    };
    m_chain.isOfHistory = false;
    if (m_queue.last().origin >= 0)
        return m_reader.find({m_queue.last(), m_queue.lastKey()}, found);
    if (m_queue.isShuffled() || m_chain.backFrom <= 0)
        return onListEnd(RowFinder::Found());
    m_finder.findBefore(m_queue.list(), m_chain.backFrom,
                        [this](const RowFinder::Found& before) { onFoundBefore(before); });
}

void PlayerEngine::onFoundBefore(const RowFinder::Found& found)
{
    for (const QString& title : found.skipped)
        addNote(TrString::in("Player", "skipped: %1 cannot be played", {title}));
    if (found.entry.isEmpty())
        return onListEnd(found);
    m_chain.at = found.entry;
    m_chain.backFrom = found.entry.index;
    resolve();
}

void PlayerEngine::onFound(const RowFinder::Found& found)
{
    const bool isShuffledList = found.isList && m_queue.isShuffled();
    for (const QString& title : isShuffledList ? QStringList() : found.skipped)
        addNote(TrString::in("Player", "skipped: %1 cannot be played", {title}));
    if (found.entry.isEmpty())
        return onListEnd(found);
    m_chain.at = found.entry;
    m_chain.skips = m_chain.skips || found.isList;
    if (!isPlayable(found.entry))
        return refuse(TrString::in("Player", "%1 cannot be played", {found.entry.row.title()}));
    m_chain.begins = found;
    if (!isShuffledList)
        return resolve();
    remember();
    m_queue.begin(QueueAdder::listOf(found.entry.list, found), -1, 0);
    queueChanged();
    m_chain.begins.reset();
    m_chain.position = m_queue.queued();
    readFront();
}

void PlayerEngine::commit()
{
    if (m_chain.of != Chain::Another || std::exchange(m_chain.isTaken, true))
        return;
    remember();
    const quint64 key = PlayQueue::keyOf(m_chain.at);
    if (m_chain.begins)
        return begin(*m_chain.begins);
    if (m_chain.step > 0)
        m_queue.take(m_chain.position, key);
    else if (m_chain.isOfHistory)
        m_queue.goBack(m_chain.slot);
    else
        m_queue.backTo(m_chain.at.index, key);
    queueChanged();
}

void PlayerEngine::takeNext()
{
    remember();
    m_queue.take(0, PlayQueue::keyOf(m_next.item.entry));
    queueChanged();
}

void PlayerEngine::onListEnd(const RowFinder::Found& found)
{
    const Chain chain = m_chain;
    endChain();
    if (chain.aim == Chain::Prefetch) {
        if (found.error.isSet())
            addNote(TrString::in("Player", "the list does not go on: %1", {textOf(found.error)}));
        return endList();
    }
    const bool isFirstItem = !chain.skips || found.isList;
    TrString text = textOf(found.error);
    if (text.isEmpty() && isFirstItem)
        text = found.isList ? TrString::in("Player", "nothing in this list can be played")
                            : TrString::in("Player", "no such row");
    if (!text.isEmpty())
        return refuse(text);
    if (chain.step < 0 && isSounding())
        m_output->seek(0);
    else
        halt();
    publish();
    succeed();
}

void PlayerEngine::refuse(const TrString& text)
{
    endChain();
    addNote(text);
    if (isSounding())
        publish();
    else
        haltAtBreak();
    fail(text);
}

void PlayerEngine::resolve()
{
    if (m_chain.aim == Chain::Start) {
        m_output->stop();
        commit();
        m_next = Next();
        if (m_chain.of == Chain::Another) {
            m_item = PlayItem::ofEntry(m_chain.at);
            m_resumeMs = 0;
        }
        m_state = State::Resolving;
        publish();
    }
    m_resolver.resolve(m_chain.at, m_chain.offsetMs,
                       [this](const auto& error, const auto& item) { onResolved(error, item); });
}

void PlayerEngine::onResolved(const CMError& error, const KeloRoles& completed)
{
    if (error.isSet())
        return onItemFailed(textOf(error));
    PlayItem item = PlayItem::completed(completed, m_chain.at);
    if (item.uri.isEmpty())
        return onItemFailed(TrString::in("Player", "the service gave no address"));
    if (m_chain.offsetMs > 0)
        item.startMs = m_chain.offsetMs;
    if (m_chain.of != Chain::Another && item.durationMs == 0)
        item.durationMs = m_item.durationMs;
    item.isRetry = m_chain.of == Chain::Retry;
    item.isSkipped = m_chain.skips;
    const Chain chain = m_chain;
    endChain();
    if (chain.begins && chain.begins->entry.list.isEmpty() && !item.entry.list.isEmpty()) {
        RowFinder::Found found;
        found.entry = {completed, QString(), item.entry.list, -1};
        begin(found); // the module knows its list
    }
    if (chain.aim == Chain::Start)
        return openItem(item);
    m_next = {Next::Given, item, chain.slot, chain.of != Chain::Another};
    m_output->setNext(item.forOutput());
    publish();
}

void PlayerEngine::openItem(const PlayItem& item)
{
    m_item = item;
    m_resumeMs = 0;
    m_next = Next();
    m_state = State::Resolving;
    limitStart();
    m_output->open(item.forOutput());
    save();
    publish();
}

void PlayerEngine::onItemFailed(const TrString& text)
{
    const QString name = PlayItem::ofEntry(m_chain.at).name();
    if (!m_chain.skips) {
        addNote(TrString::in("Player", "%1: %2", {name, text}));
        halt(m_chain.offsetMs);
        return fail(text);
    }
    addNote(TrString::in("Player", "skipped: %1: %2", {name, text}));
    if (m_chain.of == Chain::Another && m_chain.isTaken) {
        m_queue.dropPresent();
    } else if (m_chain.of == Chain::Another) {
        remember();
        m_queue.pass(0);
        queueChanged();
    }
    m_chain.offsetMs = 0;
    m_chain.of = Chain::Another;
    if (++m_failures < maxFailures) {
        publish();
        return walk();
    }
    const TrString reason =
        TrString::in("Player", "stopped after %1 items in a row that cannot be played: %2",
                     {QString::number(maxFailures), text});
    m_notes.clear();
    addNote(reason);
    if (m_chain.aim == Chain::Start) {
        haltAtBreak();
        return fail(reason);
    }
    restore(false);
    endChain();
    endList();
}

void PlayerEngine::endList()
{
    m_next.state = Next::Nothing;
    m_output->setNext(OutputItem());
    publish();
}

void PlayerEngine::prefetch()
{
    if (m_chain.aim != Chain::None || m_next.state != Next::Unknown)
        return;
    startChain(Chain::Prefetch, m_item.entry);
    m_chain.skips = true;
    goOn();
}

void PlayerEngine::goOn()
{
    if (m_queue.repeat() != PlayQueue::Repeat::One || !m_item.entry.canResolve())
        return walk();
    m_chain.of = Chain::Present;
    resolve();
}
