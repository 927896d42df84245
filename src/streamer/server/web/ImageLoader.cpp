#include "ImageLoader.h"

namespace {

constexpr int mostFetches = 6;
/// Who waits holds one of the server's threads, of which enough must be left for other calls.
constexpr int mostWaiting = 20;
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
    stop();
    m_thread.stop([this] { delete m_fetcher; });
}

ImageResult ImageLoader::load(const std::string& url)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_isStopped)
        return problem(503, "The streamer is stopping.");
    if (m_waiting >= mostWaiting)
        return problem(503, "Too many pictures are being fetched.");
    std::shared_ptr<Flight>& known = m_flights[url];
    if (!known) {
        known = std::make_shared<Flight>();
        m_queue.push_back(url);
    }
    const std::shared_ptr<Flight> flight = known;
    ++m_waiting;
    ++flight->waiting;
    const std::vector<std::string> next = takeNext();
    if (!next.empty()) {
        lock.unlock();
        fetch(next);
        lock.lock();
    }
    const bool isOver =
        m_changed.wait_for(lock, patience, [&] { return flight->isDone || m_isStopped; });
    --m_waiting;
    --flight->waiting;
    if (flight->isDone)
        return flight->result;
    return isOver ? problem(503, "The streamer is stopping.")
                  : problem(504, "the server of the picture did not answer in time");
}

std::vector<std::string> ImageLoader::takeNext()
{
    std::vector<std::string> next;
    while (m_running < mostFetches && !m_queue.empty()) {
        const std::string url = m_queue.front();
        m_queue.pop_front();
        if (m_flights.at(url)->waiting == 0) {
            m_flights.erase(url);
            continue;
        }
        next.push_back(url);
        ++m_running;
    }
    return next;
}

void ImageLoader::fetch(const std::vector<std::string>& urls)
{
    for (const std::string& url : urls)
        m_thread.post([this, url] { m_fetcher->fetch(url); });
}

void ImageLoader::finished(const std::string& url, const ImageResult& result)
{
    std::vector<std::string> next;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        --m_running;
        const auto flight = m_flights.find(url);
        if (flight != m_flights.end()) {
            flight->second->result = result;
            flight->second->isDone = true;
            m_flights.erase(flight);
        }
        next = takeNext();
    }
    m_changed.notify_all();
    fetch(next);
}

void ImageLoader::stop()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_isStopped = true;
    m_queue.clear();
    m_changed.notify_all();
}
