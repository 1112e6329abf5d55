// SPDX-License-Identifier: Apache-2.0
/// @file
/// Bounds for the search of an earlier day that has a dawn or nightfall: days that surely have none are
/// passed over without computing their Sun.
#pragma once

namespace zorel {

/// Declination of the Sun [deg] by a two-term orbit; within 0.06 degrees between the years 1000 and 3000.
[[nodiscard]] double roughDeclination(double julianDay);

/// @param julianDay midnight of a day. @param latitude [deg]. @param altitude of the event [deg].
/// @return for how many days, this one and earlier ones, the Sun surely does not reach the altitude or stays
/// above it all day; 0 when that is not sure, and always outside the years 1000 to 3000 and beyond the poles.
[[nodiscard]] int daysSurelyWithout(double julianDay, double latitude, double altitude);

} // namespace zorel
