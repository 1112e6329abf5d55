// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Clock.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <utility>
#include <vector>

namespace zorel {
namespace {

using std::chrono::seconds;

constexpr std::int64_t kSecondsPerDay = 86400;

std::vector<const ClockOverride*>& livingOverrides() {
    static std::vector<const ClockOverride*> overrides;
    return overrides;
}

/// Local time of a count of seconds since 1970. localtime_r, unlike localtime and mktime, does not look at
/// the zone file again at every call.
std::tm localFields(std::int64_t epochSeconds) {
    const auto time = static_cast<std::time_t>(epochSeconds);
    std::tm fields{};
    localtime_r(&time, &fields);
    return fields;
}

std::int64_t offsetAt(std::int64_t epochSeconds) {
    return localFields(epochSeconds).tm_gmtoff;
}

/// Days from 1970-01-01 to the first day of a month of the proleptic Gregorian calendar; `month` from 0.
std::int64_t daysToMonth(std::int64_t year, std::int64_t month) {
    const std::int64_t yearFromMarch = month < 2 ? year - 1 : year;
    const std::int64_t monthFromMarch = (month + 10) % 12;
    const std::int64_t era = (yearFromMarch >= 0 ? yearFromMarch : yearFromMarch - 399) / 400;
    const std::int64_t yearOfEra = yearFromMarch - era * 400;
    const std::int64_t dayOfYear = (153 * monthFromMarch + 2) / 5;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

/// Seconds from 1970-01-01 0:00 of the same clock, fields outside their range carried over.
std::int64_t wallSeconds(const LocalDateTime& local) {
    const std::int64_t monthFromZero = std::int64_t{local.month} - 1;
    const std::int64_t carry = (monthFromZero >= 0 ? monthFromZero : monthFromZero - 11) / 12;
    const std::int64_t days = daysToMonth(local.year + carry, monthFromZero - carry * 12) + local.day - 1;
    return days * kSecondsPerDay + std::int64_t{local.hour} * 3600 + std::int64_t{local.minute} * 60 +
           local.second;
}

/// The instant of a wall-clock time. The offsets a day before and a day after enclose any clock change near
/// it.
std::int64_t epochFromWall(std::int64_t wall) {
    const std::int64_t withEarlierOffset = wall - offsetAt(wall - kSecondsPerDay);
    const std::int64_t withLaterOffset = wall - offsetAt(wall + kSecondsPerDay);
    const bool earlierHolds = withEarlierOffset + offsetAt(withEarlierOffset) == wall;
    const bool laterHolds = withLaterOffset + offsetAt(withLaterOffset) == wall;
    return laterHolds && !earlierHolds ? withLaterOffset : withEarlierOffset;
}

/// The clock counts within about 292 years of 1970; anything beyond is brought to that border.
std::int64_t withinClockRange(std::int64_t epochSeconds) {
    const std::int64_t border = std::chrono::duration_cast<seconds>(Instant::duration::max()).count() - 2;
    return std::clamp(epochSeconds, -border, border);
}

void setTimeZone(const char* zone) {
    if (zone != nullptr) {
        setenv("TZ", zone, 1);
    } else {
        unsetenv("TZ");
    }
    tzset();
}

} // namespace

Instant now() {
    return livingOverrides().empty() ? std::chrono::system_clock::now() : livingOverrides().back()->now();
}

LocalDateTime localDateTime(Instant instant) {
    const auto whole = std::chrono::floor<seconds>(instant);
    const std::tm fields = localFields(whole.time_since_epoch().count());
    return {fields.tm_year + 1900,
            fields.tm_mon + 1,
            fields.tm_mday,
            fields.tm_hour,
            fields.tm_min,
            fields.tm_sec,
            std::chrono::duration<double>(instant - whole).count()};
}

Instant instantFromLocal(const LocalDateTime& local) {
    const std::int64_t epochSeconds = withinClockRange(epochFromWall(withinClockRange(wallSeconds(local))));
    const double fraction = std::isfinite(local.fraction) ? std::clamp(local.fraction, 0.0, 1.0) : 0.0;
    const auto part = std::chrono::duration_cast<Instant::duration>(std::chrono::duration<double>(fraction));
    return Instant(seconds(epochSeconds)) + part;
}

std::int32_t utcOffsetSeconds(Instant instant) {
    return static_cast<std::int32_t>(
        offsetAt(std::chrono::floor<seconds>(instant).time_since_epoch().count()));
}

ClockOverride::ClockOverride(std::function<Instant()> clock) : clock_(std::move(clock)) {
    livingOverrides().push_back(this);
}

ClockOverride::ClockOverride(Instant fixed) : ClockOverride([fixed] { return fixed; }) {}

ClockOverride::~ClockOverride() {
    std::erase(livingOverrides(), this);
}

TimeZoneOverride::TimeZoneOverride(const char* zone) {
    const char* previous = std::getenv("TZ");
    wasSet_ = previous != nullptr;
    previous_ = wasSet_ ? previous : "";
    setTimeZone(zone);
}

TimeZoneOverride::~TimeZoneOverride() {
    setTimeZone(wasSet_ ? previous_.c_str() : nullptr);
}

} // namespace zorel
