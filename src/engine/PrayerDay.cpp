// SPDX-License-Identifier: Apache-2.0
#include "engine/PrayerDay.h"

#include "engine/DayArc.h"
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

} // namespace

PrayerDay::PrayerDay(FastAstro& engine, double latitude, double longitude, const DateTimeRecord& date,
                     bool elevation, PrayerTimes& out, const QiblaRecord& qibla, Extent extent,
                     PrayerTrace* trace)
    : engine_(engine), givenLatitude_(latitude), entryLatitude_(engine.Lat),
      longitudeTerm_(-longitude / 15.0), temkin_(temkinHours(latitude, elevation)), callDate_(date),
      date_(date), out_(out), qibla_(qibla), timesOnly_(extent == Extent::timesOnly), trace_(trace),
      phi_(latitude) {}

void PrayerDay::run() {
    out_.latitudeLowered = false;
    lowerLatitude();
    startCallDate();
    if (!timesOnly_) {
        ascensionalDifference();
    }
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
    if (!timesOnly_) {
        leaveSun();
    }
    qiblaTime();
}

SunInfoForPray PrayerDay::sunOf(const DateTimeRecord& date) {
    return engine_.SunInformationForPray(date.day, date.month, date.year);
}

/// Takes the Sun of the date of the call. @return whether the day before has no rise or no set. (A rise at -1
/// h to the last bit would pass for none in a search; the arc does not have this case.)
bool PrayerDay::riseOrSetMissing() {
    if (timesOnly_ && engine_.RemembersSun()) {
        const double midnight = engine_.astroGlobalFuncs.CalculateJulianDay(callDate_.year, callDate_.month,
                                                                            callDate_.day, 0, 0, 0);
        info_ = engine_.SunPositionsForPray(callDate_.day, callDate_.month, callDate_.year);
        if (surelyRoseAndSetDayBefore(midnight, info_, {engine_.Lat, engine_.Lon, engine_.iPlace.timeZone})) {
            return false;
        }
    }
    info_ = sunOf(callDate_);
    return info_.sunriseYesterday() == kNoSolarEvent || info_.sunsetYesterday() == kNoSolarEvent;
}

/// Moves the place south by whole degrees until the Sun rises and sets there, for any sign of the latitude.
/// At the south pole it stops: what does not occur there is -1.
void PrayerDay::lowerLatitude() {
    bool missing = riseOrSetMissing();
    for (int step = 0; missing && step < kMostLowerings && engine_.Lat - 1.0 >= kLowestLatitude; ++step) {
        out_.latitudeLowered = true;
        out_.priorLatitude = engine_.Lat;
        engine_.Lat -= 1.0;
        phi_ = IterationLatitude(engine_.Lat);
        missing = riseOrSetMissing() || missesAfterLowering();
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

/// Takes the Sun of an earlier date. No time needs its rise and set: where searches may be passed over, they
/// are made once in the end, for what they leave.
void PrayerDay::goBackTo(double julianDay) {
    engine_.astroGlobalFuncs.JulianToCalendar(julianDay, date_, 1);
    onCallDate_ = false;
    if (!engine_.RemembersSun()) {
        info_ = sunOf(date_);
        return;
    }
    info_ = engine_.SunPositionsForPray(date_.day, date_.month, date_.year);
    if (!timesOnly_) {
        skipped_.push_back(date_);
    }
}

/// Today's event, or the one of the latest earlier day that has it, at most 365 days back.
void PrayerDay::search(PrayerEvent event, bool& fromOtherDay) {
    const PrayerEventRule& rule = ruleOf(event);
    const double today = engine_.astroGlobalFuncs.JulianDay(date_);
    IterationResult result = iterate(event);
    fromOtherDay = fromOtherDay || !result.answer;
    for (int back = 1; !result.answer && back <= kLastAttempt; ++back) {
        if (engine_.RemembersSun()) {
            back =
                std::min(back + daysSurelyWithout(today - back, phi_.degrees, rule.altitude), kLastAttempt);
        }
        goBackTo(today - back);
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

/// What the searches of the days gone back to would have left in the engine, at the latitude used. That is
/// what the last one leaves; but a day without a rise and a set may leave the parabola's roots as it found
/// them, and then all are made in their order.
void PrayerDay::leaveSun() {
    if (!skipped_.empty()) {
        const double zero1 = engine_.Zero1;
        const double zero2 = engine_.Zero2;
        const double dx = engine_.DX;
        SunInfoForPray last = sunOf(skipped_.back());
        if (!engine_.Rise && !engine_.Sett) {
            engine_.Zero1 = zero1;
            engine_.Zero2 = zero2;
            engine_.DX = dx;
            for (const DateTimeRecord& date : skipped_) {
                last = sunOf(date);
            }
        }
        info_ = onCallDate_ ? info_ : last;
    }
    engine_.SunInfo = info_;
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
