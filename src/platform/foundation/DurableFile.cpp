// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/DurableFile.h"

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/NumberText.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <unistd.h>

namespace zorel {
namespace {

namespace fs = std::filesystem;

/// Start of the names of the temporary files of a path; the number of the process that writes follows.
std::string temporaryPrefix(const std::string& path) {
    return path + ".new-";
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return true;
}

/// Moves without replacing; a file system that cannot do that in one step gets a second name and loses the
/// first.
bool moveWithoutReplacing(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    const bool unsupported = errno == EINVAL || errno == ENOSYS;
    return unsupported && link(from.c_str(), to.c_str()) == 0 && unlink(from.c_str()) == 0;
}

bool processLives(std::int32_t process) {
    return process != getpid() && process > 0 && (kill(process, 0) == 0 || errno != ESRCH);
}

} // namespace

bool writeNewFile(const std::string& path, std::string_view bytes) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    return file.get() >= 0 && writeAll(file.get(), bytes) && fsync(file.get()) == 0;
}

void syncFolder(const std::string& folder) {
    const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.get() >= 0) {
        fsync(descriptor.get());
    }
}

bool createFileDurably(const std::string& path, std::string_view bytes) {
    const std::string temporary = temporaryPrefix(path) + fmt::format("{}", getpid());
    if (!writeNewFile(temporary, bytes) || !moveWithoutReplacing(temporary, path)) {
        unlink(temporary.c_str());
        return false;
    }
    syncFolder(fs::path(path).parent_path());
    return true;
}

void removeAbandonedTemporaries(const std::string& path) {
    const std::string prefix = temporaryPrefix(path);
    std::error_code error;
    fs::directory_iterator entry(fs::path(path).parent_path(), error);
    while (!error && entry != fs::directory_iterator()) {
        const std::string name = entry->path().string();
        if (name.starts_with(prefix) &&
            !processLives(integerValue(std::string_view(name).substr(prefix.size())))) {
            unlink(name.c_str());
        }
        entry.increment(error);
    }
}

} // namespace zorel
