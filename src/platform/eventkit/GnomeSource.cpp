// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/GnomeSource.h"

#include "platform/eventkit/IcsEvent.h"
#include "platform/eventkit/OneFile.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/ProgramLocations.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace zorel {
namespace {

constexpr std::size_t kSourceLimit = 64UL * 1024;

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

/// The line of the source that names our file.
std::string fileLine(const std::string& folder) {
    std::error_code error;
    const auto whole = std::filesystem::weakly_canonical(std::filesystem::absolute(folder, error), error);
    return "CustomFile=" + uriOf(oneFileOf(error ? folder : whole.string())) + "\n";
}

std::string sourceText(const std::string& folder) {
    return "[Data Source]\nDisplayName=" + std::string(kCalendarName) +
           "\nEnabled=true\nParent=local-stub\n\n[Calendar]\nBackendName=local\nColor=" +
           std::string(kCalendarColor) + "\nSelected=true\n\n[Local Backend]\n" + fileLine(folder) +
           "Writable=false\n\n[Alarms]\nIncludeMe=true\n";
}

std::error_code removeIfThere(const std::string& path) {
    const std::error_code error = removeFile(path);
    const bool isGone = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    return isGone ? std::error_code() : error;
}

} // namespace

std::string gnomeSourcePath() {
    const auto config = userConfigDirectory();
    return config ? *config + "/evolution/sources/zorel-alarms.source" : "";
}

bool isGnomeConnected(const std::string& folder) {
    std::error_code ignored;
    return isGnomeConnected(folder, ignored);
}

bool isGnomeConnected(const std::string& folder, std::error_code& error) {
    const std::string path = gnomeSourcePath();
    if (path.empty()) {
        return false;
    }
    const auto source = readSmallFile(path, kSourceLimit, error);
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
        error.clear();
    }
    return source && source->find(fileLine(folder)) != std::string::npos;
}

std::error_code connectGnome(const std::string& folder) {
    const std::string path = gnomeSourcePath();
    if (path.empty() || !createDirectoryAtPath(path.substr(0, path.rfind('/')))) {
        return std::make_error_code(std::errc::no_such_file_or_directory);
    }
    // The source first: when the file comes into being, everybody who looks finds GNOME connected.
    if (const std::error_code error = replaceFile(path, sourceText(folder))) {
        return error;
    }
    const std::error_code error = writeOneFile(folder);
    if (error) {
        static_cast<void>(removeIfThere(path)); // else GNOME would be believed to ring
    }
    return error;
}

std::error_code disconnectGnome(const std::string& folder) {
    const std::error_code error =
        isMissingAtPath(oneFileOf(folder)) ? std::error_code() : emptyOneFile(folder);
    const std::string path = gnomeSourcePath();
    return error || path.empty() ? error : removeIfThere(path);
}

} // namespace zorel
