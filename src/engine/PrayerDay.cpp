// SPDX-License-Identifier: Apache-2.0
#include "engine/PrayerDay.h"

#include "engine/NightSearch.h"
#include "engine/Single.h"
#include "engine/Temkin.h"

#include <algorithm>
#include <cmath>

namespace zorel {

namespace {

constexpr int kLastAttempt = 365; // days back
constexpr double kLowestLatitude = -90.0;
constexpr int kMostLowerings = 181;

bool riseOrSetMissing(const SunInfoForPray& info) {
    return info.sunriseYesterday() == kNoSolarEvent || info.sunsetYesterday() == kNoSolarEvent;
}

} // namespace

PrayerDay::PrayerDay(FastAstro& engine, double latitude, double longitude, const DateTimeRecord& date,
                     bool elevation, PrayerTimes& out, const QiblaRecord& qibla, PrayerTrace* trace)
    : engine_(engine), givenLatitude_(latitude), entryLatitude_(engine.Lat),
      longitudeTerm_(-longitude / 15.0), temkin_(temkinHours(latitude, elevation)), callDate_(date),
      date_(date), out_(out), qibla_(qibla), trace_(trace), phi_(latitude) {}

void PrayerDay::run() {
    out_.latitudeLowered = false;
    info_ = sunOf(callDate_);
    lowerLatitude();
    startCallDate();
    ascensionalDifference();
    search(PrayerEvent::dawn, out_.dawnFromOtherDay);
    backToCallDate();
    fixed(PrayerEvent::sunrise);
    transit();
    fixed(PrayerEvent::afternoon);
    fixed(PrayerEvent::secondAfternoon);
    fixed(PrayerEvent::sunset);
    search(PrayerEvent::nightfall, out_.nightfallFromOtherDay);
    backToCallDate();
    if (out_.times[PrayerTimes::nightfall] == kNoSolarEvent) {
        set(PrayerTimes::secondNightfall, kNoSolarEvent);
    } else {
        // What follows stays on the date at which this search stops.
        search(PrayerEvent::secondNightfall, out_.secondNightfallFromOtherDay);
    }
    fixed(PrayerEvent::morning5);
    fixed(PrayerEvent::afternoon5);
    nightParts();
    qiblaTime();
    engine_.SunInfo = info_;
}

SunInfoForPray PrayerDay::sunOf(const DateTimeRecord& date) {
    return engine_.SunInformationForPray(date.day, date.month, date.year);
}

/// Moves the place south by whole degrees until the Sun rises and sets there, for any sign of the latitude.
/// At the south pole it stops: what does not occur there is -1.
void PrayerDay::lowerLatitude() {
    bool missing = riseOrSetMissing(info_);
    for (int step = 0; missing && step < kMostLowerings && engine_.Lat - 1.0 >= kLowestLatitude; ++step) {
        out_.latitudeLowered = true;
        out_.priorLatitude = engine_.Lat;
        engine_.Lat -= 1.0;
        phi_ = IterationLatitude(engine_.Lat);
        info_ = sunOf(callDate_);
        missing = riseOrSetMissing(info_) || missesAfterLowering();
    }
}

bool PrayerDay::missesAfterLowering() {
    return !iterate(PrayerEvent::sunrise).answer || !iterate(PrayerEvent::afternoon).answer;
}

DayIterationInput PrayerDay::input() const {
    return {phi_, longitudeTerm_, temkin_, engine_.iPlace.timeZone};
}

/// Iterates every event of the date of the call.
void PrayerDay::startCallDate() {
    callInfo_ = info_;
    callResults_ =
        engine_.RemembersSun() ? iterateSideBySide(input(), info_) : iterateOneByOne(input(), info_);
    onCallDate_ = true;
}

void PrayerDay::backToCallDate() {
    date_ = callDate_;
    info_ = callInfo_;
    onCallDate_ = true;
}

IterationResult PrayerDay::iterate(PrayerEvent event) {
    const IterationResult result = onCallDate_ ? callResults_[static_cast<std::size_t>(event)]
                                               : iteratePrayerTime(input().of(event), info_);
    if (trace_ != nullptr) {
        PrayerTrace::Entry& entry = trace_->entries[ruleOf(event).index];
        entry.input = input().of(event);
        entry.result = result;
    }
    return result;
}

/// Today's event, or the one of the latest earlier day that has it, at most 365 days back.
void PrayerDay::search(PrayerEvent event, bool& fromOtherDay) {
    const PrayerEventRule& rule = ruleOf(event);
    const AstroGlobalFuncs& calendar = engine_.astroGlobalFuncs;
    const double today = calendar.JulianDay(date_);
    IterationResult result = iterate(event);
    fromOtherDay = fromOtherDay || !result.answer;
    for (int back = 1; !result.answer && back <= kLastAttempt; ++back) {
        if (engine_.RemembersSun()) {
            back =
                std::min(back + daysSurelyWithout(today - back, phi_.degrees, rule.altitude), kLastAttempt);
        }
        calendar.JulianToCalendar(today - back, date_, 1);
        info_ = sunOf(date_);
        onCallDate_ = false;
        result = iterate(event);
    }
    set(rule.index, result.answer ? result.time : kNoSolarEvent, rule.temkin * temkin_);
}

void PrayerDay::fixed(PrayerEvent event) {
    const PrayerEventRule& rule = ruleOf(event);
    set(rule.index, iterate(event).time + rule.addition, rule.temkin * temkin_, rule.addition);
}

/// Half the difference of the day's length from twelve hours, as time [min]; the sunset clock overwrites it.
void PrayerDay::ascensionalDifference() {
    out_.ezani[PrayerTimes::sunrise] = std::asin(std::tan(info_.declinationToday() * kRadiansPerDegree) *
                                                 std::tan(givenLatitude_ * kRadiansPerDegree)) /
                                       kRadiansPerDegree * 4.0;
}

void PrayerDay::transit() {
    const double today = info_.equationOfTimeToday();
    const double noon = 12.0 - (today + (today - info_.equationOfTimeTomorrow()) * -0.5) + longitudeTerm_;
    set(PrayerTimes::noon, noon + temkin_ + engine_.iPlace.timeZone, temkin_);
    set(PrayerTimes::transitMinusTemkin, noon - temkin_ + engine_.iPlace.timeZone, -temkin_);
}

void PrayerDay::nightParts() {
    const double sunset = out_.times[PrayerTimes::sunset];
    const double dawn = out_.times[PrayerTimes::dawn];
    const double night = 24.0 - (sunset - dawn);
    set(PrayerTimes::lastSixthOfNight, dawn - night / 6.0);
    set(PrayerTimes::middleOfNight, sunset + night / 2.0);
    set(PrayerTimes::firstThirdOfNight, sunset + night / 3.0);
}

/// Right only for some longitudes and without the zone: SunAtBearing has the instants to show to a person.
void PrayerDay::qiblaTime() {
    if (out_.latitudeLowered) {
        set(PrayerTimes::qiblaTime, kNoSolarEvent);
        engine_.Lat = entryLatitude_;
        return;
    }
    double y = std::acos(std::tan(info_.declinationToday() * kRadiansPerDegree) * std::cos(qibla_.q0) /
                         std::tan(givenLatitude_ * kRadiansPerDegree)) -
               qibla_.q0;
    if (qibla_.q1 > 180.0) {
        y = -y;
    }
    const double T = -y / kRadiansPerDegree / 15.0 + 12.0 + longitudeTerm_;
    set(PrayerTimes::qiblaTime,
        T - interpolateDay(info_.equationOfTimeToday(), info_.equationOfTimeTomorrow(), T));
}

/// Not-a-number and infinity never get into the times.
void PrayerDay::set(PrayerTimes::Index index, double time, double temkin, double addition) {
    out_.times[index] = std::isfinite(time) ? time : kNoSolarEvent;
    if (trace_ != nullptr) {
        PrayerTrace::Entry& entry = trace_->entries[index];
        entry.date = date_;
        entry.latitude = phi_.degrees;
        entry.temkin = temkin;
        entry.addition = addition;
    }
}

} // namespace zorel
