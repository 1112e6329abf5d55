// SPDX-License-Identifier: Apache-2.0
// One message: its look and the course of its opacity and scale.
#include "platform/uikit/UILabel.h"
#include "tests/views/ViewsFixture.h"
#include "views/MessageView.h"
#include "views/Settings.h"

namespace zorel {
namespace {

class Message : public test::ViewsFixture {
protected:
    [[nodiscard]] const MessageView& shown() const { return *MessageView::toasts()->front(); }

    UIView target{{0.0, 64.0, 320.0, 568.0}};
};

TEST_F(Message, IsARoundedGreyBoxWithTwoCenteredLines) {
    MessageView::toastInView(target, "Please add a city first");
    EXPECT_EQ(shown().backgroundColor(), UIColor::colorWithRed(0.5, 0.5, 0.5, 0.8));
    EXPECT_EQ(shown().cornerRadius(), 5.0);
    EXPECT_EQ(shown().autoresizingMask(), 0U);
    EXPECT_FALSE(shown().autoresizesSubviews());
    const UILabel& label = shown().textLabel();
    EXPECT_EQ(label.superview(), &shown());
    EXPECT_EQ(label.frame(), (CGRect{0.0, 4.0, 280.0, 40.0}));
    EXPECT_EQ(label.text(), "Please add a city first");
    EXPECT_EQ(label.font(), (UIFont{"Verdana", 15.0}));
    EXPECT_EQ(label.textColor(), Settings().firstColor);
    EXPECT_EQ(label.textAlignment(), UITextAlignment::center);
    EXPECT_EQ(label.numberOfLines(), 2);
    EXPECT_EQ(label.lineBreakMode(), UILineBreakMode::wordWrapping);
    EXPECT_FALSE(label.shadow());
}

TEST_F(Message, StandsALittleAboveTheMiddle) {
    MessageView::toastInView(target, "x");
    EXPECT_EQ(shown().frame(), (CGRect{10.0, 239.0, 300.0, 50.0}));
    EXPECT_EQ(shown().center(), (CGPoint{160.0, 264.0}));
    EXPECT_EQ(shown().superview(), &target);
}

TEST_F(Message, AloneHasNoFrame) {
    const MessageView message("x");
    EXPECT_EQ(message.frame(), CGRect{});
    EXPECT_EQ(message.superview(), nullptr);
    EXPECT_EQ(MessageView::toasts(), nullptr);
}

/// What is to be seen at a time after the message was asked for. The course between two values is slow at
/// both ends: after a quarter of the time 0.15625 of the change is done, after half of it 0.5.
struct Moment {
    double time;  ///< [s]
    double alpha; ///< opacity
    double scale;
};

TEST_F(Message, PopsInStaysAndFades) {
    const Moment moments[] = {
        {0.0, 0.0, 0.1},
        {0.1, 0.5, 0.1 + 1.5 * 0.15625},
        {0.2, 1.0, 0.1 + 1.5 * 0.5},
        {0.4, 1.0, 1.6},
        {0.5, 1.0, 1.3},
        {0.6, 1.0, 1.0},
        {2.9, 1.0, 1.0},
        {3.0, 1.0, 1.0},
        {3.25, 1.0 - 0.04296875, 1.3},
        {3.5, 1.0 - 0.15625, 1.6},
        {3.75, 1.0 - 0.31640625, 0.85},
        {4.0, 0.5, 0.1},
        {4.5, 0.15625, 0.1},
    };
    const double begin = RunLoop::main().time();
    MessageView::toastInView(target, "x");
    for (const Moment& moment : moments) {
        RunLoop::main().advanceTo(begin + moment.time);
        EXPECT_NEAR(shown().presentationAlpha(), moment.alpha, 1e-9) << moment.time;
        EXPECT_NEAR(shown().presentationScale(), moment.scale, 1e-9) << moment.time;
        EXPECT_EQ(shown().superview(), &target) << moment.time;
    }
    RunLoop::main().advanceTo(begin + 4.999);
    EXPECT_NE(MessageView::toasts(), nullptr);
    RunLoop::main().advanceTo(begin + 5.0);
    EXPECT_EQ(MessageView::toasts(), nullptr);
    EXPECT_TRUE(target.subviews().empty());
}

TEST_F(Message, TakesTheSameCourseInOneLeap) {
    MessageView::toastInView(target, "x");
    RunLoop::main().advance(5.0);
    EXPECT_EQ(MessageView::toasts(), nullptr);
    EXPECT_TRUE(target.subviews().empty());
    EXPECT_FALSE(RunLoop::main().nextWake()) << "something still waits";
}

TEST_F(Message, WorksWithoutAScreen) {
    UIScreen::mainScreen().setBounds({});
    MessageView::toastInView(target, "x");
    RunLoop::main().advance(2.5);
    EXPECT_EQ(shown().superview(), &target);
}

TEST_F(Message, LongTextIsLeftToTwoWrappedLines) {
    const std::string text(5000, 'w');
    MessageView::toastInView(target, text + " end");
    EXPECT_EQ(shown().textLabel().text(), text + " end");
    EXPECT_EQ(shown().textLabel().numberOfLines(), 2);
    EXPECT_EQ(shown().textLabel().frame().size(), (CGSize{280.0, 40.0}));
}

} // namespace
} // namespace zorel
