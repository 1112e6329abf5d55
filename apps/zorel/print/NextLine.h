// SPDX-License-Identifier: Apache-2.0
/// @file
/// The next prayer time in one line, by a pattern of the user's.
#pragma once

#include "grammar/Context.h"
#include "print/ShownPlace.h"
#include "print/StatusLine.h"

#include "almanac/Almanac.h"

#include <string>
#include <string_view>
#include <vector>

namespace zorel::cli {

/// Text with fields in braces, "{name} {time}"; two braces of a kind stand for one.
/// Fields: name, key ("dhuhr"), time ("13:00", "06:07 +1" on another date than today), countdown ("2 h 5
/// min"), minutes (left, whole ones), clock (left, "2:05"), city (name of the place, of a point its
/// coordinates), date ("2026-11-21"), weekday, hijri ("12 Jumada II 1448", of the day whose daylight falls on
/// today's date).
class NextPattern {
public:
    /// @throws CliError (bad use) for a field that does not exist and for a brace without its partner.
    explicit NextPattern(std::string_view text);

    /// Each part of the pattern in its turn.
    struct Part {
        std::string text;
        bool isField = false; ///< `text` is the name of a field
    };
    [[nodiscard]] const std::vector<Part>& parts() const { return parts_; }
    /// Whether the line changes with every minute.
    [[nodiscard]] bool counts() const;

private:
    std::size_t addField(std::string_view text, std::size_t at);
    void addText(char character);

    std::vector<Part> parts_;
};

/// The line at an instant; when there is no next time within two days it says so, whatever the pattern.
[[nodiscard]] StatusLine nextLine(const Context& context, almanac::Memory& memory, const ShownPlace& place,
                                  const NextPattern& pattern, almanac::Instant instant);

} // namespace zorel::cli
