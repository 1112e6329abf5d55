// SPDX-License-Identifier: Apache-2.0
/// @file
/// The alarm of a calendar event.
#pragma once

#include <cstdint>
#include <string>

namespace zorel {

/// An alarm that rings a number of seconds after the start of its event (before it when negative).
struct EKAlarm {
    std::int32_t relativeOffset = 0; ///< [s]
    std::string text = {};           ///< what is shown when it rings; empty: the event's title

    [[nodiscard]] static EKAlarm alarmWithRelativeOffset(std::int32_t seconds) { return {seconds, {}}; }
    friend bool operator==(const EKAlarm&, const EKAlarm&) = default;
};

} // namespace zorel
