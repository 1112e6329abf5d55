// SPDX-License-Identifier: Apache-2.0
/// @file
/// One name for a time zone that has several (ICU).
#pragma once

#include <string>

namespace zorel {

/// The one name that all names of a time zone have in common ("Asia/Calcutta" for it and for "Asia/Kolkata");
/// empty for a name that no zone has. It is for comparing, not for showing.
[[nodiscard]] std::string canonicalTimeZone(const std::string& name);

} // namespace zorel
