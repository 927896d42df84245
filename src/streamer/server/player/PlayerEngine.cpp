#include "PlayerEngine.h"
#include <kelo/KeloLog.h>

namespace {
constexpr qint64 tickMs = 1000;
constexpr qint64 nearEndMs = 10000;
constexpr qint64 restartMs = 3000; ///< from here on "previous" means the item's own beginning
constexpr qint64 saveEveryMs = 5000;
} // namespace

PlayerEngine::PlayerEngine(std::unique_ptr<AudioOutput> output, Clock& clock, KeptRows& keptRows,
                           const QString& stateDir, Publish publish)
    : m_clock(clock), m_output(std::move(output)), m_publish(std::move(publish)), m_store(stateDir),
      m_queueStore(stateDir), m_rows(keptRows), m_reader(m_queue, m_rows, [this] {
          queueEdited();
          this->publish();
      })
{
    connectOutput();
    const PlayerStore::Kept kept = m_store.load();
    m_volume = kept.volume;
    m_item = kept.item;
    m_resumeMs = kept.positionMs;
    loadQueue();
    m_output->setVolume(m_volume);
    this->publish();
}

PlayerEngine::~PlayerEngine()
{
    save();
    keepQueue();
    fail(TrString::in("Player", "the player ends"));
    endChain();
    m_reader.end(CMError(TrString::in("Player", "the player ends")));
    m_output->stop();
}

void PlayerEngine::command(const Reply& reply)
{
    fail(TrString::in("Player", "superseded by another command"));
    m_reply = reply;
    endStartLimit();
    m_startLeftMs = startLimitMs;
    m_failures = 0;
    m_broken = Broken();
    m_isPauseWanted = false;
    m_notes.clear();
    forgetBefore();
}

void PlayerEngine::succeed()
{
    std::exchange(m_reply, Reply()).setValue(queueState());
}

void PlayerEngine::fail(const TrString& text)
{
    std::exchange(m_reply, Reply()).setError(CMError(text));
}

void PlayerEngine::play(const CMPath& path, const RowFinder::Place& place, const Reply& reply)
{
    command(reply);
    startChain(Chain::Start, QueueEntry());
    if (m_state == State::Stopped)
        m_state = State::Resolving;
    publish();
    m_finder.find(path, place, [this](const RowFinder::Found& found) { onFound(found); });
}

void PlayerEngine::playId(const QString& id, const Reply& reply)
{
    command(reply);
    RowFinder::Found found;
    found.entry.id = id;
    startChain(Chain::Start, found.entry);
    m_chain.begins = found;
    resolve();
}

void PlayerEngine::pause(const Reply& reply)
{
    if (m_state == State::Stopped)
        return reply.setError(CMError(TrString::in("Player", "nothing is playing")));
    if (m_state == State::Resolving) {
        m_isPauseWanted = true;
    } else if (m_state == State::Playing) {
        pauseOutput();
        save();
        publish();
    }
    reply.setValue(QVariant(true));
}

void PlayerEngine::pauseOutput()
{
    m_output->pause();
    m_pausedAtMs = m_clock.steadyMs();
    m_state = State::Paused;
}

void PlayerEngine::resume(const Reply& reply)
{
    const bool isIdleTooLong = m_item.maxIdleMs > 0 &&
                               m_clock.steadyMs() - m_pausedAtMs > m_item.maxIdleMs &&
                               m_item.entry.canResolve();
    if (m_state == State::Stopped || (m_state == State::Paused && isIdleTooLong)) {
        if (m_item.entry.isEmpty())
            return next(reply); // what was put into the queue, if anything
        if (!m_item.entry.canResolve())
            return reply.setError(CMError(TrString::in("Player", "there is nothing to play")));
        const qint64 position = positionMs();
        command(reply);
        startChain(Chain::Start, m_item.entry);
        m_chain.offsetMs = position;
        m_chain.of = Chain::Present;
        return resolve();
    }
    m_isPauseWanted = false;
    if (m_state == State::Paused) {
        m_output->resume();
        m_state = State::Playing;
        startTicking();
        publish();
    }
    reply.setValue(QVariant(true));
}

void PlayerEngine::stop(const Reply& reply)
{
    command(reply);
    halt();
    succeed();
}

void PlayerEngine::halt(qint64 resumeMs)
{
    endChain();
    endStartLimit();
    m_output->stop();
    m_next = Next();
    m_state = State::Stopped;
    m_resumeMs = resumeMs;
    save();
    publish();
}

void PlayerEngine::haltAtBreak()
{
    restore(true);
    const Broken broken = std::exchange(m_broken, Broken());
    if (!broken.item.entry.isEmpty()) {
        m_item = broken.item;
        m_resumeMs = broken.positionMs;
        m_notes.clear();
        addNote(TrString::in("Player", "%1 broke off: %2", {m_item.name(), broken.text}));
    }
    halt(m_resumeMs);
}

void PlayerEngine::next(const Reply& reply)
{
    if (m_item.entry.isEmpty() && m_queue.size() == 0)
        return reply.setError(CMError(TrString::in("Player", "there is nothing to play")));
    const Next next = m_next;
    // What was passed over on the way to the next item is still to be read when that plays.
    const PlayerNotes notes = m_notes.fresh();
    command(reply);
    if (next.state == Next::Given && !next.isSame) {
        m_notes = notes;
        endChain();
        takeNext();
        return openItem(next.item);
    }
    startChain(Chain::Start, m_item.entry);
    m_chain.skips = true;
    walk();
}

void PlayerEngine::previous(const Reply& reply)
{
    if (isSounding() && m_output->positionMs() >= restartMs)
        return seek(0, reply);
    if (m_item.entry.isEmpty())
        return reply.setError(CMError(TrString::in("Player", "there is nothing to play")));
    command(reply);
    startChain(Chain::Start, m_item.entry);
    m_chain.skips = true;
    m_chain.step = -1;
    m_chain.backFrom = m_queue.indexInList();
    walk();
}

void PlayerEngine::seek(qint64 positionMs, const Reply& reply)
{
    const bool isStopped = m_state == State::Stopped && m_item.entry.canResolve();
    if (!isSounding() && !isStopped)
        return reply.setError(CMError(TrString::in("Player", "nothing is playing")));
    const qint64 duration = durationMs();
    const qint64 wanted = duration > 0 ? std::min(positionMs, duration) : positionMs;
    if (isStopped)
        m_resumeMs = wanted;
    else
        m_output->seek(wanted);
    save();
    publish();
    reply.setValue(QVariant(true));
}

void PlayerEngine::setVolume(qint64 percent, const Reply& reply)
{
    m_volume = int(percent);
    m_output->setVolume(m_volume);
    save();
    publish();
    reply.setValue(QVariant(true));
}

void PlayerEngine::playUnasked(const KeloRoles& roles)
{
    const PlayItem item = PlayItem::completed(roles, {roles, QString(), CMPath(), -1});
    if (item.uri.isEmpty()) {
        KELO_LOG("player", WARN) << "an item without an address was handed over";
        return;
    }
    command(Reply());
    endChain();
    RowFinder::Found found;
    found.entry = item.entry;
    KeloMediaData mediaData = roles.mediaData();
    mediaData.setResources({}); // an address is nothing to keep
    found.entry.row.setMediaData(mediaData);
    begin(found);
    openItem(item);
}

void PlayerEngine::addNote(const TrString& text)
{
    KELO_LOG("player", INFO) << text.source();
    m_notes.add(text);
}

void PlayerEngine::save()
{
    m_store.save({m_volume, m_item, positionMs()});
    m_savedAtMs = m_clock.steadyMs();
}

qint64 PlayerEngine::positionMs() const
{
    switch (m_state) {
    case State::Playing:
    case State::Paused:
        return m_output->positionMs();
    case State::Resolving:
        if (m_chain.aim == Chain::None)
            return m_item.startMs;
        return m_chain.of == Chain::Another ? m_resumeMs : m_chain.offsetMs;
    case State::Stopped:
        break;
    }
    return m_resumeMs;
}

qint64 PlayerEngine::durationMs() const
{
    const qint64 duration = isSounding() ? m_output->durationMs() : 0;
    return duration > 0 ? duration : m_item.durationMs;
}

void PlayerEngine::publish()
{
    m_item.durationMs = durationMs(); // the output forgets it
    PlayerStatus status;
    status.state = m_state;
    status.item = m_item;
    status.list = m_item.entry.list;
    status.index = m_item.entry.index;
    if (m_queue.listOf(m_queue.present().slot) == status.list) {
        status.listTitle = m_queue.titleOf(m_queue.present().slot);
        status.index = m_queue.indexOf(m_queue.present().slot);
    }
    status.isShuffled = m_queue.isShuffled();
    status.repeat = PlayQueue::nameOf(m_queue.repeat());
    status.queueVersion = m_queue.version();
    status.queueRows = m_queue.size();
    status.volume = m_volume;
    status.notes = m_notes.texts();
    if (status.notes.isEmpty() && !m_output->note().isEmpty())
        status.notes.append(m_output->note());
    status.positionMs = positionMs();
    if (m_item.durationMs > 0)
        status.positionMs = std::min(status.positionMs, m_item.durationMs);
    m_publish(status);
}

void PlayerEngine::startTicking()
{
    m_tick.start(tickMs, [this] { tick(); });
}

void PlayerEngine::tick()
{
    if (m_state != State::Playing)
        return;
    startTicking();
    const qint64 position = m_output->positionMs();
    if (position - m_item.startMs >= tickMs)
        m_failures = 0;
    const qint64 duration = m_output->durationMs();
    if (duration > 0 && duration - position <= nearEndMs)
        prefetch();
    if (m_clock.steadyMs() - m_savedAtMs >= saveEveryMs)
        save();
    publish();
}
