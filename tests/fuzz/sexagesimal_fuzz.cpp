// SPDX-License-Identifier: Apache-2.0
// Sexagesimal text: whatever it holds, the answer is a number with six decimals, a minus in front turns it
// over, and the sum of its fields is the one that a plain loop finds.
#include "platform/foundation/NumberText.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/Services.h"

#include <cmath>
#include <string>

namespace {

/// Degrees of "d;m;...;s": every field but the first and the last counts in minutes.
double plainSum(std::string_view text) {
    double sum = -0.0; // keeps the sign of a zero
    double unit = 1.0;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(';', start), text.size());
        const bool last = end == text.size();
        sum += zorel::doubleValue(text.substr(start, end - start)) / (start == 0 ? 1.0
                                                                      : last     ? 3600.0
                                                                                 : unit);
        unit = 60.0;
        start = end + 1;
    }
    return sum;
}

bool sixDigitsFollowThePoint(const std::string& text) {
    const std::size_t point = text.find('.');
    return point != std::string::npos && text.size() - point == 7 &&
           text.find_first_not_of("-0123456789.") == std::string::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using zorel::fuzz::require;
    const std::string text(zorel::fuzz::textOf(data, size));
    const bool negative = text.starts_with('-');
    const double sum = plainSum(negative ? text.substr(1) : text);
    const std::string read = zorel::fuzz::services().getFloatStr(text);
    require(read == zorel::sixDecimals(negative ? -sum : sum));
    require(sixDigitsFollowThePoint(read) || !std::isfinite(sum));
    return 0;
}
