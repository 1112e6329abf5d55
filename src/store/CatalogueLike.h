// SPDX-License-Identifier: Apache-2.0
/// @file
/// A faster LIKE for the catalogue's search, with the answers of SQLite's own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

struct sqlite3;

namespace zorel {

/// The pattern "%text%" whose text has no wildcards: whether a name contains the text, ASCII letters in
/// either case. It looks for the rarest byte of the text first, where SQLite looks for the first character.
class ContainedText {
public:
    /// Whether the pattern is of that form.
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
