// SPDX-License-Identifier: Apache-2.0
/// @file
/// Text inside a statement.
#pragma once

#include <cstddef>
#include <string_view>

namespace zorel {

/// Text as it stands between apostrophes in a statement. It ends with its first apostrophe: the statement
/// then fails, as with any apostrophe, and nothing behind it can become part of the statement.
[[nodiscard]] inline std::string_view statementText(std::string_view text) {
    const std::size_t apostrophe = text.find('\'');
    return apostrophe == std::string_view::npos ? text : text.substr(0, apostrophe + 1);
}

} // namespace zorel
