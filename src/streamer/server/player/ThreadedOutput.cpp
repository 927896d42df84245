#include "ThreadedOutput.h"
#include <future>
#include <kelo/KeloLog.h>

namespace {
constexpr int maxLeft = 8;
constexpr std::chrono::seconds endWait{3};
} // namespace

ThreadedOutput::ThreadedOutput(OutputStage::Make make) : m_make(std::move(make))
{
    startStage();
}

ThreadedOutput::~ThreadedOutput()
{
    m_stage->letGo();
    m_stage->setNewest(++m_session);
    if (!m_thread.stop([stage = m_stage] { stage->end(); }, endWait))
        KELO_LOG("player", WARN) << "the audio output does not end";
}

void ThreadedOutput::startStage()
{
    m_stage = std::make_shared<OutputStage>(
        m_make, &m_context, [this](quint64 session, const OutputStage::Event& event) {
            if (session == m_session)
                event(events());
        });
    m_thread.start([] {});
}

bool ThreadedOutput::make(QString* error)
{
    std::promise<bool> isMade;
    m_thread.post([&] { isMade.set_value(m_stage->make(error)); });
    return isMade.get_future().get();
}

void ThreadedOutput::restart()
{
    beginSession(0, 0);
    ++m_operation;
    if (*m_left >= maxLeft)
        return;
    KELO_LOG("player", WARN) << "the audio output is made anew";
    m_stage->letGo();
    ++*m_left;
    m_thread.stop(
        [stage = m_stage, left = m_left] {
            stage->end();
            --*left;
        },
        std::chrono::seconds(0));
    startStage();
}

void ThreadedOutput::run(Clock clock, OutputStage::Operation operation)
{
    m_thread.post([stage = m_stage, number = ++m_operation, clock,
                   operation = std::move(operation)] { stage->run(number, clock, operation); });
}

void ThreadedOutput::beginSession(qint64 positionMs, qint64 durationMs)
{
    m_stage->setNewest(++m_session);
    m_position.operation = m_duration.operation = m_operation + 1;
    m_position.positionMs = positionMs;
    m_duration.durationMs = durationMs;
}

void ThreadedOutput::open(const OutputItem& item)
{
    beginSession(item.startMs, item.durationHintMs);
    m_thread.post([stage = m_stage, number = ++m_operation, session = m_session, volume = m_volume,
                   item] { stage->open(number, session, volume, item); });
}

void ThreadedOutput::setNext(const OutputItem& item)
{
    run(Clock::Keep, [item](AudioOutput& output) { output.setNext(item); });
}

void ThreadedOutput::pause()
{
    run(Clock::Halt, [](AudioOutput& output) { output.pause(); });
}

void ThreadedOutput::resume()
{
    run(Clock::Run, [](AudioOutput& output) { output.resume(); });
}

void ThreadedOutput::stop()
{
    beginSession(0, 0);
    run(Clock::Halt, [](AudioOutput& output) { output.stop(); });
}

void ThreadedOutput::seek(qint64 positionMs)
{
    m_position.operation = m_operation + 1;
    m_position.positionMs = positionMs;
    run(Clock::Keep, [positionMs](AudioOutput& output) { output.seek(positionMs); });
}

void ThreadedOutput::setVolume(int percent)
{
    m_volume = percent;
    run(Clock::Keep, [percent](AudioOutput& output) { output.setVolume(percent); });
}

qint64 ThreadedOutput::positionMs() const
{
    const OutputStage::Measured measured = m_stage->measured();
    return measured.operation < m_position.operation ? m_position.positionMs : measured.positionMs;
}

qint64 ThreadedOutput::durationMs() const
{
    const OutputStage::Measured measured = m_stage->measured();
    return measured.operation < m_duration.operation ? m_duration.durationMs : measured.durationMs;
}
