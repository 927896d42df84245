// The part of PlayerEngine that follows the output.
#include "PlayerEngine.h"
#include <algorithm>

namespace {
/// An address that was good for as long may be replaced again when it fails.
constexpr qint64 provenMs = 10000;
} // namespace

void PlayerEngine::connectOutput()
{
    AudioOutput::Events events;
    events.started = [this] { onStarted(); };
    events.aboutToFinish = [this] { onAboutToFinish(); };
    events.itemChanged = [this](const QString& uri) { onItemChanged(uri); };
    events.finished = [this] { onFinished(); };
    events.error = [this](const OutputError& error) { onError(error); };
    m_output->setEvents(events);
}

void PlayerEngine::onStarted()
{
    endStartLimit();
    if (m_state == State::Paused)
        return; // the output began again, for a seek
    m_state = State::Playing;
    if (m_chain.aim == Chain::Start) {
        startTicking();
        return publish(); // a command is leading elsewhere already, and is not answered by this
    }
    m_broken = Broken();
    forgetBefore();
    m_notes.started();
    if (std::exchange(m_isPauseWanted, false))
        pauseOutput();
    startTicking();
    publish();
    succeed();
}

void PlayerEngine::onAboutToFinish()
{
    if (m_next.state == Next::Nothing || m_next.state == Next::Barred)
        m_output->setNext(OutputItem());
    else
        prefetch();
}

void PlayerEngine::onItemChanged(const QString& uri)
{
    if (m_chain.aim == Chain::Start)
        return;
    m_failures = 0;
    if (m_next.state != Next::Given || m_next.item.uri != uri) {
        // The queue was edited when the output had begun what was to come next before.
        startChain(Chain::Start, m_item.entry);
        m_chain.skips = true;
        m_state = State::Resolving;
        walk();
        return publish();
    }
    if (!m_next.isSame)
        takeNext();
    m_item = m_next.item;
    m_next = Next();
    forgetBefore();
    m_notes.started();
    save();
    publish();
}

void PlayerEngine::onFinished()
{
    endStartLimit();
    m_failures = 0;
    if (m_chain.aim != Chain::None) {
        // What a command leads to, or the next item, is opened when it is resolved.
        m_chain.aim = Chain::Start;
        if (m_chain.slot.origin >= 0)
            commit();
        m_state = State::Resolving;
        return publish();
    }
    if (m_next.state == Next::Given) {
        if (!m_next.isSame)
            takeNext();
        return openItem(PlayItem(m_next.item));
    }
    if (m_next.state == Next::Nothing)
        return halt();
    startChain(Chain::Start, m_item.entry);
    m_chain.skips = true;
    m_state = State::Resolving;
    goOn();
    publish();
}

void PlayerEngine::onError(const OutputError& error)
{
    endStartLimit();
    if (m_chain.aim == Chain::Start) {
        m_state = State::Resolving; // a command is leading elsewhere already
        return publish();
    }
    if (error.isOfNext && m_next.state == Next::Given)
        return onNextRefused(error);
    const bool isWaitedFor = !m_reply.isNull();
    const qint64 position = std::max(error.positionMs, positionMs());
    if (error.kind == OutputError::Device) {
        addNote(error.text);
        halt(position);
        return fail(error.text);
    }
    const bool isPaused = m_state == State::Paused;
    const bool again = isWorthARetry(error);
    if (m_state != State::Resolving && error.kind == OutputError::Network)
        m_broken = {m_item, position, error.text};
    startChain(Chain::Start, m_item.entry);
    m_chain.skips = m_item.isSkipped || !isWaitedFor;
    m_chain.offsetMs = position;
    m_chain.of = Chain::Present;
    m_state = State::Resolving;
    if (!again)
        return onItemFailed(error.text);
    m_isPauseWanted = m_isPauseWanted || isPaused;
    m_chain.of = Chain::Retry;
    resolve();
}

void PlayerEngine::limitStart()
{
    if (m_reply.isNull())
        m_startLeftMs = startLimitMs; // nobody waits
    m_limitSinceMs = m_clock.steadyMs();
    m_startLimit.start(std::max<qint64>(0, m_startLeftMs), [this] { onStartLimit(); });
}

void PlayerEngine::endStartLimit()
{
    if (m_limitSinceMs)
        m_startLeftMs -= m_clock.steadyMs() - *m_limitSinceMs;
    m_limitSinceMs.reset();
    m_startLimit.cancel();
}

void PlayerEngine::onStartLimit()
{
    m_output->restart();
    OutputError error;
    error.kind = OutputError::Device;
    error.text =
        TrString::in("Player", "the audio output did not start within %1 seconds and was made anew",
                     {QString::number(startLimitMs / 1000)});
    onError(error);
}

/// A refused address has expired, and a connection that broke off may be made anew; both get one
/// retry, and another one when that went well for a while.
bool PlayerEngine::isWorthARetry(const OutputError& error) const
{
    const bool isMendable = error.kind == OutputError::Refused ||
                            (error.kind == OutputError::Network && m_state != State::Resolving);
    const bool isProven = !m_item.isRetry || error.positionMs - m_item.startMs >= provenMs;
    return isMendable && isProven && m_item.entry.canResolve();
}

void PlayerEngine::onNextRefused(const OutputError& error)
{
    // The next item is tried again when its turn comes; the present one goes on where it was.
    const bool isPaused = m_state == State::Paused;
    PlayItem item = m_item;
    item.startMs = error.positionMs;
    openItem(item);
    m_next.state = Next::Barred;
    m_isPauseWanted = isPaused;
}
