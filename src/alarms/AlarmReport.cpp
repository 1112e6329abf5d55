// SPDX-License-Identifier: Apache-2.0
#include "alarms/AlarmReport.h"

#include <algorithm>
#include <fmt/format.h>

namespace zorel {
namespace {

bool isBad(const AlarmStatus& alarm) {
    return alarm.state == AlarmState::failed || alarm.state == AlarmState::passed;
}

} // namespace

bool AlarmStatus::skipsNext() const {
    return state == AlarmState::rings && due && *ringsAt > *due;
}

const AlarmStatus& AlarmReport::of(std::int32_t prayerId) const {
    return alarms.at(static_cast<std::size_t>(prayerId - kFirstAlarmPrayerId));
}

bool AlarmReport::isGood() const {
    return trouble == AlarmTrouble::none && std::ranges::none_of(alarms, isBad);
}

std::string AlarmReport::complaint() const {
    if (trouble != AlarmTrouble::none) {
        return reason;
    }
    const auto bad = std::ranges::find_if(alarms, isBad);
    if (bad == alarms.end()) {
        return {};
    }
    return fmt::format("the alarm {} {}", almanac::keyOf(bad->prayer),
                       bad->state == AlarmState::passed ? "has passed and was not moved to its next time"
                                                        : "will not ring: " + bad->reason);
}

} // namespace zorel
