// SPDX-License-Identifier: Apache-2.0
#include "views/AlarmView.h"

#include "platform/foundation/Locations.h"
#include "store/DatabaseFunctions.h"
#include "views/AlarmViewParts.h"
#include "views/MessageView.h"
#include "views/Texts.h"

#include <algorithm>
#include <utility>

namespace zorel {
namespace {

using namespace alarm_view;

constexpr unsigned kTableMask = UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth |
                                UIViewAutoresizingFlexibleRightMargin |
                                UIViewAutoresizingFlexibleBottomMargin;
constexpr CGRect kSwitchFrame = {0.0, 0.0, 51.0, 31.0};
constexpr double kPickerMargin = 80.0; ///< width that a picker leaves free [pt]
constexpr double kPickerHeight = 60.0;
constexpr double kTableRowHeight = 33.0;
constexpr std::int32_t kFirstDurationKey = 1005;
constexpr std::int32_t kDurations = 8;
constexpr std::int32_t kAddCityFirstKey = 1022;
constexpr int kRefused = -1;

/// The wheel's row of an offset; a record may hold any number.
int offsetRow(std::int32_t minutes) {
    return std::clamp(minutes, -kLargestOffset, kLargestOffset) + kLargestOffset;
}

} // namespace

AlarmView::AlarmView(const CGRect& frame, const GlobalFuncs& glbFuncs, const Settings& glbSettings,
                     const DatabaseFunctions& dbFuncs)
    : UIView(frame), glbFuncs_(glbFuncs), glbSettings_(glbSettings), dbFuncs_(dbFuncs) {
    listMelodies();
    listMelodyTimes();
    initializeControls();
}

AlarmView::~AlarmView() {
    removeAllSubviews();
}

/// Everything below the ringtone folder, as the file system yields it.
void AlarmView::listMelodies() {
    for (const std::string& path : entriesBelowPath(Locations::current().ringtones)) {
        glbFuncs_.addComboItem(melodyArray_, pathWithoutExtension(path), path,
                               static_cast<std::int32_t>(melodyArray_.size()));
    }
}

void AlarmView::listMelodyTimes() {
    for (std::int32_t duration = 0; duration < kDurations; ++duration) {
        glbFuncs_.addComboItem(melodyTimeArray_, textForKey(glbFuncs_, kFirstDurationKey + duration), "",
                               duration);
    }
}

void AlarmView::initializeControls() {
    makeSwitch();
    pickerTime_ = makePicker(kTimePickerTag, offsetRow(0));
    timeOffset_ = 0;
    pickerMelody_ = makePicker(kMelodyPickerTag, 0);
    melodyName_ = melodyNameAt(0);
    pickerMelodyTime_ = makePicker(kMelodyTimePickerTag, 0);
    melodyTime_ = 0;
    makeTable();
}

void AlarmView::makeSwitch() {
    alarmEnabled_ = std::make_unique<UISwitch>(kSwitchFrame);
    alarmEnabled_->setCenter({frame().width - 30.0, 20.0});
    alarmEnabled_->setTag(kSwitchTag);
    alarmEnabled_->setAccessibilityLabel(textForKey(glbFuncs_, kAlarmKey));
    alarmEnabled_->setValueChangedAction([this] { switchState(*alarmEnabled_); });
}

std::unique_ptr<UIPickerView> AlarmView::makePicker(std::int32_t tag, int row) {
    const double width = frame().width - kPickerMargin;
    auto picker = std::make_unique<UIPickerView>(CGRect{0.0, 0.0, width, kPickerHeight});
    picker->setCenter({width * 0.5, kPickerHeight * 0.5});
    picker->setTag(tag);
    picker->setDataSource(this);
    picker->setDelegate(this);
    picker->setAccessibilityLabel(textForKey(glbFuncs_, headerKeyOfPicker(tag)));
    picker->selectRow(row, false);
    return picker;
}

/// The table alone is a subview: the switch and the pickers are shown by its cells.
void AlarmView::makeTable() {
    alarmTableView_ = std::make_unique<UITableView>(bounds(), UITableViewStyle::grouped);
    alarmTableView_->setCenter({frame().width * 0.5, frame().height * 0.5});
    alarmTableView_->setAutoresizesSubviews(false);
    alarmTableView_->setBackgroundColor(UIColor::groupTableViewBackgroundColor());
    alarmTableView_->setAllowsSelection(false);
    alarmTableView_->setAllowsMultipleSelection(false);
    alarmTableView_->setDataSource(this);
    alarmTableView_->setDelegate(this);
    alarmTableView_->setRowHeight(kTableRowHeight);
    alarmTableView_->setAutoresizingMask(kTableMask);
    alarmTableView_->setTag(kTableTag);
    addSubview(*alarmTableView_);
}

std::string AlarmView::melodyNameAt(std::size_t row) const {
    return row < melodyArray_.size() ? melodyArray_[row].originalText : std::string();
}

void AlarmView::setAlarmInfo(std::int32_t prayerTag) {
    prayerTag_ = prayerTag;
    const AlarmInfo info = dbFuncs_.getAlarmInfo(prayerTag);
    timeOffset_ = info.timeOffset;
    melodyTime_ = info.melodyTime;
    active_ = info.active;
    alarmEnabled_->setOn(info.active);
    pickerTime_->selectRow(offsetRow(timeOffset_), false);
    pickerMelodyTime_->selectRow(melodyTime_, false);
    selectMelody(info.melodyName);
    notice_.clear();
    alarmTableView_->reloadData();
}

void AlarmView::setNotice(std::string notice) {
    if (notice != notice_) {
        notice_ = std::move(notice);
        alarmTableView_->reloadData();
    }
}

/// Selects the ringtone of exactly this name, or the first one.
void AlarmView::selectMelody(const std::string& name) {
    melodyName_ = melodyNameAt(0);
    pickerMelody_->selectRow(0, false);
    if (name.empty()) {
        return;
    }
    const auto found = std::find_if(melodyArray_.begin(), melodyArray_.end(),
                                    [&](const UIComboboxItem& item) { return item.originalText == name; });
    if (found != melodyArray_.end()) {
        melodyName_ = found->originalText;
        pickerMelody_->selectRow(found->itemID, false);
    }
}

void AlarmView::switchState(UISwitch& control) {
    if (delegate_ == nullptr) {
        return;
    }
    const UIWeak<AlarmView> self(this);
    const int answer = delegate_->delegateAlarmView_AlarmEnabledChanged(control, *this);
    if (answer == kRefused && self.get() != nullptr) {
        control.setOn(false);
        MessageView::toastInView(*this, textForKey(glbFuncs_, kAddCityFirstKey));
    }
}

} // namespace zorel
