#include "HttpClient.h"
#include "CurlLoop.h"
#include "HttpCall.h"
#include "HttpCallLog.h"
#include <algorithm>
#include <deque>
#include <kelo/KeloLog.h>
#include <map>
#include <QMultiHash>
#include <vector>

namespace {
/// Most calls under way at a time; further ones fail.
constexpr std::size_t maxCalls = 1024;
/// Most calls of one kind at a time, so that a part of a service that hangs keeps nobody else from
/// it; further ones wait, and further ones still fail.
constexpr int maxOfKind = 6;
constexpr std::size_t maxWaitingOfKind = 250;
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

/// What calls have in common that one part of a service answers: method, host, and the words of
/// the path, without the numbers and names between them.
uint kindOf(HttpCall::Method method, const QByteArray& url)
{
    uint hash = uint(method);
    uint segment = 0;
    bool isWord = true;
    bool isHost = true;
    int slashes = 0;
    const auto endSegment = [&] {
        hash = hash * 31 + (isWord || isHost ? segment : 1);
        isHost = slashes < 3;
        segment = 0;
        isWord = true;
    };
    for (const char c : url) {
        if (c == '?' || c == '#')
            break;
        if (c == '/') {
            ++slashes;
            endSegment();
            continue;
        }
        isWord = isWord && ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_');
        segment = segment * 31 + uchar(c);
    }
    endSegment();
    return hash;
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
    int size() const
    {
        return int(std::count_if(m_calls.begin(), m_calls.end(),
                                 [](const auto& entry) { return entry.second->isRunning(); }));
    }
    void setRecorded(bool isRecorded) { m_isRecorded = isRecorded; }

private:
    using Call = std::unique_ptr<HttpCall>;
    /// Calls of one kind.
    struct Lane
    {
        int running = 0;
        std::deque<quintptr> waiting;
    };

    /// The method of that bare name, looked up once a class; invalid, with an ERROR log line, when
    /// the receiver has none for an answer.
    QMetaMethod methodOf(const QObject* receiver, const char* member);
    Call takeCall();
    /// The call under way whose answer is also this one's, none of them older than what was sent to
    /// change something; null when there is none.
    HttpCall* findSame(const KeloUrl& url, const HttpClientOptions& options);
    /// Sends what waits, as many of the kind as may be under way.
    void runNext(uint kind);
    void done(CURL* easy, CURLcode result);
    /// Takes the call out of the maps, delivers and takes the handle back; then its kind's next one
    /// runs.
    void end(quintptr id, Failure failure);

    HttpVersion m_version;
    bool m_isKeepAlive;
    bool m_isRecorded = true;
    quintptr m_lastId = 0; ///< handles are numbers that do not return, so a stale one hits no call
    CurlLoop m_loop;
    std::unordered_map<quintptr, Call> m_calls;
    std::unordered_map<quintptr, quintptr> m_callOf; ///< which one answers a handle's call
    QMultiHash<QByteArray, quintptr> m_reads;        ///< GETs that others may join, by address
    std::unordered_map<uint, Lane> m_lanes;
    std::vector<Call> m_idle;
    /// By class and name.
    std::map<std::pair<const QMetaObject*, QByteArray>, QMetaMethod> m_methods;
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

QMetaMethod HttpClient::Private::methodOf(const QObject* receiver, const char* member)
{
    if (!receiver)
        return QMetaMethod();
    const QMetaObject* meta = receiver->metaObject();
    const auto known =
        m_methods.find({meta, QByteArray::fromRawData(member, int(qstrlen(member)))});
    if (known != m_methods.end())
        return known->second;
    const int index = meta->indexOfMethod(
        QByteArray(member) + "(KeloUrl,HttpClientPrivate,int,int,QByteArray,HttpClientHeaders)");
    if (index < 0) {
        KELO_LOG("http", ERROR) << "Receiver cannot take an answer: " << member;
        return QMetaMethod();
    }
    return m_methods[{meta, member}] = meta->method(index);
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

HttpCall* HttpClient::Private::findSame(const KeloUrl& url, const HttpClientOptions& options)
{
    const auto range = m_reads.equal_range(url.toEncoded());
    for (auto read = range.first; read != range.second; ++read) {
        HttpCall* call = m_calls.at(*read).get();
        if (call->answers(options))
            return call;
    }
    return nullptr;
}

void* HttpClient::Private::start(HttpCall::Method method, const KeloUrl& url,
                                 const QByteArray& body, QObject* receiver, const char* member,
                                 const HttpClientOptions& options)
{
    const quintptr id = ++m_lastId;
    const bool isRead = method == HttpCall::Method::Get;
    if (!isRead)
        m_reads.clear(); // what is asked from here on is to see the change
    const bool isShared = isRead && options.isShared();
    if (HttpCall* same = isShared ? findSame(url, options) : nullptr) {
        same->addRecipient(id, receiver, methodOf(receiver, member), options.userData());
        m_callOf.emplace(id, same->id());
        return reinterpret_cast<void*>(id);
    }
    Call call = takeCall();
    call->addRecipient(id, receiver, methodOf(receiver, member), options.userData());
    call->setRecorded(m_isRecorded);
    if (m_isRecorded)
        HttpCallLog::instance().begin();
    Failure failure = call->prepare(id, method, url, body, options);
    m_calls.emplace(id, std::move(call));
    m_callOf.emplace(id, id);
    const uint kind = kindOf(method, url.toEncoded());
    Lane& lane = m_lanes[kind];
    if (failure == NoFailure &&
        (m_calls.size() > maxCalls || lane.waiting.size() >= maxWaitingOfKind)) {
        KELO_LOG("http", ERROR) << "Too many calls under way: " << keloUrlForLog(url.toString());
        failure = TransferFailed;
    }
    if (failure != NoFailure) {
        end(id, failure);
    } else {
        if (isShared)
            m_reads.insert(url.toEncoded(), id);
        lane.waiting.push_back(id);
        runNext(kind);
    }
    return reinterpret_cast<void*>(id);
}

void HttpClient::Private::abort(quintptr id)
{
    const auto found = m_callOf.find(id);
    if (found == m_callOf.end())
        return;
    const quintptr call = found->second;
    m_callOf.erase(found);
    if (!m_calls.at(call)->abort(id))
        end(call, Aborted);
}

void HttpClient::Private::done(CURL* easy, CURLcode result)
{
    HttpCall& call = *HttpCall::of(easy);
    const Failure failure = call.failure(result);
    if (failure == NoFailure && call.redirect()) {
        m_loop.add(easy);
        return;
    }
    if (failure != NoFailure)
        KELO_LOG("http", WARN) << "No answer from " << keloUrlForLog(call.url().toString()) << ": "
                               << curl_easy_strerror(result);
    end(call.id(), failure);
}

void HttpClient::Private::end(quintptr id, Failure failure)
{
    const auto found = m_calls.find(id);
    Call call = std::move(found->second);
    m_calls.erase(found);
    for (const quintptr recipient : call->recipients())
        m_callOf.erase(recipient);
    m_reads.remove(call->url().toEncoded(), id);
    if (call->method() != HttpCall::Method::Get)
        m_reads.clear(); // they may have been answered before the change
    const bool wasRunning = call->isRunning();
    const uint kind = kindOf(call->method(), call->url().toEncoded());
    if (wasRunning && failure == Aborted)
        m_loop.remove(call->easy());
    call->deliver(failure);
    if (call->isRecorded())
        HttpCallLog::instance().end(call->record(failure));
    call->clear();
    if (m_idle.size() < maxIdleCalls)
        m_idle.push_back(std::move(call));
    if (wasRunning)
        --m_lanes[kind].running;
    runNext(kind);
}

void HttpClient::Private::runNext(uint kind)
{
    // A call may end while it is started, and take the lane with it.
    for (auto lane = m_lanes.find(kind); lane != m_lanes.end(); lane = m_lanes.find(kind)) {
        if (lane->second.running >= maxOfKind)
            return;
        if (lane->second.waiting.empty()) {
            if (lane->second.running == 0)
                m_lanes.erase(lane);
            return;
        }
        const auto next = m_calls.find(lane->second.waiting.front());
        lane->second.waiting.pop_front();
        if (next == m_calls.end())
            continue; // aborted while it waited
        ++lane->second.running;
        next->second->setTimeout();
        next->second->setRunning();
        m_loop.add(next->second->easy());
    }
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
