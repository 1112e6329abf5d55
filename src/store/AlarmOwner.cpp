// SPDX-License-Identifier: Apache-2.0
#include "store/AlarmOwner.h"

#include "platform/foundation/Files.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fmt/format.h>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace zorel {
namespace {

/// The machine's lasting identity (machine-id(5)), else its name.
std::string machineIdentity() {
    constexpr std::size_t limit = 256;
    const auto identity = readSmallFile("/etc/machine-id", limit);
    if (identity && !identity->empty()) {
        return *identity;
    }
    std::array<char, limit> name{};
    gethostname(name.data(), name.size() - 1);
    return name.data();
}

/// FNV-1a, 64 bits.
std::uint64_t digest(std::string_view text) {
    std::uint64_t value = 0xcbf29ce484222325U;
    for (const char character : text) {
        value = (value ^ static_cast<unsigned char>(character)) * 0x100000001b3U;
    }
    return value;
}

} // namespace

std::string alarmOwner(const std::string& userDBPath) {
    std::error_code error;
    const auto path = std::filesystem::weakly_canonical(userDBPath, error);
    return fmt::format("{:016x}", digest(machineIdentity() + "\n" + (error ? userDBPath : path.string())));
}

} // namespace zorel
