#include "client/CommandLine.h"

#include "client/CommandPlace.h"
#include "client/DisplayText.h"
#include "client/HelpText.h"

#include <algorithm>
#include <numeric>

namespace cli {

namespace {

/// How many letters differ (Levenshtein).
int distance(const QString& a, const QString& b)
{
    QVector<int> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 1; i <= a.size(); ++i) {
        int diagonal = std::exchange(row[0], i);
        for (int j = 1; j <= b.size(); ++j) {
            const int changed = diagonal + (a.at(i - 1) == b.at(j - 1) ? 0 : 1);
            diagonal = row.at(j);
            row[j] = std::min({changed, row.at(j) + 1, row.at(j - 1) + 1});
        }
    }
    return row.last();
}

/// "there is no WHAT "X", did you mean "Y"?", where one of \p known is near enough.
QString unknown(const QString& what, const QString& word, const QStringList& known)
{
    constexpr int near = 2;
    QString best;
    int least = near + 1;
    for (const QString& candidate : known) {
        const int far = distance(word, candidate);
        if (far < least && far < candidate.size() - 1) {
            least = far;
            best = QStringLiteral(", did you mean \"%1\"?").arg(candidate);
        }
    }
    return QStringLiteral("there is no %1 \"%2\"%3").arg(what, word, best);
}

/// What the line lacks; empty when it is whole.
QString missing(const CommandPlace& place)
{
    if (place.waiting)
        return QStringLiteral("%1: its value, %2, is missing")
            .arg(place.waiting->names.last(), place.waiting->value);
    const Option* argument = place.nextArgument();
    if (argument && argument->isRequired && place.arguments < place.command->arguments.size())
        return argument->names.first() + " is missing";
    return {};
}

} // namespace

CommandLine::CommandLine(Surroundings surroundings)
    : m_around(std::move(surroundings)), m_terminal(m_around.out, m_around.err, m_around.terminal),
      m_program("kelo",
                "Plays and browses a music service: a streamer, and commands that talk to it.",
                "kelo serve --demo                  a streamer with a simulated service\n"
                "kelo tree                          what there is\n"
                "kelo search 'silver station'       find something\n"
                "kelo play 0                        play row 0 of what was listed last\n"
                "kelo status --follow               see it play"),
      m_server(qEnvironmentVariable("KELO_SERVER", "http://127.0.0.1:8095"))
{
    const QVector<QPair<QString, QVector<Command>>> groups{
        {"Browse",
         {rowsCommand(), dataCommand(), setCommand(), watchCommand(), searchCommand(),
          treeCommand(), bioCommand(), openCommand()}},
        {"Change the library", {menuCommand(), favoriteCommand(), playlistCommand()}},
        {"Play",
         {playCommand(), playerCommand("pause", "Pause."),
          playerCommand("resume", "Go on after a pause."), toggleCommand(),
          playerCommand("stop", "Stop."), playerCommand("next", "Play the next item."),
          playerCommand("previous", "Play the previous item."), seekCommand(), volumeCommand(),
          muteCommand(), statusCommand(), queueCommand(), shuffleCommand(), repeatCommand()}},
        {"Log in", {loginCommand(), logoutCommand()}},
        {"Run",
         {serveCommand(m_around.serve), configCommand(), doctorCommand(), completionCommand(),
          helpCommand()}}};
    for (const auto& [group, commands] : groups) {
        for (Command command : commands) {
            command.group = group;
            for (Command& below : command.commands)
                below.group = command.group;
            m_program.commands.append(command);
        }
    }
    m_program.hidden = {completeCommand(m_program, m_server, m_around.state, m_around.endSoon),
                        manualCommand(m_program)};
    addCommonOptions(m_program);
}

/// All have --help. Those that ask the streamer have --json and --server, which may also stand
/// before the command.
void CommandLine::addCommonOptions(Command& command)
{
    for (QVector<Command>* all : {&command.commands, &command.hidden}) {
        for (Command& below : *all)
            addCommonOptions(below);
    }
    const QVector<Option> own = std::exchange(command.options, {});
    command.option("-h --help", m_wantsHelp, "Print this help");
    if (&command == &m_program)
        command.option("--version", m_wantsVersion, "Print the version");
    if (command.ask || &command == &m_program) {
        command
            .option("--json [FIELDS]", jsonTarget(),
                    "Print one JSON document, or of its rows these fields (A,B)")
            .option("--server URL", m_server,
                    "The streamer's address (else KELO_SERVER, else http://127.0.0.1:8095)");
    }
    command.options += own;
}

OptionTarget CommandLine::jsonTarget()
{
    OptionTarget target([this](const QString& given) {
        m_isJson = given != "false";
        m_fields = given == "true" || !m_isJson ? QStringList() : given.split(',');
        return !m_fields.contains(QString());
    });
    target.wanted = "names with commas between";
    return target;
}

QString CommandLine::take(CommandPlace& place, const QString& word)
{
    using Kind = CommandPlace::Word::Kind;
    const CommandPlace::Word taken = place.take(word);
    if (taken.kind == Kind::UnknownOption) {
        QStringList known;
        for (const Option& option : place.command->options)
            known += option.names;
        return unknown("option", word.section('=', 0, 0), known);
    }
    if (taken.kind == Kind::TooMuch && !place.command->commands.isEmpty())
        return unknown("command", word, place.command->commandNames());
    if (taken.kind == Kind::TooMuch)
        return QStringLiteral("\"%1\" is too much").arg(word);
    if (taken.kind == Kind::Nothing)
        return {};
    const Option& option = *taken.option;
    if (option.hasValue() && !option.target.isMany && place.given.count(&option) > 1)
        return option.names.last() + ": is there twice";
    if (!option.target.store(taken.value))
        return QStringLiteral("%1: wanted %2, got \"%3\"")
            .arg(option.names.last(), option.target.wanted, taken.value);
    return {};
}

int CommandLine::run(const std::vector<std::string>& arguments)
{
    CommandPlace place(m_program);
    QString fault;
    for (const std::string& argument : arguments) {
        const QString wrong = take(place, QString::fromStdString(argument));
        if (fault.isEmpty())
            fault = wrong;
    }
    const auto isJson = [](const Option* option) { return option->names.contains("--json"); };
    if (m_isJson || std::any_of(place.given.begin(), place.given.end(), isJson))
        m_terminal.wantJson();
    if (m_wantsHelp)
        return printHelp(place);
    if (m_wantsVersion) {
        m_terminal.line("kelo " KELO_VERSION);
        return ExitDone;
    }
    if (fault.isEmpty())
        fault = missing(place);
    const bool isGroup = !place.command->run && !place.command->ask; // "kelo", "kelo playlist"
    if (fault.isEmpty())
        return isGroup ? printHelp(place) : runCommand(*place.command);
    m_terminal.error(QStringLiteral("kelo: %1 (see %2 --help)").arg(shown(fault), place.words));
    return ExitUsage;
}

int CommandLine::printHelp(const CommandPlace& place)
{
    constexpr int usualWidth = 80;
    const int width = m_terminal.hasWidth() ? qBound(40, m_terminal.width(), 100) : usualWidth;
    m_terminal.line(helpText(*place.command, place.words, width).trimmed());
    return ExitDone;
}

/// `kelo help playlist add` prints what `kelo playlist add --help` does.
Command CommandLine::helpCommand()
{
    const auto words = std::make_shared<QStringList>();
    Command help("help", "Print help about a command.", "kelo help\nkelo help playlist add");
    help.option("[COMMAND]", *words, "The command's words").runs([this, words](Terminal&) -> int {
        CommandPlace place(m_program);
        for (const QString& word : *words) {
            const Command* below = place.command->findCommand(word);
            if (!below) {
                const QString fault = unknown("command", word, place.command->commandNames());
                m_terminal.error(
                    QStringLiteral("kelo: %1 (see %2 --help)").arg(shown(fault), place.words));
                return ExitUsage;
            }
            place.take(word);
        }
        return printHelp(place);
    });
    return help;
}

int CommandLine::runCommand(const Command& command)
{
    if (command.run)
        return command.run(m_terminal);
    if (!ApiClient::isServerAddress(m_server)) {
        m_terminal.error(QStringLiteral("kelo: wanted http://HOST:PORT as the streamer's address, "
                                        "got \"%1\"")
                             .arg(shown(m_server)));
        return ExitUsage;
    }
    ApiClient api(m_server);
    return command.ask(CommandContext{api, m_terminal, m_around.state, m_isJson, m_fields,
                                      m_around.endOnInterrupt, m_around.waitASecond,
                                      m_around.confirm, m_around.openAddress});
}

} // namespace cli
