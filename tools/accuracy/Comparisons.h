// SPDX-License-Identifier: Apache-2.0
/// @file
/// The comparisons that the report consists of; each reads its reference events and prints tables in
/// Markdown.
#pragma once

#include "Reference.h"

#include "engine/FastAstro.h"

#include <optional>
#include <ostream>
#include <string>

namespace zorel::accuracy {

inline constexpr double kSecondsOfDay = 86400.0;
inline constexpr double kFarApart = 0.25; ///< [d] further apart are two different events

/// Body, direction and band of latitude: the row that an event belongs to.
[[nodiscard]] std::string riseSetName(const RiseSetEvent& event);

/// The value nearest to a reference instant, of those offered [JD UT].
class Nearest {
public:
    explicit Nearest(double reference) : reference_(reference) {}
    void offer(double julianDay);
    /// Nothing when even the nearest is so far apart that it is another event.
    [[nodiscard]] std::optional<double> found() const;

private:
    double reference_;
    std::optional<double> value_;
};

/// Our event nearest to the reference instant [JD UT], from the search of its day and the two beside it.
/// The place must have been set, with the zone 0.
[[nodiscard]] std::optional<double> engineRiseSet(FastAstro& engine, const RiseSetEvent& event);

/// Prayer times of the bare engine, without what is added on purpose.
class PrayerEvents {
public:
    /// Its instant without additions [JD UT]; nothing when it is of another day or does not occur.
    [[nodiscard]] std::optional<double> instant(const SunEvent& event);

private:
    void compute(const SunEvent& event);

    FastAstro engine_;
    std::string last_;
};

/// ours minus theirs [s] for instants in days. An event after local midnight belongs to the evening before:
/// whole days do not count.
[[nodiscard]] double secondsApart(double ours, double theirs);
/// Hours east of Greenwich of the zone in which the day of an event is computed.
[[nodiscard]] double zoneOf(const SunEvent& event);
[[nodiscard]] std::string placeAndDay(const SunEvent& event);

void compareRiseSets(const std::string& folder, std::ostream& out);
void comparePhases(const std::string& folder, std::ostream& out);
/// The times that people are told (almanac::Day) at the places of sun_days.tsv.
void compareToldDays(const std::string& folder, std::ostream& out);
/// Ours beside libnova and libitl, over the events that each of them has.
void comparePeers(const std::string& folder, std::ostream& out);

} // namespace zorel::accuracy
