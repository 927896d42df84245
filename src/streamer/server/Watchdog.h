#pragma once
#include <chrono>
#include <functional>
#include <memory>
#include <QTimer>
#include <vector>

/// Shows the service manager that the streamer is alive, where it wants to know (WatchdogSec= of
/// the unit). In each round every event loop is asked, and the one that answers last tells the
/// manager in its own turn. So one that hangs, the main thread's too, ends the signs, and the
/// manager starts the program anew. Made by serve; lives on its thread.
class Watchdog
{
public:
    /// Runs a function on an event loop, in a later turn.
    using Loop = std::function<void(std::function<void()>)>;
    /// The loops that there are now.
    using Loops = std::function<std::vector<Loop>()>;

    explicit Watchdog(Loops loops) : m_loops(std::move(loops)) {}

    /// Begins a round in each third of the time after which the manager loses its patience; does
    /// nothing where it has not named one to this process (sd_watchdog_enabled(3)).
    void start();
    /// Begins a round, unless one is under way.
    void ask();

private:
    const Loops m_loops;
    std::weak_ptr<void> m_round; ///< of the loops that have not answered; a loop that ends has
    QTimer m_timer;
};
