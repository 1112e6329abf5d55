// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"

#include <fmt/format.h>

namespace zorel {

std::string GlobalFuncs::timeLeadingZeroWithSeconds(std::int32_t hour, std::int32_t minute,
                                                    std::int32_t second) const {
    return fmt::format("{:02d}:{:02d}:{:02d}", hour, minute, second);
}

} // namespace zorel
