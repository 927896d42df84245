#include "client/Commands.h"
#include "client/Completion.h"
#include "client/ShellLine.h"

namespace cli {

namespace {

// The scripts ask `kelo complete` for everything, so that they need no change when commands do.

const char* const bashScript = R"(# Completion of kelo's command line for bash.
_kelo()
{
    local kind= line notes=()
    COMPREPLY=()
    {
        IFS= read -r kind
        while IFS= read -r line; do
            COMPREPLY+=("${line%%$'\t'*}")
            line=${line#*$'\t'}
            notes+=("${line:+  (${line//\//∕})}")
        done
    } < <("${1/#\~/$HOME}" complete --line "${COMP_LINE:0:COMP_POINT}" \
        --breaks "$COMP_WORDBREAKS" 2>/dev/null)
    case $kind in
        parts) compopt -o nospace -o nosort -o filenames ;; # quotes what a shell would act on
        titles) compopt -o nosort ;;
        files) compopt -o default ;;
        folders) compopt -o dirnames ;;
        *) compopt -o nosort ;;
    esac
    for line in "${!COMPREPLY[@]}"; do
        if [[ ${COMP_TYPE-} == 63 && ${#COMPREPLY[@]} -gt 1 ]]; then
            COMPREPLY[line]+=${notes[line]} # only shown
            COMPREPLY[line]=${COMPREPLY[line]:0:${COLUMNS:-80}-1}
        elif [[ $kind == titles && ${COMP_WORDS[COMP_CWORD]-} != [\'\"]* ]]; then
            printf -v "COMPREPLY[$line]" %q "${COMPREPLY[line]}"
        fi
    done
} && complete -F _kelo kelo
)";

const char* const zshScript = R"(#compdef kelo
# Completion of kelo's command line for zsh.
_kelo()
{
    local kind line
    local -a lines matches notes
    local -i width=0
    # What was listed last is asked for with the terminal at hand.
    lines=("${(@f)$("${(Q)words[1]/#\~/$HOME}" complete -- \
        "${(@Q)words[1,CURRENT-1]}" "${(Q)PREFIX}" 2>/dev/null <"${TTY:-/dev/null}")}")
    kind=$lines[1]
    matches=("${(@)lines[2,-1]%%$'\t'*}")
    for line in "${(@)matches}"; do
        (( ${(m)#line} > width && ${(m)#line} <= COLUMNS / 2 )) && width=${(m)#line}
    done
    for line in "${(@)lines[2,-1]}"; do
        if [[ $line == *$'\t'?* ]]; then
            (( ${(m)#line%%$'\t'*} < width )) &&
                line=${(mr:width:)line%%$'\t'*}$'\t'${line#*$'\t'}
            line=${line/$'\t'/  -- }
        fi
        (( ${(m)#line} > COLUMNS - 2 )) && line=${(mr:COLUMNS-2:)line}
        notes+=("$line")
    done
    [[ $kind == (files|folders) && $PREFIX == -*=* ]] && compset -P '*='
    case $kind in
        files) _files ;;
        folders) _files -/ ;;
        # Rows below what is typed need not begin with it, so these replace the word.
        parts) compadd -U -S '' -V kelo -l -d notes -a matches ;;
        words | titles) compadd -V kelo -l -d notes -a matches ;;
    esac
}

if [[ $funcstack[1] == _kelo ]]; then
    _kelo "$@"
else
    compdef _kelo kelo
fi
)";

/// `kelo complete`: prints the kind of the completion, then one candidate a line, a tab before its
/// note. Whatever goes wrong, a person who types sees nothing of it.
struct CompleteCommand
{
    QString line;
    QString breaks;
    QStringList words;

    int run(Terminal& terminal, const Command& program, const QString& server,
            const UserState& state) const
    {
        const ShellLine typed =
            words.isEmpty() ? ShellLine::parse(line, breaks) : ShellLine{words, 0};
        const Completion found = Completion::find(program, typed.words, server, state);
        static const char* const kinds[] = {"words", "parts", "titles", "files", "folders"};
        terminal.line(kinds[static_cast<int>(found.kind)]);
        const QString fixed = typed.words.last().left(typed.fixed);
        for (const Completion::Candidate& candidate : keepStarting(found.candidates, fixed))
            terminal.line(candidate.text.mid(fixed.size()) + '\t' + candidate.note);
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
            terminal.line(QString(*shell == "zsh" ? zshScript : bashScript).trimmed());
            return ExitDone;
        });
}

Command completeCommand(const Command& program, const QString& server, const UserState& state,
                        std::function<void()> endSoon)
{
    const auto command = std::make_shared<CompleteCommand>();
    return Command("complete", "", "")
        .option("--line LINE", command->line, "")
        .option("--breaks CHARACTERS", command->breaks, "")
        .option("[WORD]", command->words, "")
        .runs(
            [command, &program, &server, &state, endSoon = std::move(endSoon)](Terminal& terminal) {
                if (endSoon)
                    endSoon();
                return command->run(terminal, program, server, state);
            });
}

} // namespace cli
