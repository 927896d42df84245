#pragma once
#include <functional>
#include <kelo/TrString.h>
#include <memory>
#include <QString>

/// What an output is asked to play.
struct OutputItem
{
    QString uri;
    qint64 startMs = 0;        ///< position to start at
    qint64 durationHintMs = 0; ///< length as far as known beforehand; 0 when not
};

/// Why an output gave an item up.
struct OutputError
{
    enum Kind {
        Refused,  ///< the address is not valid any more (HTTP 403, 410)
        NotFound, ///< nothing stands at the address
        Decode,   ///< the data cannot be decoded
        Device,   ///< the sound device cannot be used
        Network   ///< the data did not arrive, or any other failure of the source
    };
    Kind kind = Network;
    TrString text;         ///< a sentence for people
    bool isOfNext = false; ///< the item given with setNext() failed, the current one was well
    qint64 positionMs = 0; ///< where the current item was
};

/// Turns addresses into sound. Owned by the player's engine or by an OutputStage; lives on its
/// owner's thread, where every operation is called and every event arrives, the events never from
/// inside an operation. It knows addresses alone: no rows, no lists, no services.
class AudioOutput
{
public:
    /// The events. Those of an item that was replaced or stopped do not arrive any more.
    struct Events
    {
        std::function<void()> started;       ///< the opened item sounds, or would if not paused
        std::function<void()> aboutToFinish; ///< the last moment for setNext() to be gap-free
        /// The item of setNext() with this address has taken over.
        std::function<void(const QString& uri)> itemChanged;
        std::function<void()> finished;                ///< the item ended and nothing follows it
        std::function<void(const OutputError&)> error; ///< the output is stopped
    };

    virtual ~AudioOutput() = default;
    void setEvents(const Events& events) { m_events = events; }

    /// Plays an item in place of what plays now; ends in started or error.
    virtual void open(const OutputItem& item) = 0;
    /// Names the item that follows without a gap, in place of one that was named before; one with
    /// an empty address says that none does.
    virtual void setNext(const OutputItem& item) = 0;
    virtual void pause() = 0;
    virtual void resume() = 0;
    virtual void stop() = 0;
    virtual void seek(qint64 positionMs) = 0;
    /// 0 to 100, as people perceive it. Holds for later items too.
    virtual void setVolume(int percent) = 0;
    /// Gives up what does not start: nothing is open then, and the volume holds.
    virtual void restart() { stop(); }

    virtual qint64 positionMs() const = 0;
    /// 0 while unknown.
    virtual qint64 durationMs() const = 0;
    /// A sentence about the output itself that people should see; empty when there is none.
    virtual TrString note() const { return {}; }

    /// The output of the settings: "auto", "null", or the description of a GStreamer sink. Null,
    /// with a sentence in `error`, when a description is none.
    static std::unique_ptr<AudioOutput> create(const QString& description, QString* error);

protected:
    const Events& events() const { return m_events; }

private:
    Events m_events;
};

/// What the library with the sound has as "kelo_audio_output": AudioOutput::create() for the thread
/// that the output may keep waiting.
using AudioOutputCreate = AudioOutput* (*)(const QString& description, QString* error);
