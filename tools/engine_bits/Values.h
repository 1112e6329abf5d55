// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/FastAstro.h"
#include "tools/golden_check/Hash.h"

namespace zorel::bits {

using golden::Hash;

/// The times, the times of the sunset clock and the flags of a day.
void add(Hash& hash, const PrayerTimes& times);
/// Every field of the engine that a computation of the Sun or of prayer times may leave, but for the times.
void addFields(Hash& hash, const FastAstro& engine);
/// How each of the sixteen times of iPlace's current date came about.
void addTrace(Hash& hash, FastAstro& engine);

} // namespace zorel::bits
