// SPDX-License-Identifier: Apache-2.0
/// @file
/// How a command ends: exit codes, and the one error that carries what is wrong and what to do about it.
#pragma once

#include "words/Tr.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace zorel::cli {

enum class Exit : int {
    ok = 0,
    noResult = 1,    ///< the question was good, the answer is "nothing"
    badUse = 2,      ///< the command line cannot be understood
    dataTrouble = 3, ///< catalogue, database, calendar or language files cannot be used
};

/// Ends a command; main prints "zorel: <what>" and, when there is one, the hint on a second line, both as
/// clean text (cleanText).
class CliError : public std::runtime_error {
public:
    CliError(Exit code, const std::string& what, std::string hint = {})
        : std::runtime_error(what), code_(code), hint_(std::move(hint)) {}
    [[nodiscard]] Exit code() const { return code_; }
    [[nodiscard]] const std::string& hint() const { return hint_; }

private:
    Exit code_;
    std::string hint_;
};

/// Clean text (cleanText), cut after 60 bytes at a character's edge.
[[nodiscard]] std::string printable(std::string_view text);
/// The same in quotation marks: what the user typed may hold anything, and it goes back to a terminal.
[[nodiscard]] std::string quote(std::string_view text);

} // namespace zorel::cli
