#pragma once
#include "AudioOutput.h"
#include <functional>
#include <kelo/HttpClient.h>

/// One question to an address for its first bytes: does it answer, and how long is its stream.
/// Owned by NullOutput, lives on its thread; deleting it drops the question. It decodes no audio.
class StreamProbe : public QObject
{
    Q_OBJECT
public:
    struct Answer
    {
        bool isFine = false;
        OutputError error;     ///< when not fine
        qint64 durationMs = 0; ///< 0 when the stream does not say
    };
    using Done = std::function<void(const Answer&)>;

    /// Asks; `done` runs once, in a later turn of the event loop.
    StreamProbe(HttpClient& client, const QString& uri, Done done);
    ~StreamProbe() override;

    /// Drops the question; `done` does not run any more, and the client is not used any more.
    void cancel();

    Q_INVOKABLE void onAnswer(const KeloUrl& url, const HttpClientPrivate& userData, int status,
                              int code, const QByteArray& body, const HttpClientHeaders& headers);

private:
    HttpClient& m_client;
    void* m_call; ///< the call under way; null once it is answered or dropped
    bool m_isDropped = false;
    Done m_done;
};
