#include "HttpClient.h"
#include "CurlLoop.h"
#include "HttpCall.h"
#include "HttpCallLog.h"
#include <kelo/KeloLog.h>
#include <vector>

namespace {
/// Most calls under way at a time; further ones fail.
constexpr std::size_t maxCalls = 1024;
/// Most ended calls whose curl handle is kept for the next one.
constexpr std::size_t maxIdleCalls = 8;

void prepareLibrary()
{
    static const bool isPrepared = [] {
        curl_global_init(CURL_GLOBAL_DEFAULT);
        qRegisterMetaType<KeloUrl>("KeloUrl");
        qRegisterMetaType<HttpClientPrivate>("HttpClientPrivate");
        qRegisterMetaType<HttpClientHeaders>("HttpClientHeaders");
        return true;
    }();
    Q_UNUSED(isPrepared)
}
} // namespace

/// The calls of a client, by handle, and the curl loop that runs them.
class HttpClient::Private
{
public:
    Private(HttpVersion version, bool keepAlive);
    ~Private();

    void* start(HttpCall::Method method, const KeloUrl& url, const QByteArray& body,
                QObject* receiver, const char* member, const HttpClientOptions& options);
    void abort(quintptr id);
    int size() const { return int(m_calls.size()); }
    void setRecorded(bool isRecorded) { m_isRecorded = isRecorded; }

private:
    using Call = std::unique_ptr<HttpCall>;

    Call takeCall();
    void done(CURL* easy, CURLcode result);
    /// Delivers and takes the handle back.
    void end(Call call, Failure failure);

    HttpVersion m_version;
    bool m_isKeepAlive;
    bool m_isRecorded = true;
    quintptr m_lastId = 0; ///< handles are numbers that do not return, so a stale one hits no call
    CurlLoop m_loop;
    std::unordered_map<quintptr, Call> m_calls;
    std::vector<Call> m_idle;
};

HttpClient::Private::Private(HttpVersion version, bool keepAlive)
    : m_version(version), m_isKeepAlive(keepAlive),
      m_loop([this](CURL* easy, CURLcode result) { done(easy, result); })
{
}

HttpClient::Private::~Private()
{
    for (const auto& entry : m_calls) {
        m_loop.remove(entry.second->easy());
        entry.second->deliver(Aborted);
        if (entry.second->isRecorded())
            HttpCallLog::instance().end(entry.second->record(Aborted));
    }
}

HttpClient::Private::Call HttpClient::Private::takeCall()
{
    if (!m_idle.empty()) {
        Call call = std::move(m_idle.back());
        m_idle.pop_back();
        return call;
    }
    Call call = std::make_unique<HttpCall>(m_version, m_isKeepAlive);
    m_loop.adopt(call->easy());
    return call;
}

void* HttpClient::Private::start(HttpCall::Method method, const KeloUrl& url,
                                 const QByteArray& body, QObject* receiver, const char* member,
                                 const HttpClientOptions& options)
{
    const quintptr id = ++m_lastId;
    Call call = takeCall();
    call->setReceiver(receiver, member);
    call->setRecorded(m_isRecorded);
    if (m_isRecorded)
        HttpCallLog::instance().begin();
    Failure failure = call->prepare(id, method, url, body, options);
    if (failure == NoFailure && m_calls.size() >= maxCalls) {
        KELO_LOG("http", ERROR) << "Too many calls under way: " << int(maxCalls);
        failure = TransferFailed;
    }
    if (failure != NoFailure) {
        end(std::move(call), failure);
    } else {
        CURL* easy = call->easy();
        m_calls.emplace(id, std::move(call));
        m_loop.add(easy);
    }
    return reinterpret_cast<void*>(id);
}

void HttpClient::Private::abort(quintptr id)
{
    const auto found = m_calls.find(id);
    if (found == m_calls.end())
        return;
    Call call = std::move(found->second);
    m_calls.erase(found);
    m_loop.remove(call->easy());
    end(std::move(call), Aborted);
}

void HttpClient::Private::done(CURL* easy, CURLcode result)
{
    const auto found = m_calls.find(HttpCall::of(easy)->id());
    if (found == m_calls.end())
        return;
    HttpCall& running = *found->second;
    const Failure failure = running.failure(result);
    if (failure == NoFailure && running.redirect()) {
        m_loop.add(easy);
        return;
    }
    Call call = std::move(found->second);
    m_calls.erase(found);
    if (failure != NoFailure)
        KELO_LOG("http", WARN) << "No answer from " << keloUrlForLog(call->url().toString()) << ": "
                               << curl_easy_strerror(result);
    end(std::move(call), failure);
}

void HttpClient::Private::end(Call call, Failure failure)
{
    call->deliver(failure);
    if (call->isRecorded())
        HttpCallLog::instance().end(call->record(failure));
    call->clear();
    if (m_idle.size() < maxIdleCalls)
        m_idle.push_back(std::move(call));
}

HttpClient::HttpClient(QObject* parent, HttpVersion version, bool keepAlive) : QObject(parent)
{
    prepareLibrary();
    d = std::make_unique<Private>(version, keepAlive);
}

HttpClient::~HttpClient() = default;

void* HttpClient::get(KeloUrl const& url, QObject* receiver, char const* member,
                      HttpClientOptions const& options)
{
    return d->start(HttpCall::Method::Get, url, QByteArray(), receiver, member, options);
}

void* HttpClient::post(KeloUrl const& url, QByteArray const& body, QObject* receiver,
                       char const* member, HttpClientOptions const& options)
{
    return d->start(HttpCall::Method::Post, url, body, receiver, member, options);
}

void* HttpClient::delete_(KeloUrl const& url, QByteArray const& body, QObject* receiver,
                          char const* member, HttpClientOptions const& options)
{
    return d->start(HttpCall::Method::Delete, url, body, receiver, member, options);
}

void HttpClient::abort(void* handle)
{
    d->abort(reinterpret_cast<quintptr>(handle));
}

int HttpClient::callsUnderWay() const
{
    return d->size();
}

void HttpClient::setRecorded(bool isRecorded)
{
    d->setRecorded(isRecorded);
}
