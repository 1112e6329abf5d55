// SPDX-License-Identifier: Apache-2.0
#include "grammar/Duration.h"

#include "terminal/CliError.h"

#include "almanac/Scanner.h"
#include "words/Tr.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
using std::chrono::seconds;

constexpr int kMost = 999'999;
constexpr seconds kMinute{60};
constexpr seconds kHour{3600};

/// The unit behind a number; none at the end of the text.
std::optional<seconds> takeUnit(almanac::Scanner& scan) {
    if (scan.take('h')) {
        return kHour;
    }
    if (scan.take('m')) {
        if (scan.take('i') && !scan.take('n')) {
            return std::nullopt;
        }
        return kMinute;
    }
    return scan.take('s') ? std::optional(seconds(1)) : std::nullopt;
}
} // namespace

std::optional<seconds> parseDuration(std::string_view text, seconds unit) {
    almanac::Scanner scan(text);
    seconds sum{0};
    seconds before = seconds::max(); // each unit is smaller than the one before it
    while (!scan.atEnd()) {
        const auto number = scan.number(kMost);
        if (!number) {
            return std::nullopt;
        }
        const bool bare = scan.atEnd();
        const seconds behind = before == kHour ? kMinute : seconds(1);
        const auto size = bare ? std::optional(before == seconds::max() ? unit : behind) : takeUnit(scan);
        if (!size || (*size >= before && before != seconds::max())) {
            return std::nullopt;
        }
        sum += *number * *size;
        before = *size;
    }
    return before == seconds::max() ? std::nullopt : std::optional(sum);
}

CLI::Validator wholeMinutes(int smallest, int largest) {
    const auto check = [smallest, largest](std::string& text) {
        const auto duration = parseDuration(text, kMinute);
        const auto minutes = duration ? *duration / kMinute : -1;
        if (!duration || *duration % kMinute != seconds(0) || minutes < smallest || minutes > largest) {
            return tr("{0} is not a whole number of minutes from {1} to {2}", quote(text), smallest, largest);
        }
        text = fmt::format("{}", minutes);
        return std::string();
    };
    return {check, ""};
}

} // namespace zorel::cli
