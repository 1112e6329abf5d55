// SPDX-License-Identifier: Apache-2.0
/// @file
/// The day of the home city for the first page: the next prayer and its countdown, the times, Moon and qibla.
#pragma once

#include "host/TodayTexts.h"

#include "almanac/Almanac.h"

#include <QObject>
#include <QTimer>
#include <QVariantList>

#include <optional>

namespace zorel {

/// Reads the almanac of a place and says it to QML. Works once a minute, and every second in the last minute
/// before a prayer; the times of a day are computed when it begins at the place. Nothing while there is no
/// place.
class TodayModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool known READ known NOTIFY dayChanged)
    Q_PROPERTY(QString city READ city NOTIFY dayChanged)
    Q_PROPERTY(QString date READ date NOTIFY dayChanged)
    Q_PROPERTY(QString hijri READ hijri NOTIFY dayChanged)
    Q_PROPERTY(QVariantList bar READ bar NOTIFY dayChanged)
    Q_PROPERTY(QVariantList others READ others NOTIFY dayChanged)
    Q_PROPERTY(QVariantMap moon READ moon NOTIFY dayChanged)
    Q_PROPERTY(QVariantMap qibla READ qibla NOTIFY dayChanged)
    Q_PROPERTY(QVariantList six READ six NOTIFY timesChanged)
    Q_PROPERTY(QString nextLabel READ nextLabel NOTIFY timesChanged)
    Q_PROPERTY(QString nextName READ nextName NOTIFY timesChanged)
    Q_PROPERTY(QString nextTime READ nextTime NOTIFY timesChanged)
    Q_PROPERTY(QString nextDay READ nextDay NOTIFY timesChanged)
    Q_PROPERTY(QString countdown READ countdown NOTIFY ticked)
    Q_PROPERTY(double nowPart READ nowPart NOTIFY ticked)
    Q_PROPERTY(QString whyTitle READ whyTitle NOTIFY whyChanged)
    Q_PROPERTY(QString why READ why NOTIFY whyChanged)

public:
    explicit TodayModel(TodayTexts texts);

    /// Whose day it is; nothing when there is no home city whose times can be told.
    void setPlace(std::optional<almanac::Place> place);
    [[nodiscard]] const std::optional<almanac::Place>& place() const { return place_; }
    [[nodiscard]] const TodayTexts& texts() const { return texts_; }
    /// Looks at the clock: what has changed is told.
    void tick();

    [[nodiscard]] bool known() const { return place_.has_value(); }
    [[nodiscard]] QString city() const;
    [[nodiscard]] QString date() const;
    [[nodiscard]] QString hijri() const;
    /// Where the day's light changes: [{at: part of the day from midnight, light: "night", "dawn" ...}].
    [[nodiscard]] QVariantList bar() const;
    /// [{key, name, time, state}], state one of "passed", "now", "next", "later", "none".
    [[nodiscard]] QVariantList six() const { return six_; }
    [[nodiscard]] QVariantList others() const;
    /// {text, detail, illuminated [%], waxing, south}
    [[nodiscard]] QVariantMap moon() const { return moon_; }
    /// {text, detail, bearing [deg], known}
    [[nodiscard]] QVariantMap qibla() const { return qibla_; }
    /// "Next prayer"; before sunrise, which is none, "Next".
    [[nodiscard]] QString nextLabel() const;
    [[nodiscard]] QString nextName() const;
    [[nodiscard]] QString nextTime() const;
    /// "tomorrow", or nothing for today.
    [[nodiscard]] QString nextDay() const;
    [[nodiscard]] QString countdown() const;
    /// How much of the place's day has passed, 0 to 1.
    [[nodiscard]] double nowPart() const;
    [[nodiscard]] QString whyTitle() const { return whyTitle_; }
    [[nodiscard]] QString why() const { return why_; }

    /// Asks why a time is what it is. @param key of the prayer; "next" for the next one
    Q_INVOKABLE void ask(const QString& key);
    Q_INVOKABLE void dismiss();
    /// Puts the answer into the clipboard.
    Q_INVOKABLE void copy() const;

signals:
    void dayChanged();
    void timesChanged();
    void ticked();
    void whyChanged();

private:
    [[nodiscard]] almanac::Instant present() const;
    [[nodiscard]] QVariantMap entry(const almanac::DayTime& time) const;
    [[nodiscard]] QString stateOf(const almanac::DayTime& time) const;
    [[nodiscard]] QString timeText(const almanac::DayTime& time) const;
    [[nodiscard]] double partOf(almanac::Instant instant) const;
    [[nodiscard]] QVariantMap readMoon(const almanac::Almanac& almanac) const;
    [[nodiscard]] QVariantMap readQibla(const almanac::Almanac& almanac) const;
    void readDay();
    void readNext();
    void schedule();

    TodayTexts texts_;
    std::optional<almanac::Place> place_;
    almanac::Day day_;
    almanac::Memory memory_;
    almanac::NextPrayer next_;
    QVariantList six_;
    QVariantMap moon_;
    QVariantMap qibla_;
    QString hijri_;
    QString whyTitle_;
    QString why_;
    QTimer timer_;
};

} // namespace zorel
