#include "client/CommandLine.h"
#include "server/Serve.h"

#include <csignal>
#include <iostream>
#include <QProcess>
#include <unistd.h>

namespace {

/// Being interrupted is the normal end of a command that follows something.
void endOnInterrupt()
{
    std::signal(SIGINT, [](int) { _exit(cli::ExitDone); });
}

bool waitASecond()
{
    sleep(1);
    return true;
}

bool confirm(const QString& question)
{
    std::cerr << "kelo: " << question.toStdString() << " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

/// The desktop's own way, where there is a desktop.
bool openAddress(const QString& address)
{
    const bool hasDesktop =
        !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    return hasDesktop && QProcess::startDetached("xdg-open", {address});
}

/// A signal, since a name that does not resolve or a streamer that drips holds a call up anywhere.
void endSoon()
{
    std::signal(SIGALRM, [](int) { _exit(cli::ExitDone); });
    alarm(1);
}

} // namespace

int main(int argc, char** argv)
{
    const bool canAsk = isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0;
    cli::CommandLine commandLine({std::cout, std::cerr, cli::Terminal::ofStdout(), keloServe,
                                  endOnInterrupt, waitASecond, endSoon, cli::UserState::ofProcess(),
                                  canAsk ? confirm : std::function<bool(const QString&)>(),
                                  openAddress});
    return commandLine.run(std::vector<std::string>(argv + 1, argv + argc));
}
