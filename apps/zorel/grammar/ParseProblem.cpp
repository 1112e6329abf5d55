// SPDX-License-Identifier: Apache-2.0
#include "grammar/ParseProblem.h"

#include "grammar/Arguments.h"
#include "grammar/Examples.h"
#include "terminal/CliError.h"

#include "platform/foundation/Slips.h"
#include "platform/foundation/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace zorel::cli {

namespace {
constexpr std::size_t kMostTypos = 2;

const CLI::App& deepest(const CLI::App& app) {
    const auto parsed = app.get_subcommands();
    return parsed.empty() ? app : deepest(*parsed.front());
}

/// The one of some words that is spelled most alike, of several that of the same length; empty when none is
/// near.
std::string spelledLike(const std::vector<std::string>& known, const std::string& word, std::size_t most) {
    std::string nearest;
    std::size_t least = std::min(most + 1, word.size());
    for (const std::string& one : known) {
        const std::size_t typos = slipsBetween(charactersOf(word), charactersOf(one), most);
        if (typos < least || (typos == least && !nearest.empty() && one.size() == word.size())) {
            least = typos;
            nearest = one;
        }
    }
    return nearest;
}

std::vector<std::string> commandNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        names.push_back(command->get_name());
    }
    return names;
}

/// The long names of a command's options, and of those of the commands above it.
std::vector<std::string> optionNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* one = &app; one != nullptr; one = one->get_parent()) {
        for (const CLI::Option* option : one->get_options()) {
            for (const std::string& name : option->get_lnames()) {
                names.push_back("--" + name);
            }
        }
    }
    return names;
}

/// The option that was meant: the only one that begins so, else the one spelled most alike.
std::string optionMeant(const CLI::App& app, const std::string& word) {
    const std::string typed = word.substr(0, word.find('='));
    const std::vector<std::string> known = optionNames(app);
    const auto begins = [&](const std::string& name) { return name.starts_with(typed); };
    if (typed.size() > 3 && std::ranges::count_if(known, begins) == 1) {
        return *std::ranges::find_if(known, begins);
    }
    return typed.size() > 3 ? spelledLike(known, typed, typed.size() > 5 ? kMostTypos : 1) : std::string();
}

std::string helpHint(const std::string& command) {
    return command.empty() ? tr("zorel --help shows the commands, with examples")
                           : tr("zorel {} --help shows its options, with examples", command);
}

ParseProblem unknownCommand(const CLI::App& app, const std::string& before, const std::string& word) {
    const std::string prefix = before.empty() ? before : before + ' ';
    const std::string nearest = spelledLike(commandNames(app), word, kMostTypos);
    if (!nearest.empty()) {
        return {tr("no command {}", quote(prefix + word)),
                tr("did you mean: {}", "zorel " + prefix + nearest)};
    }
    return {tr("no command {}", quote(prefix + word)),
            before.empty() ? tr("zorel --help shows the commands, with examples; for the times of a place: "
                                "zorel today PLACE")
                           : helpHint(before)};
}

/// The commands that have an option of exactly this name.
std::vector<std::string> commandsWith(const std::string& option) {
    std::vector<std::string> names;
    for (const CommandHelp& command : describeCommands()) {
        const bool has = std::ranges::any_of(command.options, [&](const OptionHelp& one) {
            return std::ranges::find(one.names, option) != one.names.end();
        });
        if (has && !command.name.empty()) {
            names.push_back(command.name);
        }
    }
    return names;
}

ParseProblem unknownOption(const CLI::App& app, const std::string& command, const std::string& word) {
    const std::string name = word.substr(0, word.find('='));
    const std::vector<std::string> having = commandsWith(name);
    if (std::ranges::find(having, command) != having.end()) {
        return {tr("no option {} before the command", quote(word)),
                tr("it stands behind {}", quote(command))};
    }
    if (!having.empty()) {
        return {command.empty() ? tr("no option {}", quote(word))
                                : tr("{0} has no option {1}", command, quote(word)),
                tr("{0} belongs to: {1}", name, fmt::format("{}", fmt::join(having, ", ")))};
    }
    if (const std::string meant = optionMeant(app, word); !meant.empty()) {
        return {tr("no option {}", quote(word)), tr("did you mean: {}", meant)};
    }
    return {tr("no option {}", quote(word)), helpHint(command)};
}

/// Whether a command waits for words and has none.
bool takesWords(const CLI::App& app) {
    return std::ranges::any_of(app.get_options(), [](const CLI::Option* option) {
        return option->get_positional() && option->count() == 0;
    });
}

ParseProblem unknownWord(const CLI::App& app, const std::string& command, const std::string& word) {
    if (word.size() > 1 && word.front() == '-') {
        return unknownOption(app, command, word);
    }
    if (!app.get_subcommands([](const CLI::App*) { return true; }).empty()) {
        return unknownCommand(app, command, word);
    }
    if (takesWords(app)) {
        return {tr("{} stands before the command", quote(word)),
                tr("write: {}", "zorel " + command + ' ' + word)};
    }
    return {tr("{} is one word too many", quote(word)), helpHint(command)};
}

/// The two names that CLI11 puts before and behind a word.
std::pair<std::string, std::string> aroundOf(const std::string& said, std::string_view word) {
    const std::size_t at = said.find(word);
    return at == std::string::npos ? std::pair(said, std::string())
                                   : std::pair(said.substr(0, at), said.substr(at + word.size()));
}

ParseProblem missing(const std::string& command, std::string name) {
    if (command.empty()) {
        return {tr("a command is missing"), helpHint(command)};
    }
    name = name.substr(0, name.find(' '));
    const std::string example = examplesOf(command).front();
    return {tr("{} is missing", name), tr("for example: {}", example.substr(0, example.find("  # ")))};
}

/// An option with too few or too many values; what CLI11 says begins with its name.
ParseProblem wrongCount(const std::string& command, const std::string& said) {
    const std::string name = said.substr(0, said.find(':'));
    const bool twice = said.find("received") != std::string::npos;
    return {twice ? tr("{} is given more than once", name) : tr("{}: its value is missing", name),
            helpHint(command)};
}
} // namespace

std::string commandReached(const CLI::App& program) {
    const auto parsed = program.get_subcommands();
    if (parsed.empty()) {
        return {};
    }
    const std::string below = commandReached(*parsed.front());
    return parsed.front()->get_name() + (below.empty() ? below : ' ' + below);
}

ParseProblem problemOf(const CLI::App& program, const CLI::ParseError& error) {
    const std::string command = commandReached(program);
    const auto unknown = program.remaining(true);
    if (!unknown.empty()) {
        return unknownWord(deepest(program), command, unknown.front());
    }
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
        return missing(command, error.what());
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        return wrongCount(command, error.what());
    }
    if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
        const auto [first, second] = aroundOf(error.what(), " excludes ");
        return {tr("{0} and {1} do not go together", first, second), helpHint(command)};
    }
    if (dynamic_cast<const CLI::RequiresError*>(&error) != nullptr) {
        const auto [first, second] = aroundOf(error.what(), " requires ");
        return {tr("{0} needs {1}", first, second), helpHint(command)};
    }
    return {error.what(), helpHint(command)};
}

} // namespace zorel::cli
