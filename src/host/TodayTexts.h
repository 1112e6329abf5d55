// SPDX-License-Identifier: Apache-2.0
/// @file
/// The almanac's values as a person reads them: dates, clock times, countdowns, and why a time is what it is.
#pragma once

#include "host/Words.h"

#include "almanac/Day.h"
#include "almanac/Place.h"
#include "almanac/Sky.h"
#include "engine/Records.h"

#include <QLocale>

#include <chrono>
#include <functional>

namespace zorel {

/// Names of the prayers in the person's language.
using PrayerNames = std::function<QString(almanac::Prayer)>;

class TodayTexts {
public:
    /// @param names of the prayers. @param locale whose clock (12 or 24 hours) and order of dates is used
    TodayTexts(Words words, PrayerNames names, const QLocale& locale);

    [[nodiscard]] const Words& words() const { return words_; }
    [[nodiscard]] QString nameOf(almanac::Prayer prayer) const { return names_(prayer); }
    /// "15:30" or "3:30 PM".
    [[nodiscard]] QString clock(const almanac::LocalTime& time) const;
    /// "15:29:13" or "3:29:13 PM".
    [[nodiscard]] QString clockWithSeconds(const almanac::LocalTime& time) const;
    /// "Sunday, 22 November 2026".
    [[nodiscard]] QString longDate(almanac::Date date) const;
    /// "13 Jumada II 1448"; empty where the Hijri date cannot be told.
    [[nodiscard]] QString hijriDate(const AllCalendarRecord& calendars) const;
    /// "in 1 h 48 min"; in the last minute "in 42 s".
    [[nodiscard]] QString countdown(std::chrono::seconds left) const;
    /// "tomorrow", "the evening before", the date, or nothing for the day itself.
    [[nodiscard]] QString dayOf(almanac::Date date, almanac::Date today) const;
    /// "full in 2 days".
    [[nodiscard]] QString phase(const almanac::MoonPhase& phase, almanac::Date today) const;
    /// Why a time is what it is: sentences, each on a line of its own.
    [[nodiscard]] QString why(const almanac::DayTime& time, const almanac::PlaceClock& clock) const;

private:
    [[nodiscard]] QString rule(const almanac::Explanation& why) const;
    [[nodiscard]] QString shift(double hours, const QString& later, const QString& earlier) const;
    [[nodiscard]] QString rounding(const almanac::DayTime& time, const almanac::PlaceClock& clock) const;
    [[nodiscard]] QStringList departures(const almanac::DayTime& time) const;

    Words words_;
    PrayerNames names_;
    QLocale locale_;      ///< of the words
    QString clockFormat_; ///< without seconds
};

} // namespace zorel
