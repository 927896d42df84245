#include "StreamProbe.h"
#include "FlacHeader.h"
#include <kelo/TrString.h>

namespace {
constexpr int probeTimeoutMs = 8000;   // within the player's limit for a start
constexpr int probeReadLimit = 262144; // a server without ranges sends the whole stream

OutputError errorOf(int status, int code)
{
    OutputError error;
    if (status == 403 || status == 410) {
        error.kind = OutputError::Refused;
        error.text = Language::ntr("the address was refused (%1)", "Player").arg(status);
    } else if (status == 404) {
        error.kind = OutputError::NotFound;
        error.text = Language::ntr("nothing stands at the address (%1)", "Player").arg(status);
    } else if (status != 0) {
        error.text =
            Language::ntr("the audio server answered with status %1", "Player").arg(status);
    } else if (code == HttpClient::BadUrl) {
        error.kind = OutputError::NotFound;
        error.text = Language::ntr("the address is not valid", "Player");
    } else {
        error.text = Language::ntr("the audio server did not answer", "Player");
    }
    return error;
}
} // namespace

StreamProbe::StreamProbe(HttpClient& client, const QString& uri, Done done)
    : m_client(client), m_done(std::move(done))
{
    HttpClientHeaders headers;
    headers.insert(QStringLiteral("Range"), QStringLiteral("bytes=0-4095"));
    headers.insert(QStringLiteral("Accept-Encoding"), QStringLiteral("identity"));
    m_call = m_client.get(KeloUrl(uri), this, "onAnswer",
                          HttpClientOptions()
                              .setTimeoutMs(probeTimeoutMs)
                              .setReadSizeLimit(probeReadLimit)
                              .setHeaders(headers));
}

StreamProbe::~StreamProbe()
{
    cancel();
}

void StreamProbe::cancel()
{
    m_isDropped = true;
    if (m_call)
        m_client.abort(std::exchange(m_call, nullptr));
}

void StreamProbe::onAnswer(const KeloUrl&, const HttpClientPrivate&, int status, int code,
                           const QByteArray& body, const HttpClientHeaders&)
{
    m_call = nullptr;
    if (m_isDropped)
        return;
    Answer answer;
    answer.isFine = status == 200 || status == 206 || code == HttpClient::BodyTooLarge;
    if (answer.isFine)
        answer.durationMs = flacDurationMs(body);
    else
        answer.error = errorOf(status, code);
    m_done(answer);
}
