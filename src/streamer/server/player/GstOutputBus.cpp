// The part of GstOutput that runs on GStreamer's streaming threads.
#include "GstOutput.h"
#include <chrono>
#include <kelo/KeloLog.h>
#include <kelo/KeloPost.h>
#include <kelo/TrString.h>

namespace {
constexpr const char* logger = "player";
constexpr guint sourceTimeoutSeconds = 8; // within the player's limit, so that it is told why
/// How long the end of one stream waits to be told the address of the next.
constexpr std::chrono::seconds handoverWait{8};

/// Whether the address has given no byte yet.
bool hasNoData(GstElement* playbin)
{
    GstElement* source = nullptr;
    g_object_get(playbin, "source", &source, nullptr);
    if (!source)
        return false;
    gint64 bytes = -1;
    const bool isKnown = gst_element_query_position(source, GST_FORMAT_BYTES, &bytes);
    gst_object_unref(source);
    return isKnown && bytes == 0;
}

/// The part of playbin that reads the item which a message is about: to be compared, no more.
const void* itemSource(GstMessage* message)
{
    const GstObject* part = GST_MESSAGE_SRC(message);
    for (GstObject* parent = part->parent; parent && parent->parent; parent = parent->parent)
        part = parent;
    return part;
}

/// Whether a queue waits for data; `isSaid`: as its message says, when it cannot be asked.
bool isFilling(GstElement* queue, bool isSaid)
{
    GstQuery* query = gst_query_new_buffering(GST_FORMAT_PERCENT);
    gboolean isBusy = isSaid;
    if (gst_element_query(queue, query))
        gst_query_parse_buffering_percent(query, &isBusy, nullptr);
    gst_query_unref(query);
    return isBusy;
}

/// `isOfTransfer`: the source says so, or nothing has come that could be decoded.
OutputError::Kind kindOf(const GError* failure, guint httpStatus, bool isOfTransfer)
{
    if (httpStatus == 403 || httpStatus == 410)
        return OutputError::Refused;
    if (httpStatus == 404)
        return OutputError::NotFound;
    if (failure->domain == GST_RESOURCE_ERROR) {
        if (failure->code == GST_RESOURCE_ERROR_NOT_AUTHORIZED)
            return OutputError::Refused;
        if (failure->code == GST_RESOURCE_ERROR_NOT_FOUND)
            return OutputError::NotFound;
        if (failure->code == GST_RESOURCE_ERROR_OPEN_WRITE ||
            failure->code == GST_RESOURCE_ERROR_WRITE || failure->code == GST_RESOURCE_ERROR_BUSY)
            return OutputError::Device;
        return OutputError::Network;
    }
    // A stream error without data that could be wrong says that none came, or that it broke off.
    // Newer versions say no more than that of a refused connection.
    const bool isDecode = failure->domain == GST_STREAM_ERROR && !isOfTransfer;
    return isDecode ? OutputError::Decode : OutputError::Network;
}

TrString sentenceOf(OutputError::Kind kind, guint httpStatus, const GError* failure)
{
    const QString cause =
        httpStatus ? QString::number(httpStatus) : QString::fromUtf8(failure->message);
    switch (kind) {
    case OutputError::Refused:
        return TrString::in("Player", "the address was refused (%1)", {cause});
    case OutputError::NotFound:
        return TrString::in("Player", "nothing stands at the address (%1)", {cause});
    case OutputError::Decode:
        return TrString::in("Player", "the audio cannot be decoded: %1", {cause});
    case OutputError::Device:
        return TrString::in("Player", "the sound device cannot be used: %1", {cause});
    case OutputError::Network:
        break;
    }
    // The library's own words for that are of streams and their types.
    if (failure->domain == GST_STREAM_ERROR && !httpStatus)
        return TrString::in("Player",
                            "the audio did not arrive: the connection failed or broke off");
    return TrString::in("Player", "the audio did not arrive: %1", {cause});
}
} // namespace

GstOutput* GstOutput::of(gpointer self)
{
    auto* output = static_cast<GstOutput*>(self);
    (void)output->m_isMade.load(std::memory_order_acquire);
    return output;
}

GstBusSyncReply GstOutput::onBusMessage(GstBus*, GstMessage* message, gpointer self)
{
    of(self)->handleBusMessage(message);
    gst_message_unref(message);
    return GST_BUS_DROP;
}

void GstOutput::handleBusMessage(GstMessage* message)
{
    const bool isFromPipeline = GST_MESSAGE_SRC(message) == GST_OBJECT(m_playbin);
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ERROR:
        postError(message);
        break;
    case GST_MESSAGE_EOS:
        if (isFromPipeline)
            post([this] { onEnd(); });
        break;
    case GST_MESSAGE_STREAM_START:
        if (guint group = 0; isFromPipeline && gst_message_parse_group_id(message, &group))
            post([this, group] { onStreamStart(group); });
        break;
    case GST_MESSAGE_ASYNC_DONE:
        if (isFromPipeline)
            post([this] { onPrerolled(); });
        break;
    case GST_MESSAGE_STATE_CHANGED: {
        GstState state = GST_STATE_NULL;
        gst_message_parse_state_changed(message, nullptr, &state, nullptr);
        if (isFromPipeline && state == GST_STATE_PLAYING)
            post([this] { onPlaying(); });
        break;
    }
    case GST_MESSAGE_BUFFERING:
        postBuffering(message);
        break;
    default:
        break;
    }
}

void GstOutput::postBuffering(GstMessage* message)
{
    gint percent = 100;
    gst_message_parse_buffering(message, &percent);
    const std::shared_ptr<GstElement> queue(GST_ELEMENT(gst_object_ref(GST_MESSAGE_SRC(message))),
                                            GstUnref());
    // The messages of several threads overtake each other: what counts is how it is by then.
    post([this, queue, source = itemSource(message), percent] {
        onBuffering(source, isFilling(queue.get(), percent < 100));
    });
}

void GstOutput::postError(GstMessage* message)
{
    GError* failure = nullptr;
    gchar* debug = nullptr;
    const GstStructure* details = nullptr;
    gst_message_parse_error(message, &failure, &debug);
    gst_message_parse_error_details(message, &details);
    guint httpStatus = 0;
    if (details)
        gst_structure_get_uint(details, "http-status-code", &httpStatus);
    if (httpStatus < 100)
        httpStatus = 0; // a number that the library has for its own failures
    OutputError error;
    const bool isOfTransfer =
        GST_OBJECT_FLAG_IS_SET(GST_MESSAGE_SRC(message), GST_ELEMENT_FLAG_SOURCE) ||
        hasNoData(m_playbin);
    error.kind = kindOf(failure, httpStatus, isOfTransfer);
    error.text = sentenceOf(error.kind, httpStatus, failure);
    // The debug text is not logged: it holds the address with its signature.
    KELO_LOG(logger, WARN) << GST_OBJECT_NAME(GST_MESSAGE_SRC(message)) << ": "
                           << error.text.source();
    g_error_free(failure);
    g_free(debug);
    post([this, error] { onError(error); });
}

void GstOutput::post(std::function<void()> function)
{
    keloPost(&m_context, [this, posted = m_session.load(), function = std::move(function)] {
        if (posted == m_session)
            function();
    });
}

void GstOutput::onAboutToFinish(GstElement*, gpointer self)
{
    of(self)->waitForNext();
}

void GstOutput::waitForNext()
{
    post([this] { events().aboutToFinish(); });
    // One that was started close to its end. Playbin is not to change its state and its item at
    // once: the next begins when this one has ended.
    if (!m_isReady)
        return;
    std::string uri;
    {
        std::unique_lock<std::mutex> lock(m_handover.mutex);
        const quint64 session = m_session;
        // Playbin takes the next address only from within this call.
        m_handover.changed.wait_for(lock, handoverWait, [this, session] {
            return (m_handover.isAnswered && !m_handover.isTaken) || m_session != session;
        });
        if (m_session == session && !m_handover.isTaken)
            uri = m_handover.nextUri;
        m_handover.isTaken = m_handover.isTaken || !uri.empty();
    }
    if (uri.empty())
        return;
    post([this, taken = QString::fromStdString(uri)] { onNextTaken(taken); });
    g_object_set(m_playbin, "uri", uri.c_str(), nullptr);
}

void GstOutput::onAudioChanged(GstElement*, gpointer self)
{
    of(self)->m_hasAudio = true;
}

void GstOutput::onSourceSetup(GstElement*, GstElement* source, gpointer)
{
    GObjectClass* properties = G_OBJECT_GET_CLASS(source);
    if (g_object_class_find_property(properties, "user-agent"))
        g_object_set(source, "user-agent", "kelo", nullptr);
    if (g_object_class_find_property(properties, "timeout") &&
        g_object_class_find_property(properties, "is-live"))
        g_object_set(source, "timeout", sourceTimeoutSeconds, nullptr);
}
