// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/RunLoop.h"

#include "platform/uikit/UIView.h"
#include "tests/uikit/RecordingObserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RunLoopTest : public testing::Test {
protected:
    ~RunLoopTest() override { loop.reset(); }

    /// Writes a name into the list after a delay [s].
    void note(double delay, const char* name) {
        view.performAfterDelay(delay, [this, name] { calls.emplace_back(name); });
    }

    RunLoop& loop = RunLoop::main();
    UIView view;
    std::vector<std::string> calls;
};

TEST_F(RunLoopTest, CallsComeWhenTheirTimeHasCome) {
    note(3.0, "late");
    note(0.5, "early");
    loop.advance(0.499999);
    EXPECT_THAT(calls, IsEmpty());
    loop.advance(0.000001);
    EXPECT_THAT(calls, ElementsAre("early"));
    loop.advance(2.5);
    EXPECT_THAT(calls, ElementsAre("early", "late"));
}

TEST_F(RunLoopTest, CallsOfOneTimeComeInTheOrderOfAsking) {
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        note(1.0, name);
    }
    loop.advance(1.0);
    EXPECT_THAT(calls, ElementsAre("a", "b", "c", "d", "e"));
}

TEST_F(RunLoopTest, NothingRunsBeforeTheClockMoves) {
    note(0.0, "now");
    EXPECT_THAT(calls, IsEmpty());
    loop.advance(0.0);
    EXPECT_THAT(calls, ElementsAre("now"));
}

TEST_F(RunLoopTest, TheClockStandsAtTheTimeOfEachCall) {
    const double start = loop.time();
    std::vector<double> times;
    view.performAfterDelay(0.4, [&] {
        times.push_back(loop.time() - start);
        view.performAfterDelay(0.2, [&] { times.push_back(loop.time() - start); });
    });
    loop.advance(5.0);
    ASSERT_EQ(times.size(), 2U);
    EXPECT_NEAR(times[0], 0.4, 1e-9);
    EXPECT_NEAR(times[1], 0.6, 1e-9);
    EXPECT_NEAR(loop.time() - start, 5.0, 1e-9);
}

TEST_F(RunLoopTest, TenTenthsAreOneSecondExactly) {
    note(1.0, "second");
    for (int tenth = 0; tenth < 9; ++tenth) {
        loop.advance(0.1);
    }
    EXPECT_THAT(calls, IsEmpty());
    loop.advance(0.1);
    EXPECT_THAT(calls, ElementsAre("second"));
}

TEST_F(RunLoopTest, OddNumbersDoNoHarm) {
    const auto before = loop.clock();
    loop.advance(-5.0);
    loop.advance(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(loop.clock(), before);
    EXPECT_EQ(RunLoop::microseconds(std::numeric_limits<double>::infinity()), 1000000000000000);
    note(-1.0, "at once");
    note(std::numeric_limits<double>::quiet_NaN(), "too");
    loop.advance(0.0);
    EXPECT_THAT(calls, ElementsAre("at once", "too"));
}

TEST_F(RunLoopTest, ACallWhoseTargetIsGoneIsForgotten) {
    {
        UIView dying;
        dying.performAfterDelay(1.0, [this] { calls.emplace_back("dead"); });
    }
    note(1.0, "alive");
    loop.advance(2.0);
    EXPECT_THAT(calls, ElementsAre("alive"));
}

TEST_F(RunLoopTest, AnEmptyCallIsNoCall) {
    view.performAfterDelay(1.0, {});
    EXPECT_EQ(loop.nextWake(), std::nullopt);
}

TEST_F(RunLoopTest, ACallCannotMoveTheClock) {
    const double start = loop.time();
    view.performAfterDelay(1.0, [this] { loop.advance(10.0); });
    loop.advance(2.0);
    EXPECT_NEAR(loop.time() - start, 2.0, 1e-9);
}

TEST_F(RunLoopTest, ACallThatThrowsDoesNotStopTheClockForGood) {
    view.performAfterDelay(1.0, [] { throw std::runtime_error("broken"); });
    note(2.0, "after");
    EXPECT_THROW(loop.advance(5.0), std::runtime_error);
    loop.advance(5.0);
    EXPECT_THAT(calls, ElementsAre("after"));
}

TEST_F(RunLoopTest, SaysWhenItWantsToBeWoken) {
    RecordingObserver observer;
    const double start = loop.time();
    EXPECT_EQ(loop.nextWake(), std::nullopt);
    note(3.0, "late");
    note(1.0, "early");
    note(2.0, "between");
    ASSERT_EQ(observer.wakes.size(), 2U);
    EXPECT_NEAR(observer.wakes[0], start + 3.0, 1e-6);
    EXPECT_NEAR(observer.wakes[1], start + 1.0, 1e-6);
    loop.advance(1.0);
    EXPECT_NEAR(observer.wakes.back(), start + 2.0, 1e-6);
    loop.advance(2.0);
    EXPECT_EQ(loop.nextWake(), std::nullopt);
}

TEST_F(RunLoopTest, AsksToBeWokenAgainWhileAViewMoves) {
    RecordingObserver observer;
    view.animate(0.2, [this] { view.setAlpha(0.0); });
    EXPECT_EQ(loop.nextWake(), loop.time());
    loop.advance(0.0);
    const auto asked = observer.wakes.size();
    loop.advance(0.0);
    EXPECT_GT(observer.wakes.size(), asked);
    loop.advance(0.2);
    EXPECT_EQ(loop.nextWake(), std::nullopt);
}

TEST_F(RunLoopTest, WhatIsDisposedOfLivesUntilTheOutermostEventEnds) {
    auto object = std::make_unique<UIView>();
    const UIWeak<UIView> weak(object.get());
    {
        const RunLoop::Event outer;
        {
            const RunLoop::Event inner;
            loop.disposeLater(std::move(object));
        }
        EXPECT_NE(weak.get(), nullptr);
    }
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(RunLoopTest, OutsideOfEventsDisposalWaitsForTheNextOne) {
    auto object = std::make_unique<UIView>();
    const UIWeak<UIView> weak(object.get());
    loop.disposeLater(std::move(object));
    loop.disposeLater(nullptr);
    EXPECT_NE(weak.get(), nullptr);
    loop.advance(0.0);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(RunLoopTest, DestructorsMayDisposeOfMore) {
    struct Chain : UIView {
        std::unique_ptr<UIObject> next;
        ~Chain() override { RunLoop::main().disposeLater(std::move(next)); }
    };
    auto last = std::make_unique<UIView>();
    const UIWeak<UIView> weak(last.get());
    auto first = std::make_unique<Chain>();
    first->next = std::move(last);
    loop.disposeLater(std::move(first));
    loop.advance(0.0);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(RunLoopTest, ResetForgetsEverythingThatWaits) {
    note(1.0, "never");
    view.animate(1.0, [this] { view.setAlpha(0.0); });
    loop.reset();
    EXPECT_EQ(loop.nextWake(), std::nullopt);
    loop.advance(2.0);
    EXPECT_THAT(calls, IsEmpty());
}

} // namespace
} // namespace zorel
