// SPDX-License-Identifier: Apache-2.0
/// @file
/// LIKE for the catalogue's search: what a person types between the two wildcards of the statement is text,
/// so that "%" and "_" in it are letters. It is also faster than SQLite's own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

struct sqlite3;

namespace zorel {

/// The pattern "%text%": whether a name contains the text, every character of it standing for itself, ASCII
/// letters in either case. It looks for the rarest byte of the text first, where SQLite looks for the first
/// character.
class ContainedText {
public:
    /// Whether the pattern is of that form, with a text that is not empty.
    [[nodiscard]] static bool isPatternOf(std::string_view pattern);
    /// @param pattern one of that form
    explicit ContainedText(std::string_view pattern);
    /// Whether a name contains the text; both in well-formed UTF-8.
    [[nodiscard]] bool isIn(std::string_view name) const;

private:
    [[nodiscard]] bool isIn(std::string_view name, char rarest) const;

    std::string text_; ///< in lower case
    std::size_t rarestAt_ = 0;
};

/// Lets the connection's statements use it for LIKE. Other patterns go to SQLite's own comparison.
void useCatalogueLike(sqlite3* connection);

} // namespace zorel
