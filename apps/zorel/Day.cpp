// SPDX-License-Identifier: Apache-2.0
#include "Day.h"

#include <algorithm>
#include <cmath>

namespace zorel::cli {

namespace {
double hours(std::chrono::seconds time) {
    return static_cast<double>(time.count()) / 3600.0;
}

/// How far east a zone must be moved so that no time of the day comes before midnight [h]; 0 when none did.
double detourFor(const PrayerTimes& times) {
    double earliest = 1.0;
    for (const int index : {PrayerTimes::dawn, PrayerTimes::sunrise, PrayerTimes::morningFiveDegrees}) {
        const double time = times.times[static_cast<std::size_t>(index)];
        if (time != kNoSolarEvent)
            earliest = std::min(earliest, time);
    }
    return earliest < 1.0 ? std::ceil(-earliest) + 2.0 : 0.0;
}

void moveBack(PrayerTimes& times, double detour) {
    for (double& time : times.times)
        time = time == kNoSolarEvent ? time : time - detour;
}

/// Without a dawn or a sunset there is no night whose parts could be told.
void dropNightsWithoutEnds(PrayerTimes& times) {
    if (times.times[PrayerTimes::dawn] != kNoSolarEvent && times.times[PrayerTimes::sunset] != kNoSolarEvent)
        return;
    for (const int index :
         {PrayerTimes::lastSixthOfNight, PrayerTimes::middleOfNight, PrayerTimes::firstThirdOfNight})
        times.times[static_cast<std::size_t>(index)] = kNoSolarEvent;
}

/// The zone [h] with whole days taken off, so that noon falls on the date itself: some places east of the
/// date line keep the date of the west (Samoa: 172 degrees west, UTC+13).
double zoneOfSameDate(const Place& place, double zone) {
    return zone - 24.0 * std::round((zone - place.longitude / 15.0) / 24.0);
}
} // namespace

std::string_view keyOf(int index) {
    constexpr std::array<std::string_view, 16> keys{"fajr",
                                                    "sunrise",
                                                    "dhuhr",
                                                    "asr",
                                                    "maghrib",
                                                    "isha",
                                                    "asr_second",
                                                    "isha_second",
                                                    "morning_five_degrees",
                                                    "afternoon_five_degrees",
                                                    "before_noon",
                                                    "last_sixth_of_night",
                                                    "",
                                                    "",
                                                    "middle_of_night",
                                                    "first_third_of_night"};
    return keys[static_cast<std::size_t>(index)];
}

void DayComputer::prepare(const Place& place, Date date, double extraHours) {
    engine_.SetCurrentDateTime(engineDate(date));
    const double zone = zoneOfSameDate(place, hours(place.clock.offsetOn(date)));
    engine_.SetPlace(place.latitude, place.longitude, zone + extraHours, 0, 0, 0, 0, 0, 0,
                     place.highTemkin ? 1 : 0);
    engine_.iPlace.today = PrayerTimes();
}

PrayerTimes DayComputer::times(const Place& place, Date date) {
    prepare(place, date);
    PrayerTimes result = engine_.CalculatePrayTimes().today;
    if (const double detour = detourFor(result); detour > 0.0) {
        prepare(place, date, detour);
        result = engine_.CalculatePrayTimes().today;
        moveBack(result, detour);
        prepare(place, date);
    }
    dropNightsWithoutEnds(result);
    return result;
}

Day DayComputer::compute(const Place& place, Date date, Precision precision) {
    Day day;
    day.date = date;
    day.offset = place.clock.offsetOn(date);
    day.record = times(place, date);
    engine_.CalculateAllEzaniTimes(day.record);
    for (int index = 0; index < 16; ++index) {
        const auto position = static_cast<std::size_t>(index);
        if (!keyOf(index).empty())
            day.events[position] =
                eventTime(place.clock, date, day.record.times[position], roundingOf(index), precision);
    }
    return day;
}

namespace {
void consider(NextPrayer& found, const Day& day, UtcSeconds instant) {
    for (const int index : kPrayerIndices) {
        const EventTime& event = day.event(index);
        if (!event.exists)
            continue;
        if (event.utc > instant && (found.index < 0 || event.utc < found.event.utc)) {
            found.index = index;
            found.event = event;
        }
        if (event.utc <= instant && (found.previousIndex < 0 || event.utc >= found.previousEvent.utc)) {
            found.previousIndex = index;
            found.previousEvent = event;
        }
    }
}
} // namespace

NextPrayer nextPrayer(DayComputer& computer, const Place& place, UtcSeconds instant, Precision precision) {
    NextPrayer found;
    const Date today = place.clock.dateAt(instant);
    for (const int step : {-1, 0, 1})
        consider(found, computer.compute(place, addDays(today, step), precision), instant);
    return found;
}

} // namespace zorel::cli
