// SPDX-License-Identifier: Apache-2.0
#include "host/AlarmRows.h"

#include "settings/ZorelSettingsController.h"

#include "platform/foundation/Clock.h"

#include <algorithm>
#include <chrono>

namespace zorel {

namespace {

constexpr std::int32_t kFirstAlarm = 200; ///< prayer id of the first row

} // namespace

QString AlarmRows::momentText(const char* phrase, almanac::Instant instant) const {
    const TodayTexts& texts = today_.texts();
    const almanac::PlaceClock& clock = today_.place()->clock;
    const almanac::LocalTime local = clock.localTime(instant);
    const almanac::Date today = clock.dateAt(std::chrono::floor<std::chrono::seconds>(now()));
    const QString day = texts.dayOf(local.date, today);
    return texts.words()(phrase).arg(day.isEmpty() ? texts.words()("todayWord") : day, texts.clock(local));
}

QString AlarmRows::ringText(almanac::Instant instant) const {
    return momentText("rings", instant);
}

QString AlarmRows::ringAndSilence(const AlarmStatus& alarm) const {
    const QString text = ringText(*alarm.ringsAt);
    if (!alarm.skipped) {
        return text;
    }
    const auto pause = pane_.alarms().pausedUntil;
    const QString leftOut = pause ? today_.texts()
                                        .words()("pausedUntil")
                                        .arg(today_.texts().longDate(today_.place()->clock.dateAt(*pause)))
                                  : momentText("skips", *alarm.skipped);
    return text + QStringLiteral(" · ") + leftOut;
}

/// The next day of half a year on which the Sun does what the prayer asks for.
QString AlarmRows::absenceText(almanac::Prayer prayer) const {
    constexpr int furthest = 183;
    const almanac::Almanac almanac(*today_.place());
    almanac::Memory memory;
    const almanac::Date today = pane_.currentDate();
    for (int days = 1; days <= furthest; ++days) {
        const almanac::Date date = almanac::addDays(today, days);
        if (almanac.day(date, memory)[prayer].exists()) {
            return today_.texts().words()("noTimeUntil").arg(today_.texts().longDate(date));
        }
    }
    return today_.texts().words()("noSuchTimeAhead");
}

QString AlarmRows::textOf(const AlarmStatus& alarm) const {
    const Words& words = today_.texts().words();
    switch (alarm.state) {
    case AlarmState::off:
        return words("off");
    case AlarmState::rings:
        return ringAndSilence(alarm);
    case AlarmState::passed:
        return words("passed");
    case AlarmState::noSuchTime:
        return absenceText(alarm.prayer);
    case AlarmState::failed:
        return words("willNotRing").arg(QString::fromStdString(alarm.reason));
    }
    return {};
}

void AlarmRows::follow() {
    rows_.clear();
    complaint_.clear();
    if (today_.known()) {
        const AlarmReport& report = pane_.alarms();
        complaint_ = QString::fromStdString(report.complaint());
        const QVariantList six = today_.six();
        for (std::size_t row = 0; row < report.alarms.size(); ++row) {
            const AlarmStatus& alarm = report.alarms[row];
            const QString notice =
                QString::fromStdString(pane_.noticeForAlarm(alarm.prayerId()).value_or(std::string()));
            const bool refused = refusedRow_ == static_cast<int>(row);
            QStringList texts{refused ? refusal_ : textOf(alarm),
                              alarm.state == AlarmState::noSuchTime ? QString() : notice};
            texts.removeAll(QString());
            const QVariantMap time = six.value(static_cast<qsizetype>(row)).toMap();
            rows_ << QVariantMap{
                {"name", today_.texts().nameOf(alarm.prayer)},
                {"time", time["state"] == "none" ? QString() : time["time"].toString()},
                {"text", texts.join(QStringLiteral(" · "))},
                {"on", alarm.info.active},
                {"rings", alarm.state == AlarmState::rings},
                {"bad", refused || alarm.state == AlarmState::failed || alarm.state == AlarmState::passed}};
        }
    }
    emit changed();
}

QVariantMap AlarmRows::next() const {
    for (const QVariant& row : rows_) {
        const QVariantMap alarm = row.toMap();
        if (alarm["name"] == today_.nextName()) {
            const Words& words = today_.texts().words();
            return {{"text", alarm["on"].toBool() ? alarm["text"].toString() : words("nextIsOff")},
                    {"rings", alarm["rings"]},
                    {"bad", alarm["bad"]}};
        }
    }
    return {{"text", QString()}, {"rings", false}, {"bad", false}};
}

bool AlarmRows::anyOn() const {
    return std::ranges::any_of(rows_, [](const QVariant& row) { return row.toMap()["on"].toBool(); });
}

void AlarmRows::toggle(int row) {
    AlarmView& view = pane_.alarmView();
    view.setAlarmInfo(kFirstAlarm + row);
    const bool before = view.alarmEnabled().isOn();
    refusedRow_ = -1;
    view.alarmEnabled().userToggles();
    if (view.alarmEnabled().isOn() == before) {
        refusedRow_ = row;
        refusal_ = QString::fromStdString(view.notice());
    }
    follow();
    emit answered(rows_.value(row).toMap()["text"].toString());
}

void AlarmRows::repair() {
    pane_.refreshAlarms();
}

} // namespace zorel
