// SPDX-License-Identifier: Apache-2.0
/// @file
/// How a day of a place comes about: the engine runs once, with its trace; then each correction that applies
/// is made, in the order of the functions below; then every time gets its instant and its local time.
#pragma once

#include "almanac/Day.h"
#include "almanac/Place.h"
#include "almanac/SunInSky.h"

#include "engine/FastAstro.h"

#include <optional>

namespace zorel::almanac {

/// Whether place and date can be computed with.
[[nodiscard]] bool canBeTold(const Place& place, Date date);
/// A day all of whose times are out of range.
[[nodiscard]] Day untoldDay(Date date);

/// Makes one day. The place and the engine must outlive it.
class DayMaker {
public:
    /// @param engine its place, date and working values are overwritten. @param day out.
    DayMaker(const Place& place, FastAstro& engine, Date date, Day& day);
    void make();

private:
    /// What a rough declination says of the Sun on the date.
    enum class RiseAndSet { surely, unsure, surelyNot };

    [[nodiscard]] DayTime& at(Prayer prayer) { return day_.times[static_cast<std::size_t>(prayer)]; }
    [[nodiscard]] bool has(Prayer prayer) { return at(prayer).hours != kNoSolarEvent; }

    // From the engine (DayMaker.cpp).
    void feed(double latitude);
    [[nodiscard]] ExplainedPrayTimes run(double latitude);
    void takeFromEngine(const ExplainedPrayTimes& told, bool isFirst);
    void takeSun();

    // Corrections of single times (DayCorrections.cpp).
    /// The told hours; the correction is marked where they are not the engine's.
    static void correct(DayTime& time, double hours, Corrections correction);
    void takeOwnSun();
    void undoAddedHour();
    [[nodiscard]] double byRule(const DayTime& time);
    void waitForSun();
    void dropOutOfOrder();
    void drop(Prayer prayer, Absence absence, Correction correction);
    void tellNight();
    void tellPartsOfNight(double dawn, double night, double sunset);
    void tellSunAtQibla();

    // The seam of two days (DayFromSky.cpp).
    void meetSeam();
    [[nodiscard]] RiseAndSet judgeRoughly() const;
    [[nodiscard]] bool setsFlatly() const;
    /// The solar day of a date at a latitude.
    [[nodiscard]] const SunInSky& skyOn(Date date, double latitude);
    [[nodiscard]] SunCrossing crossingOf(const DayTime& time, Date date, double latitude);
    void tellFromSky();
    void tellTransit(Prayer prayer);
    void tellEvent(Prayer prayer);
    bool searchBack(Prayer prayer);
    void tellLowered();

    // Instants and clock (DayMaker.cpp).
    void finish();
    void finish(DayTime& time);
    void fillRecord();

    struct KnownSky {
        Date date;
        double latitude;
        SunInSky sky;
    };

    const Place& place_;
    FastAstro& engine_;
    Day& day_;
    const std::optional<std::chrono::seconds> steady_; // offset of a clock that does not change these days
    const std::chrono::seconds noon_;                  // offset of noon
    const double offset_;                              // the same [h]
    const int daysAway_;                               // whole days between the clock and the meridian
    const double zone_;                                // what the engine is fed [h]
    SunInfoForPray sun_;                               // of the date itself
    RiseAndSet riseAndSet_ = RiseAndSet::surely;
    std::optional<KnownSky> sky_;
};

} // namespace zorel::almanac
