// SPDX-License-Identifier: Apache-2.0
/// @file
/// The content lines of iCalendar text, looked at before a parser sees them.
///
/// A calendar folder holds what other programs and servers put there. These looks cost no more than reading
/// the text, whatever it says.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel {

/// A content line: "NAME;PARAMETER=x:value" (RFC 5545, 3.1).
struct ContentLine {
    std::string_view name;  ///< as it is written; names are the same in capitals and small letters
    std::string_view value; ///< what stands behind the first colon outside quotation marks

    /// @param capitals the name that is asked for.
    [[nodiscard]] bool isCalled(std::string_view capitals) const;
};

/// The text with its folded lines in one piece each: a line end and the blank or tab behind it are gone.
[[nodiscard]] std::string unfolded(std::string_view text);
/// The content lines of an unfolded text, which has to live as long as they do.
[[nodiscard]] std::vector<ContentLine> contentLines(std::string_view unfoldedText);

/// The value of the UID properties of a text, with \, \; and \\ read as what they stand for; nothing when
/// there is none, when one is empty, or when two differ.
[[nodiscard]] std::optional<std::string> onlyUidOf(std::string_view text);

/// Whether a parser may have the text:
/// - it holds no NUL byte, and a carriage return only before a line feed
/// - BEGIN and END lines pair, and nest no deeper than any calendar program writes them
/// - each time zone in it takes a moment to expand: at most 100 rules, all of them yearly, on a month's or a
///   weekday's day, with the beginnings of 1583 or later. A rule may otherwise ask for every second since
///   the year 1.
[[nodiscard]] bool isFitForParsing(std::string_view text);

} // namespace zorel
