#pragma once
#include "AudioOutput.h"
#include <atomic>
#include <mutex>
#include <QTimer>

/// The far side of a ThreadedOutput: an output on the thread that it may keep waiting, and what it
/// measured last. Shared by that thread and the ThreadedOutput, which may leave it behind.
class OutputStage
{
public:
    using Make = std::function<std::unique_ptr<AudioOutput>(QString* error)>;
    using Event = std::function<void(const AudioOutput::Events&)>;
    /// Takes an event of a session, on the receiver's thread.
    using Raise = std::function<void(quint64 session, const Event& event)>;
    using Operation = std::function<void(AudioOutput&)>;

    /// What an operation does to the time that passes in the item.
    enum class Clock { Keep, Run, Halt };

    struct Measured
    {
        quint64 operation = 0; ///< number of the latest operation that is done
        qint64 positionMs = 0;
        qint64 durationMs = 0;
        TrString note;
    };

    OutputStage(Make make, QObject* receiver, Raise raise);

    // Any thread.
    Measured measured() const;
    /// What is opened for an earlier session is not worth opening any more.
    void setNewest(quint64 session) { m_newest = session; }
    /// No event is raised any more; the receiver may go.
    void letGo();

    // The output's thread.
    /// False, with a sentence in `error`, when the output cannot be made.
    bool make(QString* error);
    /// Makes the output when there is none.
    void open(quint64 number, quint64 session, int volume, const OutputItem& item);
    /// Does nothing as long as there is no output.
    void run(quint64 number, Clock clock, const Operation& operation);
    void end();

private:
    void raise(const Event& event);
    void measure();

    const Make m_make;
    mutable std::mutex m_mutex;
    QObject* m_receiver; ///< null once it may be gone
    const Raise m_raise;
    Measured m_measured;
    std::atomic<quint64> m_newest{0};

    // Of the output's thread alone.
    std::unique_ptr<AudioOutput> m_output;
    std::unique_ptr<QTimer> m_clock; ///< made with the output; runs while the position may move
    quint64 m_session = 0;
    quint64 m_done = 0;
};
