#include "client/CompletionScript.h"

namespace cli {

namespace {

const char* const bashScript = R"(# Completion of kelo's command line for bash.
_kelo()
{
    local kind= line
    COMPREPLY=()
    {
        IFS= read -r kind
        while IFS= read -r line; do
            COMPREPLY+=("${line%%$'\t'*}")
        done
    } < <("${1/#\~/$HOME}" complete --line "${COMP_LINE:0:COMP_POINT}" \
        --breaks "$COMP_WORDBREAKS" 2>/dev/null)
    case $kind in
        parts) compopt -o nospace -o nosort -o filenames ;; # quotes what a shell would act on
        files) compopt -o default ;;
        folders) compopt -o dirnames ;;
        *) compopt -o nosort ;;
    esac
} && complete -F _kelo kelo
)";

const char* const zshScript = R"(#compdef kelo
# Completion of kelo's command line for zsh.
_kelo()
{
    local kind line
    local -a lines matches notes
    lines=("${(@f)$("${(Q)words[1]/#\~/$HOME}" complete -- \
        "${(@Q)words[1,CURRENT-1]}" "${(Q)PREFIX}" 2>/dev/null)}")
    kind=$lines[1]
    for line in "${(@)lines[2,-1]}"; do
        matches+=("${line%%$'\t'*}")
        [[ $line == *$'\t'?* ]] && line=${line/$'\t'/  -- }
        notes+=("${line[1,COLUMNS-2]}")
    done
    [[ $kind == (files|folders) && $PREFIX == -*=* ]] && compset -P '*='
    case $kind in
        files) _files ;;
        folders) _files -/ ;;
        # Rows below what is typed need not begin with it, so these replace the word.
        parts) compadd -U -S '' -V kelo -l -d notes -a matches ;;
        words) compadd -V kelo -l -d notes -a matches ;;
    esac
}

if [[ $funcstack[1] == _kelo ]]; then
    _kelo "$@"
else
    compdef _kelo kelo
fi
)";

} // namespace

QString completionScript(const QString& shell)
{
    return shell == "zsh" ? zshScript : bashScript;
}

} // namespace cli
