// SPDX-License-Identifier: Apache-2.0
// What the editor's table and pickers show, and what turning a picker does.
#include "platform/uikit/UILabel.h"
#include "views/AlarmView.h"
#include "views/AlarmViewParts.h"
#include "views/Settings.h"
#include "views/Texts.h"

#include <cstdlib>

namespace zorel {
namespace {

using namespace alarm_view;

constexpr int kSections = 4;
constexpr double kHeaderHeight = 40.0;
constexpr double kSwitchRowHeight = 40.0;
constexpr double kPickerRowHeight = 33.0; ///< height of a row view on the wheel [pt]
constexpr double kPickerFontSize = 20.0;
constexpr std::int32_t kBeforeKey = 1033;
constexpr std::int32_t kAfterKey = 1034;
constexpr std::int32_t kAtTimeKey = 1035;
constexpr const char* kCellIdentifier = "Alarm";

/// A language text with its placeholder for an integer filled. The text comes from a file, so it is never
/// used as a format itself.
std::string filled(std::string text, std::int32_t number) {
    const std::string placeholder = "%d";
    const std::size_t place = text.find(placeholder);
    if (place != std::string::npos) {
        text.replace(place, placeholder.size(), std::to_string(number));
    }
    return text;
}

} // namespace

int AlarmView::numberOfComponentsInPickerView(UIPickerView& /*picker*/) {
    return 1;
}

int AlarmView::numberOfRowsInComponent(UIPickerView& picker, int /*component*/) {
    switch (picker.tag()) {
    case kTimePickerTag:
        return 2 * kLargestOffset + 1;
    case kMelodyPickerTag:
        return static_cast<int>(melodyArray_.size());
    case kMelodyTimePickerTag:
        return static_cast<int>(melodyTimeArray_.size());
    default:
        return 0;
    }
}

std::string AlarmView::offsetText(std::int32_t minutes) const {
    if (minutes == 0) {
        return textForKey(glbFuncs_, kAtTimeKey);
    }
    return filled(textForKey(glbFuncs_, minutes < 0 ? kBeforeKey : kAfterKey), std::abs(minutes));
}

std::string AlarmView::rowText(const UIPickerView& picker, int row) const {
    if (picker.tag() == kTimePickerTag) {
        return offsetText(row - kLargestOffset);
    }
    const auto& items = picker.tag() == kMelodyPickerTag ? melodyArray_ : melodyTimeArray_;
    return items.at(static_cast<std::size_t>(row)).displayText;
}

/// A new label for every row; its tag is the offset in minutes or the row.
std::unique_ptr<UIView> AlarmView::viewForRow(UIPickerView& picker, int row, int /*component*/,
                                              std::unique_ptr<UIView> /*reusing*/) {
    auto label = std::make_unique<UILabel>(CGRect{0.0, 0.0, picker.frame().width, kPickerRowHeight});
    label->setTextColor(UIColor::blackColor());
    label->setBackgroundColor(UIColor::whiteColor());
    label->setTextAlignment(UITextAlignment::center);
    label->setFont({glbSettings_.fontName, kPickerFontSize});
    label->setText(rowText(picker, row));
    label->setTag(picker.tag() == kTimePickerTag ? row - kLargestOffset : row);
    return label;
}

void AlarmView::didSelectRow(UIPickerView& picker, int row, int /*component*/) {
    const UIView* view = picker.viewForRow(row);
    if (view == nullptr) {
        return;
    }
    if (picker.tag() == kTimePickerTag) {
        pickOffset(view->tag());
    } else if (picker.tag() == kMelodyPickerTag) {
        pickMelody(view->tag());
    } else if (picker.tag() == kMelodyTimePickerTag) {
        pickMelodyTime(view->tag());
    }
}

void AlarmView::pickOffset(std::int32_t minutes) {
    timeOffset_ = minutes;
    if (delegate_ != nullptr) {
        delegate_->delegateAlarmView_TimeChanged(*pickerTime_, *this);
    }
}

void AlarmView::pickMelody(std::int32_t row) {
    melodyName_ = melodyNameAt(static_cast<std::size_t>(row));
    if (delegate_ != nullptr) {
        delegate_->delegateAlarmView_MelodyNameChanged(*pickerTime_, *this);
    }
}

void AlarmView::pickMelodyTime(std::int32_t row) {
    melodyTime_ = melodyTimeArray_.at(static_cast<std::size_t>(row)).itemID;
    if (delegate_ != nullptr) {
        delegate_->delegateAlarmView_MelodyTimeChanged(*pickerTime_, *this);
    }
}

int AlarmView::numberOfSectionsInTableView(UITableView& /*table*/) {
    return kSections;
}

int AlarmView::numberOfRowsInSection(UITableView& /*table*/, int /*section*/) {
    return 1;
}

double AlarmView::heightForHeaderInSection(UITableView& /*table*/, int section) {
    return section == 0 ? 0.0 : kHeaderHeight;
}

std::string AlarmView::titleForHeaderInSection(UITableView& /*table*/, int section) {
    return section == 0 ? std::string() : textForKey(glbFuncs_, kFirstHeaderKey + section - 1);
}

std::string AlarmView::titleForFooterInSection(UITableView& /*table*/, int section) {
    return section == 0 ? notice_ : std::string();
}

UIView& AlarmView::accessoryOfSection(int section) const {
    switch (section) {
    case 1:
        return *pickerTime_;
    case 2:
        return *pickerMelody_;
    case 3:
        return *pickerMelodyTime_;
    default:
        return *alarmEnabled_;
    }
}

double AlarmView::heightForRowAtIndexPath(UITableView& /*table*/, NSIndexPath indexPath) {
    return indexPath.section == 0 ? kSwitchRowHeight : accessoryOfSection(indexPath.section).frame().height;
}

std::unique_ptr<UITableViewCell> AlarmView::cellForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) {
    auto cell = table.dequeueReusableCellWithIdentifier(kCellIdentifier);
    if (!cell) {
        cell = std::make_unique<UITableViewCell>(kCellIdentifier);
    }
    cell->textLabel().setText(indexPath.section == 0 ? textForKey(glbFuncs_, kAlarmKey) : std::string());
    cell->setAccessoryView(&accessoryOfSection(indexPath.section));
    return cell;
}

/// Nothing here is to be deleted.
bool AlarmView::canEditRowAtIndexPath(UITableView& /*table*/, NSIndexPath /*indexPath*/) {
    return false;
}

} // namespace zorel
