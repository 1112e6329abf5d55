// SPDX-License-Identifier: Apache-2.0
/// @file
/// The reference events of resources/reference, read from their tables.
#pragma once

#include "engine/Records.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorel::accuracy {

/// Rise or set of the Sun or the Moon, to the minute.
struct RiseSetEvent {
    bool moon = false;
    bool rise = false;
    double latitude = 0.0;  ///< [deg]
    double longitude = 0.0; ///< [deg] east
    double julianDay = 0.0; ///< UT
    std::string utc;
};

/// A principal phase, to the minute.
struct PhaseEvent {
    int quarter = 0; ///< 0 new, 1 first quarter, 2 full, 3 last quarter
    double julianDay = 0.0;
    std::string utc;
};

/// An event of the Sun on a civil day; without an instant when it does not occur.
struct SunEvent {
    std::string place;
    double latitude = 0.0;  ///< [deg]
    double longitude = 0.0; ///< [deg] east
    DateTimeRecord day;
    std::string event;
    std::optional<double> julianDay; ///< UT
};

/// The events of the Sun in the solar day of a place whose noon falls on a civil day.
struct SunDay {
    std::string place;
    double latitude = 0.0;  ///< [deg]
    double longitude = 0.0; ///< [deg] east
    std::string zone;       ///< IANA name
    DateTimeRecord day;
    std::map<std::string, std::optional<double>> events; ///< [s] UT after 0:00 of the day; nothing: none
};

/// @throws std::runtime_error naming file and line when a file is missing or a line cannot be read
[[nodiscard]] std::vector<RiseSetEvent> readRiseSets(const std::string& file);
[[nodiscard]] std::vector<PhaseEvent> readPhases(const std::string& file);
[[nodiscard]] std::vector<SunDay> readSunDays(const std::string& file);
[[nodiscard]] std::vector<SunEvent> readSunEvents(const std::string& file);

} // namespace zorel::accuracy
