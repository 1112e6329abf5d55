// SPDX-License-Identifier: Apache-2.0
#include "Playback.h"

#include <algorithm>

namespace zorel::ring {

double loudnessAt(double seconds, double duration) {
    const double fade = std::min(kFade, duration / 4);
    const double nearest = std::min(seconds, duration - seconds);
    const double share = fade > 0 ? std::clamp(nearest / fade, 0.0, 1.0) : 0.0;
    // The ear hears steps of the logarithm: a cube sounds even.
    return share * share * share;
}

} // namespace zorel::ring
