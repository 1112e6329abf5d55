// SPDX-License-Identifier: Apache-2.0
// Numbers read from text lie within their range and come back from their own text.
#include "platform/foundation/NumberText.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const double value = zorel::doubleValue(text);
    const bool comesBack =
        std::abs(value) > 1e9 || std::abs(zorel::doubleValue(zorel::sixDecimals(value)) - value) <= 1e-6;
    if (std::isnan(value) || !comesBack) {
        std::abort();
    }
    static_cast<void>(zorel::integerValue(text));
    return 0;
}
