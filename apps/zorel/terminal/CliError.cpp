// SPDX-License-Identifier: Apache-2.0
#include "terminal/CliError.h"

#include "platform/foundation/Utf8.h"

namespace zorel::cli {

namespace {
constexpr std::size_t kLongest = 60;

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string_view cut(std::string_view text) {
    if (text.size() <= kLongest) {
        return text;
    }
    std::size_t end = kLongest;
    while (end > 0 && continuesCharacter(text[end])) {
        --end;
    }
    return text.substr(0, end);
}
} // namespace

std::string printable(std::string_view text) {
    const std::string_view shown = cut(text);
    return cleanText(shown) + (shown.size() < text.size() ? "..." : "");
}

std::string quote(std::string_view text) {
    return '"' + printable(text) + '"';
}

} // namespace zorel::cli
