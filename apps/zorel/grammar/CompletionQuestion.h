// SPDX-License-Identifier: Apache-2.0
/// @file
/// What may stand at the end of a command line that somebody is typing.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::cli {

struct CompletionChoice {
    std::string text;
    std::string description; ///< may be empty
};

/// What is asked for beside, or in place of, the words of the grammar.
enum class Wanted : std::uint8_t {
    onlyWords, ///< the choices are all there are
    folder,
    file,
    place,   ///< of the catalogue
    ownCity, ///< of the user's list
    ringtone,
};

struct CompletionQuestion {
    Wanted wanted = Wanted::onlyWords;
    std::vector<CompletionChoice> choices;      ///< those that begin as the last word does
    std::string typed;                          ///< the words of the argument so far, joined by blanks
    std::size_t wordsBefore = 0;                ///< of `typed`, whole words before the last one
    std::map<std::string, std::string> folders; ///< "--data-dir" and so on, as given on the line
};

/// @param words behind the program's name, quotes taken away; the last one, which may be empty, is being
/// typed.
[[nodiscard]] CompletionQuestion completionQuestion(std::span<const std::string> words);

/// A word as a shell has it on its line, without quotes and backslashes.
[[nodiscard]] std::string unquoted(std::string_view word);
/// A word with a backslash before each character that means something to a shell.
[[nodiscard]] std::string shellEscaped(std::string_view word);

} // namespace zorel::cli
