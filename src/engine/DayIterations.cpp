// SPDX-License-Identifier: Apache-2.0
#include "engine/DayIterations.h"

#include "engine/Processor.h"
#include "engine/Single.h"

#include <cmath>
#include <cstddef>
#include <limits>

namespace zorel {

namespace {

constexpr std::size_t kEvents = kPrayerEvents.size();
/// The events, filled up to whole vectors; what is computed for the rest is not looked at.
constexpr std::size_t kLanes = 16;
using Lanes = std::array<double, kLanes>;

/// Whether every number that a round can meet stays where the portable sine is good.
bool isOrdinary(const DayIterationInput& day, const SunInfoForPray& info) {
    const auto within = [](double limit, auto... values) { return ((std::fabs(values) < limit) && ...); };
    return within(1000.0, info.declinationToday(), info.declinationTomorrow(), day.timeZone,
                  day.longitudeTerm, day.temkin, info.equationOfTimeToday(), info.equationOfTimeTomorrow());
}

constexpr Lanes directions() {
    Lanes lanes{};
    for (std::size_t i = 0; i < kEvents; ++i) {
        lanes[i] = kPrayerEvents[i].direction;
    }
    return lanes;
}

/// For each event an earlier one of the same altitude, or itself.
constexpr std::array<std::size_t, kEvents> twins() {
    std::array<std::size_t, kEvents> twin{};
    for (std::size_t i = 0; i < kEvents; ++i) {
        for (twin[i] = 0; kPrayerEvents[twin[i]].altitude != kPrayerEvents[i].altitude;) {
            ++twin[i];
        }
    }
    return twin;
}

constexpr Lanes kDirections = directions();
constexpr std::array<std::size_t, kEvents> kTwins = twins();

/// The iterations of one day.
class DayIterations {
public:
    DayIterations(const DayIterationInput& day, const SunInfoForPray& info) : day_(day), info_(info) {
        static const Lanes fixedSines = sinesOfAltitudes(); // of those that do not change, at every day again
        sinAltitudes_ = fixedSines;
        times_.fill(12.0);
        knownCosines_.fill(kNone);
        for (std::size_t i = 0; i < kEvents; ++i) {
            temkins_[i] = kPrayerEvents[i].temkin * day.temkin;
            results_[i].altitude = altitudeOf(kPrayerEvents[i].altitude);
            active_[i] = true;
        }
    }

    [[gnu::always_inline]] void run() {
        for (int round = 1; activeCount_ > 0; ++round) {
            sunAtTimes();
            shadows();
            cosines();
            hourAngles();
            nextTimes();
            settle(round);
        }
    }

    [[nodiscard]] const DayIterationResults& results() const { return results_; }

private:
    static constexpr double kNone = std::numeric_limits<double>::quiet_NaN(); // equals nothing

    static Lanes sinesOfAltitudes() {
        Lanes sines{};
        for (std::size_t i = 0; i < kEvents; ++i) {
            sines[i] = std::sin(altitudeOf(kPrayerEvents[i].altitude));
        }
        return sines;
    }

    /// Declinations at the times of the last round, their sines and cosines.
    [[gnu::always_inline]] void sunAtTimes() {
        const double today = info_.declinationToday();
        const double tomorrow = info_.declinationTomorrow();
        for (std::size_t i = 0; i < kLanes; ++i) {
            const double declination = interpolateDay(today, tomorrow, times_[i]);
            const double angle = single(declination * kRadiansPerDegree);
            declinations_[i] = declination;
            sines_[i] = single(portable::sine(angle));
            sunCosines_[i] = single(portable::cosine(angle));
        }
    }

    /// The altitudes of the shadow rules, which move with the declination.
    void shadows() {
        double declination = kNone;
        double noonShadow = 0.0;
        for (const PrayerEvent event : {PrayerEvent::afternoon, PrayerEvent::secondAfternoon}) {
            const auto i = static_cast<std::size_t>(event);
            if (!active_[i]) {
                continue;
            }
            if (declinations_[i] != declination) {
                declination = declinations_[i];
                noonShadow = shadowOfNoon(day_.latitude.degrees, declination);
            }
            results_[i].altitude = shadowAltitude(kPrayerEvents[i].altitude, noonShadow);
            sinAltitudes_[i] = std::sin(results_[i].altitude);
        }
    }

    /// Cosines of the hour angles.
    [[gnu::always_inline]] void cosines() {
        const double sine = day_.latitude.sine;
        const double cosine = day_.latitude.cosine;
        for (std::size_t i = 0; i < kLanes; ++i) {
            cosines_[i] = (sinAltitudes_[i] - sine * sines_[i]) / (cosine * sunCosines_[i]);
        }
    }

    /// An arc cosine costs more than all the rest of an event's round; many are those of the round before,
    /// and at the first round all events of one altitude have the same.
    void hourAngles() {
        for (std::size_t i = 0; i < kEvents; ++i) {
            if (!active_[i] || cosines_[i] == knownCosines_[i]) {
                continue;
            }
            const std::size_t twin = kTwins[i];
            angles_[i] = cosines_[i] == knownCosines_[twin] ? angles_[twin] : std::acos(cosines_[i]);
            knownCosines_[i] = cosines_[i];
        }
    }

    [[gnu::always_inline]] void nextTimes() {
        const double today = info_.equationOfTimeToday();
        const double tomorrow = info_.equationOfTimeTomorrow();
        const double longitudeTerm = day_.longitudeTerm;
        const double timeZone = day_.timeZone;
        for (std::size_t i = 0; i < kLanes; ++i) {
            const double T = 12.0 + kDirections[i] * (angles_[i] / kRadiansPerDegree) / 15.0;
            const double equation = interpolateDay(today, tomorrow, T);
            nextTimes_[i] = T - equation + longitudeTerm + temkins_[i] + timeZone;
        }
    }

    void settle(int round) {
        for (std::size_t i = 0; i < kEvents; ++i) {
            if (!active_[i]) {
                continue;
            }
            IterationResult& result = results_[i];
            result.rounds = round;
            active_[i] = !settleRound(result, nextTimes_[i], cosines_[i]);
            times_[i] = result.time;
            activeCount_ -= active_[i] ? 0 : 1;
        }
    }

    const DayIterationInput& day_;
    const SunInfoForPray& info_;
    Lanes temkins_{};
    Lanes times_;
    Lanes declinations_;
    Lanes sines_;
    Lanes sunCosines_;
    Lanes sinAltitudes_;
    Lanes cosines_;
    Lanes knownCosines_;
    Lanes angles_{};
    Lanes nextTimes_;
    std::array<bool, kEvents> active_{};
    std::size_t activeCount_ = kEvents;
    DayIterationResults results_;
};

DayIterationResults runPlainly(const DayIterationInput& day, const SunInfoForPray& info) {
    DayIterations iterations(day, info);
    iterations.run();
    return iterations.results();
}

ZOREL_TARGET_AVX2 DayIterationResults runWithAvx2(const DayIterationInput& day, const SunInfoForPray& info) {
    DayIterations iterations(day, info);
    iterations.run();
    return iterations.results();
}

} // namespace

IterationInput DayIterationInput::of(PrayerEvent event) const {
    const PrayerEventRule& rule = ruleOf(event);
    return {latitude, longitudeTerm, rule.temkin * temkin, timeZone, rule.altitude, rule.direction};
}

DayIterationResults iterateSideBySide(const DayIterationInput& day, const SunInfoForPray& info) {
    if (!isOrdinary(day, info)) {
        return iterateOneByOne(day, info);
    }
    return usesAvx2() ? runWithAvx2(day, info) : runPlainly(day, info);
}

DayIterationResults iterateOneByOne(const DayIterationInput& day, const SunInfoForPray& info) {
    DayIterationResults results;
    for (std::size_t i = 0; i < kEvents; ++i) {
        results[i] = iteratePrayerTime(day.of(static_cast<PrayerEvent>(i)), info);
    }
    return results;
}

} // namespace zorel
