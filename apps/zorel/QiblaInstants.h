// SPDX-License-Identifier: Apache-2.0
/// @file
/// The qibla of a place: its bearing, and when the Sun stands in it.
#pragma once

#include "Place.h"
#include "Rounding.h"

#include <optional>
#include <vector>

namespace zorel::cli {

/// Great-circle bearing of the Kaaba [deg], true, clockwise from north, in [0, 360); nothing within about a
/// hundred metres of the Kaaba, where every direction is the qibla.
[[nodiscard]] std::optional<double> qiblaBearing(const Place& place);

/// The instants of a local day at which the Sun, above the horizon, stands in the direction of the qibla, to
/// the nearest minute; often none.
[[nodiscard]] std::vector<EventTime> sunAtQiblaInstants(const Place& place, Date date);

} // namespace zorel::cli
