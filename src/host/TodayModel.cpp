// SPDX-License-Identifier: Apache-2.0
#include "host/TodayModel.h"

#include "platform/foundation/Clock.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <chrono>

namespace zorel {

using almanac::Almanac;
using almanac::DayTime;
using almanac::Prayer;

namespace {

constexpr std::chrono::minutes kLastMinute{1};

QString keyText(Prayer prayer) {
    const std::string_view key = almanac::keyOf(prayer);
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

} // namespace

TodayModel::TodayModel(TodayTexts texts) : texts_(std::move(texts)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &TodayModel::tick);
}

almanac::Instant TodayModel::present() const {
    return std::chrono::floor<std::chrono::seconds>(now());
}

void TodayModel::setPlace(std::optional<almanac::Place> place) {
    place_ = std::move(place);
    memory_ = {};
    six_.clear();
    dismiss();
    if (place_) {
        readDay();
        readNext();
    }
    emit dayChanged();
    emit timesChanged();
    emit ticked();
    schedule();
}

void TodayModel::tick() {
    if (!place_) {
        return;
    }
    const bool newDay = place_->clock.dateAt(present()) != day_.date;
    if (newDay) {
        readDay();
        emit dayChanged();
    }
    if (newDay || !next_.next || next_.next->shown <= present()) {
        readNext();
        emit timesChanged();
    }
    emit ticked();
    schedule();
}

/// Until the next whole minute, or second in the last minute before a prayer.
void TodayModel::schedule() {
    if (!place_) {
        timer_.stop();
        return;
    }
    const auto instant = now();
    const bool last = next_.next && next_.next->shown - present() <= kLastMinute;
    const auto second = std::chrono::floor<std::chrono::seconds>(instant) + std::chrono::seconds(1);
    const auto minute = std::chrono::floor<std::chrono::minutes>(instant) + std::chrono::minutes(1);
    const auto wake =
        last ? std::chrono::system_clock::time_point(second) : std::chrono::system_clock::time_point(minute);
    timer_.start(std::chrono::ceil<std::chrono::milliseconds>(wake - instant));
}

void TodayModel::readDay() {
    const Almanac almanac(*place_);
    day_ = almanac.day(place_->clock.dateAt(present()), memory_);
    hijri_ = texts_.hijriDate(almanac.calendars(day_.date));
    moon_ = readMoon(almanac);
    qibla_ = readQibla(almanac);
}

void TodayModel::readNext() {
    next_ = Almanac(*place_).next(present(), memory_);
    six_.clear();
    for (const Prayer prayer : almanac::kSixPrayers) {
        six_ << entry(day_[prayer]);
    }
}

QVariantMap TodayModel::readMoon(const Almanac& almanac) const {
    const almanac::MoonOfDay moon = almanac.moon(day_.date);
    const almanac::Sky sky = almanac.sky(present());
    return {{"text", texts_.words()("moon").arg(QStringLiteral("%1 %").arg(std::lround(moon.illuminated)))},
            {"detail", texts_.phase(sky.phases[0], day_.date)},
            {"illuminated", moon.illuminated},
            {"waxing", moon.waxing},
            {"south", place_->latitude < 0.0}};
}

QVariantMap TodayModel::readQibla(const Almanac& almanac) const {
    const almanac::Qibla qibla = almanac.qibla(day_.date);
    if (!qibla.bearing) {
        return {{"text", texts_.words()("qibla").arg(QString()).trimmed()},
                {"detail", texts_.words()("everyDirection")},
                {"bearing", 0.0},
                {"known", false}};
    }
    const QString sun = qibla.instants.empty()
                            ? texts_.words()("fromNorth")
                            : texts_.words()("sunThere").arg(texts_.clock(qibla.instants.front().at.local));
    return {
        {"text", texts_.words()("qibla").arg(QStringLiteral("%1°").arg(std::lround(*qibla.bearing) % 360))},
        {"detail", sun},
        {"bearing", *qibla.bearing},
        {"known", true}};
}

QString TodayModel::city() const {
    return place_ ? QString::fromStdString(place_->name) : QString();
}

QString TodayModel::date() const {
    return place_ ? texts_.longDate(day_.date) : QString();
}

QString TodayModel::hijri() const {
    return place_ ? hijri_ : QString();
}

double TodayModel::partOf(almanac::Instant instant) const {
    const auto begin = place_->clock.instantOf(day_.date, std::chrono::seconds(0));
    const auto end = place_->clock.instantOf(almanac::addDays(day_.date, 1), std::chrono::seconds(0));
    return static_cast<double>((instant - begin).count()) / static_cast<double>((end - begin).count());
}

/// Night until dawn, day from sunrise to sunset, night from nightfall on; in between twilight. A day that has
/// not all of these times has no bar.
QVariantList TodayModel::bar() const {
    QVariantList stops;
    constexpr std::array changes{std::pair{Prayer::fajr, "night"}, std::pair{Prayer::sunrise, "day"},
                                 std::pair{Prayer::maghrib, "day"}, std::pair{Prayer::isha, "night"}};
    if (!place_ || !std::ranges::all_of(changes, [&](auto change) { return day_[change.first].exists(); })) {
        return stops;
    }
    for (const auto& [prayer, light] : changes) {
        stops << QVariantMap{{"at", partOf(day_[prayer].shown)}, {"light", QLatin1String(light)}};
    }
    return stops;
}

QString TodayModel::timeText(const DayTime& time) const {
    return time.exists() ? texts_.clock(time.local) : texts_.words()("none");
}

QString TodayModel::stateOf(const DayTime& time) const {
    const auto same = [&](const std::optional<DayTime>& other) {
        return other && other->prayer == time.prayer && other->shown == time.shown;
    };
    if (!time.exists()) {
        return QStringLiteral("none");
    }
    if (same(next_.next)) {
        return QStringLiteral("next");
    }
    if (same(next_.previous)) {
        return QStringLiteral("now");
    }
    return time.shown <= present() ? QStringLiteral("passed") : QStringLiteral("later");
}

QVariantMap TodayModel::entry(const DayTime& time) const {
    return {{"key", keyText(time.prayer)},
            {"name", texts_.nameOf(time.prayer)},
            {"time", timeText(time)},
            {"day", time.exists() ? texts_.dayOf(time.local.date, day_.date) : QString()},
            {"state", stateOf(time)}};
}

QVariantList TodayModel::others() const {
    QVariantList list;
    if (place_) {
        for (const Prayer prayer : almanac::kOtherPrayers) {
            list << entry(day_[prayer]);
        }
    }
    return list;
}

QString TodayModel::nextLabel() const {
    const bool prayer = place_ && next_.next && next_.next->prayer != Prayer::sunrise;
    return texts_.words()(prayer ? "nextPrayer" : "nextTime");
}

QString TodayModel::nextName() const {
    return place_ && next_.next ? texts_.nameOf(next_.next->prayer) : QString();
}

QString TodayModel::nextTime() const {
    return place_ && next_.next ? texts_.clock(next_.next->local) : QString();
}

QString TodayModel::nextDay() const {
    return place_ && next_.next ? texts_.dayOf(next_.next->local.date, day_.date) : QString();
}

QString TodayModel::countdown() const {
    return place_ && next_.next ? texts_.countdown(next_.next->shown - present()) : QString();
}

double TodayModel::nowPart() const {
    return place_ ? std::clamp(partOf(present()), 0.0, 1.0) : 0.0;
}

void TodayModel::ask(const QString& key) {
    if (!place_) {
        return;
    }
    const auto prayer = almanac::prayerOfKey(key.toStdString());
    const bool aboutNext = key == QLatin1String("next") && next_.next;
    if (!aboutNext && !prayer) {
        return;
    }
    const DayTime& time = aboutNext ? *next_.next : day_[*prayer];
    whyTitle_ = QStringLiteral("%1 %2").arg(texts_.nameOf(time.prayer), timeText(time));
    why_ = texts_.why(time, place_->clock);
    emit whyChanged();
}

void TodayModel::dismiss() {
    if (!why_.isEmpty()) {
        whyTitle_.clear();
        why_.clear();
        emit whyChanged();
    }
}

void TodayModel::copy() const {
    QGuiApplication::clipboard()->setText(QStringLiteral("%1, %2\n%3").arg(city(), whyTitle_, why_));
}

} // namespace zorel
