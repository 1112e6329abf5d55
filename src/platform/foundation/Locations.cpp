// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Locations.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>

namespace zorel {
namespace {

namespace fs = std::filesystem;

bool isDirectory(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

/// Makes one folder whose parent exists.
bool createOne(const fs::path& path) {
    return mkdir(path.c_str(), 0700) == 0 || (errno == EEXIST && isDirectory(path));
}

std::string withoutTrailingSlashes(const std::string& path) {
    const std::size_t last = path.find_last_not_of('/');
    return last == std::string::npos ? path.substr(0, 1) : path.substr(0, last + 1);
}

} // namespace

Locations& Locations::current() {
    static Locations locations;
    return locations;
}

bool fileExistsAtPath(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error);
}

bool isMissingAtPath(const std::string& path) {
    std::error_code error;
    return fs::status(path, error).type() == fs::file_type::not_found;
}

bool createDirectoryAtPath(const std::string& path) {
    if (isDirectory(path)) {
        return true;
    }
    fs::path made;
    for (const fs::path& component : fs::path(withoutTrailingSlashes(path))) {
        made /= component;
        if (!isDirectory(made) && !createOne(made)) {
            return false;
        }
    }
    return !made.empty();
}

std::vector<std::string> entriesBelowPath(const std::string& path) {
    std::vector<std::string> entries;
    std::error_code error;
    fs::recursive_directory_iterator entry(path, fs::directory_options::skip_permission_denied, error);
    while (!error && entry != fs::recursive_directory_iterator()) {
        entries.push_back(entry->path().lexically_relative(path).string());
        entry.increment(error);
    }
    return entries;
}

std::string pathWithoutExtension(const std::string& path) {
    return fs::path(withoutTrailingSlashes(path)).replace_extension().string();
}

} // namespace zorel
