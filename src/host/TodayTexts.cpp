// SPDX-License-Identifier: Apache-2.0
#include "host/TodayTexts.h"

#include "words/Language.h"

#include <QCalendar>
#include <QTime>

#include <cmath>

namespace zorel {

using almanac::DayTime;
using almanac::Explanation;

namespace {

QDate dateOf(almanac::Date date) {
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

QTime timeOf(const almanac::LocalTime& time) {
    return QTime::fromMSecsSinceStartOfDay(static_cast<int>(time.timeOfDay.count()) * 1000);
}

/// Dates are written in the language of the words, in the locale's own order where that is its language.
QLocale localeOfWords(const QLocale& locale) {
    const std::string& language = languageInUse();
    const QLocale spoken(QString::fromStdString(language == "en" ? "en_GB" : language));
    return locale.language() == spoken.language() ? locale : spoken;
}

} // namespace

TodayTexts::TodayTexts(Words words, PrayerNames names, const QLocale& locale)
    : words_(words), names_(std::move(names)), locale_(localeOfWords(locale)) {
    const bool halves =
        locale.timeFormat(QLocale::ShortFormat).contains(QLatin1Char('A'), Qt::CaseInsensitive);
    clockFormat_ = halves ? QStringLiteral("h:mm AP") : QStringLiteral("HH:mm");
}

QString TodayTexts::clock(const almanac::LocalTime& time) const {
    return locale_.toString(timeOf(time), clockFormat_);
}

QString TodayTexts::clockWithSeconds(const almanac::LocalTime& time) const {
    QString format = clockFormat_;
    return locale_.toString(timeOf(time), format.replace(QStringLiteral("mm"), QStringLiteral("mm:ss")));
}

QString TodayTexts::longDate(almanac::Date date) const {
    return locale_.toString(dateOf(date), locale_.dateFormat(QLocale::LongFormat));
}

QString TodayTexts::hijriDate(const AllCalendarRecord& calendars) const {
    if (calendars.hijriMonth < 1 || calendars.hijriMonth > 12) {
        return {};
    }
    const QString month =
        QCalendar(QCalendar::System::IslamicCivil)
            .monthName(locale_, calendars.hijriMonth, calendars.hijriYear, QLocale::LongFormat);
    return QStringLiteral("%1 %2 %3").arg(calendars.hijriDay).arg(month).arg(calendars.hijriYear);
}

QString TodayTexts::countdown(std::chrono::seconds left) const {
    const auto minutes = std::chrono::floor<std::chrono::minutes>(left).count();
    QString span;
    if (minutes == 0) {
        span = words_("seconds").arg(left.count());
    } else if (minutes < 60) {
        span = words_("minutes").arg(minutes);
    } else {
        span = words_("hoursMinutes").arg(minutes / 60).arg(minutes % 60);
    }
    return words_("in").arg(span);
}

QString TodayTexts::dayOf(almanac::Date date, almanac::Date today) const {
    switch (almanac::daysBetween(today, date)) {
    case 0:
        return {};
    case 1:
        return words_("tomorrow");
    case -1:
        return words_("yesterday");
    default:
        return longDate(date);
    }
}

QString TodayTexts::phase(const almanac::MoonPhase& phase, almanac::Date today) const {
    QString name;
    switch (phase.kind) {
    case PrincipalPhase::newMoon:
        name = words_("new moon");
        break;
    case PrincipalPhase::fullMoon:
        name = words_("full moon");
        break;
    case PrincipalPhase::firstQuarter:
        name = words_("first quarter");
        break;
    case PrincipalPhase::lastQuarter:
        name = words_("last quarter");
        break;
    }
    const auto days = almanac::daysBetween(today, phase.at.local.date);
    if (days <= 0) {
        return words_("phaseToday").arg(name);
    }
    return words_("phaseIn").arg(name, words_.days(static_cast<int>(days)));
}

QString TodayTexts::rule(const Explanation& why) const {
    switch (why.rule) {
    case PrayTimeRule::altitude:
        if (why.targetAltitude == 0.0) {
            return words_(why.morning ? "sunAtHorizonMorning" : "sunAtHorizonEvening");
        }
        return words_(why.targetAltitude < 0.0 ? "sunBelow" : "sunAbove")
            .arg(std::lround(std::abs(why.targetAltitude)));
    case PrayTimeRule::shadow:
        return words_(why.shadowFactor == 1 ? "shadowOnce" : "shadowTwice");
    case PrayTimeRule::transit:
        return words_("sunHighest");
    case PrayTimeRule::partOfNight:
        return words_(why.partOfNight < 0.0 ? "partBefore" : "partAfter")
            .arg(std::lround(1.0 / std::abs(why.partOfNight)))
            .arg(names_(why.nightFrom));
    default:
        return {};
    }
}

QString TodayTexts::shift(double hours, const QString& later, const QString& earlier) const {
    const auto seconds = std::llround(std::abs(hours) * 3600.0);
    if (seconds == 0) {
        return {};
    }
    const QString minutes = words_("minutes").arg(seconds / 60);
    const QString rest = words_("seconds").arg(seconds % 60);
    const QString span = seconds % 60 == 0 ? minutes : (seconds < 60 ? rest : minutes + ' ' + rest);
    return words_(hours > 0.0 ? later : earlier).arg(span);
}

QString TodayTexts::rounding(const DayTime& time, const almanac::PlaceClock& clock) const {
    const auto exact = std::chrono::floor<std::chrono::seconds>(time.exact);
    const QString seconds = clockWithSeconds(clock.localTime(exact));
    if (exact == time.shown) {
        return words_("exactly").arg(seconds);
    }
    const bool later = almanac::identityOf(time.prayer).rounding == almanac::Rounding::later;
    return words_(later ? "roundedLater" : "roundedEarlier").arg(seconds, this->clock(time.local));
}

QStringList TodayTexts::departures(const DayTime& time) const {
    QStringList lines;
    if (time.why.latitudeLowered) {
        lines << words_("lowered").arg(std::abs(time.why.latitude), 0, 'g', 4);
    }
    if (const auto date = time.takenFrom()) {
        lines << words_("takenFrom").arg(longDate(*date));
    }
    for (std::size_t i = 0; i < almanac::kCorrections; ++i) {
        const auto correction = static_cast<almanac::Correction>(i);
        if (time.why.corrections.has(correction)) {
            const std::string_view key = almanac::keyOf(correction);
            lines << words_(QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())));
        }
    }
    return lines;
}

QString TodayTexts::why(const DayTime& time, const almanac::PlaceClock& clock) const {
    QStringList lines;
    if (!time.exists()) {
        lines << words_("noSuchTime");
    }
    lines << rule(time.why);
    if (time.exists()) {
        lines << shift(time.why.temkin, "precautionLater", "precautionEarlier")
              << shift(time.why.addition, "additionLater", "additionEarlier") << rounding(time, clock);
    }
    lines << departures(time);
    lines.removeAll(QString());
    return lines.join('\n');
}

} // namespace zorel
