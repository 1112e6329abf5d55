// SPDX-License-Identifier: Apache-2.0
#include "terminal/Wrap.h"

#include "terminal/Style.h"

#include <algorithm>

#include <sys/ioctl.h>

namespace zorel::cli {

std::optional<int> terminalColumns(int descriptor) {
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return std::nullopt;
    }
    return size.ws_col;
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
    std::vector<std::string> lines(1);
    std::size_t used = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (word.empty()) {
            continue;
        }
        const std::size_t columns = displayWidth(word);
        if (used > 0 && used + 1 + columns > width) {
            lines.emplace_back();
            used = 0;
        }
        lines.back().append(used > 0 ? " " : "").append(word);
        used += (used > 0 ? 1 : 0) + columns;
    }
    return lines;
}

std::string paragraph(std::string_view text, std::string_view first, std::string_view next,
                      std::size_t width) {
    const std::size_t indent = std::max(displayWidth(first), displayWidth(next));
    std::string result;
    for (const std::string& line : wrapped(text, width > indent ? width - indent : 1)) {
        result.append(result.empty() ? first : next).append(line).append("\n");
    }
    return result;
}

} // namespace zorel::cli
