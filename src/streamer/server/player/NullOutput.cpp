#include "NullOutput.h"
#include <algorithm>
#include <kelo/KeloLog.h>

namespace {
constexpr qint64 unknownDurationMs = 180000;
constexpr qint64 announceEndMs = 2000;

/// A probe may be replaced from within its own answer.
void deleteProbe(StreamProbe* probe)
{
    probe->cancel();
    probe->deleteLater();
}
} // namespace

qint64 NullOutput::Track::durationMs() const
{
    if (answer.durationMs > 0)
        return answer.durationMs;
    return item.durationHintMs > 0 ? item.durationHintMs : unknownDurationMs;
}

NullOutput::NullOutput(Clock& clock)
    : m_clock(clock), m_client(nullptr), m_probe(nullptr, deleteProbe),
      m_nextProbe(nullptr, deleteProbe)
{
    m_client.setRecorded(false);
}

NullOutput::~NullOutput() = default;

void NullOutput::probe(Probe& probe, Track& track, std::function<void()> then)
{
    KELO_LOG("player", DEBUG) << "asking " << keloUrlForLog(track.item.uri);
    probe.reset(new StreamProbe(m_client, track.item.uri,
                                [&track, then](const StreamProbe::Answer& answer) {
                                    track.isProbed = true;
                                    track.answer = answer;
                                    then();
                                }));
}

void NullOutput::open(const OutputItem& item)
{
    stop();
    m_track.item = item;
    m_baseMs = std::max<qint64>(0, item.startMs);
    m_state = State::Probing;
    probe(m_probe, m_track, [this] { startTrack(); });
}

void NullOutput::startTrack()
{
    if (!m_track.answer.isFine)
        return fail(m_track.answer.error);
    begin();
    events().started();
}

void NullOutput::begin()
{
    m_state = m_isPauseWanted ? State::Paused : State::Playing;
    m_sinceMs = m_clock.steadyMs();
    schedule();
}

void NullOutput::setNext(const OutputItem& item)
{
    m_nextProbe.reset();
    m_next = Track();
    m_next.item = item;
    if (!item.uri.isEmpty())
        probe(m_nextProbe, m_next, [this] {
            if (m_state != State::Stopped && !m_next.answer.isFine) {
                OutputError error = m_next.answer.error;
                error.isOfNext = true;
                fail(error);
            }
        });
}

void NullOutput::pause()
{
    m_isPauseWanted = true;
    if (m_state != State::Playing)
        return;
    m_baseMs = positionMs();
    m_state = State::Paused;
}

void NullOutput::resume()
{
    m_isPauseWanted = false;
    if (m_state != State::Paused)
        return;
    m_sinceMs = m_clock.steadyMs();
    m_state = State::Playing;
    schedule();
}

void NullOutput::stop()
{
    m_state = State::Stopped;
    m_isPauseWanted = false;
    m_probe.reset();
    m_nextProbe.reset();
    m_track = Track();
    m_next = Track();
    m_baseMs = 0;
    m_hasAnnouncedEnd = false;
    ++m_timer;
}

void NullOutput::seek(qint64 positionMs)
{
    if (m_state == State::Stopped)
        return;
    m_baseMs = std::max<qint64>(0, positionMs);
    m_sinceMs = m_clock.steadyMs();
    schedule();
}

void NullOutput::setVolume(int) {}

qint64 NullOutput::positionMs() const
{
    if (m_state != State::Playing)
        return m_baseMs;
    return std::min(durationMs(), m_baseMs + m_clock.steadyMs() - m_sinceMs);
}

qint64 NullOutput::durationMs() const
{
    return m_track.isProbed && m_track.answer.isFine ? m_track.durationMs() : 0;
}

void NullOutput::schedule()
{
    if (m_state != State::Playing)
        return;
    const qint64 left = durationMs() - positionMs();
    const qint64 delay = !m_hasAnnouncedEnd ? std::max<qint64>(0, left - announceEndMs) : left;
    m_clock.callLater(std::max<qint64>(0, delay), &m_context, [this, timer = ++m_timer] {
        if (timer == m_timer)
            onTimer();
    });
}

void NullOutput::onTimer()
{
    if (m_state != State::Playing)
        return;
    if (positionMs() >= durationMs())
        return onEnd();
    const bool announce = !m_hasAnnouncedEnd && durationMs() - positionMs() <= announceEndMs;
    m_hasAnnouncedEnd = m_hasAnnouncedEnd || announce;
    schedule();
    if (announce)
        events().aboutToFinish();
}

void NullOutput::onEnd()
{
    if (m_next.item.uri.isEmpty()) {
        stop();
        return events().finished();
    }
    const bool isReady = m_next.isProbed;
    if (!isReady) {
        // The next address has not answered yet: a gap, as a real output would have.
        const OutputItem next = m_next.item;
        stop();
        m_track.item = next;
        m_state = State::Probing;
        return probe(m_probe, m_track, [this] {
            const StreamProbe::Answer answer = m_track.answer;
            if (answer.isFine)
                begin();
            events().itemChanged();
            if (!answer.isFine)
                fail(answer.error);
        });
    }
    const qint64 over = m_baseMs + m_clock.steadyMs() - m_sinceMs - durationMs();
    m_track = m_next;
    m_next = Track();
    m_baseMs = m_track.item.startMs;
    m_sinceMs = m_clock.steadyMs() - over;
    m_hasAnnouncedEnd = false;
    schedule();
    events().itemChanged();
}

void NullOutput::fail(OutputError error)
{
    error.positionMs = positionMs();
    stop();
    events().error(error);
}
