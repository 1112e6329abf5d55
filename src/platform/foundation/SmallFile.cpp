// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/SmallFile.h"

#include "platform/foundation/Descriptor.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zorel {
namespace {

std::string readAll(int descriptor, std::size_t size) {
    std::string content(size, '\0');
    std::size_t have = 0;
    while (have < size) {
        const ssize_t got = ::read(descriptor, content.data() + have, size - have);
        if (got == 0 || (got < 0 && errno != EINTR)) {
            break;
        }
        have += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    content.resize(have);
    return content;
}

} // namespace

std::optional<std::string> readSmallFile(const std::string& path, std::size_t limit) {
    // Without O_NONBLOCK a named pipe would hold the program.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        static_cast<std::uint64_t>(status.st_size) > limit) {
        return std::nullopt;
    }
    return readAll(file.get(), static_cast<std::size_t>(status.st_size));
}

} // namespace zorel
