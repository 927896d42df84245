#pragma once
#include "ImageFetcher.h"
#include <kelo/KeloLoopThread.h>

#include <deque>
#include <map>

/// Fetches pictures by their addresses: each once at a time however many ask, few at once. Owned by
/// the picture call of the HTTP API; any thread asks. Which addresses may be asked for is not its
/// business.
class ImageLoader
{
public:
    using Done = std::function<void(const ImageResult& result)>;

    ImageLoader();
    ~ImageLoader();

    /// `done` is called once, on the loader's thread, within 15 s; with 503 when too many wait
    /// already, or after stop().
    void load(const std::string& url, Done done);
    /// Ends all waiting and refuses from now on.
    void stop();

private:
    /// Who waits; empty once it has its answer.
    using Waiter = std::shared_ptr<Done>;

    void begin(const std::string& url, Done done);
    void finish(const Waiter& waiter, const ImageResult& result);
    void finished(const std::string& url, const ImageResult& result);
    /// Fetches what is in the queue, as long as few are being fetched.
    void fetchNext();

    KeloLoopThread m_thread;
    // All below lives on the thread.
    ImageFetcher* m_fetcher = nullptr;
    std::map<std::string, std::vector<Waiter>> m_flights; ///< what is or will be fetched
    std::deque<std::string> m_queue; ///< addresses of flights that have not begun
    int m_running = 0;
    int m_waiting = 0;
    bool m_isStopped = false;
};
