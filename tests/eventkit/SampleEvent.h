// SPDX-License-Identifier: Apache-2.0
/// @file
/// An event like those of the pane.
#pragma once

#include "platform/eventkit/EKEvent.h"

#include <string>

namespace zorel {

/// 2026-03-28 03:30:00 UTC, as seconds since 1970.
inline constexpr Instant kSampleStart{std::chrono::seconds{1774668600}};

inline EKEvent sampleEvent(const std::string& identifier) {
    EKEvent event;
    event.eventIdentifier = identifier;
    event.title = "Prayer Alarm";
    event.location = "Zorel";
    event.startDate = kSampleStart;
    event.endDate = kSampleStart + std::chrono::minutes{1};
    event.alarms = {EKAlarm::alarmWithRelativeOffset(0)};
    return event;
}

} // namespace zorel
