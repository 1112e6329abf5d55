// SPDX-License-Identifier: Apache-2.0
/// @file
/// The editor of one prayer's alarm: on or off, minutes from the prayer time, ringtone, ringing duration.
#pragma once

#include "common/UIComboboxItem.h"
#include "platform/uikit/UIPickerView.h"
#include "platform/uikit/UISwitch.h"
#include "platform/uikit/UITableView.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zorel {

class AlarmView;
class DatabaseFunctions;
class GlobalFuncs;
class Settings;
class UILabel;

/// Hears of every change at once and stores it; reads the new values from the view. An answer of -1 is a
/// refusal.
class AlarmViewDelegate {
public:
    virtual ~AlarmViewDelegate() = default;
    virtual int delegateAlarmView_AlarmEnabledChanged(UISwitch& control, AlarmView& view) = 0;
    /// The picker handed over by this one and the next two is always the offset picker, whichever was turned.
    virtual int delegateAlarmView_TimeChanged(UIPickerView& picker, AlarmView& view) = 0;
    virtual int delegateAlarmView_MelodyNameChanged(UIPickerView& picker, AlarmView& view) = 0;
    virtual int delegateAlarmView_MelodyTimeChanged(UIPickerView& picker, AlarmView& view) = 0;
};

/// A grouped table of four rows that carry the switch and three pickers. The view keeps nothing unsaved.
class AlarmView : public UIView,
                  public UITableViewDataSource,
                  public UITableViewDelegate,
                  public UIPickerViewDataSource,
                  public UIPickerViewDelegate {
public:
    AlarmView(const CGRect& frame, const GlobalFuncs& glbFuncs, const Settings& glbSettings,
              const DatabaseFunctions& dbFuncs);
    ~AlarmView() override;

    /// Loads the alarm of a prayer (200 to 205) and sets the controls to it. A ringtone that is no longer
    /// there, or none, shows the first one.
    void setAlarmInfo(std::int32_t prayerTag);
    /// A line below the switch that says what came of the last change; empty: none. Loading an alarm empties
    /// it.
    void setNotice(std::string notice);
    [[nodiscard]] const std::string& notice() const { return notice_; }
    /// The switch has been flipped: a delegate that refuses has it turned back, with a message.
    void switchState(UISwitch& control);

    void setDelegate(AlarmViewDelegate* delegate) { delegate_ = delegate; }
    [[nodiscard]] AlarmViewDelegate* delegate() const { return delegate_; }
    /// Whether the alarm was on when it was loaded.
    [[nodiscard]] bool active() const { return active_; }
    void setActive(bool active) { active_ = active; }
    [[nodiscard]] std::int32_t prayerTag() const { return prayerTag_; }
    void setPrayerTag(std::int32_t tag) { prayerTag_ = tag; }
    [[nodiscard]] std::int32_t timeOffset() const { return timeOffset_; } ///< [min], -59 to 59
    void setTimeOffset(std::int32_t minutes) { timeOffset_ = minutes; }
    [[nodiscard]] std::int32_t melodyTime() const { return melodyTime_; } ///< index of the duration, 0 to 7
    void setMelodyTime(std::int32_t index) { melodyTime_ = index; }
    /// The ringtone's path below the ringtone folder, with its extension; "" when there is no ringtone at
    /// all.
    [[nodiscard]] const std::string& melodyName() const { return melodyName_; }
    void setMelodyName(std::string name) { melodyName_ = std::move(name); }
    [[nodiscard]] const std::vector<UIComboboxItem>& melodyArray() const { return melodyArray_; }
    [[nodiscard]] const std::vector<UIComboboxItem>& melodyTimeArray() const { return melodyTimeArray_; }
    [[nodiscard]] UITableView& alarmTableView() const { return *alarmTableView_; }
    [[nodiscard]] UIPickerView& pickerTime() const { return *pickerTime_; }
    [[nodiscard]] UIPickerView& pickerMelody() const { return *pickerMelody_; }
    [[nodiscard]] UIPickerView& pickerMelodyTime() const { return *pickerMelodyTime_; }
    [[nodiscard]] UISwitch& alarmEnabled() const { return *alarmEnabled_; }

    int numberOfComponentsInPickerView(UIPickerView& picker) override;
    int numberOfRowsInComponent(UIPickerView& picker, int component) override;
    std::unique_ptr<UIView> viewForRow(UIPickerView& picker, int row, int component,
                                       std::unique_ptr<UIView> reusing) override;
    void didSelectRow(UIPickerView& picker, int row, int component) override;

    int numberOfSectionsInTableView(UITableView& table) override;
    int numberOfRowsInSection(UITableView& table, int section) override;
    double heightForHeaderInSection(UITableView& table, int section) override;
    std::string titleForHeaderInSection(UITableView& table, int section) override;
    std::string titleForFooterInSection(UITableView& table, int section) override;
    double heightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table,
                                                           NSIndexPath indexPath) override;
    bool canEditRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

private:
    void listMelodies();
    void listMelodyTimes();
    void initializeControls();
    void makeSwitch();
    [[nodiscard]] std::unique_ptr<UIPickerView> makePicker(std::int32_t tag, int row);
    void makeTable();
    void selectMelody(const std::string& name);
    [[nodiscard]] std::string melodyNameAt(std::size_t row) const;
    [[nodiscard]] std::string rowText(const UIPickerView& picker, int row) const;
    [[nodiscard]] std::string offsetText(std::int32_t minutes) const;
    void pickOffset(std::int32_t minutes);
    void pickMelody(std::int32_t row);
    void pickMelodyTime(std::int32_t row);
    [[nodiscard]] UIView& accessoryOfSection(int section) const;

    const GlobalFuncs& glbFuncs_;
    const Settings& glbSettings_;
    const DatabaseFunctions& dbFuncs_;
    AlarmViewDelegate* delegate_ = nullptr;
    std::vector<UIComboboxItem> melodyArray_;
    std::vector<UIComboboxItem> melodyTimeArray_;
    std::unique_ptr<UISwitch> alarmEnabled_;
    std::unique_ptr<UIPickerView> pickerTime_;
    std::unique_ptr<UIPickerView> pickerMelody_;
    std::unique_ptr<UIPickerView> pickerMelodyTime_;
    std::unique_ptr<UITableView> alarmTableView_;
    std::string melodyName_;
    std::string notice_;
    std::int32_t prayerTag_ = 0;
    std::int32_t timeOffset_ = 0;
    std::int32_t melodyTime_ = 0;
    bool active_ = false;
};

} // namespace zorel
