// SPDX-License-Identifier: Apache-2.0
// Numbers read from text lie within their range and come back from their own text.
#include "platform/foundation/NumberText.h"
#include "tests/fuzz/Fuzz.h"

#include <cmath>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using zorel::fuzz::require;
    const std::string_view text = zorel::fuzz::textOf(data, size);
    const double value = zorel::doubleValue(text);
    require(!std::isnan(value));
    require(std::abs(value) > 1e9 || std::abs(zorel::doubleValue(zorel::sixDecimals(value)) - value) <= 1e-6);
    const std::int32_t whole = zorel::integerValue(text);
    require(zorel::integerValue(std::to_string(whole)) == whole);
    return 0;
}
