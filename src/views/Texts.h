// SPDX-License-Identifier: Apache-2.0
/// @file
/// Language texts as the views show them.
#pragma once

#include "common/GlobalFuncs.h"

#include <cstdint>
#include <string>

namespace zorel {

/// The text of a key; "" when the language file has none, so that the screen stays empty there.
[[nodiscard]] inline std::string textForKey(const GlobalFuncs& glbFuncs, std::int32_t key) {
    return glbFuncs.GetKeyValue(key).value_or(std::string());
}

} // namespace zorel
