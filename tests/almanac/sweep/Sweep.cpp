// SPDX-License-Identifier: Apache-2.0
#include "tests/almanac/sweep/Sweep.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace zorel::almanac::tests {

namespace {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_days;

bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void setProcessZone(const std::string& zone) {
    setenv("TZ", zone.empty() ? "UTC0" : zone.c_str(), 1);
    tzset();
}

/// Corrections that tell the engine's own hours by another name or clock.
bool leavesHours(Corrections corrections) {
    Corrections without = Correction::clockChange;
    without |= Correction::dateLine;
    Corrections both = corrections;
    both |= without;
    return both == without;
}

ExactInstant instantOfHour(Date date, double hour) {
    return sys_days(date) + milliseconds(std::llround(hour * 3'600'000.0));
}

} // namespace

void Sweep::go(const SweptPlace& place, Date first, Date last, int step) {
    swept_ = &place;
    setProcessZone(place.zone);
    const Almanac almanac(place.place);
    for (Date date = first; date <= last; date = addDays(date, step)) {
        skies_.clear();
        day_ = almanac.day(date, memory_);
        const double offset = static_cast<double>(day_.offset.count()) / 3600.0;
        daysAway_ = static_cast<int>(std::round((offset - place.place.longitude / 15.0) / 24.0));
        zone_ = offset - 24.0 * daysAway_;
        isNearRule_ = nearRuleDay();
        count();
        checkEngine();
        checkClock();
        checkOrder();
        checkSky();
        for (const DayTime& time : day_.times) {
            checkExplanation(time);
            if (time.exists()) {
                checkClock(time);
                checkRounding(time);
                compareWithSky(time);
            }
        }
    }
}

void Sweep::violated(const std::string& what) {
    violations_.add(what, swept_->place.name + ' ' + isoDate(day_.date));
}

/// The engine by itself, fed with the same values.
void Sweep::checkEngine() {
    const Place& place = swept_->place;
    engine_.SetCurrentDateTime(engineDate(day_.date));
    engine_.SetPlace(place.latitude, place.longitude, zone_, 0, 0, 0, 0, 0, 0,
                     place.temkin == Temkin::upTo500m ? 1 : 0);
    const PrayerTimes engine = engine_.CalculatePrayTimes().today;
    for (const DayTime& time : day_.times) {
        const double own = engine.times[static_cast<std::size_t>(identityOf(time.prayer).position)];
        if (!sameBits(own, time.why.engineHours)) {
            violated("the engine's hours are not the engine's: " + std::string(keyOf(time.prayer)));
        }
    }
}

/// By the C library, from the system's data; a fixed clock stands still.
seconds Sweep::trueOffset(Instant instant) const {
    if (swept_->zone.empty()) {
        return swept_->offset;
    }
    const std::time_t time = instant.time_since_epoch().count();
    std::tm fields{};
    localtime_r(&time, &fields);
    return seconds(fields.tm_gmtoff);
}

bool Sweep::nearRuleDay() const {
    for (const int step : {-2, -1, 0, 1, 2}) {
        if (swept_->place.clock.noticeOn(addDays(day_.date, step)) == ClockNotice::ruleIsNewer) {
            return true;
        }
    }
    return false;
}

void Sweep::checkClock() {
    using namespace std::chrono_literals;
    const Instant noon = sys_days(day_.date) + 12h - day_.offset;
    if (day_.clockNotice == ClockNotice::ruleIsNewer) {
        if (day_.offset != seconds(std::llround(3600.0 * swept_->rule.standard)) &&
            day_.offset != seconds(std::llround(3600.0 * (swept_->rule.standard + 1.0)))) {
            violated("the offset is not the rule's");
        }
    } else if (trueOffset(noon) != day_.offset) {
        violated("the offset of the day is not that of its noon");
    }
}

/// A local time that is an instant's own exists on the clock.
void Sweep::checkClock(const DayTime& time) {
    const seconds offset = isNearRule_ ? swept_->place.clock.offsetAt(time.shown) : trueOffset(time.shown);
    const sys_days midnight = floor<days>(time.shown + offset);
    const LocalTime expected{Date(midnight), time.shown + offset - midnight, offset};
    if (time.local != expected) {
        violated("a local time is not what the clock shows: " + std::string(keyOf(time.prayer)));
    }
    const auto fromHours = instantOfHour(day_.date, time.hours) - day_.offset;
    if (fromHours != time.exact) {
        violated("the instant is not that of the hours: " + std::string(keyOf(time.prayer)));
    }
}

void Sweep::checkRounding(const DayTime& time) {
    using namespace std::chrono_literals;
    const auto late = time.shown - time.exact;
    const bool isSafe = identityOf(time.prayer).rounding == Rounding::earlier ? late <= 0ms && late > -1min
                                                                              : late >= 0ms && late < 1min;
    if (!isSafe || (time.shown + time.offset).time_since_epoch() % 60s != 0s) {
        violated("rounding: " + std::string(keyOf(time.prayer)));
    }
}

void Sweep::checkExplanation(const DayTime& time) {
    const Explanation& why = time.why;
    const std::string name(keyOf(time.prayer));
    const bool isWhole = why.rule != PrayTimeRule::none && why.date.ok() && std::isfinite(why.latitude) &&
                         daysBetween(why.date, day_.date) == why.daysBack && why.daysBack >= 0;
    if (!isWhole) {
        violated("no explanation: " + name);
    }
    if (why.latitudeLowered ? why.latitude >= swept_->place.latitude
                            : !sameBits(why.latitude, swept_->place.latitude)) {
        violated("the latitude is not explained: " + name);
    }
    const bool sameHours = sameBits(time.hours, why.engineHours);
    const bool isExpected = time.prayer == Prayer::sunAtQibla || sameHours == leavesHours(why.corrections);
    if ((why.corrections.none() && !sameHours) || !isExpected) {
        violated("corrections and hours disagree: " + name);
    }
    if (time.exists() == (time.hours == kNoSolarEvent)) {
        violated("there, but without hours: " + name);
    }
}

void Sweep::checkOrder() {
    const DayTime* previous = nullptr;
    for (const Prayer prayer : kSixPrayers) {
        const DayTime& time = day_[prayer];
        if (!time.exists()) {
            continue;
        }
        if (previous != nullptr && (previous->hours >= time.hours || previous->shown > time.shown)) {
            violated(std::string(keyOf(previous->prayer)) + " is not before " + std::string(keyOf(prayer)));
        }
        previous = &time;
    }
}

const SunInSky& Sweep::skyOn(Date date, double latitude) {
    const std::pair key{date, latitude};
    const auto known = skies_.find(key);
    if (known != skies_.end()) {
        return known->second;
    }
    const Date solar = addDays(date, -daysAway_);
    return skies_.emplace(key, SunInSky(skyEngine_, latitude, swept_->place.longitude, solar)).first->second;
}

void Sweep::checkSky() {
    const SunInSky& sky = skyOn(day_.date, swept_->place.latitude);
    const Date solar = addDays(day_.date, -daysAway_);
    const SunCrossing rise = sky.limb(HalfDay::morning);
    const SunCrossing set = sky.limb(HalfDay::evening);
    const DayTime& sunrise = day_[Prayer::sunrise];
    const DayTime& maghrib = day_[Prayer::maghrib];
    if (rise.occurs && set.occurs && (day_.loweredLatitude() || !sunrise.exists() || !maghrib.exists())) {
        violated("a rise or set that happens is not told");
    }
    if (rise.occurs && sunrise.exists() && sunrise.shown > instantOfHour(solar, rise.hour)) {
        violated("sunrise after the Sun's rise");
    }
    if (set.occurs && maghrib.exists() && maghrib.shown < instantOfHour(solar, set.hour)) {
        violated("Maghrib before the Sun's set");
    }
}

} // namespace zorel::almanac::tests
