// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/Locations.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

namespace zorel {
namespace {

constexpr std::string_view kLogFile = "SettingsLog.txt";

/// Adds text to a file with a single write, so that the lines of several writers do not mix. O_NONBLOCK: a
/// pipe in the file's place must not hold the program up.
void appendToFile(const std::string& path, std::string_view text) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600));
    if (file.get() >= 0) {
        [[maybe_unused]] const ssize_t written = write(file.get(), text.data(), text.size());
    }
}

} // namespace

void GlobalFuncs::NSLogToFile(std::string_view message) const {
    const DateTimeRecord time = GetCurrentDateTime();
    const std::string line =
        fmt::format("[{}] {}\n", timeLeadingZeroWithSeconds(time.hour, time.minute, time.second), message);
    appendToFile(fmt::format("{}/{}", Locations::current().data, kLogFile), line);
}

void GlobalFuncs::NSLogToFileStrInt(std::string_view message, std::int32_t value) const {
    NSLogToFile(fmt::format("{} {}", message, value));
}

void GlobalFuncs::NSLogToFileStrIntInt(std::string_view message, std::int32_t first,
                                       std::int32_t second) const {
    NSLogToFile(fmt::format("{} {}, {}", message, first, second));
}

void GlobalFuncs::NSLogToFileStrFloat(std::string_view message, double value) const {
    NSLogToFile(fmt::format("{} {:f}", message, value));
}

void GlobalFuncs::NSLogToFileStrFloatFloat(std::string_view message, double first, double second) const {
    NSLogToFile(fmt::format("{} {:f}, {:f}", message, first, second));
}

} // namespace zorel
