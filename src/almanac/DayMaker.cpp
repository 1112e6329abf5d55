// SPDX-License-Identifier: Apache-2.0
#include "almanac/DayMaker.h"

#include "almanac/Rounding.h"
#include "almanac/Usable.h"

#include <cmath>

namespace zorel::almanac {

namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;

constexpr double kFarthestHours = 240.0;
// Times between these hours lie within the span that PlaceClock::steadyOffsetAround speaks of.
constexpr double kSteadyFrom = -22.0;
constexpr double kSteadyTo = 46.0;

double hoursOf(seconds time) {
    return static_cast<double>(time.count()) / 3600.0;
}

int daysAwayFromMeridian(double offset, double longitude) {
    return static_cast<int>(std::round((offset - longitude / 15.0) / 24.0));
}

Date dateOf(const DateTimeRecord& record, Date told, int daysBack) {
    if (daysBack == 0) {
        return told;
    }
    return {std::chrono::year(record.year), std::chrono::month(static_cast<unsigned>(record.month)),
            std::chrono::day(static_cast<unsigned>(record.day))};
}

void explain(const PrayTimeExplanation& engine, Date told, Explanation& why) {
    why.rule = engine.rule;
    why.targetAltitude = engine.targetAltitude;
    why.shadowFactor = engine.shadowFactor;
    why.morning = engine.morning;
    why.partOfNight = engine.partOfNight;
    why.nightFrom = engine.nightFrom == PrayerTimes::dawn ? Prayer::fajr : Prayer::maghrib;
    why.temkin = engine.temkin;
    why.addition = engine.addition;
    why.rounds = engine.rounds;
    why.date = dateOf(engine.date, told, engine.daysBack);
    why.daysBack = engine.daysBack;
    why.latitude = engine.latitude;
    why.latitudeLowered = engine.latitudeLowered;
    why.corrections = Corrections();
}

/// Local time by an offset; most times fall on the date itself.
LocalTime localTime(Instant instant, seconds offset, Date date) {
    const seconds sinceMidnight = instant + offset - sys_days(date);
    if (sinceMidnight >= seconds(0) && sinceMidnight < days(1)) {
        return {date, sinceMidnight, offset};
    }
    const sys_days midnight = std::chrono::floor<days>(instant + offset);
    return {Date(midnight), instant + offset - midnight, offset};
}

} // namespace

bool canBeTold(const Place& place, Date date) {
    return isOnEarth(place) && isInRange(date);
}

Day untoldDay(Date date) {
    Day day;
    day.date = date;
    for (std::size_t i = 0; i < kPrayers; ++i) {
        day.times[i].prayer = static_cast<Prayer>(i);
        day.record.times[static_cast<std::size_t>(identityOf(day.times[i].prayer).position)] = kNoSolarEvent;
    }
    return day;
}

DayMaker::DayMaker(const Place& place, FastAstro& engine, Date date, Day& day)
    : place_(place), engine_(engine), day_(day), steady_(place.clock.steadyOffsetAround(date)),
      noon_(steady_ ? *steady_ : place.clock.offsetOn(date)), offset_(hoursOf(noon_)),
      daysAway_(daysAwayFromMeridian(offset_, place.longitude)), zone_(offset_ - 24.0 * daysAway_) {
    day_.date = date;
    day_.offset = noon_;
    day_.clockSource = place.clock.sourceOn(date);
    day_.clockNotice = place.clock.noticeOn(date);
}

void DayMaker::make() {
    takeFromEngine(run(place_.latitude), true);
    takeSun();
    meetSeam();
    takeOwnSun();
    undoAddedHour();
    waitForSun();
    dropOutOfOrder();
    tellNight();
    tellSunAtQibla();
    finish();
    fillRecord();
}

void DayMaker::feed(double latitude) {
    engine_.SetCurrentDateTime(engineDate(day_.date));
    engine_.SetPlace(latitude, place_.longitude, zone_, 0, 0, 0, 0, 0, 0,
                     place_.temkin == Temkin::upTo500m ? 1 : 0);
}

ExplainedPrayTimes DayMaker::run(double latitude) {
    feed(latitude);
    return engine_.CalculateExplainedPrayTimes();
}

/// @param isFirst the engine's own result for the place; otherwise one for a lower latitude takes its place.
void DayMaker::takeFromEngine(const ExplainedPrayTimes& told, bool isFirst) {
    day_.record = told.times;
    for (std::size_t i = 0; i < kPrayers; ++i) {
        DayTime& time = day_.times[i];
        time.prayer = static_cast<Prayer>(i);
        const auto position = static_cast<std::size_t>(identityOf(time.prayer).position);
        time.hours = told.times.times[position];
        time.absence = Absence::none;
        explain(told.explanations[position], day_.date, time.why);
        if (isFirst) {
            time.why.engineHours = time.hours;
        }
    }
}

/// The Sun of the date itself: the engine may have gone back to earlier ones.
void DayMaker::takeSun() {
    const DateTimeRecord date = engineDate(day_.date);
    sun_ = engine_.SunPositionsForPray(date.day, date.month, date.year);
}

void DayMaker::finish() {
    for (DayTime& time : day_.times) {
        if (daysAway_ != 0) {
            time.why.corrections |= Correction::dateLine;
        }
        finish(time);
    }
}

void DayMaker::finish(DayTime& time) {
    if (time.hours == kNoSolarEvent || !(std::fabs(time.hours) <= kFarthestHours)) {
        time.hours = kNoSolarEvent;
        time.absence = time.absence == Absence::none ? Absence::neverReached : time.absence;
        return;
    }
    const std::chrono::milliseconds sinceMidnight(std::llround(time.hours * 3'600'000.0));
    time.exact = sys_days(day_.date) + sinceMidnight - day_.offset;
    const bool isSteady = steady_ && time.hours > kSteadyFrom && time.hours < kSteadyTo;
    time.offset = isSteady ? *steady_ : place_.clock.offsetAt(std::chrono::floor<seconds>(time.exact));
    time.shown = time.rounded(Precision::minutes);
    time.local = isSteady ? localTime(time.shown, *steady_, day_.date) : place_.clock.localTime(time.shown);
    if (time.offset != day_.offset) {
        time.why.corrections |= Correction::clockChange;
    }
}

void DayMaker::fillRecord() {
    for (const DayTime& time : day_.times) {
        if (time.prayer == Prayer::sunAtQibla) {
            continue;
        }
        double& hours = day_.record.times[static_cast<std::size_t>(identityOf(time.prayer).position)];
        hours = time.hours;
        if (time.exists() && time.offset != day_.offset) {
            hours += hoursOf(time.offset - day_.offset);
        }
    }
}

} // namespace zorel::almanac
