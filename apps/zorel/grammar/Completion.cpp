// SPDX-License-Identifier: Apache-2.0
#include "grammar/Arguments.h"

namespace zorel::cli {

namespace {
// Each script asks the program itself for what fits at the end of the line (`zorel complete SHELL WORDS`) and
// shows it as its shell does.

/// The program answers with words that are escaped already.
constexpr std::string_view kBash = R"sh(# bash completion for zorel
_zorel() {
    local answer
    COMPREPLY=()
    answer=$("$1" complete bash "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null) || return
    case $answer in
    '') ;;
    :folders) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -d -- "${COMP_WORDS[COMP_CWORD]}") ;;
    :files) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- "${COMP_WORDS[COMP_CWORD]}") ;;
    *) mapfile -t COMPREPLY <<<"$answer" ;;
    esac
}
complete -F _zorel zorel
)sh";

/// -U: a name may be offered for another spelling than its own.
constexpr std::string_view kZsh = R"sh(#compdef zorel
local answer line
local -a texts shown
answer="$("${(Q)words[1]}" complete zsh "${(@Q)words[2,CURRENT-1]}" "${(Q)PREFIX}" 2>/dev/null)" || return 1
case "$answer" in
'') return 1 ;;
:folders) _files -/; return ;;
:files) _files; return ;;
esac
for line in "${(@f)answer}"; do
    texts+=("${line%%$'\t'*}")
    shown+=("${line/$'\t'/  -- }")
done
compadd -U -l -d shown -a texts
)sh";

constexpr std::string_view kFish = R"sh(# fish completion for zorel
function __zorel_offers
    set -l words (commandline -opc)
    set -l last "$(commandline -ct)"
    set -l answer ($words[1] complete fish $words[2..-1] $last 2>/dev/null)
    switch "$answer[1]"
        case :folders
            __fish_complete_directories $last
        case :files
            __fish_complete_path $last
        case ''
        case '*'
            printf '%s\n' $answer
    end
end
complete -c zorel -f -a '(__zorel_offers)'
)sh";
} // namespace

std::string completionScript(const std::string& shell) {
    if (shell == "bash") {
        return std::string(kBash);
    }
    if (shell == "zsh") {
        return std::string(kZsh);
    }
    if (shell == "fish") {
        return std::string(kFish);
    }
    throw CliError(Exit::badUse, "no completion for the shell " + quote(shell), "bash, zsh or fish");
}

} // namespace zorel::cli
