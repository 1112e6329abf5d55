// SPDX-License-Identifier: Apache-2.0
// Corrections of single times of a day.
#include "almanac/DayMaker.h"

#include "almanac/Qibla.h"

#include "engine/PrayerIteration.h"
#include "engine/SunAtBearing.h"

#include <algorithm>
#include <cmath>

namespace zorel::almanac {

namespace {

constexpr std::array kIterated{Prayer::fajr,
                               Prayer::sunrise,
                               Prayer::asr,
                               Prayer::asrSecond,
                               Prayer::maghrib,
                               Prayer::isha,
                               Prayer::ishaSecond,
                               Prayer::morningFiveDegrees,
                               Prayer::afternoonFiveDegrees};

} // namespace

void DayMaker::correct(DayTime& time, double hours, Corrections correction) {
    time.hours = hours;
    if (hours != time.why.engineHours) {
        time.why.corrections |= correction;
    }
}

/// The engine computes the 5 degree times with the Sun of the day on which its search of the second nightfall
/// ended.
void DayMaker::takeOwnSun() {
    for (const Prayer prayer : {Prayer::morningFiveDegrees, Prayer::afternoonFiveDegrees}) {
        DayTime& time = at(prayer);
        if (time.why.daysBack == 0) {
            continue;
        }
        const IterationResult result = iteratePrayerTime(
            {IterationLatitude(time.why.latitude), -place_.longitude / 15.0, time.why.temkin, zone_,
             static_cast<std::int32_t>(time.why.targetAltitude), time.why.morning ? -1 : 1},
            sun_);
        time.why.date = day_.date;
        time.why.daysBack = 0;
        time.why.rounds = result.rounds;
        correct(time, std::isfinite(result.time) ? result.time : kNoSolarEvent, Correction::ownSun);
    }
}

/// A time before midnight comes out of the engine's iteration as itself plus one hour. Where the sky has no
/// such event the Sun hardly reaches the altitude, and the time lies near its lowest or highest point.
void DayMaker::undoAddedHour() {
    constexpr double kHalfAnHour = 0.5;
    for (const Prayer prayer : kIterated) {
        DayTime& time = at(prayer);
        if (!has(prayer) || time.why.rounds == 0 || time.hours - time.why.addition >= 1.0) {
            continue;
        }
        const SunCrossing found = crossingOf(time, time.why.date, time.why.latitude);
        const double expected = found.hour + zone_ + time.why.temkin + time.why.addition;
        if (found.occurs && std::fabs(time.hours - expected) > kHalfAnHour) {
            correct(time, expected, Correction::beforeMidnight);
        } else if (!found.occurs &&
                   std::fabs(time.hours - 1.0 - expected) < std::fabs(time.hours - expected)) {
            correct(time, time.hours - 1.0, Correction::beforeMidnight);
        }
    }
}

/// What the rule asks for. Where only the limb comes up, the centre is nearest to the horizon in the transit.
double DayMaker::byRule(const DayTime& time) {
    const double none =
        skyOn(day_.date, place_.latitude).transit() + zone_ + time.why.temkin + time.why.addition;
    return time.hours == kNoSolarEvent ? none : time.hours;
}

/// Maghrib not before the real sunset and its addition, sunrise not after the real one less its addition.
void DayMaker::waitForSun() {
    const bool isFlat = riseAndSet_ == RiseAndSet::surely ? setsFlatly() : riseAndSet_ == RiseAndSet::unsure;
    if (!isFlat) {
        return;
    }
    const SunInSky& sky = skyOn(day_.date, place_.latitude);
    DayTime& sunrise = at(Prayer::sunrise);
    DayTime& sunset = at(Prayer::maghrib);
    const SunCrossing rise = sky.limb(HalfDay::morning);
    const SunCrossing set = sky.limb(HalfDay::evening);
    const double latest = std::min(byRule(sunrise), rise.hour + zone_ + sunrise.why.addition);
    const double earliest = std::max(byRule(sunset), set.hour + zone_ + sunset.why.addition);
    if (rise.occurs && sunrise.hours != latest) {
        correct(sunrise, latest, Correction::sunStillUp);
    }
    if (set.occurs && sunset.hours != earliest) {
        correct(sunset, earliest, Correction::sunStillUp);
    }
}

/// Where the engine has no such time either, nothing is left of what was corrected before.
void DayMaker::drop(Prayer prayer, Absence absence, Correction correction) {
    DayTime& time = at(prayer);
    time.hours = kNoSolarEvent;
    time.absence = absence;
    time.why.corrections |= correction;
    if (time.why.engineHours == kNoSolarEvent) {
        time.why.corrections = Corrections();
    }
}

/// Only a time taken from an earlier day can be false by its place among the others: times of the day's own
/// Sun overlap where their temkins do (in winter beyond 60 degrees), and stay.
void DayMaker::dropOutOfOrder() {
    const auto isFromEarlier = [this](Prayer prayer) { return has(prayer) && at(prayer).why.daysBack > 0; };
    const auto drops = [this](Prayer prayer) { drop(prayer, Absence::outOfOrder, Correction::outOfOrder); };
    if (isFromEarlier(Prayer::fajr) && has(Prayer::sunrise) &&
        at(Prayer::fajr).hours >= at(Prayer::sunrise).hours) {
        drops(Prayer::fajr);
    }
    const double sunset = at(Prayer::maghrib).hours;
    if (isFromEarlier(Prayer::isha) && at(Prayer::isha).hours <= sunset) {
        drops(Prayer::isha);
    }
    if (isFromEarlier(Prayer::ishaSecond) &&
        at(Prayer::ishaSecond).hours <= std::max(sunset, at(Prayer::isha).hours)) {
        drops(Prayer::ishaSecond);
    }
}

/// A night lasts from the sunset prayer to dawn; where one of them is missing, or dawn comes first, it has
/// no parts.
void DayMaker::tellNight() {
    const double dawn = at(Prayer::fajr).hours;
    const double sunset = at(Prayer::maghrib).hours;
    const double night = 24.0 - (sunset - dawn);
    if (has(Prayer::fajr) && has(Prayer::maghrib) && night > 0.0) {
        tellPartsOfNight(dawn, night, sunset);
        return;
    }
    for (const Prayer part : {Prayer::lastSixthOfNight, Prayer::middleOfNight, Prayer::firstThirdOfNight}) {
        drop(part, Absence::nightWithoutEnds, Correction::nightWithoutEnds);
    }
}

/// In the engine's order of operations: with its own ends they are its own parts.
void DayMaker::tellPartsOfNight(double dawn, double night, double sunset) {
    Corrections ofEnds = at(Prayer::fajr).why.corrections;
    ofEnds |= at(Prayer::maghrib).why.corrections;
    correct(at(Prayer::lastSixthOfNight), dawn - night / 6.0, ofEnds);
    correct(at(Prayer::middleOfNight), sunset + night / 2.0, ofEnds);
    correct(at(Prayer::firstThirdOfNight), sunset + night / 3.0, ofEnds);
}

void DayMaker::tellSunAtQibla() {
    DayTime& time = at(Prayer::sunAtQibla);
    time.why.corrections = Correction::trueQibla;
    time.hours = kNoSolarEvent;
    const std::optional<double> bearing = qiblaBearing(place_.latitude, place_.longitude);
    if (!bearing) {
        time.absence = Absence::noBearing;
        return;
    }
    for (const SunAtBearingInstant& instant :
         SunAtBearing(place_.latitude, place_.longitude, *bearing, sun_, -offset_, 24.0 - offset_)) {
        if (instant.visible) {
            time.hours = instant.hour + offset_;
            time.why.targetAltitude = instant.altitude;
            return;
        }
    }
}

} // namespace zorel::almanac
