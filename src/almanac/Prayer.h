// SPDX-License-Identifier: Apache-2.0
/// @file
/// The fifteen times of a day and everything that identifies one of them: the single table that the programs,
/// the alarms, the pane and the files written for others read.
#pragma once

#include "engine/Api.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace zorel::almanac {

/// A time of the day. The values are positions of a Day, without gaps; they are not stored anywhere.
enum class Prayer : std::uint8_t {
    fajr,                 ///< dawn, imsak: the Sun 19 degrees below the horizon
    sunrise,              ///< the end of the dawn prayer
    dhuhr,                ///< after the transit
    asr,                  ///< a shadow of once its staff beyond that of noon
    maghrib,              ///< sunset
    isha,                 ///< nightfall: the Sun 17 degrees below the horizon
    asrSecond,            ///< a shadow of twice its staff beyond that of noon
    ishaSecond,           ///< the Sun 19 degrees below the horizon
    morningFiveDegrees,   ///< Ishraq: the Sun 5 degrees high in the morning
    afternoonFiveDegrees, ///< Isfirar: the Sun 5 degrees high in the afternoon
    beforeNoon,           ///< the transit less temkin: a time without prayer begins
    lastSixthOfNight,     ///< from here to dawn
    sunAtQibla,           ///< the Sun stands in the direction of the qibla
    middleOfNight,        ///< half way from the sunset prayer to dawn
    firstThirdOfNight,    ///< the first third of the same night is over
};

inline constexpr std::size_t kPrayers = 15;

/// The six times that have names of their own everywhere, in the order of a day.
inline constexpr std::array kSixPrayers{Prayer::fajr, Prayer::sunrise, Prayer::dhuhr,
                                        Prayer::asr,  Prayer::maghrib, Prayer::isha};
/// The other eight that people use, in the order of a day; Prayer::sunAtQibla is told apart from them, with
/// all its instants (see Qibla).
inline constexpr std::array kOtherPrayers{Prayer::lastSixthOfNight,     Prayer::morningFiveDegrees,
                                          Prayer::beforeNoon,           Prayer::asrSecond,
                                          Prayer::afternoonFiveDegrees, Prayer::ishaSecond,
                                          Prayer::firstThirdOfNight,    Prayer::middleOfNight};

/// Both one after the other: all that have a time of their own on one line of a table.
inline constexpr auto kListedPrayers = [] {
    std::array<Prayer, kSixPrayers.size() + kOtherPrayers.size()> all{};
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = i < kSixPrayers.size() ? kSixPrayers[i] : kOtherPrayers[i - kSixPrayers.size()];
    }
    return all;
}();

/// The direction in which a time goes to the whole minute, so that nobody eats, prays or stops praying at a
/// wrong one. Earlier: what something ends at or must have stopped by. Later: beginnings of prayers.
enum class Rounding : std::uint8_t { earlier, later };

/// What identifies a time wherever it is named.
struct PrayerIdentity {
    Prayer prayer;
    int position;         ///< in PrayerTimes::times, 0 to 15
    std::int32_t id;      ///< prayer id of the pane and the city record, 200 to 208; 0: none
    std::int32_t row;     ///< row of the pane's alarms, 0 to 5; -1: none
    std::string_view key; ///< stable name in JSON, CSV and on the command line ("fajr")
    Rounding rounding;
};

[[nodiscard]] ZOREL_API const PrayerIdentity& identityOf(Prayer prayer);
[[nodiscard]] ZOREL_API std::string_view keyOf(Prayer prayer);
/// By position in PrayerTimes::times; nothing for the unused one and outside 0 to 15.
[[nodiscard]] ZOREL_API std::optional<Prayer> prayerAt(int position);
/// By prayer id (200 to 208); nothing for any other.
[[nodiscard]] ZOREL_API std::optional<Prayer> prayerOfId(std::int32_t id);
/// By key; nothing for any other text.
[[nodiscard]] ZOREL_API std::optional<Prayer> prayerOfKey(std::string_view key);

} // namespace zorel::almanac
