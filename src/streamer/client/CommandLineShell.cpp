// The commands that serve shells and packagers: completion, what it asks, manual pages.
#include "client/CommandLine.h"
#include "client/Completion.h"
#include "client/CompletionScript.h"
#include "client/Manual.h"
#include "client/ShellLine.h"
#include "client/TreePaths.h"

#include <CLI/CLI.hpp>
#include <QDateTime>

namespace cli {

namespace {

QString fromStd(const std::string& text)
{
    return QString::fromStdString(text);
}

} // namespace

void CommandLine::addShell()
{
    CLI::App* script =
        add(*m_app, streamerGroup, "completion", "Print the completion script of a shell.",
            "source <(kelo completion bash)\nsource <(kelo completion zsh)");
    script->add_option("SHELL", m_values.kind, "bash or zsh")
        ->required()
        ->check(CLI::IsMember({"bash", "zsh"}));
    script->callback([this] {
        m_chosen = [this] {
            m_terminal.line(completionScript(fromStd(m_values.kind)).trimmed());
            return int(ExitDone);
        };
    });

    // What the scripts call: the line that is typed (bash), or its words (zsh). Not shown.
    CLI::App* complete = m_app->add_subcommand("complete")->group("");
    complete->add_option("--line", m_values.line);
    complete->add_option("--breaks", m_values.breaks);
    complete->add_option("WORD", m_values.paths);
    complete->callback([this] { m_chosen = [this] { return runComplete(); }; });

    CLI::App* manual = m_app->add_subcommand("manual")->group("");
    manual->add_option("PAGE", m_values.kind)
        ->required()
        ->check(CLI::IsMember({"kelo", "kelo.toml"}));
    manual->callback([this] { m_chosen = [this] { return runManual(); }; });
}

/// Prints a manual page, for installing. Who wants the same page every time says the date
/// (https://reproducible-builds.org/specs/source-date-epoch).
int CommandLine::runManual()
{
    bool isGiven = false;
    const qint64 given = qgetenv("SOURCE_DATE_EPOCH").toLongLong(&isGiven);
    const QDateTime now =
        isGiven ? QDateTime::fromSecsSinceEpoch(given, Qt::UTC) : QDateTime::currentDateTimeUtc();
    const QString date = now.date().toString(Qt::ISODate);
    const QString page =
        m_values.kind == "kelo" ? commandManual(shapeOf(*m_app), date) : settingsManual(date);
    m_terminal.line(page.trimmed());
    return ExitDone;
}

/// Prints the kind of the completion, then one candidate a line, a tab before its note. Whatever
/// goes wrong, a person who types sees nothing of it.
int CommandLine::runComplete()
{
    if (m_around.endSoon)
        m_around.endSoon();
    ShellLine line;
    if (m_values.paths.empty())
        line = ShellLine::parse(fromStd(m_values.line), fromStd(m_values.breaks));
    for (const std::string& word : m_values.paths)
        line.words.append(fromStd(word));

    const QString given = Completion::optionValue(line.words, QStringLiteral("--server"));
    const QString server = given.isEmpty() ? fromStd(m_values.server) : given;
    Completion::Streamer streamer;
    if (ApiClient::isServerAddress(server)) {
        streamer.paths = [server](const QString& prefix) {
            ApiClient api(server);
            return TreePaths(api).startingWith(prefix);
        };
        streamer.playlists = [server] {
            ApiClient api(server);
            return TreePaths(api).playlists();
        };
    }
    const Completion::Result result = Completion(shapeOf(*m_app), streamer).complete(line.words);

    static const char* const kinds[] = {"words", "parts", "files", "folders"};
    QStringList lines{QString::fromLatin1(kinds[static_cast<int>(result.kind)])};
    const QString fixed = line.words.last().left(line.fixed);
    for (const Completion::Candidate& candidate : result.candidates) {
        if (candidate.text.startsWith(fixed))
            lines.append(candidate.text.mid(fixed.size()) + '\t' + candidate.note);
    }
    m_terminal.line(lines.join('\n'));
    return ExitDone;
}

} // namespace cli
