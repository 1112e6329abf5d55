// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <vector>

namespace zorel::testing {

/// first, first + step, ... up to `last`, counted in whole steps.
inline std::vector<double> steps(double first, double last, double step) {
    std::vector<double> values;
    const auto count = static_cast<int>(std::floor((last - first) / step + 1e-9));
    for (int i = 0; i <= count; ++i) {
        values.push_back(first + i * step);
    }
    return values;
}

} // namespace zorel::testing
