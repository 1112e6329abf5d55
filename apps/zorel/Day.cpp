// SPDX-License-Identifier: Apache-2.0
#include "Day.h"

#include <algorithm>

namespace zorel::cli {

namespace {
constexpr double kDetour = 2.0; ///< [h]

double hours(std::chrono::seconds time) { return static_cast<double>(time.count()) / 3600.0; }

/// Whether a time may have been before midnight and been moved by the engine into the hour after it.
bool mayHaveCrossedMidnight(const PrayerTimes& times) {
    constexpr std::array candidates{PrayerTimes::dawn, PrayerTimes::sunrise, PrayerTimes::morningFiveDegrees};
    return std::any_of(candidates.begin(), candidates.end(), [&](int index) {
        const double time = times.times[static_cast<std::size_t>(index)];
        return time >= 0.0 && time < 1.0;
    });
}

void moveBack(PrayerTimes& times) {
    for (double& time : times.times)
        time = time == kNoSolarEvent ? time : time - kDetour;
}
} // namespace

std::string_view keyOf(int index) {
    constexpr std::array<std::string_view, 16> keys{
        "fajr",         "sunrise",    "dhuhr",           "asr",
        "maghrib",      "isha",       "asr_second",      "isha_second",
        "morning_five_degrees", "afternoon_five_degrees", "before_noon", "last_sixth_of_night",
        "",             "",           "middle_of_night", "first_third_of_night"};
    return keys[static_cast<std::size_t>(index)];
}

void DayComputer::prepare(const Place& place, Date date, double extraHours) {
    engine_.SetCurrentDateTime(engineDate(date));
    engine_.SetPlace(place.latitude, place.longitude, hours(place.clock.offsetOn(date)) + extraHours, 0, 0, 0, 0, 0, 0,
                     place.highTemkin ? 1 : 0);
    engine_.iPlace.today = PrayerTimes();
}

PrayerTimes DayComputer::times(const Place& place, Date date) {
    prepare(place, date);
    PrayerTimes result = engine_.CalculatePrayTimes().today;
    if (!mayHaveCrossedMidnight(result))
        return result;
    prepare(place, date, kDetour);
    result = engine_.CalculatePrayTimes().today;
    moveBack(result);
    prepare(place, date);
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
