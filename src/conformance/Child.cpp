#include "Child.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <QString>
#include <string>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

Child::Child(const char* mark, const std::vector<char*>& arguments)
{
    std::array<int, 2> ends{};
    sigset_t ofChild;
    sigset_t before;
    sigemptyset(&ofChild);
    sigaddset(&ofChild, SIGCHLD);
    sigprocmask(SIG_BLOCK, &ofChild, &before);
    m_signals = signalfd(-1, &ofChild, SFD_CLOEXEC);
    if (pipe(ends.data()) != 0)
        return;
    m_report = ends[0];
    m_pid = fork();
    if (m_pid != 0) {
        close(ends[1]);
        setpgid(m_pid, m_pid); // whoever comes first
        return;
    }
    close(ends[0]);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::string first = mark + std::to_string(ends[1]);
    std::vector<char*> words = arguments;
    words.insert(words.begin() + 1, first.data());
    words.push_back(nullptr);
    // Anew: threads that libraries have started are not there after a fork.
    // By its own name, which unnamed threads show.
    char* const self = realpath("/proc/self/exe", nullptr);
    execv(self ? self : "/proc/self/exe", words.data());
    _exit(EXIT_FAILURE);
}

Child::~Child()
{
    close(m_report);
    close(m_signals);
}

QByteArray Child::follow(std::chrono::seconds limit)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + limit;
    QByteArray text;
    std::array<pollfd, 2> ready{pollfd{m_report, POLLIN, 0}, pollfd{m_signals, POLLIN, 0}};
    while (m_pid > 0) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        m_isLate = left.count() <= 0;
        if (m_isLate)
            break;
        if (poll(ready.data(), ready.size(), int(left.count())) <= 0)
            continue;
        std::array<char, 4096> piece{};
        if (ready[0].revents != 0) {
            const ssize_t size = read(m_report, piece.data(), piece.size());
            text.append(piece.data(), int(size > 0 ? size : 0));
            if (size <= 0)
                ready[0].fd = -1; // closed; the end is still to come
        } else if (read(m_signals, piece.data(), piece.size()) > 0 && hasEnded()) {
            break; // and all is read
        }
    }
    if (m_pid > 0)
        kill(-m_pid, SIGKILL);
    if (m_isLate)
        waitpid(m_pid, &m_status, 0);
    return text;
}

/// It may have been stopped only.
bool Child::hasEnded()
{
    return waitpid(m_pid, &m_status, WNOHANG) == m_pid;
}

QString Child::fault() const
{
    if (m_isLate)
        return QStringLiteral("it did not come to an end");
    if (WIFSIGNALED(m_status))
        return QString::fromLocal8Bit(strsignal(WTERMSIG(m_status)));
    return m_status == 0 ? QString() : QStringLiteral("the module ended the process");
}
