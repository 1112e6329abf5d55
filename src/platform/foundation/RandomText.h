// SPDX-License-Identifier: Apache-2.0
/// @file
/// Names that no other process or machine chooses.
#pragma once

#include <string>

namespace zorel {

/// Sixteen random hexadecimal digits: 64 bits from the system's source of randomness.
[[nodiscard]] std::string randomHexadecimal();

} // namespace zorel
