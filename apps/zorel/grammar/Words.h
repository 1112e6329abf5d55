// SPDX-License-Identifier: Apache-2.0
/// @file
/// The command line's own words, in English and Turkish. Prayer names are not here: they come from the
/// bundle's language files.
#pragma once

#include "almanac/Corrections.h"
#include "almanac/Time.h"
#include "engine/Records.h"

#include <chrono>
#include <string>
#include <string_view>

namespace zorel::cli {

/// Language of the command line's sentences. French and German users get the bundle's prayer names in their
/// language and English sentences.
enum class Language { english, turkish };

enum class Word {
    secondNightfall,
    beforeNoon,
    lastSixth,
    middleOfNight,
    firstThird,
    sunAtQibla,
    next,
    in,
    hoursShort,
    minutesShort,
    lessThanAMinute,
    noneToday,
    noSuchTimeToday,
    otherTimes,
    hijri,
    rumi,
    latitudeLowered,
    takenFrom,
    dayOfSummerHalf,
    dayOfWinterHalf,
    noCities,
    on,
    off,
    sun,
    moon,
    rise,
    set,
    transit,
    altitude,
    azimuth,
    declination,
    rightAscension,
    distance,
    diameter,
    equationOfTime,
    shadow,
    illuminated,
    elongation,
    nextPhases,
    newMoon,
    firstQuarter,
    fullMoon,
    lastQuarter,
    waxing,
    waning,
    qiblaTrue,
    qiblaMagnetic,
    magneticDeclination,
    model,
    east,
    west,
    noQiblaInstant,
    atKaaba,
    modelOutside,
    markLowered,
    markOtherDay,
    markCorrected,
    sunBelow, ///< {degrees}
    sunAbove, ///< {degrees}
    sunAtHorizon,
    sunHighest,
    shadowRule,  ///< {staffs}, {degrees}
    nightPassed, ///< {parts}, {name}
    nightLeft,   ///< {parts}, {name}
    exactTime,
    because,     ///< {name}, {time}, {rule}
    noneBecause, ///< {name}, {rule}
    addition,
    rounds,
    dateWord,
    latitude,
    explanation,
    now,
    time,
    offset,
    rings,
    ringtone,
    duration,
    epoch,
    validity,
    notInCatalogue,
    hasPassed,
    noSuchTimeSoon,
    willNotRing,
    onThisMachine,
    qiblaDistance,
    compassUnreliable,
    compassUseless,
    clockRuleOnly,      ///< {zone}, {edition} of the catalogue
    clockRuleIsNewer,   ///< {edition}, {system} edition, {offset}, {other} offset
    clockSystemIsOlder, ///< as above
    daysFromTo,         ///< {days}, {first}, {last}
    // By the values of almanac::Correction.
    beforeMidnight,
    seamOfDays,
    ownSun,
    dateLine,
    nightWithoutEnds,
    sunStillUp,
    clockChange,
    outOfOrder,
    trueQibla,
    count_, ///< number of words; not a word
};

[[nodiscard]] std::string_view word(Word which, Language language);
/// Why a time is not the engine's own.
[[nodiscard]] std::string_view correctionText(almanac::Correction correction, Language language);

/// "21 November 2026, Saturday".
[[nodiscard]] std::string longDate(almanac::Date date, Language language);
/// "3 May".
[[nodiscard]] std::string dayAndMonth(almanac::Date date, Language language);
/// "11 Jumada II 1448"; empty before the Hijri epoch.
[[nodiscard]] std::string hijriText(const AllCalendarRecord& calendars, Language language);
/// "8 November 1442".
[[nodiscard]] std::string rumiText(const AllCalendarRecord& calendars, Language language);
/// "January". @param month 1 to 12.
[[nodiscard]] std::string_view monthName(unsigned month, Language language);
[[nodiscard]] std::string_view hijriMonthName(int month, Language language);
[[nodiscard]] std::string_view rumiMonthName(int month, Language language);
[[nodiscard]] std::string_view weekdayName(int weekday, Language language);
/// "2 h 5 min", "5 min" or "less than a minute"; whole minutes, rounded down.
[[nodiscard]] std::string durationText(std::chrono::seconds duration, Language language);

} // namespace zorel::cli
