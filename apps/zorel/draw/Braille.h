// SPDX-License-Identifier: Apache-2.0
/// @file
/// A ground of dots, two by four in each character.
#pragma once

#include "terminal/Style.h"

#include <string>
#include <vector>

namespace zorel::cli {

/// Dots from the upper left corner. In plain ASCII each character shows one letter for all its dots.
class DotGround {
public:
    DotGround(std::size_t columns, std::size_t rows) : columns_(columns), cells_(columns * rows) {}

    [[nodiscard]] std::size_t width() const { return 2 * columns_; }                    ///< [dots]
    [[nodiscard]] std::size_t height() const { return 4 * (cells_.size() / columns_); } ///< [dots]

    /// A dot outside the ground is left out. @param letter what stands for it in ASCII. @param colour of the
    /// whole character, a graphic rendition; empty: none.
    void dot(long x, long y, char letter, std::string_view colour = {});
    /// A character in place of the dots.
    void character(std::size_t column, std::size_t row, std::string_view text, std::string_view colour = {});
    [[nodiscard]] std::string row(std::size_t row, const Style& style, bool ascii) const;
    [[nodiscard]] std::size_t rows() const { return cells_.size() / columns_; }

private:
    struct Cell {
        unsigned dots = 0;
        char letter = ' ';
        std::string text; ///< in place of the dots
        std::string colour;
    };

    std::size_t columns_;
    std::vector<Cell> cells_;
};

} // namespace zorel::cli
