#include "client/Commands.h"
#include "client/SettingsOptions.h"
#include "settings/StateDirectory.h"

namespace cli {

namespace {

/// `kelo serve`: loads the settings and runs the streamer with them.
struct ServeCommand
{
    SettingsOptions settings;
    ServeOptions options;

    int run(Terminal& terminal,
            const std::function<int(const ServeOptions&, const Settings&)>& serve)
    {
        const LoadedSettings loaded = settings.load();
        if (SettingsOptions::printProblems(terminal, loaded))
            return ExitUsage;
        options.stateDirectory = stateDirectory(options.stateDirectory);
        return serve(options, loaded.settings);
    }
};

} // namespace

Command serveCommand(std::function<int(const ServeOptions&, const Settings&)> serve)
{
    const auto command = std::make_shared<ServeCommand>();
    Command result("serve", "Run the streamer.",
                   "kelo serve\n"
                   "kelo serve --demo --listen 127.0.0.1:0 --output null\n"
                   "kelo serve --config kelo.toml -o tidal.sound_quality=HIGH");
    SettingsOptions& settings = command->settings;
    settings.addTo(result);
    result.option("--demo", command->options.isDemo, "With a simulated service inside, logged in");
    settings.add(result, "--listen ADDR:PORT", "server.listen",
                 "Where to listen; port 0 picks one");
    result
        .option("--state-dir FOLDER", command->options.stateDirectory,
                "Where logins and the queue are kept")
        .option("--module FILE", command->options.moduleFiles,
                "A module to serve, instead of those installed");
    settings.add(result, "--output SINK", "player.output", "auto, null or a GStreamer sink");
    settings.add(result, "--log-level LEVEL", "log.level", "trace, debug, info, warn or error");
    return result.runs([command, serve = std::move(serve)](Terminal& terminal) {
        return command->run(terminal, serve);
    });
}

} // namespace cli
