// SPDX-License-Identifier: Apache-2.0
/// @file
/// Tells cheaply in which hours of a day the Moon cannot cross the horizon.
#pragma once

#include <array>
#include <cstdint>

namespace zorel {

class FastAstro;

/// A rough altitude curve of the Moon over one searched day of one place.
///
/// The hourly search for rise and set evaluates three lunar positions an hour, of which nearly all find
/// nothing. Four positions, a cubic through them and a uniformly turning Earth give the sine of the altitude
/// to about 1e-5; wherever this shows, by a margin of 5e-4, that the parabola of an hour has no root within
/// one hour, the exact evaluation can be left out without changing what the search finds. The curve serves
/// rise and set alike.
class MoonDayScan {
public:
    static constexpr int kHours = 23; ///< searched hours of a day
    /// Sine of the altitude of rise and set, +0.1333 deg.
    static constexpr double kHorizon = 0.0023265217863302867;

    /// Builds the curve unless it is the one held already. Uses the engine's place and overwrites its lunar
    /// fields.
    /// @param firstHour first searched hour of universal time.
    void prepare(FastAstro& engine, std::int32_t year, std::int32_t month, std::int32_t day,
                 std::int32_t firstHour);
    /// Whether the hour `index` (0 to 22) of the search may hold an event. True where the curve is no help.
    [[nodiscard]] bool mayHoldEvent(int index) const;

private:
    /// Everything the curve depends on.
    struct Key {
        double latitude, longitude;
        std::int32_t year, month, day, firstHour;

        friend bool operator==(const Key&, const Key&) = default;
    };

    void build(FastAstro& engine);

    Key key{};
    bool built = false;
    bool usable = false;
    /// Sine of the altitude above that of rise and set, from firstHour - 1 on.
    std::array<double, kHours + 2> altitude{};
};

} // namespace zorel
