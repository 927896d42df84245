#pragma once
#include "AudioOutput.h"

#include <atomic>
#include <condition_variable>
#include <gst/gst.h>
#include <memory>
#include <mutex>
#include <QObject>

/// Gives back a reference to an object of GStreamer's.
struct GstUnref
{
    void operator()(gpointer object) const { gst_object_unref(object); }
};
template <class T>
using GstPtr = std::unique_ptr<T, GstUnref>;

/// Sound through GStreamer's playbin; lives on the thread of a ThreadedOutput, since a pipeline may
/// take its time to change its state. Messages of the pipeline are posted to that thread from the
/// bus's sync handler, so no glib main loop runs. Items that follow each other without a gap are
/// handed over while playbin's "about-to-finish" call waits on the streaming thread. It is playbin
/// and not playbin3, whose parts (GStreamer 1.22) wait for each other for ever when an item is
/// taken down while it is being set up.
class GstOutput : public AudioOutput
{
public:
    /// "null" plays silently in real time; "auto" takes the machine's sound device, and without one
    /// does as "null"; anything else is a description of a sink as gst-launch takes it. Null, with
    /// a sentence in `error`, when the description is none or GStreamer's parts are missing.
    static std::unique_ptr<AudioOutput> create(const QString& sink, QString* error);
    ~GstOutput() override;

    void open(const OutputItem& item) override;
    void setNext(const OutputItem& item) override;
    void pause() override;
    void resume() override;
    void stop() override;
    void seek(qint64 positionMs) override;
    void setVolume(int percent) override;
    qint64 positionMs() const override;
    qint64 durationMs() const override;
    TrString note() const override { return m_note; }

private:
    /// What the streaming threads share with the output's thread, behind a mutex.
    struct Handover
    {
        std::mutex mutex;
        std::condition_variable changed;
        bool isAnswered = false; ///< the player has said what follows, or that nothing waits for it
        bool isTaken = false;    ///< the answer is used, and no other wanted until that item sounds
        std::string nextUri;     ///< empty: nothing follows
    };

    GstOutput(GstElement* playbin, const TrString& note);

    /// This object on a streaming thread.
    static GstOutput* of(gpointer self);
    static GstBusSyncReply onBusMessage(GstBus* bus, GstMessage* message, gpointer self);
    static void onAboutToFinish(GstElement* playbin, gpointer self);
    static void onAudioChanged(GstElement* playbin, gpointer self);
    static void onSourceSetup(GstElement* playbin, GstElement* source, gpointer self);
    void handleBusMessage(GstMessage* message);
    /// Runs a function on the output's thread unless the session has ended by then. Any thread.
    void post(std::function<void()> function);
    void waitForNext();
    void postBuffering(GstMessage* message);
    void postError(GstMessage* message);
    /// Tells a streaming thread that waits what follows.
    void answer(bool isAnswered, const QString& uri);

    void begin(const OutputItem& item);
    void beginAgain(qint64 positionMs);
    void halt();
    void onPrerolled();
    void onPlaying();
    void onStreamStart(guint group);
    void onEnd();
    void onNextTaken(const QString& uri);
    /// `source`: what reads the item, so that the present one and the next are told apart.
    void onBuffering(const void* source, bool isBuffering);
    void onError(OutputError error);
    /// Brings the pipeline into the state that the flags ask for.
    void settle();

    QObject m_context; ///< receives what the streaming threads post
    GstElement* m_playbin;
    TrString m_note;
    Handover m_handover;
    std::atomic<quint64> m_session{0}; ///< grows with every open and stop
    /// Whether audio was found since the opening. Not playbin's count: that is of the next item as
    /// soon as the first has been decoded, which may be before it sounds.
    std::atomic<bool> m_hasAudio{false};
    std::atomic<bool> m_isReady{false}; ///< the pipeline plays, or is paused when it could
    /// Set last by the constructor and read first by the streaming threads, which GStreamer hands
    /// the object to: what was written before is seen there.
    std::atomic<bool> m_isMade{false};

    // Of the output's thread alone.
    bool m_isOpen = false;
    bool m_hasStarted = false;
    bool m_isPauseWanted = false;
    bool m_isPrerolled = false; ///< the pipeline is ready to play, from the start position if any
    bool m_isBuffering = false;
    bool m_isNextBuffering = false;
    GstState m_state = GST_STATE_NULL;   ///< as asked for
    const void* m_source = nullptr;      ///< what reads the present item, once it has told of it
    const void* m_endedSource = nullptr; ///< what has read the item before, and may tell of it late
    bool m_isStartPending = false;       ///< a start position waits for the pipeline to be ready
    bool m_isNextGiven = false;          ///< playbin has taken the next address
    qint64 m_seekTargetMs = -1; ///< until a seek has arrived, when the pipeline knows no position
    guint m_group = 0; ///< group of the stream that sounds, which every item has its own of
    OutputItem m_item;
    OutputItem m_next;
};
