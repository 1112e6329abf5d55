// SPDX-License-Identifier: Apache-2.0
#include "grammar/ParseProblem.h"

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

std::string spelledLike(const CLI::App& app, const std::string& word) {
    std::string nearest;
    std::size_t least = std::min(kMostTypos + 1, word.size());
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        const std::size_t typos =
            slipsBetween(charactersOf(word), charactersOf(command->get_name()), kMostTypos);
        if (typos < least) {
            least = typos;
            nearest = command->get_name();
        }
    }
    return nearest;
}

std::string helpHint(const std::string& command) {
    return command.empty() ? "zorel --help shows the commands, with examples"
                           : fmt::format("zorel {} --help shows its options, with examples", command);
}

ParseProblem unknownCommand(const CLI::App& app, const std::string& before, const std::string& word) {
    const std::string prefix = before.empty() ? before : before + ' ';
    const std::string nearest = spelledLike(app, word);
    if (!nearest.empty()) {
        return {"no command " + quote(prefix + word),
                fmt::format("did you mean: zorel {}{}", prefix, nearest)};
    }
    const std::string times = before.empty() ? "; for the times of a place: zorel today PLACE" : "";
    return {"no command " + quote(prefix + word), helpHint(before) + times};
}

ParseProblem unknownWord(const CLI::App& app, const std::string& command, const std::string& word) {
    if (word.size() > 1 && word.front() == '-') {
        const std::string where =
            command.empty() ? "" : fmt::format("; they stand behind {}", quote(command));
        return {"no option " + quote(word), helpHint(command) + where};
    }
    if (!app.get_subcommands([](const CLI::App*) { return true; }).empty()) {
        return unknownCommand(app, command, word);
    }
    return {quote(word) + " is one word too many", helpHint(command)};
}

ParseProblem missing(const std::string& command, std::string name) {
    if (command.empty()) {
        return {"a command is missing", helpHint(command)};
    }
    name = name.substr(0, name.find(' '));
    const std::string example = examplesOf(command).front();
    return {name + " is missing", "for example: " + example.substr(0, example.find("  # "))};
}

/// An option with too few or too many values; what CLI11 says begins with its name.
ParseProblem wrongCount(const std::string& command, const std::string& said) {
    const std::string name = said.substr(0, said.find(':'));
    const bool twice = said.find("received") != std::string::npos;
    return {name + (twice ? " is given more than once" : ": its value is missing"), helpHint(command)};
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
    return {error.what(), helpHint(command)};
}

} // namespace zorel::cli
