// SPDX-License-Identifier: Apache-2.0
#include "grammar/HelpText.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
using Commands = std::vector<CommandHelp>;

/// The words that may follow a command: its direct subcommands.
std::vector<std::string> subcommandsOf(const Commands& commands, const std::string& name) {
    std::vector<std::string> words;
    for (const CommandHelp& command : commandsBelow(commands, name)) {
        words.push_back(command.name.substr(name.empty() ? 0 : name.size() + 1));
    }
    return words;
}

/// The fixed choices of a command's first argument.
std::vector<std::string> positionalChoices(const CommandHelp& command) {
    return command.positionals.empty() ? std::vector<std::string>() : command.positionals.front().choices;
}

std::vector<std::string> optionNames(const CommandHelp& command) {
    std::vector<std::string> names;
    for (const OptionHelp& option : command.options) {
        names.insert(names.end(), option.names.begin(), option.names.end());
    }
    return names;
}

std::string joined(const std::vector<std::string>& words) {
    return fmt::format("{}", fmt::join(words, " "));
}

// bash

std::string bashValues(const Commands& commands) {
    std::string cases;
    std::string files;
    for (const CommandHelp& command : commands) {
        for (const OptionHelp& option : command.options) {
            if (!option.choices.empty() && cases.find(option.names.back() + ')') == std::string::npos) {
                cases += fmt::format("        {}) COMPREPLY=($(compgen -W '{}' -- \"$word\")); return ;;\n",
                                     option.names.back(), joined(option.choices));
            }
            if (option.isPath) {
                files += (files.empty() ? "" : "|") + option.names.back();
            }
        }
    }
    return fmt::format(
        "    case \"$before\" in\n{}        {}) COMPREPLY=($(compgen -d -- \"$word\")); return ;;\n"
        "    esac\n",
        cases, files);
}

std::string bashWords(const Commands& commands) {
    const std::string common = joined(optionNames(commands.front()));
    std::string cases;
    for (const CommandHelp& command : commands) {
        std::vector<std::string> words = subcommandsOf(commands, command.name);
        for (const std::string& choice : positionalChoices(command)) {
            words.push_back(choice);
        }
        cases += fmt::format("        '{}') words='{}'; options='{} {}' ;;\n", command.name, joined(words),
                             command.name.empty() ? "" : joined(optionNames(command)), common);
    }
    return cases;
}

std::string bashScript(const Commands& commands) {
    std::vector<std::string> names;
    for (const CommandHelp& command : commands) {
        names.push_back('|' + command.name + '|');
    }
    return fmt::format(R"(# bash completion for zorel
_zorel() {{
    local word="${{COMP_WORDS[COMP_CWORD]}}" before="${{COMP_WORDS[COMP_CWORD-1]}}" command='' words='' options='' i try
{}    for ((i = 1; i < COMP_CWORD; i++)); do
        try="${{command:+$command }}${{COMP_WORDS[i]}}"
        case '{}' in *"|$try|"*) command="$try" ;; esac
    done
    case "$command" in
{}    esac
    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ " $words " == *" ${{COMP_WORDS[i]}} "* ]]; then words=''; fi
    done
    if [[ "$word" == -* ]]; then words="$options"; fi
    COMPREPLY=($(compgen -W "$words" -- "$word"))
}}
complete -F _zorel zorel
)",
                       bashValues(commands), joined(names), bashWords(commands));
}

// zsh

std::string escapedFor(std::string_view text, std::string_view special) {
    std::string result;
    for (const char character : text) {
        if (special.find(character) != std::string_view::npos) {
            result += '\\';
        }
        result += character;
    }
    return result;
}

/// Inside single quotes of a shell script.
std::string inQuotes(std::string_view text) {
    std::string result;
    for (const char character : text) {
        result += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return result;
}

std::string zshOption(const OptionHelp& option, const std::string& name) {
    const std::string help = inQuotes(escapedFor(option.description, "[]:"));
    std::string value;
    if (!option.argument.empty()) {
        value = option.isPath            ? ":folder:_files -/"
                : option.choices.empty() ? ':' + option.argument + ':'
                                         : ':' + option.argument + ":(" + joined(option.choices) + ')';
    }
    return fmt::format("        '{}[{}]{}'", name, help, value);
}

std::string zshOptions(const CommandHelp& command) {
    std::string lines;
    for (const OptionHelp& option : command.options) {
        for (const std::string& name : option.names) {
            lines += zshOption(option, name) + " \\\n";
        }
    }
    return lines;
}

std::ptrdiff_t wordsIn(const std::string& name) {
    return name.empty() ? 0 : 1 + std::count(name.begin(), name.end(), ' ');
}

std::string zshCommand(const Commands& commands, const CommandHelp& command) {
    std::vector<std::string> words = subcommandsOf(commands, command.name);
    for (const std::string& choice : positionalChoices(command)) {
        words.push_back(choice);
    }
    const std::string own = command.name.empty() ? "" : zshOptions(command);
    const auto position = 1 + wordsIn(command.name);
    const std::string rest =
        words.empty() ? "        '*: :'" : fmt::format("        '{}: :({})' '*: :'", position, joined(words));
    return fmt::format("    '{}') _arguments \\\n{}{}{} ;;\n", command.name, own,
                       zshOptions(commands.front()), rest);
}

std::string zshScript(const Commands& commands) {
    std::string cases;
    std::vector<std::string> names;
    for (const CommandHelp& command : commands) {
        cases += zshCommand(commands, command);
        names.push_back('|' + command.name + '|');
    }
    return fmt::format(R"(#compdef zorel
local command='' try i
for ((i = 2; i < CURRENT; i++)); do
    try="${{command:+$command }}${{words[i]}}"
    [[ '{}' == *"|$try|"* ]] && command="$try"
done
case "$command" in
{}esac
)",
                       joined(names), cases);
}

// fish

std::string fishCondition(const CommandHelp& command) {
    if (command.name.empty()) {
        return "true";
    }
    const auto blank = command.name.find(' ');
    if (blank == std::string::npos) {
        return "__fish_seen_subcommand_from " + command.name;
    }
    return fmt::format("__fish_seen_subcommand_from {}; and __fish_seen_subcommand_from {}",
                       command.name.substr(0, blank), command.name.substr(blank + 1));
}

std::string fishOption(const OptionHelp& option, const std::string& condition) {
    std::string line = "complete -c zorel -n '" + condition + "'";
    for (const std::string& name : option.names) {
        line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    }
    if (!option.argument.empty()) {
        line += option.isPath            ? " -r -F"
                : option.choices.empty() ? " -x"
                                         : " -x -a '" + joined(option.choices) + "'";
    }
    return line + " -d '" + escapedFor(option.description, "'\\") + "'\n";
}

std::string fishScript(const Commands& commands) {
    std::string text = "# fish completion for zorel\ncomplete -c zorel -f\n";
    for (const CommandHelp& command : commands) {
        const std::string condition = fishCondition(command);
        std::vector<std::string> words = subcommandsOf(commands, command.name);
        for (const std::string& choice : positionalChoices(command)) {
            words.push_back(choice);
        }
        if (!words.empty()) {
            text += fmt::format("complete -c zorel -n '{}; and not __fish_seen_subcommand_from {}' -a '{}'\n",
                                condition, joined(words), joined(words));
        }
        for (const OptionHelp& option : command.options) {
            text += fishOption(option, condition);
        }
    }
    return text;
}
} // namespace

std::string completionScript(const std::string& shell) {
    const Commands commands = describeCommands();
    if (shell == "bash") {
        return bashScript(commands);
    }
    if (shell == "zsh") {
        return zshScript(commands);
    }
    if (shell == "fish") {
        return fishScript(commands);
    }
    throw CliError(Exit::badUse, "no completion for the shell " + quote(shell), "bash, zsh or fish");
}

} // namespace zorel::cli
