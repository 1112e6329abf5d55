// SPDX-License-Identifier: Apache-2.0
#include "engine/PrayerDay.h"

#include "engine/NightSearch.h"
#include "engine/Single.h"
#include "engine/Temkin.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace zorel {

namespace {

constexpr int kLastAttempt = 365; // days back
constexpr double kLowestLatitude = -90.0;
constexpr int kMostLowerings = 181;

bool riseOrSetMissing(const SunInfoForPray& info) {
    return info.sunriseYesterday() == kNoSolarEvent || info.sunsetYesterday() == kNoSolarEvent;
}

} // namespace

/// Altitude or shadow code, side of noon (-1 morning), sign of the temkin, addition after the iteration [h].
struct PrayerDay::Event {
    PrayerTimes::Index index;
    int altitude;
    int direction;
    int temkin;
    double addition;
};

namespace {

enum EventPosition {
    dawn,
    sunrise,
    afternoon,
    secondAfternoon,
    sunset,
    nightfall,
    secondNightfall,
    morning5,
    afternoon5
};

} // namespace

const std::array<PrayerDay::Event, 9> PrayerDay::kEvents{{
    {PrayerTimes::dawn, -19, -1, -1, 0.0},
    {PrayerTimes::sunrise, 0, -1, -1, -0.013888888992369175}, // 50 seconds
    {PrayerTimes::afternoon, 1, 1, 1, 0.0},
    {PrayerTimes::secondAfternoon, 2, 1, 1, 0.0},
    {PrayerTimes::sunset, 0, 1, 1, 0.05000000074505806}, // 3 minutes
    {PrayerTimes::nightfall, -17, 1, 1, 0.0},
    {PrayerTimes::secondNightfall, -19, 1, 1, 0.0},
    {PrayerTimes::morningFiveDegrees, 5, -1, 1, 0.0},
    {PrayerTimes::afternoonFiveDegrees, 5, 1, 0, 0.0},
}};

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
    search(kEvents[dawn], out_.dawnFromOtherDay);
    backToCallDate();
    fixed(kEvents[sunrise]);
    transit();
    fixed(kEvents[afternoon]);
    fixed(kEvents[secondAfternoon]);
    fixed(kEvents[sunset]);
    search(kEvents[nightfall], out_.nightfallFromOtherDay);
    backToCallDate();
    if (out_.times[PrayerTimes::nightfall] == kNoSolarEvent) {
        set(PrayerTimes::secondNightfall, kNoSolarEvent);
    } else {
        // What follows stays on the date at which this search stops.
        search(kEvents[secondNightfall], out_.secondNightfallFromOtherDay);
    }
    fixed(kEvents[morning5]);
    fixed(kEvents[afternoon5]);
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
    return !iterate(kEvents[sunrise]).answer || !iterate(kEvents[afternoon]).answer;
}

IterationInput PrayerDay::inputOf(const Event& event) const {
    return {phi_,           longitudeTerm_, event.temkin * temkin_, engine_.iPlace.timeZone,
            event.altitude, event.direction};
}

/// Iterates every event of the date of the call, side by side.
void PrayerDay::startCallDate() {
    callInfo_ = info_;
    std::vector<PrayerIteration> iterations;
    iterations.reserve(kEvents.size());
    for (const Event& event : kEvents) {
        iterations.emplace_back(inputOf(event), info_);
    }
    iterateTogether(iterations);
    for (std::size_t i = 0; i < kEvents.size(); ++i) {
        callResults_[kEvents[i].index] = iterations[i].result();
    }
    onCallDate_ = true;
}

void PrayerDay::backToCallDate() {
    date_ = callDate_;
    info_ = callInfo_;
    onCallDate_ = true;
}

IterationResult PrayerDay::iterate(const Event& event) {
    const IterationInput input = inputOf(event);
    const IterationResult result = onCallDate_ ? callResults_[event.index] : iteratePrayerTime(input, info_);
    if (trace_ != nullptr) {
        trace_->entries[event.index].input = input;
        trace_->entries[event.index].result = result;
    }
    return result;
}

/// Today's event, or the one of the latest earlier day that has it, at most 365 days back.
void PrayerDay::search(const Event& event, bool& fromOtherDay) {
    const AstroGlobalFuncs& calendar = engine_.astroGlobalFuncs;
    const double today = calendar.JulianDay(date_);
    IterationResult result = iterate(event);
    fromOtherDay = fromOtherDay || !result.answer;
    for (int back = 1; !result.answer && back <= kLastAttempt; ++back) {
        if (engine_.RemembersSun()) {
            back =
                std::min(back + daysSurelyWithout(today - back, phi_.degrees, event.altitude), kLastAttempt);
        }
        calendar.JulianToCalendar(today - back, date_, 1);
        info_ = sunOf(date_);
        onCallDate_ = false;
        result = iterate(event);
    }
    set(event.index, result.answer ? result.time : kNoSolarEvent, event.temkin * temkin_);
}

void PrayerDay::fixed(const Event& event) {
    set(event.index, iterate(event).time + event.addition, event.temkin * temkin_, event.addition);
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

/// Right only for some longitudes and without the zone: SunAtQibla is the time to show to a person.
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
