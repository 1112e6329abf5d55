// SPDX-License-Identifier: Apache-2.0
/// @file
/// The computation of one day's prayer times, step by step; FastAstro::CalculateAllPrayTimes runs it.
#pragma once

#include "engine/DayIterations.h"
#include "engine/FastAstro.h"
#include "engine/PrayerEvents.h"
#include "engine/PrayerIteration.h"

#include <array>
#include <vector>

namespace zorel {

/// How each of the sixteen times came about. Filled only for an explanation.
struct PrayerTrace {
    struct Entry {
        IterationInput input;
        IterationResult result;
        DateTimeRecord date;
        double latitude = 0.0; // [deg]
        double temkin = 0.0;   // signed [h]
        double addition = 0.0; // after the iteration [h]
    };
    std::array<Entry, 16> entries{};
};

/// One place and civil date. Uses the engine's `Lat` while it lowers the latitude, and its Sun.
class PrayerDay {
public:
    /// What is filled.
    enum class Extent {
        everything, ///< the times, and every field of the engine that the computation is known to leave
        timesOnly   ///< the times and their flags; the engine's Sun is left anyhow
    };

    PrayerDay(FastAstro& engine, double latitude, double longitude, const DateTimeRecord& date,
              bool elevation, PrayerTimes& out, const QiblaRecord& qibla, Extent extent,
              PrayerTrace* trace = nullptr);
    /// Fills the times in their order; leaves index 13 and flags that do not apply as they were.
    void run();

private:
    SunInfoForPray sunOf(const DateTimeRecord& date);
    [[nodiscard]] bool riseOrSetMissing();
    void lowerLatitude();
    [[nodiscard]] bool missesAfterLowering();
    [[nodiscard]] DayIterationInput input() const;
    void startCallDate();
    void backToCallDate();
    IterationResult iterate(PrayerEvent event);
    void goBackTo(double julianDay);
    void search(PrayerEvent event, bool& fromOtherDay);
    void fixed(PrayerEvent event);
    void ascensionalDifference();
    void transit();
    void nightParts();
    void leaveSun();
    void qiblaTime();
    void set(PrayerTimes::Index index, double time, double temkin = 0.0, double addition = 0.0);

    FastAstro& engine_;
    const double givenLatitude_; // [deg]
    const double entryLatitude_; // the engine's `Lat` before lowering [deg]
    const double longitudeTerm_; // [h]
    const double temkin_;        // [h]
    const DateTimeRecord callDate_;
    DateTimeRecord date_; // the date that what follows is computed for
    PrayerTimes& out_;
    const QiblaRecord qibla_;
    const bool timesOnly_;
    PrayerTrace* trace_;
    IterationLatitude phi_; // latitude used
    SunInfoForPray info_;   // of date_
    // Of the date of the call, once its latitude is settled:
    SunInfoForPray callInfo_;
    DayIterationResults callResults_;
    bool onCallDate_ = false;
    std::vector<DateTimeRecord> skipped_; // earlier dates whose rise and set were not searched
};

} // namespace zorel
