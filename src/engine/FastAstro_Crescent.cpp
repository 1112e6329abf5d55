// SPDX-License-Identifier: Apache-2.0
// When the new crescent can be seen, and which civil day a Hijri month begins with.
#include "engine/FastAstro.h"
#include "engine/Integers.h"

namespace zorel {

namespace {

/// The crescent counts as born at an elongation between these [deg].
constexpr double kLowestElongation = 7.9720001220703125;
constexpr double kHighestElongation = 7.98199987411499;
/// Altitude at sunset from which the crescent counts as seen [deg].
constexpr double kSeenAltitude = 7.989999771118164;

/// The hourly scan crosses the criterion within two days of any conjunction; the bound ends it on absurd
/// dates.
constexpr int kMaxHours = 1000;
/// The bisection of an hour has ended after a few steps, or it never does: no whole minute may fall into the
/// band.
constexpr int kMaxBisections = 64;
/// Steps of ten days back from the asked date; two are usual.
constexpr int kMaxRounds = 64;

/// Elongation at the record's instant [deg]; brings the record into calendar form.
double elongationAt(FastAstro& engine, DateTimeRecord& record) {
    const double julianDay = engine.astroGlobalFuncs.JulianDay(record);
    const double elongation = engine.MoonElongation(julianDay);
    engine.astroGlobalFuncs.JulianToCalendar(julianDay, record, 1);
    return elongation;
}

DateTimeRecord calendarDate(const AstroGlobalFuncs& calendar, double julianDay) {
    DateTimeRecord record;
    calendar.JulianToCalendar(julianDay, record, 1);
    return record;
}

/// Julian day of the record's date at 0 h, `days` later.
double midnight(const AstroGlobalFuncs& calendar, const DateTimeRecord& record, std::int32_t days) {
    return calendar.CalculateJulianDay(record.year, record.month, addInt(record.day, days), 0, 0, 0);
}

bool sameDate(const DateTimeRecord& a, const DateTimeRecord& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

/// The year with its fraction as the phase search takes it, in single precision.
double decimalYear(const DateTimeRecord& date) {
    const float year = static_cast<float>(date.year) + static_cast<float>(date.month) / 12.0F +
                       static_cast<float>(date.day) / 365.0F;
    return static_cast<double>(year);
}

} // namespace

void FastAstro::GetCrescentDate(DateTimeRecord& record) {
    record.hour = addInt(record.hour, 10);
    record.minute = 0;
    record.second = 0;
    for (int i = 0; i < kMaxHours && !(elongationAt(*this, record) > kLowestElongation); ++i) {
        record.hour = addInt(record.hour, 1);
    }
    record.hour = addInt(record.hour, -1);
    record.minute = 30;
    std::int32_t low = 0;
    std::int32_t high = 60;
    for (int i = 0; i < kMaxBisections; ++i) {
        const double elongation = elongationAt(*this, record);
        if (elongation >= kLowestElongation && elongation <= kHighestElongation) {
            return;
        }
        (elongation > kLowestElongation ? high : low) = record.minute;
        record.minute = toInt(static_cast<double>(static_cast<float>(low + high + 1) * 0.5F));
    }
}

HijriMonthStart FastAstro::MonthAfterNewMoon(double newMoon) {
    const DateTimeRecord conjunction = calendarDate(astroGlobalFuncs, newMoon);
    DateTimeRecord crescent = conjunction;
    GetCrescentDate(crescent);
    HijriMonthStart month{newMoon, midnight(astroGlobalFuncs, crescent, 0), 0.0, false};
    month.crescentOnDayOfNewMoon = sameDate(crescent, conjunction);
    if (month.crescentOnDayOfNewMoon) {
        month.start = midnight(astroGlobalFuncs, crescent, 1);
        return month;
    }
    const bool early = crescent.hour < 5 || (crescent.hour == 5 && crescent.minute < 31);
    SunDetails sun;
    SunRiseSetTrans(crescent, sun);
    astroGlobalFuncs.ToHMS(sun.set, crescent.hour, crescent.minute, crescent.second);
    MoonDirectionInfo moon;
    MoonInformationForDirectionWithoutLocalTime(crescent, moon);
    const bool seen = moon.apparentAltitude >= kSeenAltitude && early;
    month.start = midnight(astroGlobalFuncs, crescent, seen ? 0 : 1);
    return month;
}

const HijriMonthStart& FastAstro::CachedMonth(double newMoon) {
    for (const CachedMonthStart& entry : monthStarts) {
        if (entry.used && entry.month.newMoon == newMoon && entry.timeZone == iPlace.timeZone) {
            return entry.month;
        }
    }
    CachedMonthStart& entry = monthStarts[nextMonthStart];
    nextMonthStart = (nextMonthStart + 1) % monthStarts.size();
    entry = {true, iPlace.timeZone, MonthAfterNewMoon(newMoon)};
    return entry.month;
}

std::optional<HijriMonthStart> FastAstro::FindHijriMonth(std::int32_t year, std::int32_t month,
                                                         std::int32_t day) {
    constexpr double referenceLatitude = 21.43;
    constexpr double referenceLongitude = 39.83;
    SetLatLon(referenceLatitude, referenceLongitude);
    const double date = astroGlobalFuncs.CalculateJulianDay(year, month, day, 0, 0, 0);
    DateTimeRecord guess = calendarDate(astroGlobalFuncs, date + 10.0);
    for (int round = 0; round < kMaxRounds; ++round) {
        const double newMoon = MoonPhaze(decimalYear(guess), 0);
        if (newMoon < date) {
            const HijriMonthStart& found = CachedMonth(newMoon);
            if (found.crescentMidnight <= date && (found.crescentOnDayOfNewMoon || found.start <= date)) {
                return found;
            }
        }
        guess = calendarDate(astroGlobalFuncs, date - 10.0 * round);
    }
    return std::nullopt;
}

} // namespace zorel
