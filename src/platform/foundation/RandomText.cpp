// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/RandomText.h"

#include <cstdint>
#include <fmt/format.h>
#include <random>

namespace zorel {

std::string randomHexadecimal() {
    std::random_device source;
    const std::uint32_t first = source();
    const std::uint32_t second = source();
    return fmt::format("{:08x}{:08x}", first, second);
}

} // namespace zorel
