#pragma once
#include <functional>
#include <list>
#include <mutex>
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

    explicit ScriptedServer(const Script& script);
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

    Script m_script;
    int m_listener = -1;
    int m_port = 0;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_requests;
    std::vector<int> m_open; ///< connections whose thread has not closed them
    int m_connections = 0;
    bool m_isStopping = false;
    std::list<std::thread> m_threads;
    std::thread m_acceptor;
};
