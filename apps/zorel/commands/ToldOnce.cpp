// SPDX-License-Identifier: Apache-2.0
#include "commands/ToldOnce.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/Locations.h"

#include <algorithm>
#include <filesystem>
#include <string>

namespace zorel::cli {

namespace {
constexpr std::size_t kMostLines = 100;
constexpr std::size_t kMostBytes = 64'000;

std::string path() {
    return Locations::current().data + "/ToldNames.txt";
}

bool hasLine(std::string_view lines, std::string_view line) {
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        if (lines.substr(0, end) == line) {
            return true;
        }
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
    return false;
}

/// The oldest lines go first.
void keepLast(std::string& lines, std::size_t most) {
    auto count = static_cast<std::size_t>(std::ranges::count(lines, '\n'));
    while (count-- > most) {
        lines.erase(0, lines.find('\n') + 1);
    }
}
} // namespace

bool isToldFirst(std::string_view what) {
    std::string lines = readSmallFile(path(), kMostBytes).value_or("");
    if (hasLine(lines, what)) {
        return false;
    }
    lines.append(what).append("\n");
    keepLast(lines, kMostLines);
    std::error_code ignored;
    std::filesystem::create_directories(Locations::current().data, ignored);
    static_cast<void>(replaceFile(path(), lines));
    return true;
}

} // namespace zorel::cli
