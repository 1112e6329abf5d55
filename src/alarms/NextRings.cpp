// SPDX-License-Identifier: Apache-2.0
#include "alarms/NextRings.h"

#include "platform/foundation/Clock.h"

#include <algorithm>

namespace zorel {
namespace {

constexpr std::int64_t kMinutesPerDay = 1440;
constexpr std::int64_t kMarginOfPlacing = 5; ///< of DatabaseFunctions [min]

/// Minutes of the machine's clock since the beginning of 1970 there.
std::int64_t machineMinutes(almanac::Instant instant) {
    const LocalDateTime local = localDateTime(instant);
    const std::chrono::year_month_day date(std::chrono::year(local.year),
                                           std::chrono::month(static_cast<unsigned>(local.month)),
                                           std::chrono::day(static_cast<unsigned>(local.day)));
    const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
    return days * kMinutesPerDay + local.hour * 60 + local.minute;
}

/// The beginning of the day in which a minute lies.
std::int64_t midnightBefore(std::int64_t minutes) {
    const std::int64_t ofDay = minutes % kMinutesPerDay;
    return minutes - (ofDay < 0 ? ofDay + kMinutesPerDay : ofDay);
}

void takeEarlier(std::optional<almanac::Instant>& first, almanac::Instant one) {
    if (!first || one < *first) {
        first = one;
    }
}

} // namespace

std::optional<almanac::Instant> instantOf(std::optional<std::int64_t> seconds) {
    return seconds ? std::optional(almanac::Instant(std::chrono::seconds(*seconds))) : std::nullopt;
}

std::optional<almanac::Instant> silentUntil(const UserRows& rows, const AlarmRow& row) {
    return instantOf(std::max(rows.pausedUntil, row.silentUntil)); // nothing is less than any instant
}

AlarmDays::AlarmDays(const almanac::Place& place, almanac::Instant now) : place_(place), now_(now) {
    const almanac::Almanac almanac(place);
    const almanac::Date today = place.clock.dateAt(now);
    almanac::Memory memory;
    int offset = -1;
    for (almanac::Day& day : days_) {
        day = almanac.day(almanac::addDays(today, offset++), memory);
    }
}

NextRings AlarmDays::nextRings(almanac::Prayer prayer, std::int32_t offset,
                               std::optional<almanac::Instant> notBefore) const {
    const NextRings usual = afterPresent(prayer, offset);
    const bool isSilent =
        notBefore && usual.next && *usual.next < *notBefore && *notBefore <= now_ + kLongestSilence;
    if (!isSilent) {
        return usual;
    }
    NextRings later = AlarmDays(place_, *notBefore - std::chrono::seconds(1)).afterPresent(prayer, offset);
    const bool isFarEnough = later.next && *later.next >= now_ + kMarginAfterEdit;
    later.afterMargin = isFarEnough ? later.next : usual.afterMargin;
    later.skipped = usual.next;
    return later;
}

NextRings AlarmDays::afterPresent(almanac::Prayer prayer, std::int32_t offset) const {
    NextRings rings;
    for (const almanac::Day& day : days_) {
        const almanac::DayTime& time = day[prayer];
        const almanac::Instant instant = time.shown + std::chrono::minutes(offset);
        if (time.exists() && instant > now_) {
            takeEarlier(rings.next, instant);
        }
        if (time.exists() && instant >= now_ + kMarginAfterEdit) {
            takeEarlier(rings.afterMargin, instant);
        }
    }
    return rings;
}

double handedOverTime(almanac::Instant rings, std::int32_t offset, almanac::Instant now) {
    const std::int64_t present = machineMinutes(now);
    std::int64_t alarm = machineMinutes(rings);
    if (present + kMarginOfPlacing > alarm) {
        alarm -= kMinutesPerDay;
    }
    const std::int64_t minutes = alarm - offset - midnightBefore(present);
    const double half = minutes < 0 ? -0.5 : 0.5; // cutting off goes towards zero
    return (static_cast<double>(minutes) + half) / 60.0;
}

} // namespace zorel
