// SPDX-License-Identifier: Apache-2.0
/// @file
/// The grammar of the command line. It is written once, with CLI11, and everything that describes it (help,
/// manual page, markdown page, shell completions) is read back from it.
#pragma once

#include "grammar/Options.h"
#include "terminal/CliError.h"

#include <span>
#include <string>
#include <vector>

namespace zorel::cli {

struct OptionHelp {
    std::vector<std::string> names; ///< "--json", "-h"; empty for a positional argument
    std::string argument;           ///< "DATE"; empty for a switch
    std::string description;
    std::vector<std::string> choices;
    bool isPath = false;
};

struct CommandHelp {
    std::string name; ///< "cities add"; empty for the program itself
    std::string description;
    std::vector<OptionHelp> options;
    std::vector<OptionHelp> positionals;
    std::vector<std::string> examples; ///< "zorel today Ankara  # comment"
    bool hasSubcommands = false;
};

/// Either something to run or something to print.
struct ParseResult {
    bool run = false;
    Exit code = Exit::ok;
    std::string text; ///< help, version, or what is wrong
    std::string hint; ///< what to do about it
};

/// The language that --lang names on a command line that is not read yet; empty: none.
[[nodiscard]] std::string languageOnLine(std::span<const std::string> words);

/// Reads the words after the program's name into `options`.
[[nodiscard]] ParseResult parseArguments(std::span<const std::string> words, Options& options);

/// The program and all its commands, in the order of the help text.
[[nodiscard]] std::vector<CommandHelp> describeCommands();

/// The manual page (roff, section 1).
[[nodiscard]] std::string manualPage();
/// The same as a markdown page.
[[nodiscard]] std::string manualMarkdown();
/// Completion for "bash", "zsh" or "fish". @throws CliError (bad use) for another shell.
[[nodiscard]] std::string completionScript(const std::string& shell);

} // namespace zorel::cli
