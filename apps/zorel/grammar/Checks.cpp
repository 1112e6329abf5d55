// SPDX-License-Identifier: Apache-2.0
#include "grammar/Checks.h"

#include "terminal/CliError.h"

#include "platform/foundation/Locale.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace zorel::cli {

CLI::Validator oneOf(const std::vector<std::string>& choices) {
    const auto check = [choices](std::string& text) {
        const std::string lower = lowerCase(text);
        if (std::find(choices.begin(), choices.end(), lower) == choices.end()) {
            return tr("{0} is none of {1}", quote(text), fmt::format("{}", fmt::join(choices, ", ")));
        }
        text = lower;
        return std::string();
    };
    return {check, fmt::format("{{{}}}", fmt::join(choices, ","))};
}

CLI::Validator wholeNumber(std::int64_t smallest, std::int64_t largest) {
    const auto check = [smallest, largest](std::string& text) {
        std::int64_t number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        const bool whole = error == std::errc() && end == text.data() + text.size();
        if (whole && number >= smallest && number <= largest) {
            return std::string();
        }
        const bool bounded = largest < std::numeric_limits<std::int32_t>::max();
        return bounded ? tr("{0} is not a whole number from {1} to {2}", quote(text), smallest, largest)
                       : tr("{0} is not a whole number of {1} or more", quote(text), smallest);
    };
    return {check, ""};
}

CLI::Validator someText() {
    return {[](std::string& text) { return std::string(text.empty() ? tr("its value is empty") : ""); }, ""};
}

} // namespace zorel::cli
