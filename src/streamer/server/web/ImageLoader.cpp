#include "ImageLoader.h"

#include <algorithm>
#include <QTimer>

namespace {

constexpr int mostFetches = 6;
constexpr int mostWaiting = 64;
constexpr std::chrono::seconds patience{15};

ImageResult problem(int status, const char* text)
{
    return {nullptr, status, QString::fromLatin1(text)};
}

} // namespace

ImageLoader::ImageLoader()
{
    m_thread.start([this] {
        m_fetcher = new ImageFetcher(
            [this](const std::string& url, const ImageResult& result) { finished(url, result); });
    });
}

ImageLoader::~ImageLoader()
{
    m_thread.stop([this] { delete m_fetcher; });
}

void ImageLoader::load(const std::string& url, Done done)
{
    m_thread.post([this, url, done = std::move(done)] { begin(url, done); });
}

void ImageLoader::begin(const std::string& url, Done done)
{
    if (m_isStopped)
        return done(problem(503, "The streamer is stopping."));
    if (m_waiting >= mostWaiting)
        return done(problem(503, "Too many pictures are being fetched."));
    ++m_waiting;
    const auto waiter = std::make_shared<Done>(std::move(done));
    std::vector<Waiter>& flight = m_flights[url];
    if (flight.empty())
        m_queue.push_back(url);
    flight.push_back(waiter);
    QTimer::singleShot(patience, m_fetcher, [this, waiter] {
        finish(waiter, problem(504, "the server of the picture did not answer in time"));
    });
    fetchNext();
}

void ImageLoader::finish(const Waiter& waiter, const ImageResult& result)
{
    if (!*waiter)
        return;
    --m_waiting;
    Done done;
    done.swap(*waiter);
    done(result);
}

void ImageLoader::fetchNext()
{
    while (m_running < mostFetches && !m_queue.empty()) {
        const std::string url = m_queue.front();
        m_queue.pop_front();
        const std::vector<Waiter>& flight = m_flights.at(url);
        // Nobody is left who waits for it.
        if (std::none_of(flight.begin(), flight.end(), [](const Waiter& one) { return !!*one; })) {
            m_flights.erase(url);
            continue;
        }
        ++m_running;
        m_fetcher->fetch(url);
    }
}

void ImageLoader::finished(const std::string& url, const ImageResult& result)
{
    --m_running;
    const auto flight = m_flights.find(url);
    if (flight != m_flights.end()) {
        const std::vector<Waiter> waiters = std::move(flight->second);
        m_flights.erase(flight);
        for (const Waiter& waiter : waiters)
            finish(waiter, result);
    }
    fetchNext();
}

void ImageLoader::stop()
{
    m_thread.post([this] {
        m_isStopped = true;
        m_queue.clear();
        for (const auto& [url, waiters] : std::exchange(m_flights, {})) {
            for (const Waiter& waiter : waiters)
                finish(waiter, problem(503, "The streamer is stopping."));
        }
    });
}
