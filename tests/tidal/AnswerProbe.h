#pragma once
#include "TidalHandler.h"
#include "TidalWorker.h"
#include <array>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

/// Counts the service's answers after the worker has dealt with them. Made while the worker runs,
/// and forgotten when it stops; may outlive it.
class AnswerProbe
{
public:
    enum Kind { Session, Track, Stream };

    AnswerProbe(TidalWorker& worker, const std::function<void(std::function<void()>)>& onWorker)
        : m_counts(std::make_shared<Counts>())
    {
        const auto counts = m_counts;
        onWorker([&worker, counts] {
            TidalNodeResponder* responder = worker.getHandler()->responder();
            // The worker's own slots were connected before, so they run before.
            QObject::connect(responder, &TidalNodeResponder::sessionsFinished, &worker,
                             [counts] { counts->add(Session); });
            QObject::connect(responder, &TidalNodeResponder::trackFinished, &worker,
                             [counts] { counts->add(Track); });
            QObject::connect(responder, &TidalNodeResponder::streamUrlFinished, &worker,
                             [counts] { counts->add(Stream); });
        });
    }

    /// Waits until that many answers of a kind have come in all; false when they do not.
    bool waitFor(Kind kind, int count)
    {
        std::unique_lock<std::mutex> lock(m_counts->mutex);
        return m_counts->changed.wait_for(lock, std::chrono::seconds(20), [&] {
            return m_counts->numbers[std::size_t(kind)] >= count;
        });
    }

private:
    struct Counts
    {
        void add(Kind kind)
        {
            std::lock_guard<std::mutex> lock(mutex);
            ++numbers[std::size_t(kind)];
            changed.notify_all();
        }
        std::mutex mutex;
        std::condition_variable changed;
        std::array<int, 3> numbers{};
    };
    std::shared_ptr<Counts> m_counts;
};
