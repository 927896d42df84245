#pragma once
#include <functional>
#include <memory>
#include <QSocketNotifier>

/// Turns SIGTERM and SIGINT into a call on the event loop of the thread that made it. Made by serve
/// before any other thread starts, since threads inherit the blocked signals.
class EndSignals
{
public:
    explicit EndSignals(std::function<void()> onSignal);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    /// Whether one has come that the event loop has not been told of yet.
    static bool isPending();
    /// Ends the process the hard way, with that status, when stopping takes longer than a second
    /// and a half; one that hangs in a foreign library must not outlive its manager's patience.
    static void limitStopTime(int status);

private:
    int m_fd;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
