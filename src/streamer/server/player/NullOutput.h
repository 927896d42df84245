#pragma once
#include "AudioOutput.h"
#include "Clock.h"
#include "StreamProbe.h"

/// Plays in real time to nowhere: an address must answer, time passes, the item ends. For machines
/// without sound and for tests, which bring a clock of their own. It decodes nothing.
class NullOutput : public AudioOutput
{
public:
    explicit NullOutput(Clock& clock);
    ~NullOutput() override;

    void open(const OutputItem& item) override;
    void setNext(const OutputItem& item) override;
    void pause() override;
    void resume() override;
    void stop() override;
    void seek(qint64 positionMs) override;
    void setVolume(int percent) override;
    qint64 positionMs() const override;
    qint64 durationMs() const override;

private:
    enum class State { Stopped, Probing, Playing, Paused };
    /// What is known of an address once its probe has answered.
    struct Track
    {
        OutputItem item;
        bool isProbed = false;
        StreamProbe::Answer answer;
        qint64 durationMs() const;
    };
    using Probe = std::unique_ptr<StreamProbe, void (*)(StreamProbe*)>;

    void probe(Probe& probe, Track& track, std::function<void()> then);
    void startTrack();
    void begin();
    void schedule();
    void onTimer();
    void onEnd();
    void fail(OutputError error);

    Clock& m_clock;
    QObject m_context; ///< timers end with it
    HttpClient m_client;
    Probe m_probe;
    Probe m_nextProbe;
    State m_state = State::Stopped;
    bool m_isPauseWanted = false; ///< paused while the address is still being asked
    Track m_track;
    Track m_next;        ///< of empty address while nothing follows
    qint64 m_baseMs = 0; ///< position at m_sinceMs, or the position while not playing
    qint64 m_sinceMs = 0;
    bool m_hasAnnouncedEnd = false;
    quint64 m_timer = 0; ///< number of the latest timer; earlier ones do nothing
};
