// SPDX-License-Identifier: Apache-2.0
// The seam of two days: the engine judges whether the Sun rises and sets by the day before, hour by hour.
#include "almanac/DayMaker.h"

#include "almanac/Degrees.h"

#include "engine/NightSearch.h"

#include <algorithm>
#include <cmath>

namespace zorel::almanac {

namespace {

constexpr double kLimbAltitude = -50.0 / 60.0; // [deg]
constexpr double kLowestLatitude = -90.0;
constexpr int kMostDaysBack = 365;
constexpr std::array kEvents{Prayer::sunrise,
                             Prayer::asr,
                             Prayer::asrSecond,
                             Prayer::maghrib,
                             Prayer::morningFiveDegrees,
                             Prayer::afternoonFiveDegrees};

} // namespace

/// By the declinations of the date; what they change until the solar day of the place lies in the margin.
DayMaker::RiseAndSet DayMaker::judgeRoughly() const {
    constexpr double kMargin = 0.8; // [deg]
    const double declination = (sun_.declinationToday() + sun_.declinationTomorrow()) / 2.0;
    const double highest = 90.0 - std::fabs(place_.latitude - declination) - kLimbAltitude;
    const double lowest = std::fabs(place_.latitude + declination) - 90.0 - kLimbAltitude;
    if (highest > kMargin && lowest < -kMargin) {
        return RiseAndSet::surely;
    }
    return highest < -kMargin || lowest > kMargin ? RiseAndSet::surelyNot : RiseAndSet::unsure;
}

/// Whether the way from the horizon to the limb's setting may use up the temkin.
bool DayMaker::setsFlatly() const {
    constexpr double kSteepBelow = 58.0; // [deg]
    if (std::fabs(place_.latitude) < kSteepBelow) {
        return false;
    }
    const double cosLatitude = std::cos(place_.latitude * kRadian);
    const double sinDeclination = std::sin(sun_.declinationToday() * kRadian);
    const double squaredSpeed = cosLatitude * cosLatitude - sinDeclination * sinDeclination;
    const double temkin = day_[Prayer::maghrib].why.temkin;
    return squaredSpeed <= 0.0 || -kLimbAltitude / 15.0 / std::sqrt(squaredSpeed) > temkin / 2.0;
}

const SunInSky& DayMaker::skyOn(Date date, double latitude) {
    if (!sky_ || sky_->date != date || sky_->latitude != latitude) {
        sky_.emplace(KnownSky{date, latitude,
                              SunInSky(engine_, latitude, place_.longitude, addDays(date, -daysAway_))});
    }
    return sky_->sky;
}

SunCrossing DayMaker::crossingOf(const DayTime& time, Date date, double latitude) {
    const SunInSky& sky = skyOn(date, latitude);
    if (time.why.rule == PrayTimeRule::shadow) {
        return sky.shadow(time.why.shadowFactor);
    }
    return sky.centre(time.why.targetAltitude, time.why.morning ? HalfDay::morning : HalfDay::evening);
}

/// The upper limb decides, as in the engine: as long as it stands on the horizon the Sun has not set, and
/// once it goes down there is a sunset to be told. The centre would deny some sunsets of the winter, and
/// allow a Maghrib in sight of the Sun in summer.
void DayMaker::meetSeam() {
    riseAndSet_ = judgeRoughly();
    const bool isLowered = day_.record.latitudeLowered;
    const bool isMissing = !has(Prayer::sunrise) || !has(Prayer::maghrib);
    if (riseAndSet_ == RiseAndSet::surely && !isLowered && !isMissing) {
        return;
    }
    if (riseAndSet_ == RiseAndSet::surelyNot && isLowered) {
        return;
    }
    const bool risesAndSets = skyOn(day_.date, place_.latitude).risesAndSets();
    if (risesAndSets && (isLowered || isMissing)) {
        tellFromSky();
    } else if (!risesAndSets && !isLowered) {
        tellLowered();
    }
}

/// All times at the place's own latitude, by the engine's rules.
void DayMaker::tellFromSky() {
    PrayerTimes& record = day_.record;
    record.latitudeLowered = false;
    record.priorLatitude = 0.0;
    for (DayTime& time : day_.times) {
        time.why.latitude = place_.latitude;
        time.why.latitudeLowered = false;
        time.why.date = day_.date;
        time.why.daysBack = 0;
        time.why.rounds = 0;
    }
    tellTransit(Prayer::dhuhr);
    tellTransit(Prayer::beforeNoon);
    for (const Prayer prayer : kEvents) {
        tellEvent(prayer);
    }
    record.dawnFromOtherDay = searchBack(Prayer::fajr);
    record.nightfallFromOtherDay = searchBack(Prayer::isha);
    record.secondNightfallFromOtherDay = has(Prayer::isha) && searchBack(Prayer::ishaSecond);
}

void DayMaker::tellTransit(Prayer prayer) {
    DayTime& time = at(prayer);
    correct(time, skyOn(day_.date, place_.latitude).transit() + zone_ + time.why.temkin,
            Correction::seamOfDays);
}

void DayMaker::tellEvent(Prayer prayer) {
    DayTime& time = at(prayer);
    const SunCrossing found = crossingOf(time, day_.date, place_.latitude);
    if (time.why.rule == PrayTimeRule::shadow && found.occurs) {
        time.why.targetAltitude = skyOn(day_.date, place_.latitude).altitude(found.hour);
    }
    correct(time, found.occurs ? found.hour + zone_ + time.why.temkin + time.why.addition : kNoSolarEvent,
            Correction::seamOfDays);
}

/// The date's event or that of the latest earlier day that has it. @return it is not the date's.
bool DayMaker::searchBack(Prayer prayer) {
    DayTime& time = at(prayer);
    const double today = engine_.astroGlobalFuncs.JulianDay(engineDate(day_.date));
    for (int back = 0; back <= kMostDaysBack; ++back) {
        const int without = daysSurelyWithout(today - back, place_.latitude, time.why.targetAltitude);
        back = std::min(back + without, kMostDaysBack);
        const Date date = addDays(day_.date, -back);
        const SunCrossing found = crossingOf(time, date, place_.latitude);
        if (found.occurs) {
            time.why.date = date;
            time.why.daysBack = back;
            correct(time, found.hour + zone_ + time.why.temkin, Correction::seamOfDays);
            return back != 0;
        }
    }
    correct(time, kNoSolarEvent, Correction::seamOfDays);
    return true;
}

/// The engine's times at the place moved south by whole degrees until the Sun rises and sets there on the
/// date itself; in the south down to the pole, as the engine does.
void DayMaker::tellLowered() {
    for (double latitude = place_.latitude - 1.0; latitude >= kLowestLatitude; latitude -= 1.0) {
        ExplainedPrayTimes lowered = run(latitude);
        const double used = lowered.explanations[PrayerTimes::sunset].latitude;
        lowered.times.latitudeLowered = true;
        lowered.times.priorLatitude = used + 1.0;
        if (!skyOn(day_.date, used).risesAndSets() && latitude - 1.0 >= kLowestLatitude) {
            continue;
        }
        takeFromEngine(lowered, false);
        for (DayTime& time : day_.times) {
            time.why.latitudeLowered = true;
            correct(time, time.hours, Correction::seamOfDays);
        }
        break;
    }
    feed(place_.latitude);
}

} // namespace zorel::almanac
