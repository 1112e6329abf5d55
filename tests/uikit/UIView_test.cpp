// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIView.h"

#include "tests/uikit/RecordingObserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(UIView, StartsVisibleEmptyAndClear) {
    const UIView view;
    EXPECT_EQ(view.frame(), CGRect{});
    EXPECT_EQ(view.alpha(), 1.0);
    EXPECT_EQ(view.scale(), 1.0);
    EXPECT_EQ(view.backgroundColor(), UIColor::clearColor());
    EXPECT_FALSE(view.isHidden());
    EXPECT_TRUE(view.isUserInteractionEnabled());
    EXPECT_TRUE(view.autoresizesSubviews());
    EXPECT_EQ(view.autoresizingMask(), 0U);
    EXPECT_EQ(view.superview(), nullptr);
    EXPECT_THAT(view.subviews(), IsEmpty());
}

TEST(UIView, CenterMovesTheFrameAndBoundsStayAtTheOrigin) {
    UIView view(CGRect{0.0, 0.0, 70.0, 30.0});
    view.setCenter({285.0, 30.0});
    EXPECT_EQ(view.frame(), (CGRect{250.0, 15.0, 70.0, 30.0}));
    EXPECT_EQ(view.center(), (CGPoint{285.0, 30.0}));
    EXPECT_EQ(view.bounds(), (CGRect{0.0, 0.0, 70.0, 30.0}));
}

TEST(UIView, CenterDoesNotGoThroughSetFrame) {
    struct Counting : UIView {
        using UIView::UIView;
        int frames = 0;
        void setFrame(const CGRect& frame) override {
            ++frames;
            UIView::setFrame(frame);
        }
    };
    Counting view(CGRect{0.0, 0.0, 10.0, 10.0});
    view.setCenter({50.0, 50.0});
    EXPECT_EQ(view.frames, 0);
    EXPECT_EQ(view.frame(), (CGRect{45.0, 45.0, 10.0, 10.0}));
}

TEST(UIViewTree, NewSubviewsComeInFront) {
    UIView parent;
    UIView first;
    UIView second;
    parent.addSubview(first);
    parent.addSubview(second);
    EXPECT_THAT(parent.subviews(), ElementsAre(&first, &second));
    parent.addSubview(first);
    EXPECT_THAT(parent.subviews(), ElementsAre(&second, &first));
    EXPECT_EQ(first.superview(), &parent);
}

TEST(UIViewTree, AViewHasOneSuperview) {
    UIView one;
    UIView other;
    UIView child;
    one.addSubview(child);
    other.addSubview(child);
    EXPECT_THAT(one.subviews(), IsEmpty());
    EXPECT_EQ(child.superview(), &other);
    child.removeFromSuperview();
    EXPECT_EQ(child.superview(), nullptr);
    EXPECT_THAT(other.subviews(), IsEmpty());
    child.removeFromSuperview();
    EXPECT_EQ(child.superview(), nullptr);
}

TEST(UIViewTree, AViewIsNeverItsOwnAncestor) {
    UIView top;
    UIView middle;
    UIView bottom;
    top.addSubview(middle);
    middle.addSubview(bottom);
    bottom.addSubview(top);
    bottom.addSubview(middle);
    top.addSubview(top);
    EXPECT_EQ(top.superview(), nullptr);
    EXPECT_EQ(middle.superview(), &top);
    EXPECT_THAT(bottom.subviews(), IsEmpty());
    EXPECT_TRUE(bottom.isDescendantOfView(top));
    EXPECT_TRUE(top.isDescendantOfView(top));
    EXPECT_FALSE(top.isDescendantOfView(bottom));
}

TEST(UIViewTree, ADestroyedViewLeavesItsSuperview) {
    UIView parent;
    auto child = std::make_unique<UIView>();
    parent.addSubview(*child);
    child.reset();
    EXPECT_THAT(parent.subviews(), IsEmpty());
}

TEST(UIViewTree, ADestroyedSuperviewLetsItsSubviewsGo) {
    UIView child;
    {
        UIView parent;
        parent.addSubview(child);
    }
    EXPECT_EQ(child.superview(), nullptr);
}

TEST(UIViewTree, MembersMayBeSubviewsOfTheirOwner) {
    struct Owner : UIView {
        Owner() {
            addSubview(first);
            addSubview(*second);
        }
        UIView first;
        std::unique_ptr<UIView> second = std::make_unique<UIView>();
    };
    UIView parent;
    {
        Owner owner;
        parent.addSubview(owner);
        EXPECT_EQ(owner.subviews().size(), 2U);
    }
    EXPECT_THAT(parent.subviews(), IsEmpty());
}

TEST(UIViewTree, RemovesAllSubviewsAtOnce) {
    UIView parent;
    UIView first;
    UIView second;
    parent.addSubview(first);
    parent.addSubview(second);
    parent.removeAllSubviews();
    EXPECT_THAT(parent.subviews(), IsEmpty());
    EXPECT_EQ(first.superview(), nullptr);
    EXPECT_EQ(second.superview(), nullptr);
}

TEST(UIViewTree, FindsViewsByTagDepthFirst) {
    UIView top;
    UIView left;
    UIView deep;
    UIView right;
    top.addSubview(left);
    left.addSubview(deep);
    top.addSubview(right);
    deep.setTag(2004);
    right.setTag(2004);
    top.setTag(-1000);
    EXPECT_EQ(top.viewWithTag(2004), &deep);
    EXPECT_EQ(top.viewWithTag(-1000), &top);
    EXPECT_EQ(top.viewWithTag(7), nullptr);
}

TEST(UIViewLifetime, WeakPointersTurnToNothing) {
    UIWeak<UIView> weak;
    EXPECT_EQ(weak.get(), nullptr);
    {
        UIView view;
        weak = UIWeak<UIView>(&view);
        const UIWeak<UIView> copy = weak;
        EXPECT_EQ(copy.get(), &view);
    }
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_EQ(UIWeak<UIView>(nullptr).get(), nullptr);
}

/// Resizes a superview of 100 x 100 with one subview and returns the subview's frame.
CGRect resizedWithin(unsigned mask, const CGRect& frame, CGSize size) {
    UIView parent(CGRect{0.0, 0.0, 100.0, 100.0});
    UIView child(frame);
    child.setAutoresizingMask(mask);
    parent.addSubview(child);
    parent.setFrame({0.0, 0.0, size.width, size.height});
    return child.frame();
}

TEST(UIViewAutoresizing, WithoutAMaskNothingMoves) {
    EXPECT_EQ(resizedWithin(0, {10, 20, 30, 40}, {200, 50}), (CGRect{10, 20, 30, 40}));
}

TEST(UIViewAutoresizing, OneFlexiblePartTakesTheWholeChange) {
    EXPECT_EQ(resizedWithin(UIViewAutoresizingFlexibleWidth, {10, 20, 30, 40}, {150, 100}),
              (CGRect{10, 20, 80, 40}));
    EXPECT_EQ(resizedWithin(UIViewAutoresizingFlexibleLeftMargin, {10, 20, 30, 40}, {150, 100}),
              (CGRect{60, 20, 30, 40}));
    EXPECT_EQ(resizedWithin(UIViewAutoresizingFlexibleRightMargin, {10, 20, 30, 40}, {150, 100}),
              (CGRect{10, 20, 30, 40}));
    EXPECT_EQ(resizedWithin(UIViewAutoresizingFlexibleHeight, {10, 20, 30, 40}, {100, 80}),
              (CGRect{10, 20, 30, 20}));
    EXPECT_EQ(resizedWithin(UIViewAutoresizingFlexibleTopMargin, {10, 20, 30, 40}, {100, 110}),
              (CGRect{10, 30, 30, 40}));
    EXPECT_EQ(resizedWithin(UIViewAutoresizingFlexibleBottomMargin, {10, 20, 30, 40}, {100, 110}),
              (CGRect{10, 20, 30, 40}));
}

TEST(UIViewAutoresizing, SeveralPartsShareInProportion) {
    // 10 + 30 + 60 points share 100 more.
    EXPECT_EQ(resizedWithin(7, {10, 20, 30, 40}, {200, 100}), (CGRect{20, 20, 60, 40}));
    // 20 of the top and 40 of the bottom share 30 more.
    EXPECT_EQ(resizedWithin(UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin,
                            {10, 20, 30, 40}, {100, 130}),
              (CGRect{10, 30, 30, 40}));
}

TEST(UIViewAutoresizing, PartsWithoutLengthShareEqually) {
    UIView parent;
    UIView child;
    child.setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleRightMargin);
    parent.addSubview(child);
    parent.setFrame({0.0, 0.0, 40.0, 10.0});
    EXPECT_EQ(child.frame(), (CGRect{0.0, 0.0, 20.0, 0.0}));
}

TEST(UIViewAutoresizing, LengthsNeverGoBelowZero) {
    EXPECT_EQ(resizedWithin(UIViewAutoresizingFlexibleWidth, {10, 20, 30, 40}, {20, 100}).width, 0.0);
}

TEST(UIViewAutoresizing, GoesDownTheTreeUnlessSwitchedOff) {
    UIView top(CGRect{0, 0, 100, 100});
    UIView middle(CGRect{0, 0, 100, 100});
    UIView leaf(CGRect{0, 0, 100, 100});
    middle.setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    leaf.setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    top.addSubview(middle);
    middle.addSubview(leaf);
    top.setFrame({0, 0, 320, 100});
    EXPECT_EQ(leaf.frame().width, 320.0);
    middle.setAutoresizesSubviews(false);
    top.setFrame({0, 0, 400, 100});
    EXPECT_EQ(middle.frame().width, 400.0);
    EXPECT_EQ(leaf.frame().width, 320.0);
}

TEST(UIViewAutoresizing, MovingAloneResizesNothing) {
    UIView parent(CGRect{0, 0, 100, 100});
    UIView child(CGRect{10, 10, 10, 10});
    child.setAutoresizingMask(63);
    parent.addSubview(child);
    parent.setFrame({50, 50, 100, 100});
    EXPECT_EQ(child.frame(), (CGRect{10, 10, 10, 10}));
}

TEST(UIViewObserver, HearsOfTheTree) {
    RecordingObserver observer;
    UIView parent;
    auto child = std::make_unique<UIView>();
    parent.addSubview(*child);
    EXPECT_THAT(observer.take(), ElementsAre("added"));
    child.reset();
    EXPECT_THAT(observer.take(), ElementsAre("removed", "destroyed"));
    child = std::make_unique<UIView>();
    parent.addSubview(*child);
    parent.addSubview(*child);
    EXPECT_THAT(observer.take(), ElementsAre("added", "removed", "added"));
}

TEST(UIViewObserver, HearsOfChangesButNotOfRepetitions) {
    RecordingObserver observer;
    UIView view;
    view.setHidden(true);
    view.setBackgroundColor(UIColor::whiteColor());
    view.setCornerRadius(5.0);
    view.setAlpha(0.5);
    view.setScale(0.1);
    view.setFrame({1, 2, 3, 4});
    view.setCenter({0, 0});
    view.setUserInteractionEnabled(false);
    view.setAccessibilityLabel("Home");
    EXPECT_THAT(observer.take(), ElementsAre("changed hidden", "changed ground", "changed ground",
                                             "changed alpha", "changed transform", "changed frame",
                                             "changed frame", "changed interaction", "changed content"));
    view.setHidden(true);
    view.setAlpha(0.5);
    view.setScale(0.1);
    view.setCenter({0, 0});
    EXPECT_THAT(observer.take(), IsEmpty());
    view.setNeedsDisplay();
    EXPECT_THAT(observer.take(), ElementsAre("needs display"));
}

TEST(UIViewObserver, ADestroyedObserverHearsNothing) {
    UIView view;
    {
        RecordingObserver observer;
        EXPECT_EQ(&UIObserver::current(), &observer);
    }
    view.setHidden(true);
    RecordingObserver first;
    {
        RecordingObserver second;
        EXPECT_EQ(&UIObserver::current(), &second);
    }
    view.setHidden(false);
    EXPECT_THAT(first.events, IsEmpty());
}

} // namespace
} // namespace zorel
