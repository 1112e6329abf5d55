// SPDX-License-Identifier: Apache-2.0
#include "host/AlarmEditor.h"

#include "host/Host.h"
#include "host/PickerModel.h"

#include "alarms/NextRings.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/Locations.h"
#include "platform/uikit/UILabel.h"
#include "settings/ZorelSettingsController.h"
#include "views/AlarmViewParts.h"

namespace zorel {

namespace {

using alarm_view::kLargestOffset;

constexpr std::int32_t kFirstAlarm = 200; ///< prayer id of the first row

} // namespace

AlarmEditor::AlarmEditor(Host& host, ZorelSettingsController& pane, TodayModel& today, AlarmRows& rows,
                         const QString& player)
    : host_(host), pane_(pane), today_(today), rows_(rows), preview_(player) {
    connect(&rows, &AlarmRows::changed, this, [this] {
        passing_.clear();
        emit changed();
    });
    connect(&host, &Host::reloaded, this, [this](const UITableView* table) {
        if (table == &pane_.alarmView().alarmTableView()) {
            host_.announce(QString::fromStdString(pane_.alarmView().notice()));
        }
    });
    connect(&host, &Host::pushed, this, [this](PageHandle* page) { setOpen(page->content() == view()); });
    connect(&host, &Host::popped, this, [this] { setOpen(false); });
}

void AlarmEditor::setOpen(bool open) {
    open_ = open;
    passing_.clear();
    preview_.stop();
    emit changed();
}

ViewHandle* AlarmEditor::view() const {
    return host_.handle(&pane_.alarmView());
}

QVariantMap AlarmEditor::row() const {
    return rows_.rows().value(pane_.alarmView().prayerTag() - kFirstAlarm).toMap();
}

QString AlarmEditor::text() const {
    if (!passing_.isEmpty()) {
        return passing_;
    }
    if (rows_.rows().isEmpty()) {
        return {};
    }
    return on() ? row()["text"].toString() : today_.texts().words()("offRests");
}

int AlarmEditor::offset() const {
    return pane_.alarmView().timeOffset();
}

bool AlarmEditor::audible() const {
    return preview_.available() && !pane_.alarmView().melodyArray().empty();
}

void AlarmEditor::chooseOffset(int minutes) {
    auto* wheel = qobject_cast<PickerHandle*>(host_.handle(&pane_.alarmView().pickerTime()));
    if (on() && wheel != nullptr) {
        wheel->turn(minutes - offset());
    }
}

QString AlarmEditor::offsetText(int minutes) const {
    const auto* label =
        dynamic_cast<UILabel*>(pane_.alarmView().pickerTime().viewForRow(minutes + kLargestOffset));
    return label != nullptr ? QString::fromStdString(label->text()) : QString();
}

void AlarmEditor::pass(int row) {
    const auto prayer = almanac::prayerOfId(pane_.alarmView().prayerTag());
    const int minutes = row - kLargestOffset;
    if (!on() || !prayer || !today_.place() || minutes == offset()) {
        rest();
        return;
    }
    const AlarmDays days(*today_.place(), std::chrono::floor<std::chrono::seconds>(now()));
    const auto next = days.nextRings(*prayer, minutes).afterMargin;
    passing_ = next ? rows_.ringText(*next) : QString();
    emit changed();
}

void AlarmEditor::rest() {
    if (!passing_.isEmpty()) {
        passing_.clear();
        emit changed();
    }
}

void AlarmEditor::listen() {
    if (preview_.playing()) {
        preview_.stop();
    } else {
        preview_.play(
            QString::fromStdString(Locations::current().ringtones + '/' + pane_.alarmView().melodyName()));
    }
}

} // namespace zorel
