// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Files.h"

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/RandomText.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zorel {
namespace {

namespace fs = std::filesystem;

/// Names of temporary files: this, the number of the process that writes, "-", a random text, the suffix. The
/// dot hides them from programs that read folders of calendars.
constexpr std::string_view kTemporaryPrefix = ".zorel-";
constexpr std::string_view kTemporarySuffix = ".tmp";

std::error_code lastError() {
    return {errno, std::generic_category()};
}

std::string folderOf(const std::string& path) {
    const fs::path folder = fs::path(path).parent_path();
    return folder.empty() ? "." : folder.string();
}

std::string newTemporaryName(const std::string& folder) {
    return fmt::format("{}/{}{}-{}{}", folder, kTemporaryPrefix, getpid(), randomHexadecimal(),
                       kTemporarySuffix);
}

/// The process that writes a temporary file; 0 when the name has none.
pid_t writerOf(std::string_view temporaryName) {
    const std::string_view rest = temporaryName.substr(kTemporaryPrefix.size());
    pid_t process = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), process);
    return error == std::errc{} && *end == '-' ? process : 0;
}

bool livesElsewhere(pid_t process) {
    return process > 0 && process != getpid() && (kill(process, 0) == 0 || errno != ESRCH);
}

bool isAbandoned(std::string_view name) {
    return name.starts_with(kTemporaryPrefix) && name.ends_with(kTemporarySuffix) &&
           !livesElsewhere(writerOf(name));
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

/// All that a file of this size holds; less when it has become shorter, nothing when reading fails.
std::optional<std::string> readAll(int file, std::size_t size) {
    std::string content(size, '\0');
    std::size_t have = 0;
    while (have < size) {
        const ssize_t got = read(file, content.data() + have, size - have);
        if (got < 0 && errno != EINTR) {
            return std::nullopt;
        }
        if (got == 0) {
            break;
        }
        have += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    content.resize(have);
    return content;
}

/// Why a file of this kind is not read.
std::error_code kindError(const struct stat& status, std::size_t limit) {
    if (!S_ISREG(status.st_mode)) {
        return std::make_error_code(std::errc::not_supported);
    }
    const bool large = static_cast<std::uint64_t>(status.st_size) > limit;
    return large ? std::make_error_code(std::errc::file_too_large) : std::error_code();
}

bool writeNew(const std::string& path, std::string_view bytes) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    return file.get() >= 0 && writeAll(file.get(), bytes) && fsync(file.get()) == 0;
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

bool moveReplacing(const std::string& from, const std::string& to) {
    return rename(from.c_str(), to.c_str()) == 0;
}

bool syncFile(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file.get() >= 0 && fsync(file.get()) == 0;
}

void syncFolder(const std::string& folder) {
    const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.get() >= 0) {
        fsync(descriptor.get());
    }
}

std::error_code writeAndMove(const std::string& path, std::string_view bytes,
                             bool (*move)(const std::string&, const std::string&)) {
    const std::string folder = folderOf(path);
    const std::string temporary = newTemporaryName(folder);
    if (!writeNew(temporary, bytes) || !move(temporary, path)) {
        const std::error_code error = lastError();
        unlink(temporary.c_str());
        return error;
    }
    syncFolder(folder);
    return {};
}

} // namespace

std::error_code createFile(const std::string& path, std::string_view bytes) {
    return writeAndMove(path, bytes, moveWithoutReplacing);
}

std::error_code replaceFile(const std::string& path, std::string_view bytes) {
    return writeAndMove(path, bytes, moveReplacing);
}

std::error_code replaceFileWith(const std::string& path, const std::string& finished) {
    if (!syncFile(finished) || !moveReplacing(finished, path)) {
        return lastError();
    }
    syncFolder(folderOf(path));
    return {};
}

std::error_code removeFile(const std::string& path) {
    if (unlink(path.c_str()) != 0) {
        return lastError();
    }
    syncFolder(folderOf(path));
    return {};
}

std::optional<std::string> readSmallFile(const std::string& path, std::size_t limit) {
    std::error_code ignored;
    return readSmallFile(path, limit, ignored);
}

std::optional<std::string> readSmallFile(const std::string& path, std::size_t limit, std::error_code& error) {
    // Without O_NONBLOCK a named pipe would hold the program.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (file.get() < 0 || fstat(file.get(), &status) != 0) {
        error = lastError();
        return std::nullopt;
    }
    error = kindError(status, limit);
    if (error) {
        return std::nullopt;
    }
    auto content = readAll(file.get(), static_cast<std::size_t>(status.st_size));
    error = content ? std::error_code() : lastError();
    return content;
}

void sweepTemporaryFiles(const std::string& folder) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    while (!error && entry != fs::directory_iterator()) {
        if (isAbandoned(entry->path().filename().string())) {
            unlink(entry->path().c_str());
        }
        entry.increment(error);
    }
}

} // namespace zorel
