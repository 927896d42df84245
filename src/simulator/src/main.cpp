#include "kelosim/SimServer.h"

#include <charconv>
#include <climits>
#include <csignal>
#include <cstdio>
#include <pthread.h>
#include <vector>

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
bool readNumber(const std::string& text, T* value)
{
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, *value);
    return result.ec == std::errc() && result.ptr == end && *value >= T(0);
}

// "" or what is wrong.
std::string parse(const std::vector<std::string>& words, kelosim::SimOptions* options)
{
    for (auto word = words.begin(); word != words.end(); ++word) {
        const std::string name = *word;
        if (name == "--approve-logins" || name == "--approve-first") {
            options->approvals = name == "--approve-first" ? 1 : INT_MAX;
            continue;
        }
        if (name != "--listen" && name != "--seed" && name != "--latency" && name != "--fault")
            return "unknown option '" + name + "', see kelo-sim --help";
        if (++word == words.end())
            return "a value is missing after '" + name + "', see kelo-sim --help";
        if (name == "--listen")
            options->listen = *word;
        else if (name == "--fault")
            options->faults.push_back(*word);
        else if (!(name == "--seed" ? readNumber(*word, &options->seed)
                                    : readNumber(*word, &options->latencyMs)))
            return name + " wants a number, not '" + *word + "'";
    }
    return {};
}

int failed(const std::string& problem)
{
    std::fprintf(stderr, "kelo-sim: %s\n", problem.c_str());
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    for (const std::string& word : words) {
        if (word == "--help" || word == "--list-faults") {
            std::printf("%s%s", word == "--help" ? usage : "",
                        kelosim::SimServer::faultHelp().c_str());
            return 0;
        }
    }
    kelosim::SimOptions options;
    std::string error = parse(words, &options);
    if (!error.empty())
        return failed(error);
    // Blocked before any thread starts, so that only sigwait below sees them.
    sigset_t endings;
    sigemptyset(&endings);
    sigaddset(&endings, SIGTERM);
    sigaddset(&endings, SIGINT);
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);

    kelosim::SimServer server(options);
    if (!server.start(&error))
        return failed(error);
    std::printf("listening on %s\n", server.baseUrl().c_str());
    std::fflush(stdout);
    int signal = 0;
    sigwait(&endings, &signal);
    server.stop();
    return 0;
}
