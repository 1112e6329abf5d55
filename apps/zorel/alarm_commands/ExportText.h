// SPDX-License-Identifier: Apache-2.0
/// @file
/// A person's cities and alarms as text, for another device ("zorel/export/1" of docs/json.md).
#pragma once

#include "store/UserRows.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zorel::cli {

/// A thousand cities take a twentieth of it.
inline constexpr std::size_t kLargestExport = 1024UL * 1024;

/// What a person chose: cities, home city, alarms, a pause. No events, and nothing of the device
/// or its catalogue, so that it can be had where that is broken.
[[nodiscard]] std::string exportText(const UserRows& rows);

/// Reads such a text. Members that are not known are passed over; whatever is not as it must be refuses all
/// of it: another kind or a newer version, a city twice, a home city that is not in the list, an alarm that
/// is on without a city, an offset or a duration that cannot be chosen, a ringtone outside the ringtone
/// folder. Whether this device's catalogue has the cities is not looked at.
/// @throws CliError (data trouble) with the reason.
[[nodiscard]] UserRows rowsOfExport(std::string_view text);

} // namespace zorel::cli
