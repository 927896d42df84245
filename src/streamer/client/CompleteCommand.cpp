#include "client/Commands.h"
#include "client/Completion.h"
#include "client/CompletionScript.h"
#include "client/ShellLine.h"
#include "client/TreePaths.h"

namespace cli {

namespace {

/// `kelo complete`: prints the kind of the completion, then one candidate a line, a tab before its
/// note. Whatever goes wrong, a person who types sees nothing of it.
struct CompleteCommand
{
    QString line;
    QString breaks;
    QStringList words;

    int run(Terminal& terminal, const Command& program, const QString& usualServer) const
    {
        const ShellLine typed =
            words.isEmpty() ? ShellLine::parse(line, breaks) : ShellLine{words, 0};
        const QString given = Completion::optionValue(typed.words, "--server");
        const QString server = given.isEmpty() ? usualServer : given;
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
        const Completion::Result result = Completion(program, streamer).complete(typed.words);

        static const char* const kinds[] = {"words", "parts", "files", "folders"};
        QStringList lines{kinds[static_cast<int>(result.kind)]};
        const QString fixed = typed.words.last().left(typed.fixed);
        for (const Completion::Candidate& candidate : result.candidates) {
            if (candidate.text.startsWith(fixed))
                lines.append(candidate.text.mid(fixed.size()) + '\t' + candidate.note);
        }
        terminal.line(lines.join('\n'));
        return ExitDone;
    }
};

} // namespace

Command completionCommand()
{
    const auto shell = std::make_shared<QString>();
    return Command("completion", "Print the completion script of a shell.",
                   "source <(kelo completion bash)\nsource <(kelo completion zsh)")
        .option("SHELL", {*shell, QStringList{"bash", "zsh"}}, "bash or zsh")
        .runs([shell](Terminal& terminal) {
            terminal.line(completionScript(*shell).trimmed());
            return ExitDone;
        });
}

Command completeCommand(const Command& program, const QString& server,
                        std::function<void()> endSoon)
{
    const auto command = std::make_shared<CompleteCommand>();
    return Command("complete", "", "")
        .option("--line LINE", command->line, "")
        .option("--breaks CHARACTERS", command->breaks, "")
        .option("[WORD]", command->words, "")
        .runs([command, &program, &server, endSoon = std::move(endSoon)](Terminal& terminal) {
            if (endSoon)
                endSoon();
            return command->run(terminal, program, server);
        });
}

} // namespace cli
