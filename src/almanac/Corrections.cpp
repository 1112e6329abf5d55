// SPDX-License-Identifier: Apache-2.0
#include "almanac/Corrections.h"

namespace zorel::almanac {

std::string_view keyOf(Correction correction) {
    constexpr std::array<std::string_view, kCorrections> keys{
        "before_midnight", "seam_of_days", "own_sun",      "date_line",  "night_without_ends",
        "sun_still_up",    "clock_change", "out_of_order", "true_qibla",
    };
    return keys[static_cast<std::size_t>(correction)];
}

} // namespace zorel::almanac
