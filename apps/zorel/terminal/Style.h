// SPDX-License-Identifier: Apache-2.0
/// @file
/// Colour and aligned columns of the terminal.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorel::cli {

/// Wraps clean text (cleanText) in terminal colours, or leaves it without.
class Style {
public:
    explicit Style(bool colours) : colours_(colours) {}

    [[nodiscard]] bool colours() const { return colours_; }
    [[nodiscard]] std::string bold(std::string_view text) const { return wrap("1", text); }
    [[nodiscard]] std::string dim(std::string_view text) const { return wrap("2", text); }
    [[nodiscard]] std::string highlight(std::string_view text) const { return wrap("1;32", text); }
    /// Any graphic rendition of the terminal, such as "48;5;18".
    [[nodiscard]] std::string paint(std::string_view code, std::string_view text) const {
        return wrap(code, text);
    }
    [[nodiscard]] std::string warning(std::string_view text) const { return wrap("33", text); }

private:
    [[nodiscard]] std::string wrap(std::string_view code, std::string_view text) const;

    bool colours_;
};

/// Whether colours go out: "always", "never", or "auto" (a terminal, NO_COLOR unset or empty, TERM not
/// "dumb").
[[nodiscard]] bool coloursWanted(std::string_view choice, bool terminal);

/// Whether the locale of the environment (LC_ALL, LC_CTYPE, LANG) writes UTF-8.
[[nodiscard]] bool localeIsUtf8();

/// Columns that a terminal's fixed-width font takes for UTF-8 text: one for each character, none for
/// combining marks, two for East Asian wide characters.
[[nodiscard]] std::size_t displayWidth(std::string_view text);

/// The first characters of UTF-8 text, all of it when it has fewer.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Rows of cells of clean text (cleanText) printed in aligned columns, two blanks between them. Rows may have
/// different emphasis.
class TextTable {
public:
    enum class Emphasis { none, bold, dim, highlight };

    /// @param alignment one letter for each column: 'l' or 'r'. Further columns are left-aligned.
    explicit TextTable(std::string alignment) : alignment_(std::move(alignment)) {}

    void add(std::vector<std::string> cells, Emphasis emphasis = Emphasis::none);
    /// Every row with a line feed; no blanks at the ends of lines.
    [[nodiscard]] std::string text(const Style& style, std::string_view indent = "") const;

private:
    struct Row {
        std::vector<std::string> cells;
        Emphasis emphasis;
    };
    [[nodiscard]] std::vector<std::size_t> widths() const;
    [[nodiscard]] std::string line(const Row& row, const std::vector<std::size_t>& widths) const;

    std::string alignment_;
    std::vector<Row> rows_;
};

} // namespace zorel::cli
