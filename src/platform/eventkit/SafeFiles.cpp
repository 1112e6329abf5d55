// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/SafeFiles.h"

#include "platform/foundation/DurableFile.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/file.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace zorel {
namespace {

constexpr std::string_view kTemporaryPrefix = ".zorel-";
constexpr std::string_view kTemporarySuffix = ".tmp";

bool fail(std::string& error, std::string_view what, const std::string& path) {
    error = std::string(what) + " " + path + ": " + std::error_code(errno, std::generic_category()).message();
    return false;
}

bool isTemporary(std::string_view name) {
    return name.starts_with(kTemporaryPrefix) && name.ends_with(kTemporarySuffix);
}

} // namespace

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience)
    : descriptor_(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    constexpr std::chrono::milliseconds pause{5};
    for (auto waited = std::chrono::milliseconds{0}; descriptor_.get() >= 0; waited += pause) {
        held_ = ::flock(descriptor_.get(), LOCK_EX | LOCK_NB) == 0;
        if (held_ || (errno != EWOULDBLOCK && errno != EINTR) || waited >= patience) {
            return;
        }
        std::this_thread::sleep_for(pause);
    }
}

bool replaceFile(const std::string& folder, const std::string& name, std::string_view content,
                 std::string& error) {
    const std::string temporary =
        folder + "/" + std::string(kTemporaryPrefix) + randomHexadecimal() + std::string(kTemporarySuffix);
    const std::string target = folder + "/" + name;
    if (!writeNewFile(temporary, content) || ::rename(temporary.c_str(), target.c_str()) != 0) {
        fail(error, "cannot write", target);
        ::unlink(temporary.c_str());
        return false;
    }
    syncFolder(folder);
    return true;
}

bool removeFile(const std::string& folder, const std::string& name, std::string& error) {
    const std::string path = folder + "/" + name;
    if (::unlink(path.c_str()) != 0) {
        return fail(error, "cannot remove", path);
    }
    syncFolder(folder);
    return true;
}

void removeStaleTemporaryFiles(const std::string& folder) {
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(folder, ignored), end; entry != end;
         entry.increment(ignored)) {
        if (isTemporary(entry->path().filename().string())) {
            ::unlink(entry->path().c_str());
        }
    }
}

std::string randomHexadecimal() {
    constexpr std::string_view digits = "0123456789abcdef";
    std::random_device source;
    std::string text;
    for (int word = 0; word < 2; ++word) {
        const std::uint32_t bits = source();
        for (unsigned shift = 0; shift < 32; shift += 4) {
            text += digits[(bits >> shift) & 0xFU];
        }
    }
    return text;
}

} // namespace zorel
