// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FaultPoints.h"

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel::faults {
namespace {

struct Plan {
    bool armed = false;
    Effect effect = Effect::count;
    int nth = 0;
    int error = 0;
    bool lasting = false;
    int seen = 0;
};

Plan plan;

enum class Verdict { proceed, refuse, tear };

/// Counts a call and says what is to become of it.
Verdict next() {
    if (!plan.armed) {
        return Verdict::proceed;
    }
    ++plan.seen;
    const bool hit = plan.seen == plan.nth || (plan.lasting && plan.seen > plan.nth);
    if (!hit || plan.effect == Effect::count) {
        return Verdict::proceed;
    }
    if (plan.effect == Effect::die) {
        _exit(kDied);
    }
    if (plan.effect == Effect::tear) {
        return Verdict::tear;
    }
    errno = plan.error;
    return Verdict::refuse;
}

/// Ends the call that did not get leave to proceed.
int refused() {
    if (plan.effect == Effect::tear) {
        _exit(kDied);
    }
    return -1;
}

template <typename Function> Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Runs the call of the C library unless a fault is due.
template <typename Function, typename... Arguments> auto run(const char* name, Arguments... arguments) {
    using Result = decltype(real<Function>(name)(arguments...));
    return next() == Verdict::proceed ? real<Function>(name)(arguments...) : static_cast<Result>(refused());
}

using Open = int(const char*, int, ...);

int openFile(const char* name, const char* path, int flags, mode_t mode) {
    return (flags & O_CREAT) != 0 ? run<Open>(name, path, flags, mode) : real<Open>(name)(path, flags, mode);
}

} // namespace

void arm(Effect effect, int nth, int error, bool lasting) {
    plan = {true, effect, nth, error, lasting, 0};
}

int disarm() {
    plan.armed = false;
    return plan.seen;
}

int runInChild(Effect effect, int nth, const std::function<void()>& function) {
    const pid_t child = fork();
    if (child == 0) {
        arm(effect, nth);
        function();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace zorel::faults

namespace faults = zorel::faults;

extern "C" {

ssize_t write(int file, const void* bytes, size_t size) {
    switch (faults::next()) {
    case faults::Verdict::refuse:
        return -1;
    case faults::Verdict::tear:
        faults::real<ssize_t(int, const void*, size_t)>("write")(file, bytes, size / 2);
        _exit(faults::kDied);
    default:
        return faults::real<ssize_t(int, const void*, size_t)>("write")(file, bytes, size);
    }
}

ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
    using Function = ssize_t(int, const void*, size_t, off64_t);
    switch (faults::next()) {
    case faults::Verdict::refuse:
        return -1;
    case faults::Verdict::tear:
        faults::real<Function>("pwrite64")(file, bytes, size / 2, offset);
        _exit(faults::kDied);
    default:
        return faults::real<Function>("pwrite64")(file, bytes, size, offset);
    }
}

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the analyzer misses the va_start above
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : mode_t{0};
    va_end(arguments);
    return faults::openFile("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the analyzer misses the va_start above
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : mode_t{0};
    va_end(arguments);
    return faults::openFile("open64", path, flags, mode);
}

// Syncs are counted but not carried out: what a process has written survives its death without them, and a
// test that makes thousands of them would wait for the disk all the time.
int fsync(int /*file*/) {
    return faults::next() == faults::Verdict::proceed ? 0 : faults::refused();
}
int fdatasync(int file) {
    return fsync(file);
}
int ftruncate64(int file, off64_t size) noexcept {
    return faults::run<int(int, off64_t)>("ftruncate64", file, size);
}
int unlink(const char* path) noexcept {
    return faults::run<int(const char*)>("unlink", path);
}
int mkdir(const char* path, mode_t mode) noexcept {
    return faults::run<int(const char*, mode_t)>("mkdir", path, mode);
}
int rename(const char* from, const char* to) noexcept {
    return faults::run<int(const char*, const char*)>("rename", from, to);
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    return faults::run<int(int, const char*, int, const char*, unsigned)>("renameat2", fromFolder, from,
                                                                          toFolder, to, flags);
}
int link(const char* from, const char* to) noexcept {
    return faults::run<int(const char*, const char*)>("link", from, to);
}

} // extern "C"
