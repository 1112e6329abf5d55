// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the six alarms do, for the rows of the pane and the first page: read from the report of the alarms,
/// never computed here.
#pragma once

#include "host/TodayModel.h"

#include "alarms/AlarmReport.h"

#include <QObject>
#include <QVariantList>

namespace zorel {

class ZorelSettingsController;

class AlarmRows : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList rows READ rows NOTIFY changed)
    Q_PROPERTY(QVariantMap next READ next NOTIFY changed)
    Q_PROPERTY(QString complaint READ complaint NOTIFY changed)
    Q_PROPERTY(bool anyOn READ anyOn NOTIFY changed)

public:
    /// Both outlive it.
    AlarmRows(ZorelSettingsController& pane, TodayModel& today) : pane_(pane), today_(today) {}

    /// Reads the report anew.
    void follow();
    /// [{name, time, text, on, bad}] in the order of the rows; empty without a home city.
    [[nodiscard]] QVariantList rows() const { return rows_; }
    /// What the alarm of the next prayer does: {text, rings, bad}.
    [[nodiscard]] QVariantMap next() const;
    /// What is wrong with the alarms as a whole; empty when nothing is.
    [[nodiscard]] QString complaint() const { return complaint_; }
    [[nodiscard]] bool anyOn() const;

    /// "rings tomorrow 05:22", by the home city's clock. Only where there is a home city.
    [[nodiscard]] QString ringText(almanac::Instant instant) const;

    /// Does what the switch of the alarm's editor does. What comes of it stands in the row, also why it was
    /// put back, until a switch is used again.
    Q_INVOKABLE void toggle(int row);
    /// Moves the alarms to where they should be.
    Q_INVOKABLE void repair();

signals:
    void changed();
    /// What came of the use of a switch, for people.
    void answered(const QString& text);

private:
    [[nodiscard]] QString textOf(const AlarmStatus& alarm) const;
    /// When it rings, and what is left out until then.
    [[nodiscard]] QString ringAndSilence(const AlarmStatus& alarm) const;
    /// @param phrase word of a sentence with a day and a time in it.
    [[nodiscard]] QString momentText(const char* phrase, almanac::Instant instant) const;
    [[nodiscard]] QString absenceText(almanac::Prayer prayer) const;

    ZorelSettingsController& pane_;
    TodayModel& today_;
    QVariantList rows_;
    QString complaint_;
    int refusedRow_ = -1; ///< whose switch was put back
    QString refusal_;     ///< and why
};

} // namespace zorel
