// SPDX-License-Identifier: Apache-2.0
/// @file
/// What stands above the editor of an alarm: whose it is, what it will do, and short ways to change it.
#pragma once

#include "host/AlarmRows.h"
#include "host/TonePreview.h"
#include "host/ViewHandle.h"

#include <QObject>

namespace zorel {

class Host;

/// Follows the alarm that the pane's editor has loaded. The wheels rest while the alarm is off: an alarm that
/// is off keeps no changes, here as on the command line.
class AlarmEditor : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool open READ open NOTIFY changed)
    Q_PROPERTY(zorel::ViewHandle* view READ view CONSTANT)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString time READ time NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool on READ on NOTIFY changed)
    Q_PROPERTY(bool rings READ rings NOTIFY changed)
    Q_PROPERTY(bool bad READ bad NOTIFY changed)
    Q_PROPERTY(int offset READ offset NOTIFY changed)
    Q_PROPERTY(bool audible READ audible CONSTANT)
    Q_PROPERTY(zorel::TonePreview* preview READ preview CONSTANT)

public:
    /// All outlive it. @param player program that plays a ringtone; empty: there is none
    AlarmEditor(Host& host, ZorelSettingsController& pane, TodayModel& today, AlarmRows& rows,
                const QString& player);

    /// Whether the editor is the screen on top.
    [[nodiscard]] bool open() const { return open_; }
    /// The editor's view, by which its screen is known.
    [[nodiscard]] ViewHandle* view() const;
    [[nodiscard]] QString name() const { return row()["name"].toString(); }
    /// The prayer's time today; empty where it has none.
    [[nodiscard]] QString time() const { return row()["time"].toString(); }
    /// What the alarm does; while a wheel turns, what it would do.
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool on() const { return row()["on"].toBool(); }
    [[nodiscard]] bool rings() const { return row()["rings"].toBool(); }
    [[nodiscard]] bool bad() const { return row()["bad"].toBool(); }
    /// Minutes from the prayer.
    [[nodiscard]] int offset() const;
    /// Whether a ringtone can be listened to.
    [[nodiscard]] bool audible() const;
    [[nodiscard]] TonePreview* preview() { return &preview_; }

    /// As a turn of the wheel to this row does.
    Q_INVOKABLE void chooseOffset(int minutes);
    /// An offset in the words of the wheel.
    Q_INVOKABLE QString offsetText(int minutes) const;
    /// The wheel of the offsets passes a row and has not come to rest.
    Q_INVOKABLE void pass(int row);
    Q_INVOKABLE void rest();
    /// Plays the ringtone that is chosen, or ends it.
    Q_INVOKABLE void listen();

signals:
    void changed();

private:
    [[nodiscard]] QVariantMap row() const;
    void setOpen(bool open);

    Host& host_;
    ZorelSettingsController& pane_;
    TodayModel& today_;
    AlarmRows& rows_;
    TonePreview preview_;
    QString passing_; ///< what the alarm would do at the row that the wheel passes
    bool open_ = false;
};

} // namespace zorel
