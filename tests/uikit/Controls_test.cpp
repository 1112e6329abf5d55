// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIActionSheet.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UISearchBar.h"
#include "platform/uikit/UISwitch.h"
#include "tests/uikit/RecordingObserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(UIScreen, IsZeroUntilAHostSaysOtherwise) {
    UIScreen& screen = UIScreen::mainScreen();
    EXPECT_EQ(screen.bounds(), CGRect{});
    screen.setBounds({0, 0, 320, 568});
    EXPECT_EQ(UIScreen::mainScreen().bounds(), (CGRect{0, 0, 320, 568}));
    screen.setBounds({});
}

TEST(UILabel, StartsAsOneTruncatedLineThatTakesNoTouch) {
    UILabel label(CGRect{0, 0, 100, 20});
    EXPECT_EQ(label.kind(), UIViewKind::label);
    EXPECT_EQ(label.numberOfLines(), 1);
    EXPECT_EQ(label.lineBreakMode(), UILineBreakMode::truncatingTail);
    EXPECT_EQ(label.textAlignment(), UITextAlignment::left);
    EXPECT_EQ(label.textColor(), UIColor::blackColor());
    EXPECT_FALSE(label.isUserInteractionEnabled());
    EXPECT_EQ(label.hitTest({5, 5}), nullptr);
}

TEST(UILabel, TellsOfEachChangeOnce) {
    UILabel label;
    RecordingObserver observer;
    label.setText("Sarıyer");
    label.setText("Sarıyer");
    label.setFont({"Verdana", 15.0});
    label.setTextColor(UIColor::whiteColor());
    label.setTextAlignment(UITextAlignment::center);
    label.setNumberOfLines(2);
    label.setLineBreakMode(UILineBreakMode::wordWrapping);
    label.setAdjustsFontSizeToFitWidth(true);
    label.setBaselineAdjustment(UIBaselineAdjustment::alignCenters);
    label.setShadow(UILabelShadow{UIColor::blackColor(), {1.0, 1.0}});
    label.setShadow(UILabelShadow{UIColor::blackColor(), {1.0, 1.0}});
    EXPECT_EQ(observer.count("changed content"), 9);
    EXPECT_EQ(observer.events.size(), 9U);
    EXPECT_EQ(label.text(), "Sarıyer");
    EXPECT_EQ(label.font(), (UIFont{"Verdana", 15.0}));
    EXPECT_TRUE(label.adjustsFontSizeToFitWidth());
    EXPECT_EQ(label.baselineAdjustment(), UIBaselineAdjustment::alignCenters);
    ASSERT_TRUE(label.shadow());
    EXPECT_EQ(label.shadow()->offset, (CGSize{1.0, 1.0}));
}

TEST(UIControl, IsEnabledAndNotSelected) {
    UIControl control(CGRect{0, 0, 10, 10});
    EXPECT_TRUE(control.isEnabled());
    EXPECT_FALSE(control.isSelected());
    RecordingObserver observer;
    control.setEnabled(false);
    control.setSelected(true);
    control.setSelected(true);
    EXPECT_THAT(observer.events, ElementsAre("changed state", "changed state"));
    EXPECT_EQ(control.kind(), UIViewKind::plain);
}

TEST(UISwitch, TheUserFlipsItAndItsActionRuns) {
    UISwitch control(CGRect{0, 0, 51, 31});
    std::vector<bool> states;
    control.setValueChangedAction([&] { states.push_back(control.isOn()); });
    control.userToggles();
    control.userToggles();
    EXPECT_THAT(states, ElementsAre(true, false));
}

TEST(UISwitch, TheProgramSetsItInSilence) {
    UISwitch control;
    RecordingObserver observer;
    int actions = 0;
    control.setValueChangedAction([&] { ++actions; });
    control.setOn(true);
    control.setOn(true);
    control.setOn(false, true);
    EXPECT_EQ(actions, 0);
    EXPECT_THAT(observer.events, ElementsAre("switch set", "switch moved"));
}

TEST(UISwitch, ItsActionMayTurnItBack) {
    UISwitch control;
    control.setValueChangedAction([&] { control.setOn(false); });
    control.userToggles();
    EXPECT_FALSE(control.isOn());
}

TEST(UISwitch, ADisabledOneDoesNotMove) {
    UISwitch control;
    control.setEnabled(false);
    control.userToggles();
    EXPECT_FALSE(control.isOn());
}

TEST(UISwitch, ItsActionMayDestroyIt) {
    auto control = std::make_unique<UISwitch>();
    std::string witness;
    control->setValueChangedAction([&control, &witness] {
        control.reset();
        witness = "still here";
    });
    control->userToggles();
    EXPECT_EQ(control, nullptr);
    EXPECT_EQ(witness, "still here");
}

struct SearchDelegate : UISearchBarDelegate {
    std::vector<std::string> searches;
    void searchBarSearchButtonClicked(UISearchBar& searchBar) override {
        searches.push_back(searchBar.text());
        searchBar.resignFirstResponder();
    }
};

TEST(UISearchBar, TypingTakesTheKeyboardAndSearchingGivesItBack) {
    UISearchBar bar;
    SearchDelegate delegate;
    bar.setDelegate(&delegate);
    RecordingObserver observer;
    bar.userTypes("Ank");
    EXPECT_TRUE(bar.isFirstResponder());
    EXPECT_THAT(observer.take(), ElementsAre("first responder"));
    bar.userTapsSearch();
    EXPECT_THAT(delegate.searches, ElementsAre("Ank"));
    EXPECT_FALSE(bar.isFirstResponder());
    EXPECT_THAT(observer.take(), ElementsAre("first responder"));
    bar.resignFirstResponder();
    EXPECT_THAT(observer.take(), IsEmpty());
}

TEST(UISearchBar, WithoutADelegateNothingHappens) {
    UISearchBar bar;
    bar.setPlaceholder("City");
    bar.setText("x");
    bar.userTapsSearch();
    EXPECT_EQ(bar.placeholder(), "City");
    EXPECT_EQ(bar.text(), "x");
}

struct SheetDelegate : UIActionSheetDelegate {
    std::vector<int> clicks;
    std::function<void()> onClick;
    void clickedButtonAtIndex(UIActionSheet& sheet, int index) override {
        EXPECT_FALSE(sheet.isVisible());
        clicks.push_back(index);
        if (onClick) {
            onClick();
        }
    }
};

TEST(UIActionSheet, CountsTheOtherButtonsFirstAndCancelLast) {
    SheetDelegate delegate;
    const UIActionSheet sheet("", &delegate, "Cancel", {"Add"});
    EXPECT_THAT(sheet.buttonTitles(), ElementsAre("Add", "Cancel"));
    EXPECT_EQ(sheet.cancelButtonIndex(), 1);
    EXPECT_EQ(sheet.title(), "");
}

TEST(UIActionSheet, ATapDismissesItAndTellsTheDelegateOnce) {
    RecordingObserver observer;
    SheetDelegate delegate;
    UIView view;
    UIActionSheet sheet("", &delegate, "Cancel", {"Add"});
    sheet.userTapsButton(0);
    EXPECT_THAT(delegate.clicks, IsEmpty());
    sheet.showInView(view);
    sheet.showInView(view);
    sheet.userTapsButton(2);
    sheet.userTapsButton(-1);
    EXPECT_TRUE(sheet.isVisible());
    sheet.userTapsButton(0);
    sheet.userTapsButton(0);
    EXPECT_THAT(delegate.clicks, ElementsAre(0));
    EXPECT_THAT(observer.events, ElementsAre("presented", "dismissed"));
}

TEST(UIActionSheet, TheDelegateMayDestroyIt) {
    SheetDelegate delegate;
    UIView view;
    auto sheet = std::make_unique<UIActionSheet>("", &delegate, "Cancel", std::vector<std::string>{"Add"});
    delegate.onClick = [&] { sheet.reset(); };
    sheet->showInView(view);
    sheet->userTapsButton(1);
    EXPECT_THAT(delegate.clicks, ElementsAre(1));
    EXPECT_EQ(sheet, nullptr);
}

TEST(UIActionSheet, ADestroyedOneIsDismissedInSilence) {
    RecordingObserver observer;
    SheetDelegate delegate;
    {
        UIView view;
        UIActionSheet sheet("Sure?", &delegate, "Cancel", {});
        sheet.showInView(view);
    }
    EXPECT_EQ(observer.count("dismissed"), 1);
    EXPECT_THAT(delegate.clicks, IsEmpty());
}

} // namespace
} // namespace zorel
