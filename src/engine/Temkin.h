// SPDX-License-Identifier: Apache-2.0
/// @file
/// Temkin: the precaution interval by which a time is moved to the safe side, for the refraction, the Sun's
/// half-diameter, the dip of the horizon and the spread of heights and places inside one town.
#pragma once

namespace zorel {

/// @param latitude [deg]; a southern one takes the row of its absolute value.
/// @param elevation true: surroundings up to 500 m high, false: up to 250 m.
/// @return the interval [h]; interpolated between whole degrees, constant from 60 degrees on.
[[nodiscard]] double temkinHours(double latitude, bool elevation);

} // namespace zorel
