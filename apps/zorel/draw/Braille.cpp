// SPDX-License-Identifier: Apache-2.0
#include "draw/Braille.h"

#include <array>

namespace zorel::cli {

namespace {
/// The pattern of dots as U+2800 to U+28FF in UTF-8.
std::string brailleOf(unsigned dots) {
    return {static_cast<char>(0xE2), static_cast<char>(0xA0 + (dots >> 6U)),
            static_cast<char>(0x80 + (dots & 0x3FU))};
}

/// The bit of a dot of a character: Unicode numbers them down the left side, then the right one, the fourth
/// row last.
unsigned bitOf(std::size_t x, std::size_t y) {
    constexpr std::array<std::array<unsigned, 2>, 4> bits{
        {{0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}}};
    return bits[y][x];
}
} // namespace

void DotGround::dot(long x, long y, char letter, std::string_view colour) {
    if (x < 0 || y < 0 || x >= static_cast<long>(width()) || y >= static_cast<long>(height())) {
        return;
    }
    const auto left = static_cast<std::size_t>(x);
    const auto top = static_cast<std::size_t>(y);
    Cell& cell = cells_[top / 4 * columns_ + left / 2];
    cell.dots |= bitOf(left % 2, top % 4);
    cell.letter = letter;
    cell.colour = colour;
}

void DotGround::character(std::size_t column, std::size_t row, std::string_view text,
                          std::string_view colour) {
    Cell& cell = cells_[row * columns_ + column];
    cell.text = text;
    cell.colour = colour;
}

std::string DotGround::row(std::size_t row, const Style& style, bool ascii) const {
    std::string line;
    for (std::size_t column = 0; column < columns_; ++column) {
        const Cell& cell = cells_[row * columns_ + column];
        if (cell.text.empty() && cell.dots == 0) {
            line += ' ';
            continue;
        }
        const std::string text = !cell.text.empty() ? cell.text
                                 : ascii            ? std::string(1, cell.letter)
                                                    : brailleOf(cell.dots);
        line += cell.colour.empty() ? text : style.paint(cell.colour, text);
    }
    return line;
}

} // namespace zorel::cli
