// SPDX-License-Identifier: Apache-2.0
/// @file
/// Lines of fields with tabs between them: the form of plans and of what has rung.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::ring {

/// The parts between separators; one part more than there are separators.
[[nodiscard]] std::vector<std::string_view> partsOf(std::string_view text, char separator);

/// The fields with tabs between them; control characters within a field become spaces.
[[nodiscard]] std::string joined(const std::vector<std::string>& fields);

/// Whole seconds since 1970, UTC.
[[nodiscard]] std::string textOf(std::chrono::sys_seconds instant);
[[nodiscard]] std::optional<std::chrono::sys_seconds> instantOf(std::string_view text);

} // namespace zorel::ring
