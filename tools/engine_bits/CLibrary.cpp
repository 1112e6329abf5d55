// SPDX-License-Identifier: Apache-2.0
#include "CLibrary.h"

#include "tests/engine/Places.h"
#include "tools/golden_check/Hash.h"

#include <cmath>

namespace zorel::bits {

std::string cLibrary() {
    constexpr int kSamples = 200000;
    testing::Random random(1);
    golden::Hash hash;
    for (int i = 0; i < kSamples; ++i) {
        const double angle = random.between(-7.0, 7.0);
        const double ratio = random.between(-1.0, 1.0);
        for (const double value : {std::sin(angle), std::cos(angle), std::tan(angle), std::asin(ratio),
                                   std::acos(ratio), std::atan(angle), std::atan2(ratio, angle)}) {
            hash.add(value);
        }
    }
    return hash.text();
}

} // namespace zorel::bits
