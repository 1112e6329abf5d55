// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/EKEvent.h"

#include <tuple>

namespace zorel {
namespace {

using std::chrono::floor;
using std::chrono::seconds;

auto texts(const EKEvent& event) {
    return std::tie(event.eventIdentifier, event.title, event.location, event.notes);
}

} // namespace

EKEvent EKEvent::eventWithEventStore(const EKEventStore& /*store*/) {
    return {};
}

bool sameEvent(const EKEvent& left, const EKEvent& right) {
    return texts(left) == texts(right) && left.allDay == right.allDay &&
           floor<seconds>(left.startDate) == floor<seconds>(right.startDate) &&
           floor<seconds>(left.endDate) == floor<seconds>(right.endDate) && left.alarms == right.alarms &&
           left.recurrenceRules == right.recurrenceRules;
}

EKEvent withEndAfterStart(EKEvent event) {
    constexpr std::chrono::minutes length{1};
    if (event.endDate <= event.startDate && event.startDate < Instant::max() - length) {
        event.endDate = event.startDate + length;
    }
    return event;
}

} // namespace zorel
