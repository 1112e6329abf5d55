// SPDX-License-Identifier: Apache-2.0
// Messages that wait for one another, and views that go away meanwhile.
#include "platform/uikit/UILabel.h"
#include "tests/views/ViewsFixture.h"
#include "views/MessageView.h"

namespace zorel {
namespace {

class MessageQueue : public test::ViewsFixture {
protected:
    [[nodiscard]] static std::size_t waiting() {
        return MessageView::toasts() == nullptr ? 0 : MessageView::toasts()->size();
    }
    [[nodiscard]] static std::string textOnScreen() {
        return MessageView::toasts()->front()->textLabel().text();
    }
    [[nodiscard]] static UIView* parent() { return MessageView::toasts()->front()->superview(); }
    static void pass(double seconds) { RunLoop::main().advance(seconds); }

    std::unique_ptr<UIView> first = std::make_unique<UIView>(test::kScreen);
    std::unique_ptr<UIView> second = std::make_unique<UIView>(test::kScreen);
};

TEST_F(MessageQueue, SecondWaitsForTheFirstAndIsShownInItsView) {
    MessageView::toastInView(*first, "one");
    MessageView::toastInView(*second, "two");
    EXPECT_EQ(waiting(), 2U);
    EXPECT_EQ((*MessageView::toasts())[1]->superview(), nullptr);
    pass(4.999);
    EXPECT_EQ(textOnScreen(), "one");
    EXPECT_TRUE(second->subviews().empty());
    pass(0.001);
    EXPECT_EQ(waiting(), 1U);
    EXPECT_EQ(textOnScreen(), "two");
    EXPECT_EQ(parent(), first.get());
    EXPECT_EQ(first->subviews().size(), 1U);
    EXPECT_TRUE(second->subviews().empty());
    EXPECT_NEAR(MessageView::toasts()->front()->presentationAlpha(), 0.0, 1e-9);
    EXPECT_NEAR(MessageView::toasts()->front()->presentationScale(), 0.1, 1e-9);
    pass(0.2);
    EXPECT_NEAR(MessageView::toasts()->front()->presentationAlpha(), 1.0, 1e-9);
    pass(4.8);
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(MessageQueue, ThreeComeInTheOrderOfAsking) {
    for (const std::string text : {"one", "two", "three"}) {
        MessageView::toastInView(*first, text);
    }
    for (const std::string text : {"one", "two", "three"}) {
        EXPECT_EQ(textOnScreen(), text);
        pass(5.0);
    }
    EXPECT_EQ(MessageView::toasts(), nullptr);
}

TEST_F(MessageQueue, EmptiedQueueBeginsAnew) {
    MessageView::toastInView(*first, "one");
    pass(5.0);
    ASSERT_EQ(MessageView::toasts(), nullptr);
    MessageView::toastInView(*second, "two");
    EXPECT_EQ(parent(), second.get());
    EXPECT_EQ(waiting(), 1U);
    pass(0.6);
    EXPECT_NEAR(MessageView::toasts()->front()->presentationScale(), 1.0, 1e-9);
}

TEST_F(MessageQueue, OneAskedForDuringAFadeWaits) {
    MessageView::toastInView(*first, "one");
    pass(4.0);
    MessageView::toastInView(*first, "two");
    EXPECT_EQ(textOnScreen(), "one");
    pass(1.0);
    EXPECT_EQ(textOnScreen(), "two");
    pass(4.999);
    EXPECT_EQ(waiting(), 1U);
    pass(0.001);
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(MessageQueue, ShowingTheNextOfNothingDoesNothing) {
    MessageView::nextToastInView(first.get());
    MessageView::nextToastInView(nullptr);
    EXPECT_TRUE(first->subviews().empty());
    EXPECT_EQ(MessageView::toasts(), nullptr);
}

TEST_F(MessageQueue, MessageOutlivesTheViewItIsShownIn) {
    MessageView::toastInView(*first, "one");
    pass(1.0);
    first.reset();
    EXPECT_EQ(parent(), nullptr);
    MessageView::toastInView(*second, "two");
    EXPECT_TRUE(second->subviews().empty());
    pass(4.0);
    EXPECT_EQ(textOnScreen(), "two");
    EXPECT_EQ(parent(), second.get());
    pass(5.0);
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(MessageQueue, MessageWhoseViewsHaveGoneIsDropped) {
    UIView third(test::kScreen);
    MessageView::toastInView(*first, "one");
    MessageView::toastInView(*second, "two");
    MessageView::toastInView(third, "three");
    first.reset();
    second.reset();
    pass(5.0);
    EXPECT_EQ(waiting(), 1U);
    EXPECT_EQ(textOnScreen(), "three");
    EXPECT_EQ(parent(), &third);
}

TEST_F(MessageQueue, LastMessageWithoutAViewEndsTheQueue) {
    MessageView::toastInView(*first, "one");
    MessageView::toastInView(*first, "two");
    first.reset();
    pass(5.0);
    EXPECT_EQ(MessageView::toasts(), nullptr);
    MessageView::toastInView(*second, "three");
    EXPECT_EQ(parent(), second.get());
}

} // namespace
} // namespace zorel
