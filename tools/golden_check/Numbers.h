// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Registry.h"

#include <optional>

namespace zorel::golden {

/// A JSON number, true or false, null or "nan" (not-a-number), "inf" or "-inf"; nothing for anything else.
std::optional<double> numberOf(const Json& value);

} // namespace zorel::golden
