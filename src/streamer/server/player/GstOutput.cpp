#include "GstOutput.h"
#include <algorithm>
#include <cmath>
#include <kelo/KeloLog.h>
#include <kelo/TrString.h>

namespace {
constexpr const char* logger = "player";
const QString silentSink = QStringLiteral("fakesink sync=true");
constexpr unsigned playFlagAudio = 0x2; // of playbin's flags, which no header declares
constexpr unsigned playFlagSoftVolume = 0x10;
constexpr unsigned playFlagBuffering = 0x100;

/// Whether the machine's automatic sink found a device to open.
bool hasSoundDevice(GstElement* sink)
{
    const bool isReady = gst_element_set_state(sink, GST_STATE_READY) == GST_STATE_CHANGE_SUCCESS;
    bool isFake = false;
    if (isReady && GST_IS_BIN(sink)) {
        GstIterator* fakes = gst_bin_iterate_all_by_element_factory_name(GST_BIN(sink), "fakesink");
        GValue item = G_VALUE_INIT;
        isFake = gst_iterator_next(fakes, &item) == GST_ITERATOR_OK;
        g_value_unset(&item);
        gst_iterator_free(fakes);
    }
    gst_element_set_state(sink, GST_STATE_NULL);
    return isReady && !isFake;
}

GstElement* parseSink(const QString& description, QString* error)
{
    GError* failure = nullptr;
    GstElement* sink =
        gst_parse_bin_from_description(description.toUtf8().constData(), TRUE, &failure);
    if (sink)
        gst_object_ref_sink(sink);
    if (failure) {
        *error = QStringLiteral("\"%1\" is no sink that GStreamer knows: %2")
                     .arg(description, QString::fromUtf8(failure->message));
        g_error_free(failure);
        if (sink)
            gst_object_unref(sink);
        return nullptr;
    }
    return sink;
}

GstElement* makeAutoSink(TrString* note, QString* error)
{
    GstElement* sink = gst_element_factory_make("autoaudiosink", nullptr);
    if (sink) {
        gst_object_ref_sink(sink);
        if (hasSoundDevice(sink))
            return sink;
        gst_object_unref(sink);
    }
    *note = TrString::in("Player", "no sound device, playing silently");
    return parseSink(silentSink, error);
}

GstElement* makeSink(const QString& description, TrString* note, QString* error)
{
    if (description == QLatin1String("auto"))
        return makeAutoSink(note, error);
    return parseSink(description == QLatin1String("null") ? silentSink : description, error);
}
} // namespace

extern "C" Q_DECL_EXPORT AudioOutput* kelo_audio_output(const QString& description, QString* error)
{
    return GstOutput::create(description, error).release();
}

std::unique_ptr<AudioOutput> GstOutput::create(const QString& sink, QString* error)
{
    GError* failure = nullptr;
    if (!gst_init_check(nullptr, nullptr, &failure)) {
        *error = QStringLiteral("GStreamer does not start: %1")
                     .arg(QString::fromUtf8(failure ? failure->message : "no reason given"));
        g_clear_error(&failure);
        return nullptr;
    }
    TrString note;
    GstPtr<GstElement> audioSink(makeSink(sink, &note, error));
    if (!audioSink)
        return nullptr;
    GstElement* playbin = gst_element_factory_make("playbin", nullptr);
    if (!playbin) {
        *error = QStringLiteral("GStreamer has no playbin; its base plug-ins are missing");
        return nullptr;
    }
    gst_object_ref_sink(playbin);
    g_object_set(playbin, "audio-sink", audioSink.get(), "flags",
                 playFlagAudio | playFlagSoftVolume | playFlagBuffering, nullptr);
    if (!note.isEmpty())
        KELO_LOG(logger, WARN) << note.source();
    return std::unique_ptr<AudioOutput>(new GstOutput(playbin, note));
}

GstOutput::GstOutput(GstElement* playbin, const TrString& note) : m_playbin(playbin), m_note(note)
{
    m_isMade.store(true, std::memory_order_release);
    const GstPtr<GstBus> bus(gst_element_get_bus(m_playbin));
    gst_bus_set_sync_handler(bus.get(), &GstOutput::onBusMessage, this, nullptr);
    g_signal_connect(m_playbin, "about-to-finish", G_CALLBACK(&GstOutput::onAboutToFinish), this);
    g_signal_connect(m_playbin, "source-setup", G_CALLBACK(&GstOutput::onSourceSetup), this);
    g_signal_connect(m_playbin, "audio-changed", G_CALLBACK(&GstOutput::onAudioChanged), this);
}

GstOutput::~GstOutput()
{
    halt();
    const GstPtr<GstBus> bus(gst_element_get_bus(m_playbin));
    gst_bus_set_sync_handler(bus.get(), nullptr, nullptr, nullptr);
    gst_object_unref(m_playbin);
}

void GstOutput::open(const OutputItem& item)
{
    m_isPauseWanted = false;
    begin(item);
}

void GstOutput::begin(const OutputItem& item)
{
    halt();
    KELO_LOG(logger, DEBUG) << "opening " << keloUrlForLog(item.uri);
    m_item = item;
    m_isOpen = true;
    m_isStartPending = item.startMs > 0;
    g_object_set(m_playbin, "uri", item.uri.toUtf8().constData(), nullptr);
    settle();
}

void GstOutput::halt()
{
    // A streaming thread that waits for the next address would keep the pipeline from stopping.
    ++m_session;
    answer(true, QString());
    gst_element_set_state(m_playbin, GST_STATE_NULL);
    ++m_session; // what the pipeline said while it stopped is of no session
    answer(false, QString());
    m_hasAudio = m_isReady = false;
    m_isOpen = m_hasStarted = m_isPrerolled = m_isStartPending = m_isNextGiven = false;
    m_isBuffering = m_isNextBuffering = false;
    m_state = GST_STATE_NULL;
    m_source = m_endedSource = nullptr;
    m_group = 0;
    m_seekTargetMs = -1;
    m_next = OutputItem();
}

void GstOutput::setNext(const OutputItem& item)
{
    const bool isTaken = m_isNextGiven && item.uri != m_next.uri;
    m_next = item;
    if (isTaken)
        beginAgain(positionMs());
    else
        answer(true, item.uri);
}

/// The pipeline reads the next item already, or nothing yet.
void GstOutput::beginAgain(qint64 positionMs)
{
    OutputItem item = m_item;
    const OutputItem next = m_next;
    item.startMs = positionMs;
    begin(item);
    if (!next.uri.isEmpty())
        setNext(next);
}

void GstOutput::answer(bool isAnswered, const QString& uri)
{
    {
        std::lock_guard<std::mutex> lock(m_handover.mutex);
        m_handover.isAnswered = isAnswered;
        m_handover.nextUri = uri.toStdString();
        if (!isAnswered)
            m_handover.isTaken = false;
    }
    m_handover.changed.notify_all();
}

void GstOutput::pause()
{
    m_isPauseWanted = true;
    settle();
}

void GstOutput::resume()
{
    m_isPauseWanted = false;
    settle();
}

void GstOutput::stop()
{
    m_isPauseWanted = false;
    halt();
}

void GstOutput::seek(qint64 positionMs)
{
    if (!m_isOpen)
        return;
    if (m_isNextGiven || !m_hasStarted) {
        beginAgain(positionMs);
        return;
    }
    answer(true, m_next.uri);
    if (gst_element_seek_simple(m_playbin, GST_FORMAT_TIME,
                                GstSeekFlags(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE),
                                positionMs * GST_MSECOND))
        m_seekTargetMs = positionMs;
    answer(!m_next.uri.isEmpty(), m_next.uri);
}

void GstOutput::setVolume(int percent)
{
    // Loudness is perceived about as the cube root of the amplitude.
    g_object_set(m_playbin, "volume", std::pow(percent / 100.0, 3.0), nullptr);
}

qint64 GstOutput::positionMs() const
{
    if (m_seekTargetMs >= 0)
        return m_seekTargetMs;
    gint64 position = 0;
    if (m_isOpen && m_hasStarted &&
        gst_element_query_position(m_playbin, GST_FORMAT_TIME, &position))
        return std::max<qint64>(0, position / GST_MSECOND);
    return m_isOpen ? m_item.startMs : 0;
}

qint64 GstOutput::durationMs() const
{
    gint64 duration = 0;
    if (m_isOpen && !m_isNextGiven &&
        gst_element_query_duration(m_playbin, GST_FORMAT_TIME, &duration) && duration > 0)
        return duration / GST_MSECOND;
    return m_isOpen ? m_item.durationHintMs : 0;
}

void GstOutput::settle()
{
    if (!m_isOpen)
        return;
    // Playbin may forget to play when it is told so, or otherwise, before it is ready.
    const bool isPaused = m_isPauseWanted || m_isBuffering || !m_isPrerolled;
    const GstState state = isPaused ? GST_STATE_PAUSED : GST_STATE_PLAYING;
    if (std::exchange(m_state, state) == state)
        return;
    const GstStateChangeReturn change = gst_element_set_state(m_playbin, state);
    if (change == GST_STATE_CHANGE_FAILURE)
        KELO_LOG(logger, DEBUG) << "the pipeline refuses to become "
                                << gst_element_state_get_name(state);
    else if (change == GST_STATE_CHANGE_NO_PREROLL && !m_isPrerolled)
        onPrerolled(); // a live source, which says nothing more
}

void GstOutput::onPrerolled()
{
    m_seekTargetMs = -1;
    if (m_isStartPending) {
        m_isStartPending = false;
        // Ends in another preroll, from which playing starts.
        if (gst_element_seek_simple(m_playbin, GST_FORMAT_TIME,
                                    GstSeekFlags(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE),
                                    m_item.startMs * GST_MSECOND))
            return;
    }
    m_isPrerolled = true;
    settle();
    if (m_isPauseWanted)
        onPlaying();
}

void GstOutput::onPlaying()
{
    m_isReady = true;
    if (std::exchange(m_hasStarted, true))
        return;
    if (!m_hasAudio) {
        OutputError error;
        error.kind = OutputError::Decode;
        error.text = TrString::in("Player", "the address holds no audio");
        return onError(error);
    }
    events().started();
}

void GstOutput::onStreamStart(guint group)
{
    // The pipeline may announce one item more than once.
    const guint before = std::exchange(m_group, group);
    if (before == 0 || before == group || !m_isNextGiven)
        return;
    m_item = m_next;
    m_next = OutputItem();
    m_isNextGiven = false;
    m_endedSource = std::exchange(m_source, nullptr);
    m_isBuffering = std::exchange(m_isNextBuffering, false);
    answer(false, QString());
    settle();
    events().itemChanged(m_item.uri);
}

void GstOutput::onEnd()
{
    const OutputItem next = m_next;
    if (next.uri.isEmpty()) {
        halt();
        return events().finished();
    }
    // The address came too late for the pipeline: a short gap.
    begin(next);
    events().itemChanged(m_item.uri);
    m_hasStarted = true;
}

void GstOutput::onNextTaken(const QString& uri)
{
    if (uri != m_next.uri)
        return beginAgain(positionMs());  // another was named meanwhile
    m_item.durationHintMs = durationMs(); // from now on the pipeline tells the next item's
    m_isNextGiven = true;
    m_endedSource = nullptr; // its turn comes again
}

void GstOutput::onBuffering(const void* source, bool isBuffering)
{
    if (source == m_endedSource)
        return;
    if (!m_isNextGiven)
        m_source = source;
    // What sounds does not wait for what follows it.
    (source == m_source ? m_isBuffering : m_isNextBuffering) = isBuffering;
    settle();
}

void GstOutput::onError(OutputError error)
{
    error.isOfNext = m_isNextGiven;
    error.positionMs = positionMs();
    halt();
    events().error(error);
}
