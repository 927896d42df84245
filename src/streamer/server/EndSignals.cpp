#include "EndSignals.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/signalfd.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace {

#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
constexpr std::chrono::milliseconds stopPatience{8000};
#else
constexpr std::chrono::milliseconds stopPatience{1500};
#endif

} // namespace

EndSignals::EndSignals(std::function<void()> onSignal)
{
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t signalSet;
    sigemptyset(&signalSet);
    sigaddset(&signalSet, SIGTERM);
    sigaddset(&signalSet, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signalSet, nullptr);
    m_fd = ::signalfd(-1, &signalSet, SFD_CLOEXEC | SFD_NONBLOCK);
    m_notifier = std::make_unique<QSocketNotifier>(m_fd, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this, onSignal = std::move(onSignal)] {
                         signalfd_siginfo info;
                         if (::read(m_fd, &info, sizeof info) == ssize_t(sizeof info))
                             onSignal();
                     });
}

EndSignals::~EndSignals()
{
    m_notifier.reset();
    ::close(m_fd);
}

bool EndSignals::isPending()
{
    sigset_t signalSet;
    sigemptyset(&signalSet);
    sigpending(&signalSet);
    return sigismember(&signalSet, SIGTERM) == 1 || sigismember(&signalSet, SIGINT) == 1;
}

void EndSignals::limitStopTime(int status)
{
    try {
        std::thread([status] {
            std::this_thread::sleep_for(stopPatience);
            std::fputs("kelo: stopping took too long, ending now\n", stderr);
            ::_exit(status);
        }).detach();
    } catch (const std::system_error&) {
        std::fputs("kelo: there is no thread to limit the time of stopping\n", stderr);
    }
}
