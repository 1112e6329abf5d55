// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/foundation/Locations.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <string_view>

namespace zorel::test {

/// A folder of its own that disappears with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "zorel-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        path_ = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string path(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

/// The process's folders while it lives: the data folder is temporary, the bundle is the one of the source
/// tree.
class TemporaryLocations {
public:
    TemporaryLocations() : previous_(Locations::current()) {
        Locations::current() = {std::string(ZOREL_SOURCE_DIR) + "/resources/Zorel.bundle", folder.path(),
                                folder.path("Ringtones")};
    }
    TemporaryLocations(const TemporaryLocations&) = delete;
    TemporaryLocations& operator=(const TemporaryLocations&) = delete;
    ~TemporaryLocations() { Locations::current() = previous_; }

    TemporaryFolder folder;

private:
    Locations previous_;
};

inline std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void writeFile(const std::string& path, std::string_view bytes) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace zorel::test
