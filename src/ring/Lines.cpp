// SPDX-License-Identifier: Apache-2.0
#include "ring/Lines.h"

#include <charconv>
#include <cstdint>

namespace zorel::ring {

std::vector<std::string_view> partsOf(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (auto end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

std::string joined(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields) {
        line += &field == &fields.front() ? "" : "\t";
        for (const char letter : field) {
            const auto code = static_cast<unsigned char>(letter);
            line += code < 0x20 || code == 0x7f ? ' ' : letter;
        }
    }
    return line;
}

std::string textOf(std::chrono::sys_seconds instant) {
    return std::to_string(instant.time_since_epoch().count());
}

std::optional<std::chrono::sys_seconds> instantOf(std::string_view text) {
    std::int64_t seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return std::chrono::sys_seconds(std::chrono::seconds(seconds));
}

} // namespace zorel::ring
