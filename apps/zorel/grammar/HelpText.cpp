// SPDX-License-Identifier: Apache-2.0
#include "grammar/HelpText.h"

#include "terminal/Wrap.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
constexpr std::size_t kLineWidth = 80;
constexpr std::size_t kTermWidth = 20; // what longer terms do not fit into gets a line of its own

std::string item(const std::string& term, const std::string& description) {
    const std::string indent(kTermWidth + 4, ' ');
    std::string text = "  " + term;
    text += term.size() > kTermWidth ? '\n' + indent : std::string(indent.size() - text.size(), ' ');
    const auto lines = wrapped(description, kLineWidth - indent.size());
    return text + fmt::format("{}\n", fmt::join(lines, '\n' + indent));
}

std::string section(std::string_view title, const std::string& items) {
    return items.empty() ? items : fmt::format("\n{}:\n{}", title, items);
}

std::string optionItems(const CommandHelp& command) {
    std::string items;
    for (const OptionHelp& option : command.options) {
        if (!isCommon(command, option)) {
            items += item(optionLine(option), option.description);
        }
    }
    return items;
}

std::string arguments(const CommandHelp& command) {
    std::string items;
    for (const OptionHelp& positional : command.positionals) {
        items += item(positional.argument, positional.description);
    }
    return items.empty() ? items : '\n' + items;
}
} // namespace

std::string asSentence(const std::string& text) {
    // translators: what ends a sentence
    const std::string stop = trIn("end of a sentence", ".");
    return text.ends_with(stop) ? text : text + stop;
}

std::string synopsis(const CommandHelp& command) {
    std::string text = command.name.empty() ? "zorel" : "zorel " + command.name;
    for (const OptionHelp& positional : command.positionals) {
        text += ' ' + positional.argument;
    }
    return text + (command.name.empty() ? " [OPTIONS] COMMAND" : " [OPTIONS]");
}

std::string optionLine(const OptionHelp& option) {
    const std::string names = fmt::format("{}", fmt::join(option.names, ", "));
    return option.argument.empty() ? names : names + ' ' + option.argument;
}

bool isCommon(const CommandHelp& command, const OptionHelp& option) {
    return !command.name.empty() && option.names.front() == "-h";
}

std::vector<CommandHelp> commandsBelow(const std::vector<CommandHelp>& commands, const std::string& name) {
    const std::string prefix = name.empty() ? "" : name + ' ';
    std::vector<CommandHelp> below;
    for (const CommandHelp& command : commands) {
        if (command.name.size() > prefix.size() && command.name.starts_with(prefix) &&
            command.name.find(' ', prefix.size()) == std::string::npos) {
            below.push_back(command);
        }
    }
    return below;
}

std::string helpText(const std::vector<CommandHelp>& commands, const std::string& name) {
    const CommandHelp& command =
        *std::find_if(commands.begin(), commands.end(), [&](const auto& one) { return one.name == name; });
    std::string below;
    for (const CommandHelp& one : commandsBelow(commands, name)) {
        below += item(one.name, one.description);
    }
    std::string examples;
    for (const std::string& example : command.examples) {
        examples += fmt::format("  {}\n", example);
    }
    return asSentence(command.description) + "\n\n" + tr("Usage: {}", synopsis(command)) + '\n' +
           arguments(command) + section(tr("Commands"), below) +
           section(name.empty() ? tr("Options of every command (anywhere on the line)") : tr("Options"),
                   optionItems(command)) +
           section(tr("Examples"), examples) + '\n' +
           (name.empty() ? tr("zorel COMMAND --help shows the options of a command; man zorel has it all.")
                         : tr("Options of every command, such as --lang and --now: zorel --help")) +
           '\n';
}

} // namespace zorel::cli
