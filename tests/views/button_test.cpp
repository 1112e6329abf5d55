// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/uikit/UITouch.h"
#include "tests/views/ViewsFixture.h"
#include "views/UIButtonX.h"

#include <numbers>

namespace zorel {
namespace {

struct TapCounter : UIButtonXDelegate {
    void delegateUIButtonXTapped(UIButtonX& button) override {
        ++taps;
        last = &button;
        selectedThen = button.isSelected();
    }
    int taps = 0;
    UIButtonX* last = nullptr;
    bool selectedThen = false;
};

/// Counts requests to draw a view anew.
struct DisplayCounter : UIObserver {
    DisplayCounter() { install(this); }
    void viewNeedsDisplay(UIView&) override { ++requests; }
    int take() { return std::exchange(requests, 0); }
    int requests = 0;
};

class Button : public test::ViewsFixture {
protected:
    Button() {
        root.addSubview(button);
        button.setDelegate(&taps);
    }
    void tap(CGPoint point) { UITouchDispatcher(root).tap(point); }

    GlobalFuncs glbFuncs;
    Settings settings;
    TapCounter taps;
    UIView root{{0.0, 0.0, 320.0, 100.0}};
    UIButtonX button{{100.0, 20.0, 70.0, 30.0}, glbFuncs, settings};
};

TEST_F(Button, BeginsPlain) {
    EXPECT_EQ(button.buttonType(), 0);
    EXPECT_EQ(button.buttonShape(), 0);
    EXPECT_FALSE(button.isSelected());
    EXPECT_FALSE(button.selectable());
    EXPECT_FALSE(button.isSelecting());
    EXPECT_TRUE(button.isShadow());
    EXPECT_TRUE(button.isEnabled());
    EXPECT_EQ(button.autoresizingMask(), 7U);
    EXPECT_TRUE(button.autoresizesSubviews());
    EXPECT_EQ(button.backgroundColor(), UIColor::clearColor());
}

TEST_F(Button, CaptionFillsTheButton) {
    const UILabel& text = button.text();
    EXPECT_EQ(text.superview(), &button);
    EXPECT_EQ(text.frame(), (CGRect{0.0, 0.0, 70.0, 30.0}));
    EXPECT_EQ(text.font(), (UIFont{"Verdana", 15.0}));
    EXPECT_EQ(text.textColor(), settings.thirdColor);
    EXPECT_EQ(text.textAlignment(), UITextAlignment::center);
    EXPECT_EQ(text.baselineAdjustment(), UIBaselineAdjustment::alignCenters);
    EXPECT_TRUE(text.adjustsFontSizeToFitWidth());
    EXPECT_FALSE(text.isUserInteractionEnabled());
    EXPECT_EQ(text.autoresizingMask(), 7U);
    EXPECT_EQ(text.backgroundColor(), UIColor::clearColor());
}

TEST_F(Button, UsesSettingsOfItsOwn) {
    Settings other;
    other.uiControlColorId = 3;
    other.setUIColors();
    const UIButtonX second({}, glbFuncs, other);
    EXPECT_EQ(second.glbSettings().uiControlColorId, 1);
    EXPECT_EQ(second.text().textColor(), settings.thirdColor);
}

TEST_F(Button, CanBeBroughtBackToItsFirstState) {
    button.setSelectable(true);
    button.setSelected(true);
    button.setButtonShape(UIButtonXShapeHouse);
    button.initialize();
    EXPECT_FALSE(button.isSelected());
    EXPECT_FALSE(button.selectable());
    EXPECT_EQ(button.buttonShape(), 0);
    EXPECT_EQ(button.subviews().size(), 1U);
}

TEST_F(Button, CaptionLeavesTwoPointsWhenTheFrameIsSet) {
    button.setFrame({5.0, 5.0, 50.0, 40.0});
    EXPECT_EQ(button.text().frame(), (CGRect{0.0, 0.0, 50.0, 38.0}));
}

TEST_F(Button, TapNotifiesAndLeavesANonSelectableButtonAsItIs) {
    tap({120.0, 30.0});
    EXPECT_EQ(taps.taps, 1);
    EXPECT_EQ(taps.last, &button);
    EXPECT_FALSE(button.isSelected());
    EXPECT_EQ(button.text().textColor(), settings.thirdColor);
    EXPECT_FALSE(button.isSelecting());
}

TEST_F(Button, TapTogglesASelectableButtonBeforeItNotifies) {
    button.setSelectable(true);
    tap({120.0, 30.0});
    EXPECT_TRUE(button.isSelected());
    EXPECT_TRUE(taps.selectedThen);
    EXPECT_EQ(button.text().textColor(), settings.fifthColor);
    tap({120.0, 30.0});
    EXPECT_FALSE(button.isSelected());
    EXPECT_FALSE(taps.selectedThen);
    EXPECT_EQ(button.text().textColor(), settings.secondColor);
    EXPECT_EQ(taps.taps, 2);
}

TEST_F(Button, TapThatEndsOutsideDoesNothing) {
    button.setSelectable(true);
    UITouchDispatcher finger(root);
    finger.began({120.0, 30.0});
    EXPECT_TRUE(button.isSelecting());
    finger.moved({200.0, 30.0});
    EXPECT_FALSE(button.isSelecting());
    finger.moved({120.0, 30.0});
    EXPECT_TRUE(button.isSelecting());
    finger.ended({170.0, 30.0});
    EXPECT_FALSE(button.isSelecting());
    EXPECT_FALSE(button.isSelected());
    EXPECT_EQ(taps.taps, 0);
}

TEST_F(Button, CancelledTouchDoesNothing) {
    button.setSelectable(true);
    UITouchDispatcher finger(root);
    finger.began({120.0, 30.0});
    finger.cancelled();
    EXPECT_FALSE(button.isSelecting());
    EXPECT_FALSE(button.isSelected());
    EXPECT_EQ(taps.taps, 0);
}

TEST_F(Button, EveryTouchEventRedraws) {
    DisplayCounter display;
    UITouchDispatcher finger(root);
    finger.began({120.0, 30.0});
    EXPECT_EQ(display.take(), 1);
    finger.moved({121.0, 30.0});
    EXPECT_EQ(display.take(), 1);
    finger.ended({121.0, 30.0});
    EXPECT_EQ(display.take(), 1);
    finger.began({120.0, 30.0});
    display.take();
    finger.cancelled();
    EXPECT_EQ(display.take(), 1);
}

TEST_F(Button, SelectingANonSelectableButtonIsIgnored) {
    DisplayCounter display;
    button.setSelected(true);
    EXPECT_FALSE(button.isSelected());
    EXPECT_EQ(button.text().textColor(), settings.thirdColor);
    EXPECT_EQ(display.take(), 0);
}

TEST_F(Button, SelectingRedrawsOnlyWhenTheStateChanges) {
    button.setSelectable(true);
    DisplayCounter display;
    button.setSelected(true);
    EXPECT_EQ(display.take(), 1);
    button.setSelected(true);
    EXPECT_EQ(display.take(), 0);
    button.setSelected(false);
    EXPECT_EQ(display.take(), 1);
}

/// The caption takes the colour of unselected buttons even when nothing was selected before.
TEST_F(Button, UnselectingAnUnselectedButtonColorsItsCaption) {
    button.setSelectable(true);
    button.setSelected(false);
    EXPECT_EQ(button.text().textColor(), settings.secondColor);
}

TEST_F(Button, EnablingRedraws) {
    DisplayCounter display;
    button.setEnabled(false);
    button.setEnabled(false);
    EXPECT_EQ(display.take(), 2);
    EXPECT_EQ(button.text().textColor(), settings.thirdColor);
}

TEST_F(Button, TypeAndShapeDoNotRedraw) {
    DisplayCounter display;
    button.setButtonType(UIButtonXTypeCircle);
    button.setButtonShape(UIButtonXShapePlus);
    button.setTag2(5);
    button.setIsShadow(false);
    EXPECT_EQ(display.take(), 0);
    EXPECT_EQ(button.tag2(), 5);
    EXPECT_FALSE(button.isShadow());
    EXPECT_EQ(button.delegate(), &taps);
}

/// The button does not ask whether it is enabled: only its colours show it.
TEST_F(Button, DisabledButtonStillReportsTaps) {
    button.setEnabled(false);
    tap({120.0, 30.0});
    EXPECT_EQ(taps.taps, 1);
}

TEST_F(Button, OffersAnArcThatItDoesNotDraw) {
    const UIButtonXArc arc = button.createArcPath();
    EXPECT_EQ(arc.center, (CGPoint{10.0, 10.0}));
    EXPECT_EQ(arc.radius, 5.0);
    EXPECT_EQ(arc.startAngle, 0.0);
    EXPECT_DOUBLE_EQ(arc.endAngle, 0.75 * std::numbers::pi);
    EXPECT_TRUE(arc.clockwise);
}

/// The delegate may take the button away from inside its own tap.
TEST_F(Button, MayBeDestroyedByItsTap) {
    struct Destroyer : UIButtonXDelegate {
        void delegateUIButtonXTapped(UIButtonX&) override { victim.reset(); }
        std::unique_ptr<UIButtonX> victim;
    } destroyer;
    destroyer.victim = std::make_unique<UIButtonX>(CGRect{0.0, 60.0, 50.0, 30.0}, glbFuncs, settings);
    destroyer.victim->setDelegate(&destroyer);
    root.addSubview(*destroyer.victim);
    tap({10.0, 70.0});
    EXPECT_EQ(destroyer.victim, nullptr);
    EXPECT_EQ(root.subviews().size(), 1U);
}

TEST_F(Button, TapWithoutADelegateStillToggles) {
    button.setDelegate(nullptr);
    button.setSelectable(true);
    tap({120.0, 30.0});
    EXPECT_TRUE(button.isSelected());
}

} // namespace
} // namespace zorel
