// SPDX-License-Identifier: Apache-2.0
#include "almanac/Prayer.h"

#include "engine/Records.h"

#include <algorithm>

namespace zorel::almanac {

namespace {

using Times = PrayerTimes;

constexpr std::array<PrayerIdentity, kPrayers> kIdentities{{
    {Prayer::fajr, Times::dawn, 200, 0, "fajr", Rounding::earlier},
    {Prayer::sunrise, Times::sunrise, 201, 1, "sunrise", Rounding::earlier},
    {Prayer::dhuhr, Times::noon, 202, 2, "dhuhr", Rounding::later},
    {Prayer::asr, Times::afternoon, 203, 3, "asr", Rounding::later},
    {Prayer::maghrib, Times::sunset, 204, 4, "maghrib", Rounding::later},
    {Prayer::isha, Times::nightfall, 205, 5, "isha", Rounding::later},
    {Prayer::asrSecond, Times::secondAfternoon, 207, -1, "asr_second", Rounding::later},
    {Prayer::ishaSecond, Times::secondNightfall, 0, -1, "isha_second", Rounding::later},
    {Prayer::morningFiveDegrees, Times::morningFiveDegrees, 206, -1, "morning_five_degrees", Rounding::later},
    {Prayer::afternoonFiveDegrees, Times::afternoonFiveDegrees, 208, -1, "afternoon_five_degrees",
     Rounding::earlier},
    {Prayer::beforeNoon, Times::transitMinusTemkin, 0, -1, "before_noon", Rounding::earlier},
    {Prayer::lastSixthOfNight, Times::lastSixthOfNight, 0, -1, "last_sixth_of_night", Rounding::later},
    {Prayer::sunAtQibla, Times::qiblaTime, 0, -1, "sun_at_qibla", Rounding::later},
    {Prayer::middleOfNight, Times::middleOfNight, 0, -1, "middle_of_night", Rounding::earlier},
    {Prayer::firstThirdOfNight, Times::firstThirdOfNight, 0, -1, "first_third_of_night", Rounding::earlier},
}};

template <class Matches> std::optional<Prayer> find(Matches matches) {
    const auto found = std::find_if(kIdentities.begin(), kIdentities.end(), matches);
    return found == kIdentities.end() ? std::nullopt : std::optional(found->prayer);
}

} // namespace

const PrayerIdentity& identityOf(Prayer prayer) {
    return kIdentities[static_cast<std::size_t>(prayer)];
}

std::string_view keyOf(Prayer prayer) {
    return identityOf(prayer).key;
}

std::optional<Prayer> prayerAt(int position) {
    return find([position](const PrayerIdentity& identity) { return identity.position == position; });
}

std::optional<Prayer> prayerOfId(std::int32_t id) {
    return id == 0 ? std::nullopt : find([id](const PrayerIdentity& identity) { return identity.id == id; });
}

std::optional<Prayer> prayerOfKey(std::string_view key) {
    return find([key](const PrayerIdentity& identity) { return identity.key == key; });
}

} // namespace zorel::almanac
