#include "client/CommandLine.h"
#ifdef KELO_HAS_SERVER
#include "server/Serve.h"
#endif

#include <csignal>
#include <iostream>
#include <unistd.h>

namespace {

/// Being interrupted is the normal end of a command that follows something.
void endOnInterrupt()
{
    std::signal(SIGINT, [](int) { _exit(cli::ExitDone); });
}

bool waitToRetry()
{
    sleep(1);
    return true;
}

/// A signal, since a name that does not resolve or a streamer that drips holds a call up anywhere.
void endSoon()
{
    std::signal(SIGALRM, [](int) { _exit(cli::ExitDone); });
    alarm(1);
}

int serve(const ServeOptions& options, const Settings& settings)
{
#ifdef KELO_HAS_SERVER
    return keloServe(options, settings);
#else
    Q_UNUSED(options)
    Q_UNUSED(settings)
    std::cerr << "kelo: serving is not built into this program\n";
    return cli::ExitRefused;
#endif
}

} // namespace

int main(int argc, char** argv)
{
    cli::CommandLine commandLine({std::cout, std::cerr, cli::Terminal::ofStdout(), serve,
                                  endOnInterrupt, waitToRetry, endSoon});
    return commandLine.run(std::vector<std::string>(argv + 1, argv + argc));
}
