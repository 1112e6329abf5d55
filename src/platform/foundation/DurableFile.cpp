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
#include <utility>

namespace zorel {
namespace {

namespace fs = std::filesystem;

std::function<bool(FileStep)>& stepFunction() {
    static std::function<bool(FileStep)> mayProceed;
    return mayProceed;
}

bool mayProceed(FileStep step) {
    return !stepFunction() || stepFunction()(step);
}

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

bool writeTemporary(const std::string& temporary, std::string_view bytes) {
    if (!mayProceed(FileStep::create)) {
        return false;
    }
    const Descriptor file(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    return file.get() >= 0 && mayProceed(FileStep::write) && writeAll(file.get(), bytes) &&
           mayProceed(FileStep::sync) && fsync(file.get()) == 0;
}

/// Moves without replacing; a file system that cannot do that in one step gets a second name and loses the
/// first.
bool moveWithoutReplacing(const std::string& from, const std::string& to) {
    if (!mayProceed(FileStep::rename)) {
        return false;
    }
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    const bool unsupported = errno == EINVAL || errno == ENOSYS;
    return unsupported && link(from.c_str(), to.c_str()) == 0 && unlink(from.c_str()) == 0;
}

/// The file is in place already; without this step a power cut may still take it away, which is no failure.
void syncFolderOf(const std::string& path) {
    if (mayProceed(FileStep::syncFolder)) {
        const Descriptor folder(
            open(fs::path(path).parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        fsync(folder.get());
    }
}

bool processLives(std::int32_t process) {
    return process != getpid() && process > 0 && (kill(process, 0) == 0 || errno != ESRCH);
}

} // namespace

bool createFileDurably(const std::string& path, std::string_view bytes) {
    const std::string temporary = temporaryPrefix(path) + fmt::format("{}", getpid());
    if (!writeTemporary(temporary, bytes) || !moveWithoutReplacing(temporary, path)) {
        unlink(temporary.c_str());
        return false;
    }
    syncFolderOf(path);
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

FileStepOverride::FileStepOverride(std::function<bool(FileStep)> mayProceed)
    : previous_(std::exchange(stepFunction(), std::move(mayProceed))) {}

FileStepOverride::~FileStepOverride() {
    stepFunction() = std::move(previous_);
}

} // namespace zorel
