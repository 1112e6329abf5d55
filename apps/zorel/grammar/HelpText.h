// SPDX-License-Identifier: Apache-2.0
/// @file
/// What --help prints, and the parts of it that the manual shares.
#pragma once

#include "grammar/Arguments.h"

#include <string>
#include <vector>

namespace zorel::cli {

/// A description with its full stop, which the text of the program itself has already.
[[nodiscard]] std::string asSentence(const std::string& text);
/// "zorel today [PLACE] [OPTIONS]".
[[nodiscard]] std::string synopsis(const CommandHelp& command);
/// "-h, --help", "--date DATE".
[[nodiscard]] std::string optionLine(const OptionHelp& option);
/// --help is the same everywhere and is told once, with the program.
[[nodiscard]] bool isCommon(const CommandHelp& command, const OptionHelp& option);
/// Names of the commands right below a command ("" for the program): "today", "cities add".
[[nodiscard]] std::vector<CommandHelp> commandsBelow(const std::vector<CommandHelp>& commands,
                                                     const std::string& name);

/// The help text of a command; lines of at most 80 columns.
[[nodiscard]] std::string helpText(const std::vector<CommandHelp>& commands, const std::string& name);

} // namespace zorel::cli
