// SPDX-License-Identifier: Apache-2.0
/// @file
/// Text that fits the terminal.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::cli {

/// Columns of the terminal behind a descriptor; nothing when there is none or it does not say.
[[nodiscard]] std::optional<int> terminalColumns(int descriptor);

/// The words of a text in lines of at most `width` columns. A word that is longer stays whole. Never empty.
[[nodiscard]] std::vector<std::string> wrapped(std::string_view text, std::size_t width);

/// The same as one text: the first line behind `first`, the others behind `next`, each with a line feed.
/// @param width of the whole line.
[[nodiscard]] std::string paragraph(std::string_view text, std::string_view first, std::string_view next,
                                    std::size_t width);

} // namespace zorel::cli
