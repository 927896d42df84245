// Clients that keep a connection open, think, and ask again: how many are served, and how fast.
#include <algorithm>
#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/http/write.hpp>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <vector>

namespace asio = boost::asio;
namespace http = boost::beast::http;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

namespace {

struct Plan
{
    asio::ip::tcp::endpoint server;
    std::string target;
    std::string encoding; ///< Accept-Encoding; empty: none
    Milliseconds think;
    int requests; ///< of each client
};

struct Result
{
    std::vector<double> milliseconds; ///< of each answer
    bool isPending = true;            ///< not all answers had come when the run ended
};

/// One client; keeps itself until the end of the run.
class LoadClient : public std::enable_shared_from_this<LoadClient>
{
public:
    LoadClient(asio::io_context& io, const Plan& plan, Result& result)
        : m_stream(io), m_timer(io), m_plan(plan), m_result(result)
    {
        m_request = {http::verb::get, plan.target, 11};
        m_request.set(http::field::host, "localhost");
        if (!plan.encoding.empty())
            m_request.set(http::field::accept_encoding, plan.encoding);
    }

    void start(Milliseconds delay)
    {
        m_stream.async_connect(m_plan.server, [self = shared_from_this(), delay](auto error) {
            if (!error)
                self->think(delay);
        });
    }

private:
    void think(Milliseconds time)
    {
        m_timer.expires_after(time);
        m_timer.async_wait([self = shared_from_this()](auto) { self->ask(); });
    }

    void ask()
    {
        if (m_left-- == 0) {
            m_result.isPending = false;
            return;
        }
        m_begin = Clock::now();
        http::async_write(m_stream, m_request, [self = shared_from_this()](auto error, size_t) {
            if (error)
                return self->fail();
            self->m_parser.emplace();
            self->m_parser->body_limit(boost::none);
            http::async_read(self->m_stream, self->m_buffer, *self->m_parser,
                             [self](auto failure, size_t) { self->take(failure); });
        });
    }

    void take(const boost::beast::error_code& error)
    {
        if (error || m_parser->get().result_int() != 200)
            return fail();
        const std::chrono::duration<double, std::milli> time = Clock::now() - m_begin;
        m_result.milliseconds.push_back(time.count());
        think(m_plan.think);
    }

    void fail() { m_stream.close(); }

    boost::beast::tcp_stream m_stream;
    asio::steady_timer m_timer;
    const Plan& m_plan;
    Result& m_result;
    http::request<http::empty_body> m_request;
    boost::beast::flat_buffer m_buffer;
    std::optional<http::response_parser<http::string_body>> m_parser;
    Clock::time_point m_begin;
    int m_left = m_plan.requests;
};

double percentile(const std::vector<double>& sorted, double share)
{
    return sorted.empty() ? 0 : sorted[size_t(share * double(sorted.size() - 1))];
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 6) {
        std::fprintf(stderr, "usage: kelo-load-bench PORT TARGET CLIENTS THINK_MS REQUESTS "
                             "[ACCEPT_ENCODING]\n");
        return 2;
    }
    const auto clients = size_t(std::atoi(argv[3]));
    asio::io_context io;
    Plan plan{{asio::ip::address_v4::loopback(), (unsigned short)std::atoi(argv[1])},
              argv[2],
              argc > 6 ? argv[6] : "",
              Milliseconds(std::atoi(argv[4])),
              std::atoi(argv[5])};
    std::vector<Result> results(clients);
    std::mt19937 random(1);
    std::uniform_int_distribution<int> spread(0, int(plan.think.count()));
    for (Result& result : results)
        std::make_shared<LoadClient>(io, plan, result)->start(Milliseconds(spread(random)));
    // Whoever waits still was not served.
    io.run_for((plan.think + std::chrono::seconds(1)) * plan.requests + std::chrono::seconds(3));

    std::vector<double> all;
    size_t served = 0;
    int unserved = 0;
    for (Result& result : results) {
        auto& times = result.milliseconds;
        const bool isFast = !times.empty() && *std::max_element(times.begin(), times.end()) < 1000;
        served += isFast && !result.isPending;
        unserved += result.isPending;
        all.insert(all.end(), times.begin(), times.end());
    }
    std::sort(all.begin(), all.end());
    std::printf("%6zu %8zu %9zu %9.1f %9.1f %9.1f %9d\n", clients, all.size(), served,
                percentile(all, 0.5), percentile(all, 0.99), all.empty() ? 0 : all.back(),
                unserved);
    return 0;
}
