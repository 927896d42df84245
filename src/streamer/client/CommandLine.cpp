#include "client/CommandLine.h"

#include "client/ConfigCommand.h"
#include "client/DisplayText.h"
#include "client/DoctorCommand.h"
#include "client/HelpFormatter.h"
#include "client/LoginCommand.h"
#include "client/NodeCommands.h"
#include "client/PlayerCommands.h"
#include "client/RowsCommand.h"
#include "client/SearchCommand.h"
#include "client/TreeCommand.h"
#include "client/UsageError.h"
#include "client/WatchCommand.h"
#include "settings/StateDirectory.h"

#include <ostream>

namespace cli {

namespace {

const char* const browseGroup = "Browse";
const char* const playGroup = "Play";
const char* const loginGroup = "Log in";

QString fromStd(const std::string& text)
{
    return QString::fromStdString(text);
}

} // namespace

CommandLine::CommandLine(Surroundings surroundings)
    : m_around(std::move(surroundings)), m_terminal(m_around.out, m_around.err, m_around.terminal),
      m_app(std::make_unique<CLI::App>(
          "Plays and browses a music service: a streamer, and commands that talk to it.", "kelo"))
{
    m_values.server =
        qEnvironmentVariable("KELO_SERVER", QStringLiteral("http://127.0.0.1:8095")).toStdString();
    m_app->formatter(std::make_shared<HelpFormatter>(m_terminal));
    m_app->set_help_flag("-h,--help", "Print this help");
    m_app->set_version_flag("--version", "kelo " KELO_VERSION, "Print the version");
    m_app->require_subcommand(0, 1); // none at all gets a message of its own
    m_app->footer("kelo serve --demo                  a streamer with a simulated service\n"
                  "kelo tree                          what there is\n"
                  "kelo search 'blue train'           find something\n"
                  "kelo play PATH                     play a row, a list or a track id\n"
                  "kelo status --follow               see it play");
    addClientOptions(m_app.get());
    addBrowsing();
    addLibrary();
    addPlaying();
    addSeekVolumeStatus();
    addLogin();
    addStreamer();
    addMachine();
    addShell();
}

CommandLine::~CommandLine() = default;

CLI::App* CommandLine::add(CLI::App& parent, const char* group, const char* name,
                           const char* description, const char* examples)
{
    CLI::App* app = parent.add_subcommand(name, description);
    if (*group)
        app->group(group);
    app->footer(examples);
    return app;
}

CLI::App* CommandLine::addClientTo(CLI::App& parent, const char* group, const char* name,
                                   const char* description, const char* examples, Command command)
{
    CLI::App* app = add(parent, group, name, description, examples);
    addClientOptions(app);
    app->callback([this, command = std::move(command)] {
        m_chosen = [this, command] { return runClient(command); };
    });
    return app;
}

void CommandLine::addClientOptions(CLI::App* app)
{
    app->add_flag("--json", m_values.isJson, "Print one JSON document");
    app->add_option("--server", m_values.server,
                    "The streamer's address (else KELO_SERVER, else http://127.0.0.1:8095)")
        ->type_name("URL");
}

void CommandLine::addBrowsing()
{
    CLI::App* rows =
        addClient(browseGroup, "rows", "Show a page of a container's rows.",
                  "kelo rows /tidal\nkelo rows PATH --from 50 --to 99\nkelo rows PATH --follow",
                  [this](const CommandContext& context) {
                      return RowsCommand{fromStd(m_values.path), m_values.from, m_values.to,
                                         fromStd(m_values.roles), m_values.isFollowing}
                          .run(context);
                  });
    rows->add_option("PATH", m_values.path, "The container")->required();
    rows->add_option("--from", m_values.from, "First row (0)")->type_name("N");
    rows->add_option("--to", m_values.to, "Last row (49)")->type_name("N");
    rows->add_option("--roles", m_values.roles, "Roles wanted, with commas between")
        ->type_name("A,B");
    rows->add_flag("--follow", m_values.isFollowing, "Show them again whenever they change");

    CLI::App* data = addClient(
        browseGroup, "data", "Show a node's data.",
        "kelo data /settings/tidal/soundQuality\nkelo data PATH --roles Title",
        [this](const CommandContext& context) {
            return DataCommand{fromStd(m_values.path), fromStd(m_values.roles)}.run(context);
        });
    data->add_option("PATH", m_values.path, "The node")->required();
    data->add_option("--roles", m_values.roles, "Roles wanted, with commas between")
        ->type_name("A,B");

    CLI::App* set = addClient(
        browseGroup, "set", "Send a value to a node: activate, store, submit.",
        "kelo set PATH\nkelo set /settings/tidal/soundQuality 2",
        [this](const CommandContext& context) {
            return SetCommand{fromStd(m_values.path), fromStd(m_values.text)}.run(context);
        });
    set->add_option("PATH", m_values.path, "The node")->required();
    set->add_option("VALUE", m_values.text, "The value as JSON (1)");

    CLI::App* watch = addClient(
        browseGroup, "watch", "Print each change notice: time, path, change, count.",
        "kelo watch /tidal\nkelo watch --json PATH PATH", [this](const CommandContext& context) {
            WatchCommand command;
            for (const std::string& path : m_values.paths)
                command.paths.append(fromStd(path));
            return command.run(context);
        });
    watch->add_option("PATH", m_values.paths, "Paths to keep open (/tidal)");
    watch->preparse_callback([this](size_t) { m_values.isFollowing = true; });

    CLI::App* search = addClient(
        browseGroup, "search", "Find albums, tracks, artists, playlists.",
        "kelo search 'blue train'\nkelo search coltrane --in artists",
        [this](const CommandContext& context) {
            return SearchCommand{fromStd(m_values.text), fromStd(m_values.kind)}.run(context);
        });
    search->add_option("TEXT", m_values.text, "What to look for")->required();
    std::vector<std::string> kinds;
    for (const QString& kind : SearchCommand::kinds())
        kinds.push_back(kind.toStdString());
    search->add_option("--in", m_values.kind, "One kind alone, with more rows")
        ->type_name("KIND")
        ->check(CLI::IsMember(kinds));

    CLI::App* tree = addClient(
        browseGroup, "tree", "Show the tree as an outline.",
        "kelo tree\nkelo tree /tidal --depth 3", [this](const CommandContext& context) {
            const QString path = fromStd(m_values.path);
            return TreeCommand(path.isEmpty() ? topPath() : path, m_values.depth).run(context);
        });
    tree->add_option("PATH", m_values.path, "Where to begin (/tidal)");
    tree->add_option("--depth", m_values.depth, "Levels below it (2)")
        ->type_name("N")
        ->check(CLI::Range(1, 16).description(""));
}

void CommandLine::addPlaying()
{
    CLI::App* play =
        addClient(playGroup, "play", "Play a row, a list or a track.",
                  "kelo play PATH\nkelo play 12345678", [this](const CommandContext& context) {
                      return PlayerCommand::play(fromStd(m_values.path)).run(context);
                  });
    play->add_option("PATH", m_values.path, "A row that can play, a list, or a track id")
        ->required();
    static const struct
    {
        const char* name;
        const char* description;
    } simple[] = {{"pause", "Pause."},
                  {"resume", "Go on after a pause."},
                  {"stop", "Stop."},
                  {"next", "Play the next item."},
                  {"previous", "Play the previous item."}};
    for (const auto& [name, description] : simple) {
        addClient(playGroup, name, description, (std::string("kelo ") + name).c_str(),
                  [action = QString::fromLatin1(name)](const CommandContext& context) {
                      return PlayerCommand{action}.run(context);
                  });
    }
}

void CommandLine::addSeekVolumeStatus()
{
    CLI::App* seek = addClient(playGroup, "seek", "Go to a place in the track.",
                               "kelo seek 1:30\nkelo seek +15\nkelo seek -- -15",
                               [this](const CommandContext& context) {
                                   return SeekCommand{fromStd(m_values.text)}.run(context);
                               });
    seek->add_option("TIME", m_values.text,
                     "Seconds, m:ss or h:mm:ss; with + or - from where it is")
        ->required();
    CLI::App* volume = addClient(playGroup, "volume", "Set the volume.", "kelo volume 40",
                                 [this](const CommandContext& context) {
                                     return PlayerCommand::volume(m_values.percent).run(context);
                                 });
    volume->add_option("PERCENT", m_values.percent, "0 to 100")
        ->required()
        ->check(CLI::Range(0, 100).description(""));
    CLI::App* status =
        addClient(playGroup, "status", "Show what the player does.",
                  "kelo status\nkelo status --follow", [this](const CommandContext& context) {
                      return StatusCommand{m_values.isFollowing}.run(context);
                  });
    status->add_flag("--follow", m_values.isFollowing, "Go on until interrupted");
}

void CommandLine::addLogin()
{
    CLI::App* login =
        addClient(loginGroup, "login", "Log in to the service with a code.",
                  "kelo login\nkelo login --status", [this](const CommandContext& context) {
                      return m_values.wantsStatus ? LoginCommand::status(context)
                                                  : LoginCommand().run(context);
                  });
    login->add_flag("--status", m_values.wantsStatus, "Only tell whether somebody is logged in");
    addClient(loginGroup, "logout", "Log out of the service.", "kelo logout",
              [](const CommandContext& context) { return LoginCommand::logout(context); });
}

void CommandLine::addSettingsOptions(CLI::App* app)
{
    app->add_option("--config", m_values.config, "The settings file")->type_name("FILE");
    app->add_option("-o", m_values.overrides, "A setting, as section.key=value")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
}

void CommandLine::addStreamer()
{
    CLI::App* serve = add(*m_app, streamerGroup, "serve", "Run the streamer.",
                          "kelo serve\n"
                          "kelo serve --demo --listen 127.0.0.1:0 --output null\n"
                          "kelo serve --config kelo.toml -o tidal.sound_quality=HIGH");
    addSettingsOptions(serve);
    serve->add_flag("--demo", m_values.isDemo, "With a simulated service inside, logged in");
    serve->add_option("--listen", m_values.listen, "Where to listen; port 0 picks one")
        ->type_name("ADDR:PORT");
    serve->add_option("--state-dir", m_values.stateDirectory, "Where logins and the queue are kept")
        ->type_name("FOLDER");
    serve->add_option("--module", m_values.module, "The service module to load")->type_name("FILE");
    serve->add_option("--output", m_values.output, "auto, null or a GStreamer sink")
        ->type_name("SINK");
    serve->add_option("--log-level", m_values.logLevel, "trace, debug, info, warn or error")
        ->type_name("LEVEL");
    serve->callback([this] { m_chosen = [this] { return runServe(); }; });
}

void CommandLine::addMachine()
{
    CLI::App* config =
        add(*m_app, streamerGroup, "config", "Show the settings and where each comes from.",
            "kelo config\nkelo config --config kelo.toml -o log.level=debug");
    addSettingsOptions(config);
    config->add_flag("--json", m_values.isJson, "Print one JSON document");
    config->callback([this] {
        m_chosen = [this] {
            return ConfigCommand{loadSettings(), m_values.isJson}.run(m_terminal);
        };
    });
    CLI::App* doctor = addClient(
        streamerGroup, "doctor", "Check what playing needs on this machine.",
        "kelo doctor\nkelo doctor --server http://music:8095",
        [this](const CommandContext& context) {
            return DoctorCommand(loadSettings(), stateDirectory(fromStd(m_values.stateDirectory)))
                .run(context);
        });
    addSettingsOptions(doctor);
    doctor
        ->add_option("--state-dir", m_values.stateDirectory, "Where logins and the queue are kept")
        ->type_name("FOLDER");
}

LoadedSettings CommandLine::loadSettings() const
{
    std::vector<SettingsOverride> overrides;
    for (const std::string& text : m_values.overrides)
        overrides.push_back(SettingsLoader::splitOverride(fromStd(text)));
    const auto addOption = [&overrides](const char* key, const std::string& value,
                                        const char* origin) {
        if (!value.empty())
            overrides.push_back(
                {QString::fromLatin1(key), fromStd(value), QString::fromLatin1(origin)});
    };
    addOption("server.listen", m_values.listen, "--listen");
    addOption("player.output", m_values.output, "--output");
    addOption("log.level", m_values.logLevel, "--log-level");
    return SettingsLoader(fromStd(m_values.config), std::move(overrides)).load();
}

int CommandLine::runServe()
{
    const LoadedSettings loaded = loadSettings();
    if (printProblems(m_terminal, loaded))
        return ExitUsage;
    ServeOptions options;
    options.isDemo = m_values.isDemo;
    options.stateDirectory = stateDirectory(fromStd(m_values.stateDirectory));
    options.moduleFile = fromStd(m_values.module);
    options.settingsFile = loaded.file;
    return m_around.serve(options, loaded.settings);
}

int CommandLine::runClient(const Command& command)
{
    const QString server = fromStd(m_values.server);
    if (!ApiClient::isServerAddress(server)) {
        m_terminal.error(QStringLiteral("kelo: wanted http://HOST:PORT as the streamer's address, "
                                        "got \"%1\"")
                             .arg(shown(server)));
        return ExitUsage;
    }
    if (m_values.isFollowing && m_around.endOnInterrupt)
        m_around.endOnInterrupt();
    ApiClient api(server);
    return command(CommandContext{api, m_terminal, m_values.isJson, m_around.waitToRetry});
}

int CommandLine::run(std::vector<std::string> arguments)
{
    std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
    try {
        m_app->parse(std::move(arguments));
    } catch (const CLI::Success& wish) { // help or version
        m_app->exit(wish, m_around.out, m_around.err);
        return ExitDone;
    } catch (const CLI::ParseError& error) {
        m_terminal.error(QStringLiteral("kelo: ") + shown(usageMessage(*m_app, error)));
        return ExitUsage;
    }
    if (!m_chosen) {
        m_terminal.error(QStringLiteral("kelo: wanted a command (see kelo --help)"));
        return ExitUsage;
    }
    return m_chosen();
}

} // namespace cli
