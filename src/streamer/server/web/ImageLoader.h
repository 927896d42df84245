#pragma once
#include "ImageFetcher.h"
#include <kelo/KeloLoopThread.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>

/// Fetches pictures by their addresses: each once at a time however many ask, few at once. Keeps
/// none: clients do, for a day. Owned by the picture call of the HTTP API; any thread asks and
/// waits. Which addresses may be asked for is not its business.
class ImageLoader
{
public:
    ImageLoader();
    ~ImageLoader();

    /// Waits for the picture, at most 15 s; 503 when too many wait already, or after stop().
    ImageResult load(const std::string& url);
    /// Ends all waiting and refuses from now on.
    void stop();

private:
    /// A picture that is being fetched, or is to be.
    struct Flight
    {
        int waiting = 0; ///< when nobody is left, a fetch that has not begun does not
        bool isDone = false;
        ImageResult result;
    };

    void finished(const std::string& url, const ImageResult& result);
    /// Takes what is to be fetched now from the queue; the mutex is held.
    std::vector<std::string> takeNext();
    void fetch(const std::vector<std::string>& urls);

    KeloLoopThread m_thread;
    ImageFetcher* m_fetcher = nullptr; ///< lives on the thread, which alone uses it
    std::mutex m_mutex;                ///< guards all below
    std::condition_variable m_changed;
    std::map<std::string, std::shared_ptr<Flight>> m_flights;
    std::deque<std::string> m_queue; ///< addresses of flights that have not begun
    int m_running = 0;
    int m_waiting = 0;
    bool m_isStopped = false;
};
