// Plays random schedules: --seed=S is the first one's number, --count=N how many follow each other,
// --log shows the module's log. The exit status is 1 when something was wrong.
#include "Stage.h"
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <log4cplus/configurator.h>
#include <QCoreApplication>
#include <unistd.h>

namespace {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr unsigned patienceS = 120;
#else
constexpr unsigned patienceS = 30;
#endif

std::atomic<std::uint64_t> currentSeed{0};

/// For a schedule that does not come back, or ends in an assertion: says which one it was.
void onSignal(int signal)
{
    char text[256];
    const int size = std::snprintf(text, sizeof text, "signal %d in schedule --seed=%llu\n", signal,
                                   static_cast<unsigned long long>(currentSeed.load()));
    if (::write(STDERR_FILENO, text, std::size_t(size)) != size || signal == SIGALRM)
        ::_exit(1);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

std::string played(Stage& stage, const Schedule& schedule)
{
    ::alarm(patienceS);
    std::string wrong = stage.play(schedule);
    ::alarm(0);
    return wrong;
}

/// The schedule without the steps that the fault does not need. As threads play it, a shorter one
/// counts as good when it passes a few times.
Schedule shrunk(Stage& stage, Schedule schedule)
{
    const auto fails = [&stage](const Schedule& candidate) {
        for (int i = 0; i < 5; ++i) {
            if (!played(stage, candidate).empty())
                return true;
        }
        return false;
    };
    for (std::size_t i = schedule.steps.size(); i-- > 0;) {
        Schedule shorter = schedule;
        shorter.steps.erase(shorter.steps.begin() + std::ptrdiff_t(i));
        if (fails(shorter))
            schedule = shorter;
    }
    return schedule;
}

std::uint64_t numberAfter(const char* argument, const char* name, std::uint64_t otherwise)
{
    const std::size_t length = std::strlen(name);
    return std::strncmp(argument, name, length) == 0 ? std::strtoull(argument + length, nullptr, 0)
                                                     : otherwise;
}
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    std::uint64_t seed = 1;
    std::uint64_t count = 1;
    log4cplus::Logger::getRoot().setLogLevel(log4cplus::OFF_LOG_LEVEL);
    for (int i = 1; i < argc; ++i) {
        seed = numberAfter(argv[i], "--seed=", seed);
        count = numberAfter(argv[i], "--count=", count);
        if (std::strcmp(argv[i], "--log") == 0) {
            log4cplus::BasicConfigurator(log4cplus::Logger::getDefaultHierarchy(), true)
                .configure();
            log4cplus::Logger::getRoot().setLogLevel(log4cplus::TRACE_LOG_LEVEL);
        }
    }
    std::signal(SIGALRM, onSignal);
    std::signal(SIGABRT, onSignal);
    Stage stage;
    int wrong = 0;
    for (std::uint64_t i = 0; i < count && wrong < 10; ++i) {
        currentSeed = seed + i;
        const Schedule schedule(currentSeed);
        const std::string fault = played(stage, schedule);
        if (fault.empty())
            continue;
        ++wrong;
        std::printf("wrong: --seed=%llu: %s\n", static_cast<unsigned long long>(currentSeed.load()),
                    fault.c_str());
        const Schedule shortest = shrunk(stage, schedule);
        std::printf("the least that goes wrong: %s\n%s", played(stage, shortest).c_str(),
                    shortest.toString().c_str());
        std::fflush(stdout);
    }
    std::printf("schedules from --seed=%llu: %d wrong\n", static_cast<unsigned long long>(seed),
                wrong);
    return wrong ? 1 : 0;
}
