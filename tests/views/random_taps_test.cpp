// SPDX-License-Identifier: Apache-2.0
// A monkey at each view: it taps, drags, types, picks and lets time pass. ZOREL_RANDOM_ACTIONS sets how
// often.
#include "platform/coregraphics/RecordingContext.h"
#include "platform/foundation/NumberText.h"
#include "platform/uikit/UITouch.h"
#include "tests/views/AlarmFixture.h"
#include "views/AddCityView.h"
#include "views/MessageView.h"
#include "views/UICityHeaderView.h"
#include "views/UICityView.h"

#include <cstdlib>
#include <random>

namespace zorel {
namespace {

int actions() {
    const char* wanted = std::getenv("ZOREL_RANDOM_ACTIONS");
    return wanted != nullptr ? integerValue(wanted) : 2000;
}

class RandomTaps : public test::AlarmFixture {
protected:
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
    CGPoint pointIn(const UIView& view) {
        return {std::uniform_real_distribution<double>(-20.0, view.frame().width + 20.0)(random_),
                std::uniform_real_distribution<double>(-20.0, view.frame().height + 20.0)(random_)};
    }
    /// One touch event of a finger that may be anywhere.
    void touch(UITouchDispatcher& finger, const UIView& view) {
        switch (upTo(3)) {
        case 0:
            finger.began(pointIn(view));
            break;
        case 1:
            finger.moved(pointIn(view));
            break;
        case 2:
            finger.ended(pointIn(view));
            break;
        default:
            finger.cancelled();
        }
    }

private:
    std::mt19937 random_{20260101};
};

TEST_F(RandomTaps, Button) {
    UIButtonX button({0.0, 0.0, 70.0, 30.0}, glbFuncs, settings);
    UITouchDispatcher finger(button);
    for (int action = 0; action < actions(); ++action) {
        const bool before = button.isSelected();
        const bool selectable = button.selectable();
        touch(finger, button);
        EXPECT_TRUE(selectable || button.isSelected() == before);
        button.setSelectable(upTo(3) != 0);
        button.setEnabled(upTo(5) != 0);
        button.setButtonShape(upTo(14) - 1);
        button.setButtonType(upTo(6) - 1);
        button.setFrame({0.0, 0.0, static_cast<double>(upTo(200)), static_cast<double>(upTo(100))});
        RecordingContext context;
        button.drawRect(context);
    }
    EXPECT_TRUE(log().empty());
}

TEST_F(RandomTaps, CityRowAndHeader) {
    struct Counter : UICityViewDelegate, UICityHeaderViewDelegate {
        void delegateUICityView_HomeTapped(UICityView& view) override {
            EXPECT_TRUE(view.buttonHome().isSelected());
            view.buttonHome().setSelected(false);
        }
        void delegateUICityHeaderView_AddTapped(UIButtonX& button) override {
            EXPECT_FALSE(button.isSelected());
        }
    } counter;
    UICityView row({0.0, 0.0, 302.0, 60.0}, glbFuncs, settings);
    UICityHeaderView header({0.0, 0.0, 320.0, 40.0}, glbFuncs, settings);
    row.setDelegate(&counter);
    header.setDelegate(&counter);
    UITouchDispatcher onRow(row);
    UITouchDispatcher onHeader(header);
    for (int action = 0; action < actions(); ++action) {
        touch(onRow, row);
        touch(onHeader, header);
        row.buttonHome().setEnabled(upTo(9) != 0);
    }
    EXPECT_EQ(row.subviews().size(), 2U);
    EXPECT_EQ(header.subviews().size(), 2U);
}

TEST_F(RandomTaps, Search) {
    struct Counter : AddCityViewDelegate {
        void delegateAddCityView_AddTapped(const City& city) override { EXPECT_FALSE(city.cityId.empty()); }
    } counter;
    AddCityView view({0.0, 64.0, 320.0, 504.0});
    view.setDelegate(&counter);
    UITableView& table = view.searchTableView();
    const std::string texts[] = {"ist", "an", "", "ankara", "x'y", "%%%", "é’中", "moskv"};
    for (int action = 0; action < actions(); ++action) {
        switch (upTo(7)) {
        case 0:
            view.searchBar().userTypes(texts[upTo(7)]);
            break;
        case 1:
            if (upTo(9) == 0) { // a search reads the whole catalogue
                view.searchBar().userTapsSearch();
            }
            break;
        case 2:
            table.userSelectsRow({0, upTo(table.numberOfRowsInSection(0) + 2) - 1});
            break;
        case 3:
            if (view.confirmation() != nullptr) {
                view.confirmation()->userTapsButton(upTo(3) - 1);
            }
            break;
        case 4:
            static_cast<void>(table.cellForRowAtIndexPath({0, upTo(20) - 1}));
            break;
        case 5:
            table.endDisplayingRow({0, upTo(20)});
            break;
        case 6:
            table.userDeletesRow({0, upTo(3)});
            break;
        default:
            RunLoop::main().advance(0.1);
        }
        ASSERT_EQ(static_cast<std::size_t>(table.numberOfRowsInSection(0)), view.searchCityList().size());
    }
}

TEST_F(RandomTaps, AlarmEditorAndMessages) {
    addRingtone("Bell.wav");
    addRingtone("more/Flute.wav");
    UITableView& table = view().alarmTableView();
    for (int action = 0; action < actions(); ++action) {
        delegate.events.clear();
        delegate.answer = -upTo(1);
        switch (upTo(6)) {
        case 0:
            view().alarmEnabled().userToggles();
            EXPECT_TRUE(delegate.answer == 0 || !view().alarmEnabled().isOn());
            break;
        case 1:
            view().pickerTime().userPicksRow(upTo(122) - 2);
            break;
        case 2:
            view().pickerMelody().userPicksRow(upTo(4) - 1);
            break;
        case 3:
            view().pickerMelodyTime().userPicksRow(upTo(9) - 1);
            break;
        case 4:
            static_cast<void>(table.cellForRowAtIndexPath({upTo(5) - 1, upTo(1)}));
            break;
        case 5:
            if (upTo(4) == 0) { // opening another alarm reads the database
                view().setAlarmInfo(199 + upTo(8));
            }
            break;
        default:
            RunLoop::main().advance(5.0 * upTo(4));
        }
        ASSERT_GE(view().timeOffset(), -59);
        ASSERT_LE(view().timeOffset(), 59);
        ASSERT_EQ(view().pickerTime().selectedRow(), view().timeOffset() + 59);
        ASSERT_EQ(view().pickerMelodyTime().selectedRow(), view().melodyTime());
        ASSERT_GE(rowOfMelody(view().melodyName()), 0);
    }
}

TEST_F(RandomTaps, MessagesInViewsThatComeAndGo) {
    std::vector<std::unique_ptr<UIView>> views(4);
    for (int action = 0; action < actions(); ++action) {
        auto& view = views[static_cast<std::size_t>(upTo(3))];
        switch (upTo(3)) {
        case 0:
            view = upTo(1) == 0 ? nullptr : std::make_unique<UIView>(test::kScreen);
            break;
        case 1:
            if (view && upTo(9) == 0) {
                MessageView::toastInView(*view, std::to_string(action));
            }
            break;
        default:
            RunLoop::main().advance(0.25 * upTo(8));
        }
        ASSERT_TRUE(MessageView::toasts() == nullptr || !MessageView::toasts()->empty());
    }
    RunLoop::main().advance(5.0 * actions());
    EXPECT_EQ(MessageView::toasts(), nullptr);
}

} // namespace
} // namespace zorel
