// SPDX-License-Identifier: Apache-2.0
/// @file
/// An alarm editor on a user database of its own, with a delegate that writes down what it hears.
#pragma once

#include "common/GlobalFuncs.h"
#include "store/DatabaseFunctions.h"
#include "tests/views/ViewsFixture.h"
#include "views/AlarmView.h"
#include "views/Settings.h"

#include <optional>

namespace zorel::test {

struct AlarmEvents : AlarmViewDelegate {
    int delegateAlarmView_AlarmEnabledChanged(UISwitch& control, AlarmView& view) override {
        events.push_back({"enabled", control.tag(), &view});
        return answer;
    }
    int delegateAlarmView_TimeChanged(UIPickerView& picker, AlarmView& view) override {
        events.push_back({"time", picker.tag(), &view});
        return answer;
    }
    int delegateAlarmView_MelodyNameChanged(UIPickerView& picker, AlarmView& view) override {
        events.push_back({"name", picker.tag(), &view});
        return answer;
    }
    int delegateAlarmView_MelodyTimeChanged(UIPickerView& picker, AlarmView& view) override {
        events.push_back({"duration", picker.tag(), &view});
        return answer;
    }

    struct Event {
        std::string name;
        std::int32_t tag;
        AlarmView* view;
        friend bool operator==(const Event&, const Event&) = default;
    };
    std::vector<Event> events;
    int answer = 0;
};

class AlarmFixture : public ViewsFixture {
protected:
    AlarmFixture() { dbFuncs.generateUserDatabaseFile(); }

    /// The editor is made when first asked for, so that a test can put ringtones in their folder before.
    AlarmView& view() {
        if (!view_) {
            view_.emplace(CGRect{0.0, 64.0, 320.0, 568.0}, glbFuncs, settings, dbFuncs);
            view_->setDelegate(&delegate);
        }
        return *view_;
    }
    void store(std::int32_t timeId, const std::string& values) {
        ASSERT_TRUE(dbFuncs.executeSQL("UPDATE USER_ALARMS SET " + values +
                                       " WHERE TIMEID = " + std::to_string(timeId)));
    }
    [[nodiscard]] std::vector<std::string> melodies() {
        std::vector<std::string> names;
        for (const UIComboboxItem& item : view().melodyArray()) {
            names.push_back(item.originalText);
        }
        return names;
    }
    /// Position of a ringtone in the list.
    [[nodiscard]] int rowOfMelody(const std::string& name) {
        for (const UIComboboxItem& item : view().melodyArray()) {
            if (item.originalText == name) {
                return item.itemID;
            }
        }
        return -1;
    }

    GlobalFuncs glbFuncs;
    Settings settings;
    DatabaseFunctions dbFuncs{glbFuncs};
    AlarmEvents delegate;

private:
    std::optional<AlarmView> view_;
};

} // namespace zorel::test
