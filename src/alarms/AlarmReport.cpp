// SPDX-License-Identifier: Apache-2.0
#include "alarms/AlarmReport.h"

#include "words/Tr.h"

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
    const std::string_view prayer = almanac::keyOf(bad->prayer);
    // translators: {0} is "fajr", "asr" ..., as it is typed; {1} says why
    return bad->state == AlarmState::passed
               ? tr("the alarm {} has passed and was not moved to its next time", prayer)
               : tr("the alarm {0} will not ring: {1}", prayer, bad->reason);
}

} // namespace zorel
