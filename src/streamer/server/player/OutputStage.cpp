#include "OutputStage.h"
#include <kelo/KeloPost.h>

namespace {
constexpr int measureEveryMs = 100;
}

OutputStage::OutputStage(Make make, QObject* receiver, Raise raise)
    : m_make(std::move(make)), m_receiver(receiver), m_raise(std::move(raise))
{
}

OutputStage::Measured OutputStage::measured() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_measured;
}

void OutputStage::letGo()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_receiver = nullptr;
}

bool OutputStage::make(QString* error)
{
    m_output = m_make(error);
    if (!m_output)
        return false;
    using Events = AudioOutput::Events;
    Events events;
    events.started = [this] { raise([](const Events& to) { to.started(); }); };
    events.aboutToFinish = [this] { raise([](const Events& to) { to.aboutToFinish(); }); };
    events.itemChanged = [this](const QString& uri) {
        raise([uri](const Events& to) { to.itemChanged(uri); });
    };
    events.finished = [this] { raise([](const Events& to) { to.finished(); }); };
    events.error = [this](const OutputError& failure) {
        raise([failure](const Events& to) { to.error(failure); });
    };
    m_output->setEvents(events);
    m_clock = std::make_unique<QTimer>();
    m_clock->setInterval(measureEveryMs);
    QObject::connect(m_clock.get(), &QTimer::timeout, m_clock.get(), [this] { measure(); });
    measure();
    return true;
}

void OutputStage::open(quint64 number, quint64 session, int volume, const OutputItem& item)
{
    m_session = session;
    if (session == m_newest) {
        QString problem;
        if (m_output || make(&problem)) {
            m_clock->start();
            m_output->setVolume(volume);
            m_output->open(item);
        } else {
            const OutputError error{OutputError::Device, problem};
            raise([error](const AudioOutput::Events& to) { to.error(error); });
        }
    }
    m_done = number;
    measure();
}

void OutputStage::run(quint64 number, Clock clock, const Operation& operation)
{
    if (m_output) {
        if (clock == Clock::Run)
            m_clock->start();
        else if (clock == Clock::Halt)
            m_clock->stop();
        operation(*m_output);
    }
    m_done = number;
    measure();
}

void OutputStage::end()
{
    m_clock.reset();
    m_output.reset();
}

void OutputStage::raise(const Event& event)
{
    measure();
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_receiver)
        keloPost(m_receiver,
                 [raise = m_raise, session = m_session, event] { raise(session, event); });
}

void OutputStage::measure()
{
    Measured now;
    now.operation = m_done;
    if (m_output) {
        now.positionMs = m_output->positionMs();
        now.durationMs = m_output->durationMs();
        now.note = m_output->note();
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    m_measured = now;
}
