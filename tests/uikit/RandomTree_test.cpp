// SPDX-License-Identifier: Apache-2.0
// A random user of the tree: views are made, moved, animated, touched and destroyed in any order, also from
// inside their own touch handlers, and after every step the tree is whole and the observer's picture of it is
// right.
#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UITouch.h"
#include "platform/uikit/UIView.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <set>

namespace zorel {
namespace {

constexpr std::size_t kMostViews = 60;

/// Keeps its own picture of the tree from what it is told.
class MirrorObserver : public UIObserver {
public:
    MirrorObserver() { install(this); }
    std::map<const UIView*, const UIView*> superviews;

    void viewAdded(UIView& superview, UIView& view) override { superviews[&view] = &superview; }
    void viewRemoved(UIView& superview, UIView& view) override {
        const auto known = superviews.find(&view);
        ASSERT_NE(known, superviews.end());
        ASSERT_EQ(known->second, &superview);
        superviews.erase(known);
    }
    void viewDestroyed(UIView& view) override { ASSERT_EQ(superviews.count(&view), 0U); }
};

class RandomTree {
public:
    explicit RandomTree(unsigned seed) : random_(seed) {}

    void step() {
        switch (number(12)) {
        case 0:
        case 1:
            make();
            break;
        case 2:
            drop(number(views_.size()));
            break;
        case 3:
        case 4:
            if (!views_.empty()) {
                any().addSubview(any());
            }
            break;
        case 5:
            withAny([](UIView& view) { view.removeFromSuperview(); });
            break;
        case 6:
            withAny([this](UIView& view) { reshape(view); });
            break;
        case 7:
            withAny([this](UIView& view) { animate(view); });
            break;
        case 8:
            withAny([this](UIView& view) { callLater(view); });
            break;
        case 9:
            RunLoop::main().advance(static_cast<double>(number(500)) / 1000.0);
            break;
        default:
            touch();
        }
    }

    /// Every view knows its superview, every superview its subviews, and nobody is their own ancestor.
    void check(const MirrorObserver& mirror) const {
        std::set<const UIView*> alive;
        for (const auto& view : views_) {
            alive.insert(view.get());
        }
        std::size_t placed = 0;
        for (const UIView* view : alive) {
            checkView(*view, alive, mirror);
            placed += view->superview() != nullptr ? 1U : 0U;
        }
        EXPECT_EQ(placed, mirror.superviews.size());
    }

    std::size_t touches = 0;
    std::size_t calls = 0;
    std::size_t completions = 0;

private:
    /// Sometimes destroys or moves views from inside its handlers.
    class Mischief : public UIView {
    public:
        Mischief(RandomTree& owner, const CGRect& frame) : UIView(frame), tree(owner) {}
        void touchesBegan(const UITouch& touch) override { handle(touch); }
        void touchesMoved(const UITouch& touch) override { handle(touch); }
        void touchesEnded(const UITouch& touch) override { handle(touch); }
        void touchesCancelled(const UITouch& touch) override { handle(touch); }

    private:
        void handle(const UITouch& touch) {
            tree.mischief(*this);
            // This view has to be there still, whatever has become of the others.
            last = touch.locationInView(*this);
            ++tree.touches;
        }

        RandomTree& tree;
        CGPoint last;
    };

    std::size_t number(std::size_t below) { return below == 0 ? 0 : random_() % below; }
    double length() { return static_cast<double>(number(200)) - 20.0; }
    UIView& any() { return *views_[number(views_.size())]; }
    template <typename Action> void withAny(Action action) {
        if (!views_.empty()) {
            action(any());
        }
    }

    void make() {
        if (views_.size() < kMostViews) {
            views_.push_back(
                std::make_unique<Mischief>(*this, CGRect{length(), length(), length(), length()}));
            views_.back()->setAutoresizingMask(static_cast<unsigned>(number(64)));
        }
    }
    void drop(std::size_t index) {
        if (index < views_.size()) {
            const auto going = std::move(views_[index]);
            views_.erase(views_.begin() + static_cast<std::ptrdiff_t>(index));
        }
    }
    void reshape(UIView& view) {
        view.setFrame({length(), length(), length(), length()});
        view.setHidden(number(8) == 0);
        view.setUserInteractionEnabled(number(8) != 0);
        view.setScale(static_cast<double>(number(4)));
        view.setAlpha(1.0);
    }
    void animate(UIView& view) {
        const double duration = static_cast<double>(number(4)) * 0.2;
        view.animate(
            duration,
            [this, &view] {
                view.setAlpha(static_cast<double>(number(2)));
                any().setScale(1.5);
            },
            [this] {
                ++completions;
                withAny([this](UIView& other) { mischief(other); });
            });
    }
    void callLater(UIView& view) {
        view.performAfterDelay(static_cast<double>(number(8)) * 0.1, [this, &view] {
            ++calls;
            view.removeFromSuperview();
        });
    }
    void touch() {
        if (views_.empty()) {
            return;
        }
        UITouchDispatcher finger(any());
        finger.began({length(), length()});
        finger.moved({length(), length()});
        number(5) == 0 ? finger.cancelled() : finger.ended({length(), length()});
    }
    void mischief(UIView& view) {
        switch (number(10)) {
        case 0:
            dispose(view);
            break;
        case 1:
            view.removeAllSubviews();
            break;
        case 2:
            view.addSubview(any());
            break;
        case 3:
            any().setFrame({length(), length(), length(), length()});
            break;
        case 4:
            destroyOther(view);
            break;
        default:
            view.setNeedsDisplay();
        }
    }
    void dispose(const UIView& view) {
        const auto place = find(view);
        if (place != views_.end()) {
            (*place)->removeFromSuperview();
            (*place)->removeAllSubviews();
            RunLoop::main().disposeLater(std::move(*place));
            views_.erase(place);
        }
        make();
    }
    void destroyOther(const UIView& view) {
        const std::size_t index = number(views_.size());
        if (views_[index].get() != &view) {
            drop(index);
        }
    }
    std::vector<std::unique_ptr<UIView>>::iterator find(const UIView& view) {
        return std::find_if(views_.begin(), views_.end(),
                            [&view](const auto& one) { return one.get() == &view; });
    }

    static void checkView(const UIView& view, const std::set<const UIView*>& alive,
                          const MirrorObserver& mirror) {
        const UIView* superview = view.superview();
        if (superview != nullptr) {
            EXPECT_TRUE(alive.count(superview) == 1);
            EXPECT_EQ(std::count(superview->subviews().begin(), superview->subviews().end(), &view), 1);
            EXPECT_FALSE(superview->isDescendantOfView(view));
            EXPECT_EQ(mirror.superviews.at(&view), superview);
        }
        for (const UIView* subview : view.subviews()) {
            EXPECT_TRUE(alive.count(subview) == 1);
            EXPECT_EQ(subview->superview(), &view);
        }
        EXPECT_GE(view.presentationAlpha(), 0.0);
        EXPECT_LE(view.presentationAlpha(), 1.0);
    }

    std::mt19937 random_;
    std::vector<std::unique_ptr<UIView>> views_;
};

TEST(RandomTree, StaysWholeThroughManySteps) {
    MirrorObserver mirror;
    for (unsigned seed = 1; seed <= 6; ++seed) {
        RandomTree tree(seed);
        for (int step = 0; step < 20000; ++step) {
            tree.step();
            if (step % 10 == 0) {
                tree.check(mirror);
            }
            ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed << ", step " << step;
        }
        EXPECT_GT(tree.touches, 500U) << "seed " << seed;
        EXPECT_GT(tree.calls, 50U) << "seed " << seed;
        EXPECT_GT(tree.completions, 50U) << "seed " << seed;
        RunLoop::main().reset();
    }
}

} // namespace
} // namespace zorel
