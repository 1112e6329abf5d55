// SPDX-License-Identifier: Apache-2.0
/// @file
/// A calendar event.
#pragma once

#include "platform/eventkit/EKAlarm.h"
#include "platform/eventkit/EKCalendar.h"
#include "platform/foundation/Clock.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel {

class EKEventStore;

/// The fields of an event that the pane knows. Not modelled: participants, attachments, single exceptions of
/// a repeated event; a calendar keeps such things of an existing event where it can.
struct EKEvent {
    std::string eventIdentifier; ///< empty until the event was saved; written by the store only
    std::string title;
    std::string location;
    std::optional<std::string> notes;
    bool allDay = false;
    Instant startDate; ///< whole seconds count
    Instant endDate;   ///< whole seconds count
    std::vector<EKAlarm> alarms;
    std::vector<std::string> recurrenceRules; ///< RFC 5545 rules ("FREQ=DAILY"), empty for a one-off event
    std::optional<EKCalendar> calendar;       ///< must be set before saving

    /// A new event that no calendar holds yet.
    [[nodiscard]] static EKEvent eventWithEventStore(const EKEventStore& store);
};

/// Whether two events have the same identifier and say the same, to the second.
[[nodiscard]] bool sameEvent(const EKEvent& left, const EKEvent& right);

/// The event as a calendar keeps it: an end that does not lie after the start is moved to one minute after
/// it, because calendars refuse or drop events that end before they begin.
[[nodiscard]] EKEvent withEndAfterStart(EKEvent event);

} // namespace zorel
