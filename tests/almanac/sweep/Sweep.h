// SPDX-License-Identifier: Apache-2.0
/// @file
/// Goes over the days of places and looks whether everything holds that must hold of every told day.
#pragma once

#include "almanac/Almanac.h"
#include "almanac/SunInSky.h"
#include "tests/almanac/sweep/Places.h"

#include <map>
#include <string>
#include <vector>

namespace zorel::almanac::tests {

/// What must hold, and how often it did not.
struct Violations {
    std::map<std::string, int> byKind;
    std::vector<std::string> examples; ///< the first few of each kind

    void add(const std::string& kind, const std::string& where);
    [[nodiscard]] std::string text() const;
};

/// A largest difference with its place and day.
struct Largest {
    double seconds = 0.0;
    int events = 0;
    std::string where{};

    void add(double difference, const std::string& of);
};

/// A correction: how often, from which latitude on, and how much of a time that the Sun decides, by band of
/// latitude, where it is the only one.
struct Corrected {
    int times = 0;
    double lowestLatitude = 90.0;        ///< [deg] north or south
    std::map<std::string, Largest> most; ///< told less the engine's

    void add(Correction correction, const SweptPlace& place, const DayTime& time, Date date);
};

/// What was swept.
struct Tally {
    int days = 0;
    int times = 0;
    int corrected = 0;
    int byRule = 0;  ///< days near which the catalogue's rule is preferred to the system's data
    int lowered = 0; ///< days told at a lower latitude
    std::map<std::string, Corrected> corrections;
    std::map<std::string, int> absences;
    /// ours minus the sky's, by band of latitude and event, of times that a rule of the Sun decides
    std::map<std::string, std::map<std::string, Largest>> differences;

    void print() const;
};

class Sweep {
public:
    /// Sets the zone of the process (TZ) for the place: the C library judges the clock.
    /// @param step days from one day to the next.
    void go(const SweptPlace& place, Date first, Date last, int step);

    [[nodiscard]] const Violations& violations() const { return violations_; }
    [[nodiscard]] const Tally& tally() const { return tally_; }

private:
    void count();
    void checkEngine();
    void checkClock();
    void checkClock(const DayTime& time);
    void checkRounding(const DayTime& time);
    void checkExplanation(const DayTime& time);
    void checkOrder();
    void checkSky();
    void compareWithSky(const DayTime& time);
    void violated(const std::string& what);

    [[nodiscard]] std::chrono::seconds trueOffset(Instant instant) const;
    [[nodiscard]] bool nearRuleDay() const;
    [[nodiscard]] const SunInSky& skyOn(Date date, double latitude);

    const SweptPlace* swept_ = nullptr;
    Day day_;
    double zone_ = 0.0; // what the engine is fed [h]
    int daysAway_ = 0;
    bool isNearRule_ = false; // a day on which the catalogue's rule is preferred
    Memory memory_;
    FastAstro engine_;
    FastAstro skyEngine_;
    std::map<std::pair<Date, double>, SunInSky> skies_;
    Violations violations_;
    Tally tally_;
};

} // namespace zorel::almanac::tests
