// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIPickerView.h"

#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UILabel.h"
#include "tests/uikit/RecordingObserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Wheel : UIPickerViewDataSource, UIPickerViewDelegate {
    int components = 1;
    int rows = 119;
    int made = 0;
    std::vector<int> picked;
    std::function<void(UIPickerView&)> onPick;

    int numberOfComponentsInPickerView(UIPickerView&) override { return components; }
    int numberOfRowsInComponent(UIPickerView&, int component) override { return component == 0 ? rows : 0; }
    std::unique_ptr<UIView> viewForRow(UIPickerView&, int row, int,
                                       std::unique_ptr<UIView> reusing) override {
        EXPECT_EQ(reusing, nullptr);
        ++made;
        auto label = std::make_unique<UILabel>();
        label->setTag(row - 59);
        return label;
    }
    void didSelectRow(UIPickerView& picker, int row, int) override {
        picked.push_back(picker.viewForRow(row)->tag());
        if (onPick) {
            onPick(picker);
        }
    }
};

class PickerTest : public testing::Test {
protected:
    PickerTest() {
        picker.setDataSource(&wheel);
        picker.setDelegate(&wheel);
    }
    ~PickerTest() override { RunLoop::main().reset(); }

    Wheel wheel;
    UIPickerView picker{CGRect{0, 0, 240, 60}};
};

TEST_F(PickerTest, AsksForEachRowViewOnce) {
    EXPECT_EQ(picker.numberOfRows(), 119);
    UIView* view = picker.viewForRow(0);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->tag(), -59);
    EXPECT_EQ(picker.viewForRow(0), view);
    EXPECT_EQ(picker.viewForRow(118)->tag(), 59);
    EXPECT_EQ(wheel.made, 2);
}

TEST_F(PickerTest, HasNoViewsOutsideItsRows) {
    EXPECT_EQ(picker.viewForRow(-1), nullptr);
    EXPECT_EQ(picker.viewForRow(119), nullptr);
    picker.setDelegate(nullptr);
    EXPECT_EQ(picker.viewForRow(0), nullptr);
}

TEST_F(PickerTest, TheProgramTurnsItInSilence) {
    RecordingObserver observer;
    picker.selectRow(59, false);
    EXPECT_EQ(picker.selectedRow(), 59);
    picker.selectRow(10, true);
    EXPECT_EQ(picker.selectedRow(), 10);
    EXPECT_THAT(wheel.picked, IsEmpty());
    EXPECT_THAT(observer.events, ElementsAre("picker set", "picker turned"));
}

TEST_F(PickerTest, TheUserTurnsItAndTheDelegateHears) {
    picker.userPicksRow(0);
    picker.userPicksRow(59);
    picker.userPicksRow(118);
    picker.userPicksRow(119);
    picker.userPicksRow(-1);
    EXPECT_THAT(wheel.picked, ElementsAre(-59, 0, 59));
    EXPECT_EQ(picker.selectedRow(), 118);
}

TEST_F(PickerTest, TheSelectedRowNeverLiesOutsideTheRows) {
    picker.selectRow(118, false);
    wheel.rows = 8;
    EXPECT_EQ(picker.selectedRow(), 7);
    wheel.rows = 0;
    EXPECT_EQ(picker.selectedRow(), -1);
    picker.selectRow(-5, false);
    wheel.rows = 8;
    EXPECT_EQ(picker.selectedRow(), 0);
}

TEST_F(PickerTest, ARowSelectedBeforeTheRowsAreKnownIsRemembered) {
    UIPickerView fresh;
    fresh.selectRow(59, false);
    EXPECT_EQ(fresh.selectedRow(), -1);
    fresh.setDataSource(&wheel);
    EXPECT_EQ(fresh.selectedRow(), 59);
}

TEST_F(PickerTest, ReloadAsksAnewEvenFromInsideAPick) {
    picker.viewForRow(3);
    wheel.onPick = [](UIPickerView& one) { one.reloadAllComponents(); };
    RecordingObserver observer;
    picker.userPicksRow(3);
    EXPECT_EQ(observer.count("picker reloaded"), 1);
    EXPECT_EQ(observer.count("destroyed"), 1);
    picker.viewForRow(3);
    EXPECT_EQ(wheel.made, 2);
}

TEST_F(PickerTest, NegativeCountsAndMissingComponentsAreNoRows) {
    wheel.rows = -3;
    EXPECT_EQ(picker.numberOfRows(), 0);
    wheel.rows = 5;
    wheel.components = 0;
    EXPECT_EQ(picker.numberOfRows(), 0);
    EXPECT_EQ(picker.kind(), UIViewKind::picker);
}

} // namespace
} // namespace zorel
