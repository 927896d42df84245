#include "CurlLoop.h"
#include <chrono>
#include <QEvent>
#include <QSocketNotifier>
#include <QTimerEvent>
#include <sys/socket.h>
#include <unistd.h>

namespace {
/// Most connections kept open for later calls, to all servers together.
constexpr long maxKeptConnections = 16;

qint64 nowMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
} // namespace

/// Tells the loop that a socket can be read or written.
class CurlLoop::Notifier : public QSocketNotifier
{
public:
    Notifier(CurlLoop* loop, curl_socket_t fd, Type type)
        : QSocketNotifier(fd, type, loop), m_loop(loop)
    {
    }

    bool isWanted = true; ///< else it is switched off when it fires

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::SockAct)
            return QSocketNotifier::event(event);
        if (isEnabled() && isWanted)
            m_loop->act(curl_socket_t(socket()),
                        type() == Read ? CURL_CSELECT_IN : CURL_CSELECT_OUT);
        else
            setEnabled(false);
        return true;
    }

private:
    CurlLoop* m_loop;
};

CurlLoop::CurlLoop(const Done& done) : m_multi(curl_multi_init()), m_done(done)
{
    curl_multi_setopt(m_multi, CURLMOPT_SOCKETFUNCTION, &CurlLoop::socketCallback);
    curl_multi_setopt(m_multi, CURLMOPT_SOCKETDATA, this);
    curl_multi_setopt(m_multi, CURLMOPT_MAXCONNECTS, maxKeptConnections);
}

CurlLoop::~CurlLoop()
{
    curl_multi_cleanup(m_multi);
}

void CurlLoop::adopt(CURL* easy)
{
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, &CurlLoop::openSocket);
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETDATA, this);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETFUNCTION, &CurlLoop::closeSocket);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETDATA, this);
}

void CurlLoop::add(CURL* easy)
{
    curl_multi_add_handle(m_multi, easy);
    act(CURL_SOCKET_TIMEOUT, 0);
}

void CurlLoop::remove(CURL* easy)
{
    curl_multi_remove_handle(m_multi, easy);
}

int CurlLoop::socketCallback(CURL*, curl_socket_t fd, int what, void* loop, void*)
{
    static_cast<CurlLoop*>(loop)->watch(fd, what);
    return 0;
}

curl_socket_t CurlLoop::openSocket(void* loop, curlsocktype, curl_sockaddr* address)
{
    const curl_socket_t fd =
        ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
    if (fd != CURL_SOCKET_BAD)
        static_cast<CurlLoop*>(loop)->m_sockets[fd].isOpenedHere = true;
    return fd;
}

int CurlLoop::closeSocket(void* loop, curl_socket_t fd)
{
    static_cast<CurlLoop*>(loop)->forget(fd);
    return ::close(fd);
}

void CurlLoop::watch(curl_socket_t fd, int what)
{
    const bool isReadWanted = what == CURL_POLL_IN || what == CURL_POLL_INOUT;
    const bool isWriteWanted = what == CURL_POLL_OUT || what == CURL_POLL_INOUT;
    Socket& socket = m_sockets[fd];
    if (what == CURL_POLL_REMOVE && !socket.isOpenedHere) {
        // Such as the name resolver's; nobody says when it is closed.
        forget(fd);
        return;
    }
    if (isReadWanted && !socket.reader)
        socket.reader = new Notifier(this, fd, QSocketNotifier::Read);
    if (isWriteWanted && !socket.writer)
        socket.writer = new Notifier(this, fd, QSocketNotifier::Write);
    // A reader that is not wanted stays enabled until it fires: most connections are soon read
    // again.
    if (socket.reader) {
        socket.reader->isWanted = isReadWanted;
        if (isReadWanted && !socket.reader->isEnabled())
            socket.reader->setEnabled(true);
    }
    if (socket.writer && socket.writer->isEnabled() != isWriteWanted)
        socket.writer->setEnabled(isWriteWanted);
}

void CurlLoop::forget(curl_socket_t fd)
{
    const auto found = m_sockets.find(fd);
    if (found == m_sockets.end())
        return;
    for (Notifier* notifier : {found->second.reader, found->second.writer}) {
        if (!notifier)
            continue;
        // It may be the one whose event is being handled.
        notifier->setEnabled(false);
        notifier->deleteLater();
    }
    m_sockets.erase(found);
}

void CurlLoop::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return;
    m_timer.stop();
    if (nowMs() < m_firesAt)
        armTimer();
    else
        act(CURL_SOCKET_TIMEOUT, 0);
}

void CurlLoop::act(curl_socket_t fd, int flags)
{
    int left = 0;
    curl_multi_socket_action(m_multi, fd, flags, &left);
    while (const CURLMsg* message = curl_multi_info_read(m_multi, &left)) {
        if (message->msg != CURLMSG_DONE)
            continue;
        CURL* easy = message->easy_handle;
        const CURLcode result = message->data.result;
        curl_multi_remove_handle(m_multi, easy);
        m_done(easy, result);
    }
    armTimer();
}

/// A timer that fires too early is left alone: it then finds what is left to wait for. So a call
/// that is answered before its time-out costs no timer.
void CurlLoop::armTimer()
{
    long wait = -1;
    curl_multi_timeout(m_multi, &wait);
    if (wait < 0)
        return;
    const qint64 at = nowMs() + wait;
    if (m_timer.isActive() && m_firesAt <= at)
        return;
    m_firesAt = at;
    m_timer.start(int(std::min<long>(wait, INT_MAX)), Qt::PreciseTimer, this);
}
