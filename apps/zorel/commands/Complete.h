// SPDX-License-Identifier: Apache-2.0
/// @file
/// What fits at the end of a command line, for the completion of shells.
#pragma once

#include "grammar/CompletionQuestion.h"
#include "grammar/Context.h"
#include "terminal/CliError.h"

#include <string>
#include <vector>

namespace zorel::cli {

/// The choices of a question, the best first: those of the grammar, the user's cities, places of the
/// catalogue by their size, ringtones. A choice begins as the typed text does; where it is a place that is
/// known by that spelling only, it goes on in this spelling.
/// @throws CliError (data trouble) when the user's cities or the catalogue cannot be read.
[[nodiscard]] std::vector<CompletionChoice> completionChoices(const GlobalFuncs& services,
                                                              const CompletionQuestion& question);

/// Prints a line for each choice, a tab before its description; ":folders" or ":files" where the shell shall
/// offer those itself.
/// @param shell "bash", "zsh" or "fish". @param raw the last word as it stands on the line.
void printChoices(std::ostream& out, const std::string& shell, const std::string& raw,
                  const CompletionQuestion& question, const std::vector<CompletionChoice>& choices);

} // namespace zorel::cli
