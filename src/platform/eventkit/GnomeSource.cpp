// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/GnomeSource.h"

#include "platform/eventkit/IcsEvent.h"
#include "platform/eventkit/OneFile.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Locations.h"

#include <cstdlib>
#include <string_view>

namespace zorel {
namespace {

std::string configFolder() {
    const char* const config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && *config == '/') {
        return config;
    }
    const char* const home = std::getenv("HOME");
    return home != nullptr && *home == '/' ? std::string(home) + "/.config" : "";
}

/// The path as a URI (RFC 3986).
std::string uriOf(const std::string& path) {
    constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string uri = "file://";
    for (const char letter : path) {
        const auto code = static_cast<unsigned char>(letter);
        if (plain.find(letter) != std::string_view::npos) {
            uri += letter;
        } else {
            uri += {'%', digits[code / 16U], digits[code % 16U]};
        }
    }
    return uri;
}

std::string sourceText(const std::string& folder) {
    return "[Data Source]\nDisplayName=" + std::string(kCalendarName) +
           "\nEnabled=true\nParent=local-stub\n\n[Calendar]\nBackendName=local\nColor=" +
           std::string(kCalendarColor) +
           "\nSelected=true\n\n[Local Backend]\nCustomFile=" + uriOf(oneFileOf(folder)) +
           "\nWritable=false\n\n[Alarms]\nIncludeMe=true\n";
}

std::error_code removeIfThere(const std::string& path) {
    const std::error_code error = removeFile(path);
    const bool isGone = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    return isGone ? std::error_code() : error;
}

} // namespace

std::string gnomeSourcePath() {
    const std::string config = configFolder();
    return config.empty() ? "" : config + "/evolution/sources/zorel-alarms.source";
}

bool isGnomeConnected() {
    const std::string path = gnomeSourcePath();
    return !path.empty() && fileExistsAtPath(path);
}

std::error_code connectGnome(const std::string& folder) {
    const std::string path = gnomeSourcePath();
    if (path.empty() || !createDirectoryAtPath(path.substr(0, path.rfind('/')))) {
        return std::make_error_code(std::errc::no_such_file_or_directory);
    }
    // The source first: when the file comes into being, everybody who looks finds GNOME connected.
    const std::error_code error = replaceFile(path, sourceText(folder));
    return error ? error : writeOneFile(folder);
}

std::error_code disconnectGnome(const std::string& folder) {
    const std::string path = gnomeSourcePath();
    const std::error_code error = path.empty() ? std::error_code() : removeIfThere(path);
    return error ? error : removeIfThere(oneFileOf(folder));
}

} // namespace zorel
