#pragma once

#include "client/CommandContext.h"
#include "settings/ServeOptions.h"
#include "settings/SettingsLoader.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace cli {

struct PlaylistCommand;

/// The command line of `kelo`: its commands, their options and help, and running the one that was
/// asked for. Made by main() (or a test) for one run, used on the main thread.
class CommandLine
{
public:
    /// What surrounds the run.
    struct Surroundings
    {
        std::ostream& out;
        std::ostream& err;
        Terminal::Properties terminal;
        /// Runs the streamer.
        std::function<int(const ServeOptions&, const Settings&)> serve;
        /// Called before a command that goes on until it is interrupted.
        std::function<void()> endOnInterrupt = {};
        /// Waits a little before a streamer that has gone away is tried again; false, or none: what
        /// follows it ends instead.
        std::function<bool()> waitToRetry = {};
        /// Called before an answer that is only wanted when it comes at once: ends the program,
        /// in silence, when it takes longer.
        std::function<void()> endSoon = {};
    };

    explicit CommandLine(Surroundings surroundings);
    ~CommandLine();

    /// \p arguments without the program's name. Gives the exit status.
    int run(std::vector<std::string> arguments);

private:
    /// The heading in help of the commands that have to do with this machine.
    static constexpr const char* streamerGroup = "Run";

    using Command = std::function<int(const CommandContext&)>;

    void addBrowsing();
    void addPlaying();
    void addSeekVolumeStatus();
    void addLogin();
    void addStreamer();
    void addMachine();
    void addShell();
    void addLibrary();
    void addPlaylists(CLI::App& parent);
    void addPlaylistItems(CLI::App& parent);
    void addPlaylistId(CLI::App* app);
    CLI::App* addPlaylistCommand(CLI::App& parent, const char* name, const char* description,
                                 const char* examples,
                                 int (PlaylistCommand::*run)(const CommandContext&) const);
    static CLI::App* add(CLI::App& parent, const char* group, const char* name,
                         const char* description, const char* examples);
    /// A command that asks the streamer: has --json and --server.
    CLI::App* addClient(const char* group, const char* name, const char* description,
                        const char* examples, Command command)
    {
        return addClientTo(*m_app, group, name, description, examples, std::move(command));
    }
    CLI::App* addClientTo(CLI::App& parent, const char* group, const char* name,
                          const char* description, const char* examples, Command command);
    void addClientOptions(CLI::App* app);
    void addSettingsOptions(CLI::App* app);
    LoadedSettings loadSettings() const;
    int runServe();
    int runComplete();
    int runManual();
    int runClient(const Command& command);

    Surroundings m_around;
    Terminal m_terminal;
    std::unique_ptr<CLI::App> m_app;
    std::function<int()> m_chosen; ///< set by the command that the arguments name

    /// Where the parser puts what the options say; only the chosen command's are looked at.
    struct Values
    {
        bool isJson = false;
        std::string server;
        std::string path;
        std::string text = "1";
        std::string kind;
        std::string roles;
        std::vector<std::string> paths;
        std::string playlist;
        std::string title;
        std::string description;
        int from = 0;
        int to = 49;
        int depth = 2;
        int percent = 0;
        bool isFollowing = false;
        bool wantsStatus = false;
        std::string config;
        std::string listen;
        std::string output;
        std::string logLevel;
        std::string stateDirectory;
        std::string module;
        std::vector<std::string> overrides;
        bool isDemo = false;
        bool isDryRun = false;
        std::string line;
        std::string breaks;
    } m_values;
};

} // namespace cli
