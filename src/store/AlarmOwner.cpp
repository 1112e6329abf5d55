// SPDX-License-Identifier: Apache-2.0
#include "store/AlarmOwner.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/RandomText.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fmt/format.h>
#include <optional>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace zorel {
namespace {

constexpr std::size_t kRandomDigits = 32;

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
std::string digest(std::string_view text) {
    std::uint64_t value = 0xcbf29ce484222325U;
    for (const char character : text) {
        value = (value ^ static_cast<unsigned char>(character)) * 0x100000001b3U;
    }
    return fmt::format("{:016x}", value);
}

std::optional<std::string> storedRandom(const std::string& file) {
    auto text = readSmallFile(file, kRandomDigits);
    const bool whole = text && text->size() == kRandomDigits &&
                       text->find_first_not_of("0123456789abcdef") == std::string::npos;
    return whole ? text : std::nullopt;
}

/// What is kept beside the database; made when it is missing. Of two programs that make it at once, both get
/// what the first one wrote.
std::optional<std::string> randomOf(const std::string& userDBPath) {
    const std::string file = userDBPath + ".owner";
    if (auto random = storedRandom(file)) {
        return random;
    }
    static_cast<void>(createFile(file, randomHexadecimal() + randomHexadecimal()));
    return storedRandom(file);
}

} // namespace

EventOwner alarmOwner(const std::string& userDBPath) {
    std::error_code error;
    const auto path = std::filesystem::weakly_canonical(userDBPath, error);
    const std::string machine = machineIdentity();
    const std::string former = digest(machine + "\n" + (error ? userDBPath : path.string()));
    const auto random = randomOf(userDBPath);
    return random ? EventOwner{digest(machine + "\n" + *random), former} : EventOwner{former, {}};
}

} // namespace zorel
