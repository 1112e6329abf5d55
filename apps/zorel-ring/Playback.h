// SPDX-License-Identifier: Apache-2.0
/// @file
/// Plays a ringtone through the sound server (GStreamer).
#pragma once

#include "ring/PlayResult.h"

#include <chrono>
#include <string>
#include <vector>

namespace zorel::ring {

/// How long it takes from silence to full volume, and back at the end [s]; of a short ring a quarter of it.
inline constexpr double kFade = 1.5;
/// How long the end takes when a person stops it [s].
inline constexpr double kQuickFade = 0.25;

/// The loudness, 0 to 1, a time after the beginning of a ring that lasts `duration`. @param seconds,
/// duration [s]
[[nodiscard]] double loudnessAt(double seconds, double duration);

/// Plays the first of the files that can be played, over and over, for the duration. Ends early, softly, on
/// SIGTERM and SIGINT.
[[nodiscard]] PlayResult playTone(const std::vector<std::string>& files, std::chrono::seconds duration);

} // namespace zorel::ring
