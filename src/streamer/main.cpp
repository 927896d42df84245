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
    cli::CommandLine commandLine({std::cout, std::cerr, cli::Terminal::ofStdout(), keloServe,
                                  endOnInterrupt, waitASecond, endSoon, cli::UserState::ofProcess(),
                                  openAddress});
    return commandLine.run(std::vector<std::string>(argv + 1, argv + argc));
}
