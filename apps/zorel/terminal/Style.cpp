// SPDX-License-Identifier: Apache-2.0
#include "terminal/Style.h"

#include "platform/foundation/Utf8.h"

#include <algorithm>
#include <cstdlib>

namespace zorel::cli {

namespace {
bool isCombining(char32_t code) {
    return (code >= 0x300 && code <= 0x36F) || (code >= 0x483 && code <= 0x489) ||
           (code >= 0x64B && code <= 0x65F) || code == 0x200D || (code >= 0xFE00 && code <= 0xFE0F);
}

bool isWide(char32_t code) {
    return (code >= 0x1100 && code <= 0x115F) || (code >= 0x2E80 && code <= 0xA4CF) ||
           (code >= 0xAC00 && code <= 0xD7A3) || (code >= 0xF900 && code <= 0xFAFF) ||
           (code >= 0xFF00 && code <= 0xFF60) || (code >= 0x1F300 && code <= 0x1FAFF);
}

bool isSetAndNotEmpty(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}
} // namespace

std::string Style::wrap(std::string_view code, std::string_view text) const {
    std::string clean = cleanText(text);
    if (!colours_) {
        return clean;
    }
    std::string result = "\x1b[";
    result.append(code).append("m").append(clean).append("\x1b[0m");
    return result;
}

bool coloursWanted(std::string_view choice, bool terminal) {
    if (choice != "auto") {
        return choice == "always";
    }
    const char* kind = std::getenv("TERM");
    return terminal && !isSetAndNotEmpty("NO_COLOR") &&
           !(kind != nullptr && std::string_view(kind) == "dumb");
}

bool localeIsUtf8() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        if (isSetAndNotEmpty(variable)) {
            std::string name(std::getenv(variable));
            std::ranges::transform(name, name.begin(), [](char letter) {
                return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
            });
            return name.find("utf-8") != std::string::npos || name.find("utf8") != std::string::npos;
        }
    }
    return false;
}

std::size_t displayWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        width += isCombining(character.code) ? 0 : isWide(character.code) ? 2 : 1;
        text.remove_prefix(character.bytes);
    }
    return width;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t bytes = 0;
    while (count-- > 0 && bytes < text.size()) {
        bytes += firstCharacter(text.substr(bytes)).bytes;
    }
    return text.substr(0, bytes);
}

void TextTable::add(std::vector<std::string> cells, Emphasis emphasis) {
    std::ranges::transform(cells, cells.begin(), cleanText);
    rows_.push_back({std::move(cells), emphasis});
}

std::vector<std::size_t> TextTable::widths() const {
    std::vector<std::size_t> result;
    for (const Row& row : rows_) {
        result.resize(std::max(result.size(), row.cells.size()));
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            result[i] = std::max(result[i], displayWidth(row.cells[i]));
        }
    }
    return result;
}

std::string TextTable::line(const Row& row, const std::vector<std::size_t>& widths) const {
    std::string result;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const std::string padding(widths[i] - displayWidth(row.cells[i]), ' ');
        const bool right = i < alignment_.size() && alignment_[i] == 'r';
        result += i > 0 ? "  " : "";
        result += right ? padding + row.cells[i] : row.cells[i] + padding;
    }
    result.erase(result.find_last_not_of(' ') + 1);
    return result;
}

std::string TextTable::text(const Style& style, std::string_view indent) const {
    const auto columns = widths();
    std::string result;
    for (const Row& row : rows_) {
        const std::string plain = line(row, columns);
        result += indent;
        switch (row.emphasis) {
        case Emphasis::none:
            result += plain;
            break;
        case Emphasis::bold:
            result += style.bold(plain);
            break;
        case Emphasis::dim:
            result += style.dim(plain);
            break;
        case Emphasis::highlight:
            result += style.highlight(plain);
            break;
        }
        result += '\n';
    }
    return result;
}

} // namespace zorel::cli
