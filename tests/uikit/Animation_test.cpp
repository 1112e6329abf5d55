// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UIView.h"
#include "tests/uikit/RecordingObserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNear = 1e-12;

class AnimationTest : public testing::Test {
protected:
    ~AnimationTest() override { loop.reset(); }

    RunLoop& loop = RunLoop::main();
    UIView view;
    std::vector<std::string> done;

    std::function<void()> note(const char* name) {
        return [this, name] { done.emplace_back(name); };
    }
};

TEST(EaseInOut, IsSlowAtTheEndsAndEvenAboutTheMiddle) {
    EXPECT_EQ(easeInOut(0.0), 0.0);
    EXPECT_EQ(easeInOut(0.5), 0.5);
    EXPECT_EQ(easeInOut(1.0), 1.0);
    EXPECT_LT(easeInOut(0.1), 0.1);
    EXPECT_GT(easeInOut(0.9), 0.9);
    EXPECT_NEAR(easeInOut(0.25) + easeInOut(0.75), 1.0, kNear);
    EXPECT_EQ(easeInOut(-1.0), 0.0);
    EXPECT_EQ(easeInOut(2.0), 1.0);
}

TEST_F(AnimationTest, MovesTheVisibleValueToTheGoal) {
    view.setAlpha(0.0);
    view.animate(0.2, [this] { view.setAlpha(1.0); });
    EXPECT_EQ(view.alpha(), 1.0);
    EXPECT_EQ(view.presentationAlpha(), 0.0);
    loop.advance(0.05);
    EXPECT_NEAR(view.presentationAlpha(), easeInOut(0.25), kNear);
    loop.advance(0.05);
    EXPECT_NEAR(view.presentationAlpha(), 0.5, kNear);
    loop.advance(0.1);
    EXPECT_EQ(view.presentationAlpha(), 1.0);
}

TEST_F(AnimationTest, WithoutABlockValuesJump) {
    view.setScale(0.1);
    EXPECT_EQ(view.presentationScale(), 0.1);
    view.setAlpha(0.3);
    EXPECT_EQ(view.presentationAlpha(), 0.3);
}

TEST_F(AnimationTest, WaitsForItsDelay) {
    view.animate(1.0, 0.5, UIViewAnimationOptions::allowUserInteraction, [this] { view.setScale(2.0); });
    loop.advance(0.5);
    EXPECT_EQ(view.presentationScale(), 1.0);
    loop.advance(0.5);
    EXPECT_NEAR(view.presentationScale(), 1.5, kNear);
    loop.advance(0.5);
    EXPECT_EQ(view.presentationScale(), 2.0);
}

TEST_F(AnimationTest, OpacityAndScaleMoveSideBySide) {
    view.setAlpha(0.0);
    view.animate(0.2, [this] { view.setAlpha(1.0); });
    view.setScale(0.1);
    view.animate(0.4, [this] { view.setScale(1.6); });
    loop.advance(0.2);
    EXPECT_EQ(view.presentationAlpha(), 1.0);
    EXPECT_NEAR(view.presentationScale(), 0.1 + 1.5 * 0.5, kNear);
    loop.advance(0.2);
    EXPECT_EQ(view.presentationScale(), 1.6);
}

TEST_F(AnimationTest, ChainedAnimationsStartWhereTheFormerOnesEnd) {
    view.setScale(0.1);
    view.animate(
        0.4, [this] { view.setScale(1.6); },
        [this] {
            view.animate(
                0.2, [this] { view.setScale(1.0); }, note("end"));
        });
    loop.advance(0.5);
    EXPECT_NEAR(view.presentationScale(), 1.3, kNear);
    loop.advance(0.1);
    EXPECT_EQ(view.presentationScale(), 1.0);
    EXPECT_THAT(done, ElementsAre("end"));
}

TEST_F(AnimationTest, OneLongMoveOfTheClockEqualsManyShortOnes) {
    view.setScale(0.1);
    view.animate(
        0.4, [this] { view.setScale(1.6); },
        [this] {
            view.animate(
                0.2, [this] { view.setScale(1.0); }, note("end"));
        });
    loop.advance(0.6);
    EXPECT_EQ(view.presentationScale(), 1.0);
    EXPECT_THAT(done, ElementsAre("end"));
}

TEST_F(AnimationTest, ANewAnimationTakesOverFromTheVisibleValue) {
    view.animate(
        1.0, [this] { view.setScale(3.0); }, note("first"));
    loop.advance(0.5);
    EXPECT_NEAR(view.presentationScale(), 2.0, kNear);
    view.animate(
        1.0, [this] { view.setScale(0.0); }, note("second"));
    EXPECT_NEAR(view.presentationScale(), 2.0, kNear);
    loop.advance(0.5);
    EXPECT_NEAR(view.presentationScale(), 1.0, kNear);
    EXPECT_THAT(done, ElementsAre("first"));
    loop.advance(0.5);
    EXPECT_THAT(done, ElementsAre("first", "second"));
}

TEST_F(AnimationTest, SettingAValueEndsItsCourse) {
    view.animate(
        1.0, [this] { view.setAlpha(0.0); }, note("end"));
    loop.advance(0.5);
    view.setAlpha(0.0);
    EXPECT_EQ(view.presentationAlpha(), 0.0);
    loop.advance(0.5);
    EXPECT_THAT(done, ElementsAre("end"));
}

TEST_F(AnimationTest, CompletionsOfOneTimeComeInTheOrderOfAsking) {
    view.animate(
        0.5, [this] { view.setAlpha(0.0); }, note("alpha"));
    view.animate(
        0.3, 0.2, UIViewAnimationOptions::none, [this] { view.setScale(2.0); }, note("scale"));
    view.performAfterDelay(0.5, note("call"));
    loop.advance(0.5);
    EXPECT_THAT(done, ElementsAre("alpha", "scale", "call"));
}

TEST_F(AnimationTest, CompletionNeverComesBeforeTheClockMoves) {
    view.animate(
        0.0, [this] { view.setAlpha(0.0); }, note("end"));
    EXPECT_EQ(view.presentationAlpha(), 0.0);
    EXPECT_THAT(done, IsEmpty());
    loop.advance(0.0);
    EXPECT_THAT(done, ElementsAre("end"));
}

TEST_F(AnimationTest, ADestroyedViewTakesItsCompletionAlong) {
    auto dying = std::make_unique<UIView>();
    dying->animate(
        0.5, [&] { dying->setAlpha(0.0); }, note("dead"));
    dying.reset();
    loop.advance(1.0);
    EXPECT_THAT(done, IsEmpty());
    EXPECT_EQ(loop.nextWake(), std::nullopt);
}

TEST_F(AnimationTest, ACompletionMayDestroyTheView) {
    auto dying = std::make_unique<UIView>();
    dying->animate(
        0.5, [&] { dying->setAlpha(0.0); }, [&] { dying.reset(); });
    dying->animate(
        0.5, [&] { dying->setScale(0.5); }, note("dead"));
    loop.advance(1.0);
    EXPECT_EQ(dying, nullptr);
    EXPECT_THAT(done, IsEmpty());
}

TEST_F(AnimationTest, ABlockMayMoveOtherViewsAndBlocksNest) {
    UIView other;
    view.animate(1.0, [&] {
        other.setAlpha(0.0);
        other.animate(2.0, [&] { other.setScale(3.0); });
        view.setScale(2.0);
    });
    loop.advance(0.5);
    EXPECT_NEAR(other.presentationAlpha(), 0.5, kNear);
    EXPECT_NEAR(other.presentationScale(), 1.0 + 2.0 * easeInOut(0.25), kNear);
    EXPECT_NEAR(view.presentationScale(), 1.5, kNear);
    view.setAlpha(0.2);
    EXPECT_EQ(view.presentationAlpha(), 0.2);
}

TEST_F(AnimationTest, TheObserverHearsOfEveryStepAndTheEnd) {
    RecordingObserver observer;
    view.animate(0.4, [this] { view.setAlpha(0.0); });
    EXPECT_THAT(observer.take(), ElementsAre("changed alpha"));
    for (int step = 0; step < 4; ++step) {
        loop.advance(0.1);
        EXPECT_THAT(observer.take(), ElementsAre("changed presentation"));
    }
    loop.advance(0.1);
    EXPECT_THAT(observer.take(), IsEmpty());
}

} // namespace
} // namespace zorel
