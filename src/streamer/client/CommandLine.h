#pragma once

#include "client/Commands.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace cli {

struct CommandPlace;

/// The command line of `kelo`: reads it and runs the command that was asked for. Made by main() (or
/// a test) for one run, used on the main thread. What the commands are is theirs to say.
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
        /// Waits before something is asked for again; false, or none: it is not to be.
        std::function<bool()> waitASecond = {};
        /// Called before an answer that is only wanted when it comes at once: ends the program,
        /// in silence, when it takes longer.
        std::function<void()> endSoon = {};
        UserState state = {};
        /// Asks a person who can say no; none: nobody is there.
        std::function<bool(const QString&)> confirm = {};
        /// Opens an address in the desktop's browser; false, or none: there is no desktop.
        std::function<bool(const QString&)> openAddress = {};
    };

    explicit CommandLine(Surroundings surroundings);
    CommandLine(const CommandLine&) = delete; ///< the options point into it
    CommandLine& operator=(const CommandLine&) = delete;

    /// \p arguments without the program's name. Gives the exit status.
    int run(const std::vector<std::string>& arguments);

private:
    void addCommonOptions(Command& command);
    OptionTarget jsonTarget();
    /// Takes one word; what is wrong with it, empty when nothing is.
    static QString take(CommandPlace& place, const QString& word);
    int runCommand(const Command& command);
    int printHelp(const CommandPlace& place);
    Command helpCommand();

    const Surroundings m_around;
    Terminal m_terminal;
    Command m_program;
    QString m_server;
    bool m_isJson = false;
    QStringList m_fields; ///< the only ones of a JSON document that are wanted
    bool m_wantsHelp = false;
    bool m_wantsVersion = false;
};

} // namespace cli
