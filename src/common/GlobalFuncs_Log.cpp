// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/Locations.h"

#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zorel {
namespace {

constexpr std::string_view kLogFile = "SettingsLog.txt";
constexpr std::string_view kOlderFile = "SettingsLog.1.txt";
/// Of each of the two files [bytes].
constexpr std::uint64_t kLimit = 128UL * 1024;
constexpr int kTries = 3;

/// Whether the file still has the name, and is full.
bool isFull(const struct stat& file, const std::string& path, std::size_t more) {
    struct stat named {};
    return S_ISREG(file.st_mode) && static_cast<std::uint64_t>(file.st_size) + more > kLimit &&
           stat(path.c_str(), &named) == 0 && named.st_ino == file.st_ino;
}

/// Adds text to a file with a single write, so that the lines of several writers do not mix. A full file
/// becomes the older one; of several writers one does that, under the file's lock. Whoever finds it locked
/// each time adds his line to the full file: no line is lost, and nobody waits. O_NONBLOCK: a pipe in the
/// file's place must not hold the program up.
void appendToFile(const std::string& path, const std::string& older, std::string_view text) {
    for (int tries = 1; tries <= kTries; ++tries) {
        const Descriptor file(
            open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600));
        struct stat status {};
        if (file.get() < 0 || fstat(file.get(), &status) != 0) {
            return;
        }
        if (tries == kTries || !isFull(status, path, text.size())) {
            [[maybe_unused]] const ssize_t written = write(file.get(), text.data(), text.size());
            return;
        }
        if (flock(file.get(), LOCK_EX | LOCK_NB) == 0 && isFull(status, path, text.size())) {
            rename(path.c_str(), older.c_str());
        }
    }
}

} // namespace

void GlobalFuncs::NSLogToFile(std::string_view message) const {
    const DateTimeRecord time = GetCurrentDateTime();
    const std::string line =
        fmt::format("[{:04}-{:02}-{:02} {}] {}\n", time.year, time.month, time.day,
                    timeLeadingZeroWithSeconds(time.hour, time.minute, time.second), message);
    const std::string& folder = Locations::current().data;
    appendToFile(fmt::format("{}/{}", folder, kLogFile), fmt::format("{}/{}", folder, kOlderFile),
                 line.substr(0, kLimit));
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
