// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/IcsLines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <span>
#include <utility>

namespace zorel {
namespace {

constexpr int kDeepestNesting = 8;
constexpr int kMostZoneRules = 100;
/// A month's days at most that one rule may name.
constexpr std::ptrdiff_t kMostDays = 7;
constexpr int kFirstYear = 1583;
constexpr std::size_t kYearDigits = 4;

char upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool startsWith(std::string_view text, std::string_view capitals) {
    return text.size() >= capitals.size() &&
           std::ranges::equal(text.substr(0, capitals.size()), capitals, {}, upper);
}

bool isOneOf(std::string_view text, std::span<const std::string_view> capitals) {
    return std::ranges::any_of(
        capitals, [&](std::string_view one) { return one.size() == text.size() && startsWith(text, one); });
}

/// What stands before the separator; `rest` loses it, with the separator.
std::string_view takeUntil(std::string_view& rest, char separator) {
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return part;
}

/// What stands behind the first colon outside quotation marks.
std::string_view valueOf(std::string_view line) {
    bool quoted = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        quoted = line[at] == '"' ? !quoted : quoted;
        if (line[at] == ':' && !quoted) {
            return line.substr(at + 1);
        }
    }
    return {};
}

bool isHarmlessPart(std::string_view key, std::string_view value) {
    constexpr std::array<std::string_view, 4> single{"INTERVAL", "UNTIL", "COUNT", "WKST"};
    constexpr std::array<std::string_view, 2> one{"BYMONTH", "BYDAY"};
    constexpr std::array<std::string_view, 1> yearly{"YEARLY"};
    const auto commas = std::ranges::count(value, ',');
    if (startsWith(key, "FREQ")) {
        return isOneOf(value, yearly);
    }
    if (key.size() == std::string_view("BYMONTHDAY").size() && startsWith(key, "BYMONTHDAY")) {
        return commas < kMostDays;
    }
    return isOneOf(key, single) || (isOneOf(key, one) && commas == 0);
}

/// "FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU" and its kind.
bool isHarmlessRule(std::string_view rule) {
    while (!rule.empty()) {
        std::string_view part = takeUntil(rule, ';');
        const std::string_view key = takeUntil(part, '=');
        if (!isHarmlessPart(key, part)) {
            return false;
        }
    }
    return true;
}

bool beginsInTime(std::string_view start) {
    int year = 0;
    const std::string_view digits = start.substr(0, kYearDigits);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), year);
    return error == std::errc{} && end == digits.data() + kYearDigits && year >= kFirstYear;
}

/// Follows the lines of a text and knows whether one was unfit.
class Inspector {
public:
    [[nodiscard]] bool accepts(const ContentLine& line) {
        if (startsWith(line.name, "BEGIN")) {
            ++depth_;
            zoneDepth_ = zoneDepth_ == 0 && startsWith(line.value, "VTIMEZONE") ? depth_ : zoneDepth_;
        } else if (line.isCalled("END")) {
            zoneDepth_ = zoneDepth_ == depth_ ? 0 : zoneDepth_;
            --depth_;
        }
        return depth_ >= 0 && depth_ <= kDeepestNesting && (zoneDepth_ == 0 || acceptsInZone(line));
    }
    [[nodiscard]] bool isClosed() const { return depth_ == 0; }

private:
    [[nodiscard]] bool acceptsInZone(const ContentLine& line) {
        if (line.isCalled("RRULE")) {
            return ++zoneRules_ <= kMostZoneRules && isHarmlessRule(line.value);
        }
        return !line.isCalled("EXRULE") && (!line.isCalled("DTSTART") || beginsInTime(line.value));
    }

    int depth_ = 0;
    int zoneDepth_ = 0; ///< depth of the time zone that the line belongs to; 0: none
    int zoneRules_ = 0;
};

bool hasLoneCarriageReturn(std::string_view text) {
    for (std::size_t at = text.find('\r'); at != std::string_view::npos; at = text.find('\r', at + 1)) {
        if (text.substr(at + 1, 1) != "\n") {
            return true;
        }
    }
    return false;
}

/// TEXT values escape commas, semicolons and backslashes (RFC 5545, 3.3.11).
std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        at += value[at] == '\\' && at + 1 < value.size() ? 1U : 0U;
        text += value[at];
    }
    return text;
}

} // namespace

bool ContentLine::isCalled(std::string_view capitals) const {
    return name.size() == capitals.size() && startsWith(name, capitals);
}

std::string unfolded(std::string_view text) {
    std::string lines;
    lines.reserve(text.size());
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (!lines.empty() && (line.starts_with(' ') || line.starts_with('\t'))) {
            lines.pop_back();
            line.remove_prefix(1);
        }
        lines.append(line).append(1, '\n');
    }
    return lines;
}

std::vector<ContentLine> contentLines(std::string_view unfoldedText) {
    std::vector<ContentLine> lines;
    while (!unfoldedText.empty()) {
        const std::string_view line = takeUntil(unfoldedText, '\n');
        lines.push_back({line.substr(0, line.find_first_of(":;")), valueOf(line)});
    }
    return lines;
}

std::optional<std::string> onlyUidOf(std::string_view text) {
    std::optional<std::string> uid;
    const std::string lines = unfolded(text);
    for (const ContentLine& line : contentLines(lines)) {
        if (!line.isCalled("UID")) {
            continue;
        }
        std::string value = unescaped(line.value);
        if (value.empty() || (uid && *uid != value)) {
            return std::nullopt;
        }
        uid = std::move(value);
    }
    return uid;
}

bool isFitForParsing(std::string_view text) {
    if (text.find('\0') != std::string_view::npos || hasLoneCarriageReturn(text)) {
        return false;
    }
    const std::string lines = unfolded(text);
    Inspector inspector;
    return std::ranges::all_of(contentLines(lines),
                               [&](const ContentLine& line) { return inspector.accepts(line); }) &&
           inspector.isClosed();
}

} // namespace zorel
