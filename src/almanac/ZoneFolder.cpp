// SPDX-License-Identifier: Apache-2.0
#include "almanac/Scanner.h"
#include "almanac/ZoneData.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <tuple>

namespace zorel::almanac {

namespace {

/// The first line of a file, its first bytes if it is long; empty when there is none to read.
std::string firstLine(const std::filesystem::path& path) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) {
        return {};
    }
    std::array<char, 64> start{};
    std::ifstream file(path, std::ios::binary);
    file.read(start.data(), start.size());
    const std::string text(start.data(), static_cast<std::size_t>(file.gcount()));
    return text.substr(0, text.find_first_of("\r\n"));
}

/// "2025b" as something that can be compared; letters follow one another as "a" to "z", "za" to "zz".
std::optional<std::tuple<int, std::size_t, std::string_view>> orderOf(std::string_view edition) {
    Scanner scan(edition);
    const auto year = scan.digits(4);
    const std::string_view letters = scan.rest();
    if (!year || letters.find_first_not_of("abcdefghijklmnopqrstuvwxyz") != std::string_view::npos ||
        letters.size() > 2) {
        return std::nullopt;
    }
    return std::tuple(*year, letters.size(), letters);
}

/// The part of a path below a folder of zones ("/usr/share/zoneinfo/Europe/Berlin"); the text itself when
/// there is no such folder in it.
std::string_view belowZoneFolder(std::string_view path) {
    for (const std::string_view folder : {"/zoneinfo/", "posix/", "right/"}) {
        const auto at = path.find(folder);
        if (at != std::string_view::npos && (at == 0 || folder.front() == '/')) {
            path.remove_prefix(at + folder.size());
        }
    }
    return path;
}

} // namespace

std::filesystem::path zoneFolder() {
    const char* folder = std::getenv("TZDIR");
    return folder != nullptr && *folder != '\0' ? folder : "/usr/share/zoneinfo";
}

bool isPlainZoneName(std::string_view name) {
    constexpr std::string_view allowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_+-/";
    return !name.empty() && name.find_first_not_of(allowed) == std::string_view::npos &&
           !name.starts_with('/') && !name.ends_with('/') && name.find("//") == std::string_view::npos &&
           name != "localtime" && name != "posixrules";
}

bool zoneFileExists(std::string_view name) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(zoneFolder() / name, ignored);
}

std::string zoneEditionOf(const std::filesystem::path& folder) {
    constexpr std::string_view before = "# version ";
    const std::string rules = firstLine(folder / "tzdata.zi");
    return rules.starts_with(before) ? rules.substr(before.size()) : firstLine(folder / "+VERSION");
}

bool isOlderEdition(std::string_view one, std::string_view other) {
    const auto left = orderOf(one);
    const auto right = orderOf(other);
    return left && right && *left < *right;
}

std::string systemZoneEdition() {
    static const std::string edition = zoneEditionOf(zoneFolder());
    return edition;
}

std::string machineZoneName() {
    const char* variable = std::getenv("TZ");
    if (variable != nullptr && *variable == '\0') {
        return "UTC";
    }
    std::error_code missing;
    const std::string text =
        variable != nullptr ? variable : std::filesystem::read_symlink("/etc/localtime", missing).string();
    const std::string_view path(text);
    const std::string_view name = belowZoneFolder(path.starts_with(':') ? path.substr(1) : path);
    // "EST5" is a rule and no name, though of the same letters.
    const bool isName =
        isPlainZoneName(name) && (name.find('/') != std::string_view::npos || zoneFileExists(name));
    return isName ? std::string(name) : std::string();
}

} // namespace zorel::almanac
