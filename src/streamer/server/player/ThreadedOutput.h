#pragma once
#include "OutputStage.h"
#include <kelo/KeloLoopThread.h>
#include <QObject>

/// An output on a thread of its own, so that the player waits for nothing that an output does: a
/// pipeline may take long to change its state, or never come back. Owned by the player's engine and
/// of its thread; the output within is made, used and deleted on the other one. The position is the
/// one measured there last, or where the latest operation leads as long as that is not done.
class ThreadedOutput : public AudioOutput
{
public:
    /// `make` runs on the output's thread when something is opened, unless make() was called, and
    /// again, on another thread, after restart().
    explicit ThreadedOutput(OutputStage::Make make);
    /// Waits for the output's end for a while, then leaves it behind.
    ~ThreadedOutput() override;

    /// Makes the output now; false, with a sentence in `error`, when that fails.
    bool make(QString* error);

    void open(const OutputItem& item) override;
    void setNext(const OutputItem& item) override;
    void pause() override;
    void resume() override;
    void stop() override;
    void seek(qint64 positionMs) override;
    void setVolume(int percent) override;
    /// Leaves the output behind, which ends when it comes back; the next item makes another one. At
    /// most so many are left behind; beyond, the one that hangs is kept.
    void restart() override;
    qint64 positionMs() const override;
    qint64 durationMs() const override;
    TrString note() const override { return m_stage->measured().note; }

private:
    using Clock = OutputStage::Clock;

    void startStage();
    void run(Clock clock, OutputStage::Operation operation);
    /// The next operation leads to another item, or to none.
    void beginSession(qint64 positionMs, qint64 durationMs);

    const OutputStage::Make m_make;
    QObject m_context; ///< receives the output's events
    KeloLoopThread m_thread;
    std::shared_ptr<OutputStage> m_stage;
    /// Outputs that were left behind and have not come back.
    std::shared_ptr<std::atomic<int>> m_left = std::make_shared<std::atomic<int>>(0);
    quint64 m_session = 0;   ///< events of an earlier one are dropped
    quint64 m_operation = 0; ///< number of the latest operation
    int m_volume = 100;
    /// Stand in for what is measured until their operation is done.
    OutputStage::Measured m_position;
    OutputStage::Measured m_duration;
};
