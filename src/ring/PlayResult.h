// SPDX-License-Identifier: Apache-2.0
/// @file
/// How the program that plays a ringtone ends: its exit status.
#pragma once

namespace zorel::ring {

enum class PlayResult : int {
    played = 0,         ///< the ringtone, for its time or until it was asked to end
    badUse = 2,         ///< it was called with wrong arguments
    noSoundServer = 3,  ///< nothing takes sound
    playedOther = 4,    ///< the first file could not be played, a later one was
    nothingPlayable = 5 ///< none of the files could be played
};

} // namespace zorel::ring
