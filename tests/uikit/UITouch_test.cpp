// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UITouch.h"

#include "platform/uikit/RunLoop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down its touches and does something on the way.
class TouchedView : public UIView {
public:
    using UIView::UIView;
    std::vector<std::string> touches;
    CGPoint last;
    std::function<void()> onEnded;

    void touchesBegan(const UITouch& touch) override { note("began", touch); }
    void touchesMoved(const UITouch& touch) override { note("moved", touch); }
    void touchesEnded(const UITouch& touch) override {
        note("ended", touch);
        if (onEnded) {
            onEnded();
        }
    }
    void touchesCancelled(const UITouch& touch) override { note("cancelled", touch); }

private:
    void note(const char* name, const UITouch& touch) {
        touches.emplace_back(name);
        last = touch.locationInView(*this);
    }
};

TEST(HitTest, TakesTheFrontmostDeepestView) {
    UIView root(CGRect{0, 0, 100, 100});
    UIView back(CGRect{10, 10, 50, 50});
    UIView front(CGRect{30, 30, 50, 50});
    UIView deep(CGRect{5, 5, 10, 10});
    root.addSubview(back);
    root.addSubview(front);
    front.addSubview(deep);
    EXPECT_EQ(root.hitTest({15, 15}), &back);
    EXPECT_EQ(root.hitTest({50, 50}), &front);
    EXPECT_EQ(root.hitTest({36, 36}), &deep);
    EXPECT_EQ(root.hitTest({5, 5}), &root);
    EXPECT_EQ(root.hitTest({100, 5}), nullptr);
}

TEST(HitTest, PassesByWhatTakesNoTouch) {
    UIView root(CGRect{0, 0, 100, 100});
    UIView child(CGRect{0, 0, 100, 100});
    UIView grandchild(CGRect{0, 0, 100, 100});
    root.addSubview(child);
    child.addSubview(grandchild);
    child.setHidden(true);
    EXPECT_EQ(root.hitTest({5, 5}), &root);
    child.setHidden(false);
    child.setUserInteractionEnabled(false);
    EXPECT_EQ(root.hitTest({5, 5}), &root);
    child.setUserInteractionEnabled(true);
    child.setAlpha(0.009);
    EXPECT_EQ(root.hitTest({5, 5}), &root);
    child.setAlpha(0.01);
    EXPECT_EQ(root.hitTest({5, 5}), &grandchild);
}

TEST(HitTest, DoesNotReachOutsideASuperview) {
    UIView root(CGRect{0, 0, 100, 100});
    UIView child(CGRect{0, 0, 10, 10});
    UIView outside(CGRect{20, 20, 10, 10});
    root.addSubview(child);
    child.addSubview(outside);
    EXPECT_EQ(root.hitTest({25, 25}), &root);
}

TEST(HitTest, FollowsTheScale) {
    UIView root(CGRect{0, 0, 100, 100});
    UIView child(CGRect{40, 40, 20, 20});
    root.addSubview(child);
    child.setScale(2.0);
    EXPECT_EQ(root.hitTest({31, 31}), &child);
    child.setScale(0.1);
    EXPECT_EQ(root.hitTest({45, 45}), &root);
    EXPECT_EQ(root.hitTest({50, 50}), &child);
    child.setScale(0.0);
    EXPECT_EQ(root.hitTest({51, 50}), &root);
    EXPECT_EQ(root.hitTest({50, 50}), &root);
}

TEST(Coordinates, ConvertDownAndBackUp) {
    UIView top(CGRect{100, 100, 200, 200});
    UIView middle(CGRect{10, 20, 100, 100});
    UIView leaf(CGRect{5, 5, 20, 20});
    top.addSubview(middle);
    middle.addSubview(leaf);
    EXPECT_EQ(leaf.convertPointFromView({20, 30}, &top), (CGPoint{5, 5}));
    EXPECT_EQ(leaf.convertPointFromView({120, 130}, nullptr), (CGPoint{5, 5}));
    EXPECT_EQ(leaf.convertPointFromView({3, 4}, &leaf), (CGPoint{3, 4}));
    middle.setScale(2.0);
    const CGPoint up = middle.pointToSuperview({30, 70});
    EXPECT_EQ(middle.pointFromSuperview(up), (CGPoint{30, 70}));
    EXPECT_EQ(up, (CGPoint{20, 110}));
}

class Dispatcher : public testing::Test {
protected:
    Dispatcher() { root.addSubview(*button); }
    ~Dispatcher() override { RunLoop::main().reset(); }

    UIView root{CGRect{0, 0, 100, 100}};
    std::unique_ptr<TouchedView> button = std::make_unique<TouchedView>(CGRect{10, 10, 20, 20});
    UITouchDispatcher finger{root};
};

TEST_F(Dispatcher, TapIsDownAndUp) {
    EXPECT_TRUE(finger.tap({15, 12}));
    EXPECT_THAT(button->touches, ElementsAre("began", "ended"));
    EXPECT_EQ(button->last, (CGPoint{5, 2}));
    EXPECT_EQ(finger.target(), nullptr);
}

TEST_F(Dispatcher, TheFirstViewKeepsTheTouchWhereverItGoes) {
    finger.began({15, 15});
    finger.moved({90, 90});
    EXPECT_EQ(button->last, (CGPoint{80, 80}));
    EXPECT_EQ(finger.target(), button.get());
    finger.ended({95, 95});
    EXPECT_THAT(button->touches, ElementsAre("began", "moved", "ended"));
}

TEST_F(Dispatcher, ACancelledTouchIsOver) {
    finger.began({15, 15});
    finger.cancelled();
    finger.ended({15, 15});
    EXPECT_THAT(button->touches, ElementsAre("began", "cancelled"));
}

TEST_F(Dispatcher, ASecondFingerCancelsTheFirst) {
    finger.began({15, 15});
    finger.began({15, 15});
    EXPECT_THAT(button->touches, ElementsAre("began", "cancelled", "began"));
}

TEST_F(Dispatcher, OutsideTheRootNobodyTakesIt) {
    EXPECT_FALSE(finger.tap({150, 15}));
    EXPECT_THAT(button->touches, IsEmpty());
}

TEST_F(Dispatcher, AViewDestroyedDuringItsTouchGetsNoMore) {
    finger.began({15, 15});
    button.reset();
    finger.moved({16, 16});
    finger.ended({16, 16});
    EXPECT_EQ(finger.target(), nullptr);
}

TEST_F(Dispatcher, AViewRemovedDuringItsTouchStillEndsIt) {
    finger.began({15, 15});
    button->removeFromSuperview();
    finger.ended({15, 15});
    EXPECT_THAT(button->touches, ElementsAre("began", "ended"));
}

TEST_F(Dispatcher, AViewMayDisposeOfItselfInItsOwnHandler) {
    const UIWeak<TouchedView> weak(button.get());
    bool aliveAfterwards = false;
    button->onEnded = [&] {
        RunLoop::main().disposeLater(std::move(button));
        aliveAfterwards = weak.get() != nullptr;
    };
    finger.tap({15, 15});
    EXPECT_TRUE(aliveAfterwards);
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_THAT(root.subviews(), IsEmpty());
}

TEST(DispatcherLifetime, ADestroyedRootTakesNoTouch) {
    auto root = std::make_unique<UIView>(CGRect{0, 0, 10, 10});
    UITouchDispatcher finger(*root);
    EXPECT_TRUE(finger.began({5, 5}));
    root.reset();
    finger.moved({5, 5});
    finger.ended({5, 5});
    EXPECT_FALSE(finger.tap({5, 5}));
}

} // namespace
} // namespace zorel
