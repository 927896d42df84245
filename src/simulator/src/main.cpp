#include "kelosim/SimServer.h"

#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <pthread.h>

namespace {

const char* const usage = R"(usage: kelo-sim [OPTION]...

Serves a simulated music service (web API, OAuth2, images, audio) on a loopback address.

  kelo-sim                                        any free port, printed in the first line
  kelo-sim --listen 127.0.0.1:8099 --approve-logins
  kelo-sim --fault "status path=/albums status=500 count=2" --fault hidden-items

  --listen ADDR:PORT   where to listen (127.0.0.1:0)
  --seed N             another catalogue (1)
  --latency MS         added to every answer of the web API (0)
  --approve-logins     device codes approve themselves
  --approve-first      the first device code approves itself, the others wait
  --fault LINE         a fault in force from the start, NAME, NAME=VALUE or "NAME KEY=VALUE..."
  --list-faults        prints the faults
  --help               prints this

Web API below /v1, client id kelo-demo with secret kelo-demo-secret. Control while it runs:
  curl URL/sim/log                                what was asked
  curl --data-binary "delay path=/search ms=300" URL/sim/faults;  curl -X DELETE URL/sim/faults
  curl -X POST URL/sim/reset                      library, faults and log as at the start
  curl -X POST URL/sim/token                      an access token without a login
  curl -d '{"userCode":"ABCDE"}' URL/sim/login/approve   (or deny)
  URL/link                                        the page where a person does so

Faults:
)";

template <typename T>
bool readNumber(const char* text, T* value)
{
    const char* end = text + std::strlen(text);
    const auto result = std::from_chars(text, end, *value);
    return result.ec == std::errc() && result.ptr == end;
}

enum class Parsed { Run, Done, Wrong };

Parsed parse(int argc, char** argv, kelosim::SimOptions* options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string name = argv[i];
        if (name == "--help" || name == "--list-faults") {
            std::printf("%s%s", name == "--help" ? usage : "",
                        kelosim::SimServer::faultHelp().c_str());
            return Parsed::Done;
        }
        if (name == "--approve-logins") {
            options->autoApproveLogin = true;
            continue;
        }
        if (name == "--approve-first") {
            options->autoApproveFirstLogin = true;
            continue;
        }
        const bool known =
            name == "--listen" || name == "--seed" || name == "--latency" || name == "--fault";
        if (!known || i + 1 == argc) {
            std::fprintf(stderr, "kelo-sim: %s '%s', see kelo-sim --help\n",
                         known ? "a value is missing after" : "unknown option", name.c_str());
            return Parsed::Wrong;
        }
        const char* value = argv[++i];
        bool good = true;
        if (name == "--listen")
            options->listen = value;
        else if (name == "--fault")
            options->faults.emplace_back(value);
        else
            good = name == "--seed"
                       ? readNumber(value, &options->seed)
                       : readNumber(value, &options->latencyMs) && options->latencyMs >= 0;
        if (!good) {
            std::fprintf(stderr, "kelo-sim: %s wants a number, not '%s'\n", name.c_str(), value);
            return Parsed::Wrong;
        }
    }
    return Parsed::Run;
}

} // namespace

int main(int argc, char** argv)
{
    kelosim::SimOptions options;
    const Parsed parsed = parse(argc, argv, &options);
    if (parsed != Parsed::Run)
        return parsed == Parsed::Done ? 0 : 2;
    // Blocked before any thread starts, so that only sigwait below sees them.
    sigset_t endings;
    sigemptyset(&endings);
    sigaddset(&endings, SIGTERM);
    sigaddset(&endings, SIGINT);
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);

    kelosim::SimServer server(options);
    std::string error;
    if (!server.start(&error)) {
        std::fprintf(stderr, "kelo-sim: %s\n", error.c_str());
        return 2;
    }
    std::printf("listening on %s\n", server.baseUrl().c_str());
    std::fflush(stdout);
    int signal = 0;
    sigwait(&endings, &signal);
    server.stop();
    return 0;
}
