// SPDX-License-Identifier: Apache-2.0
// Loaded before a program (LD_PRELOAD), lets a chosen one of its calls on the files of one folder go wrong.
//
//   ZOREL_FAULT_UNDER   only files below these folders (separated by ':') count
//   ZOREL_FAULT_NTH     the call, from 1; 0: none, they are only counted
//   ZOREL_FAULT_ERROR   errno of the failing call; -1: the process is killed instead; -2: a read or write
//   does
//                       half of its work
//   ZOREL_FAULT_LASTING 1: every later call goes wrong too
//   ZOREL_FAULT_COUNT   file that the number of calls is written to at the end
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kKill = -1;
constexpr int kShort = -2;
constexpr int kDescriptors = 256;

struct Plan {
    std::string under;
    std::string count;
    int nth = 0;
    int error = 0;
    bool lasting = false;
    int seen = 0;
    std::array<bool, kDescriptors> counts{}; ///< descriptors of files that count
};

const char* valueOf(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

Plan& plan() {
    static Plan one{valueOf("ZOREL_FAULT_UNDER"),
                    valueOf("ZOREL_FAULT_COUNT"),
                    std::atoi(valueOf("ZOREL_FAULT_NTH")),
                    std::atoi(valueOf("ZOREL_FAULT_ERROR")),
                    *valueOf("ZOREL_FAULT_LASTING") == '1',
                    0,
                    {}};
    return one;
}

bool isUnder(const char* path) {
    const std::string& all = plan().under;
    std::size_t start = 0;
    while (path != nullptr && start < all.size()) {
        const std::size_t end = std::min(all.find(':', start), all.size());
        if (end > start && std::strncmp(path, all.c_str() + start, end - start) == 0) {
            return true;
        }
        start = end + 1;
    }
    return false;
}

bool isUnder(int file) {
    return file >= 0 && file < kDescriptors && plan().counts[static_cast<std::size_t>(file)];
}

int remember(int file, bool counts) {
    if (file >= 0 && file < kDescriptors) {
        plan().counts[static_cast<std::size_t>(file)] = counts;
    }
    return file;
}

enum class Verdict { proceed, fail, half };

Verdict verdict(bool counts) {
    if (!counts) {
        return Verdict::proceed;
    }
    Plan& now = plan();
    ++now.seen;
    if (now.nth == 0 || now.seen < now.nth || (now.seen > now.nth && !now.lasting)) {
        return Verdict::proceed;
    }
    if (now.error == kKill) {
        kill(getpid(), SIGKILL);
    }
    if (now.error == kShort) {
        return Verdict::half;
    }
    errno = now.error;
    return Verdict::fail;
}

template <typename Function> Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Runs the call of the C library unless a fault is due.
template <typename Function, typename... Arguments>
auto run(bool counts, const char* name, Arguments... arguments) {
    using Result = decltype(real<Function>(name)(arguments...));
    if (verdict(counts) != Verdict::fail) {
        return real<Function>(name)(arguments...);
    }
    if constexpr (std::is_pointer_v<Result>) {
        return static_cast<Result>(nullptr);
    } else {
        return static_cast<Result>(-1);
    }
}

/// The same for calls that move bytes, which may do half of it.
template <typename Function, typename Buffer, typename... Rest>
ssize_t move(const char* name, int file, Buffer buffer, std::size_t size, Rest... rest) {
    switch (verdict(isUnder(file))) {
    case Verdict::fail:
        return -1;
    case Verdict::half:
        return real<Function>(name)(file, buffer, (size + 1) / 2, rest...);
    default:
        return real<Function>(name)(file, buffer, size, rest...);
    }
}

using Open = int(const char*, int, ...);

int openFile(const char* name, const char* path, int flags, mode_t mode) {
    const bool counts = isUnder(path);
    return remember(run<Open>(counts, name, path, flags, mode), counts);
}

/// Writes the number of calls when the program ends.
struct AtEnd {
    AtEnd() { plan(); } // so that the plan lives longer
    ~AtEnd() {
        if (plan().count.empty()) {
            return;
        }
        if (FILE* file = std::fopen(plan().count.c_str(), "we")) {
            std::fprintf(file, "%d\n", plan().seen);
            std::fclose(file);
        }
    }
};
const AtEnd atEnd;

} // namespace

// The C library's own functions, with its own names and parameters.
extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return openFile("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return openFile("open64", path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    const bool counts = isUnder(path);
    return remember(run<int(int, const char*, int, ...)>(counts, "openat", folder, path, flags, mode),
                    counts);
}

int close(int file) {
    remember(file, false);
    return real<int(int)>("close")(file);
}

ssize_t read(int file, void* buffer, std::size_t size) {
    return move<ssize_t(int, void*, std::size_t)>("read", file, buffer, size);
}

ssize_t pread(int file, void* buffer, std::size_t size, off_t offset) {
    return move<ssize_t(int, void*, std::size_t, off_t)>("pread", file, buffer, size, offset);
}

ssize_t pread64(int file, void* buffer, std::size_t size, off64_t offset) {
    return move<ssize_t(int, void*, std::size_t, off64_t)>("pread64", file, buffer, size, offset);
}

ssize_t write(int file, const void* buffer, std::size_t size) {
    return move<ssize_t(int, const void*, std::size_t)>("write", file, buffer, size);
}

ssize_t pwrite(int file, const void* buffer, std::size_t size, off_t offset) {
    return move<ssize_t(int, const void*, std::size_t, off_t)>("pwrite", file, buffer, size, offset);
}

ssize_t pwrite64(int file, const void* buffer, std::size_t size, off64_t offset) {
    return move<ssize_t(int, const void*, std::size_t, off64_t)>("pwrite64", file, buffer, size, offset);
}

int fsync(int file) {
    return run<int(int)>(isUnder(file), "fsync", file);
}

int fdatasync(int file) {
    return run<int(int)>(isUnder(file), "fdatasync", file);
}

int ftruncate(int file, off_t size) noexcept {
    return run<int(int, off_t)>(isUnder(file), "ftruncate", file, size);
}

int ftruncate64(int file, off64_t size) noexcept {
    return run<int(int, off64_t)>(isUnder(file), "ftruncate64", file, size);
}

int fchmod(int file, mode_t mode) noexcept {
    return run<int(int, mode_t)>(isUnder(file), "fchmod", file, mode);
}

int fstat(int file, struct stat* status) noexcept {
    return run<int(int, struct stat*)>(isUnder(file), "fstat", file, status);
}

int fstat64(int file, struct stat64* status) noexcept {
    return run<int(int, struct stat64*)>(isUnder(file), "fstat64", file, status);
}

int stat(const char* path, struct stat* status) noexcept {
    return run<int(const char*, struct stat*)>(isUnder(path), "stat", path, status);
}

int stat64(const char* path, struct stat64* status) noexcept {
    return run<int(const char*, struct stat64*)>(isUnder(path), "stat64", path, status);
}

int lstat(const char* path, struct stat* status) noexcept {
    return run<int(const char*, struct stat*)>(isUnder(path), "lstat", path, status);
}

int access(const char* path, int mode) noexcept {
    return run<int(const char*, int)>(isUnder(path), "access", path, mode);
}

int mkdir(const char* path, mode_t mode) noexcept {
    return run<int(const char*, mode_t)>(isUnder(path), "mkdir", path, mode);
}

int unlink(const char* path) noexcept {
    return run<int(const char*)>(isUnder(path), "unlink", path);
}

int link(const char* from, const char* to) noexcept {
    return run<int(const char*, const char*)>(isUnder(from), "link", from, to);
}

int rename(const char* from, const char* to) noexcept {
    return run<int(const char*, const char*)>(isUnder(from), "rename", from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    return run<int(int, const char*, int, const char*, unsigned)>(isUnder(from), "renameat2", fromFolder,
                                                                  from, toFolder, to, flags);
}

int flock(int file, int operation) noexcept {
    return run<int(int, int)>(isUnder(file), "flock", file, operation);
}

struct __dirstream* opendir(const char* path) {
    return run<struct __dirstream*(const char*)>(isUnder(path), "opendir", path);
}

} // extern "C"
