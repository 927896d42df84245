#pragma once
#include <condition_variable>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

/// A HTTP server that says what the test tells it to, byte by byte, well-formed or not. Listens on
/// a free loopback port, with a thread for each connection.
class ScriptedServer
{
public:
    enum class Then {
        Keep, ///< wait for the next request on the connection
        Close,
        Hang ///< keep the connection open and say nothing more
    };
    struct Answer
    {
        std::string bytes;
        Then then = Then::Keep;
    };
    /// Gets the whole request, head and body; runs on the connection's thread.
    using Script = std::function<Answer(const std::string& request)>;

    /// Gets the connection as well: what is not answered at once may be sent to it later.
    using ConnectionScript = std::function<Answer(const std::string& request, int fd)>;

    explicit ScriptedServer(const Script& script);
    /// Keeps no requests. `ended` is called before a connection is closed, on its thread.
    ScriptedServer(const ConnectionScript& script, const std::function<void(int fd)>& ended);
    ~ScriptedServer();

    int port() const { return m_port; }
    /// "http://127.0.0.1:PORT" with the path appended.
    std::string url(const std::string& path) const;
    std::vector<std::string> requests() const;
    int connections() const;

    /// An answer with a Content-Length.
    static std::string whole(const std::string& body, const std::string& headers = {},
                             const std::string& status = "200 OK");

private:
    void accept();
    void serve(int fd);

    const ConnectionScript m_script;
    const std::function<void(int)> m_ended;
    int m_listener = -1;
    int m_port = 0;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_requests;
    std::set<int> m_open; ///< connections whose thread has not closed them
    std::condition_variable m_closed;
    int m_connections = 0;
    bool m_isStopping = false;
    std::thread m_acceptor;
};
