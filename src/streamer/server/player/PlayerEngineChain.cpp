// The part of PlayerEngine that leads from a row to an item.
#include "PlayerEngine.h"

namespace {
constexpr int maxFailures = 10;

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
}

void PlayerEngine::endChain()
{
    m_chain = Chain();
    m_finder.cancel();
    m_resolver.cancel();
}

void PlayerEngine::walk()
{
    m_finder.next(m_chain.at, m_chain.step,
                  [this](const RowFinder::Found& found) { onFound(found); });
}

void PlayerEngine::onFound(const RowFinder::Found& found)
{
    for (const QString& title : found.skipped)
        addNote(TrString::in("Player", "skipped: %1 cannot be played", {title}));
    if (found.entry.isEmpty())
        return onListEnd(found);
    m_chain.at = found.entry;
    m_chain.skips = m_chain.skips || found.isList;
    if (found.entry.id.isEmpty() && !found.entry.isPlayable())
        return refuse(TrString::in("Player", "%1 cannot be played", {found.entry.row.title()}));
    resolve();
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
    const bool isOpened = m_chain.aim == Chain::Start;
    endChain();
    if (isOpened)
        return openItem(item);
    m_next = {Next::Given, item};
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
    m_chain.offsetMs = 0;
    m_chain.of = Chain::Another;
    if (++m_failures < maxFailures) {
        publish();
        return walk();
    }
    const TrString reason =
        TrString::in("Player", "stopped after %1 items in a row that cannot be played",
                     {QString::number(maxFailures)});
    m_notes.clear();
    addNote(reason);
    if (m_chain.aim == Chain::Start) {
        haltAtBreak();
        return fail(reason);
    }
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
    walk();
}
