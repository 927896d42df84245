#pragma once
#include "TidalHandler.h"
#include "TidalWorker.h"
#include <array>
#include <chrono>
#include <condition_variable>

/// Counts the service's answers after the worker has dealt with them. Made on the worker's thread,
/// and forgotten when the worker stops; may outlive it.
class AnswerProbe
{
public:
    enum Kind { Session, Track, Stream };

    explicit AnswerProbe(TidalHandler& handler)
    {
        // The worker's own slots were connected before, so they run before.
        const auto count = [&](auto signal, Kind kind) {
            QObject::connect(handler.responder(), signal, handler.getWorker(),
                             [counts = m_counts, kind] {
                                 std::lock_guard<std::mutex> lock(counts->mutex);
                                 ++counts->numbers[kind];
                                 counts->changed.notify_all();
                             });
        };
        count(&TidalNodeResponder::sessionsFinished, Session);
        count(&TidalNodeResponder::trackFinished, Track);
        count(&TidalNodeResponder::streamUrlFinished, Stream);
    }

    /// Waits until that many answers of a kind have come in all; false when they do not.
    bool waitFor(Kind kind, int count)
    {
        std::unique_lock<std::mutex> lock(m_counts->mutex);
        return m_counts->changed.wait_for(lock, std::chrono::seconds(20),
                                          [&] { return m_counts->numbers[kind] >= count; });
    }

private:
    struct Counts
    {
        std::mutex mutex;
        std::condition_variable changed;
        std::array<int, 3> numbers{};
    };
    std::shared_ptr<Counts> m_counts = std::make_shared<Counts>();
};
