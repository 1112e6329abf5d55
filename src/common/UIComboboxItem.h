// SPDX-License-Identifier: Apache-2.0
/// @file
/// A row of a picker.
#pragma once

#include <cstdint>
#include <string>

namespace zorel {

/// What a picker row shows and what it stands for. Texts are UTF-8.
struct UIComboboxItem {
    std::int32_t itemID = 0;
    std::string displayText;
    std::string originalText; ///< of what it stands for: a path, say
};

} // namespace zorel
