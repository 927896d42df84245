#pragma once
#include <curl/curl.h>
#include <functional>
#include <memory>
#include <QBasicTimer>
#include <QObject>
#include <unordered_map>

/// libcurl's multi handle on the Qt event loop of its thread: one timer and a pair of notifiers for
/// each socket. Owned by a HttpClient, lives on its thread. It runs transfers and says when one is
/// done; what a transfer means is not its business.
class CurlLoop : public QObject
{
public:
    /// Called outside of every curl call, so that it may start and stop transfers.
    using Done = std::function<void(CURL* easy, CURLcode result)>;

    explicit CurlLoop(const Done& done);
    ~CurlLoop() override;

    /// Makes an easy handle open and close its sockets here. Once for each handle, before add().
    void adopt(CURL* easy);
    /// Starts a transfer; may call `done` at once.
    void add(CURL* easy);
    /// Ends a transfer without a word.
    void remove(CURL* easy);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    class Notifier;
    /// A socket that curl has open. Its notifiers are kept while it is open, also between two
    /// transfers, so that a kept connection costs no registration.
    struct Socket
    {
        Notifier* reader = nullptr;
        Notifier* writer = nullptr;
        bool isOpenedHere = false; ///< closeSocket() is called for it
    };

    static int socketCallback(CURL* easy, curl_socket_t fd, int what, void* loop, void* unused);
    static curl_socket_t openSocket(void* loop, curlsocktype purpose, curl_sockaddr* address);
    static int closeSocket(void* loop, curl_socket_t fd);

    void watch(curl_socket_t fd, int what);
    void forget(curl_socket_t fd);
    /// Lets curl go on, and says what is done.
    void act(curl_socket_t fd, int flags);
    void armTimer();

    CURLM* m_multi;
    Done m_done;
    std::unordered_map<curl_socket_t, Socket> m_sockets;
    QBasicTimer m_timer;
    qint64 m_firesAt = 0; ///< when the active timer fires, by the monotonic clock, in milliseconds
};
