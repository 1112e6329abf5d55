// SPDX-License-Identifier: Apache-2.0
/// @file
/// The clock and the current calendar. Tests move the clock; the time zone is that of the process (TZ).
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

namespace zorel {

using Instant = std::chrono::system_clock::time_point;

/// Civil date and time of an instant in the local time zone; month 1 to 12.
struct LocalDateTime {
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::int32_t day = 0;
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
    double fraction = 0.0; ///< of the second

    friend bool operator==(const LocalDateTime&, const LocalDateTime&) = default;
};

/// The present instant: the system's clock, or the one that a ClockOverride has put in its place.
[[nodiscard]] Instant now();
[[nodiscard]] LocalDateTime localDateTime(Instant instant);
/// The instant of a local wall-clock time. Fields outside their range carry over. A time that a clock change
/// skips is moved forward by the gap; of a time that occurs twice the first is taken.
[[nodiscard]] Instant instantFromLocal(const LocalDateTime& local);
/// Offset of local time from universal time at an instant [s, east positive].
[[nodiscard]] std::int32_t utcOffsetSeconds(Instant instant);

/// While it lives, now() answers with the given function (or a fixed instant); of several, the newest that
/// lives.
class ClockOverride {
public:
    explicit ClockOverride(std::function<Instant()> clock);
    explicit ClockOverride(Instant fixed);
    ClockOverride(const ClockOverride&) = delete;
    ClockOverride& operator=(const ClockOverride&) = delete;
    ~ClockOverride();

    [[nodiscard]] Instant now() const { return clock_(); }

private:
    std::function<Instant()> clock_;
};

/// While it lives, the process lives in the named time zone ("Europe/Berlin"; nullptr: TZ unset).
class TimeZoneOverride {
public:
    explicit TimeZoneOverride(const char* zone);
    TimeZoneOverride(const TimeZoneOverride&) = delete;
    TimeZoneOverride& operator=(const TimeZoneOverride&) = delete;
    ~TimeZoneOverride();

private:
    bool wasSet_;
    std::string previous_;
};

} // namespace zorel
