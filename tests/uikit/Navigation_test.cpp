// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIViewController.h"
#include "tests/uikit/RecordingObserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(UIViewController, RefersToItsView) {
    UIViewController controller;
    EXPECT_EQ(controller.view(), nullptr);
    {
        UIView view;
        controller.setView(&view);
        EXPECT_EQ(controller.view(), &view);
    }
    EXPECT_EQ(controller.view(), nullptr);
}

TEST(UIViewController, TellsOfItsTitleAndBackButton) {
    RecordingObserver observer;
    UIViewController controller;
    controller.navigationItem().setTitle("Alarm");
    controller.navigationItem().setTitle("Alarm");
    controller.navigationItem().setBackBarButtonItem(UIBarButtonItem{"Back", UIBarButtonItemStyle::bordered});
    EXPECT_EQ(controller.navigationItem().title(), "Alarm");
    EXPECT_EQ(controller.navigationItem().backBarButtonItem()->style, UIBarButtonItemStyle::bordered);
    EXPECT_THAT(observer.events, ElementsAre("controller", "controller"));
}

TEST(UINavigationController, PushesAndPops) {
    UIViewController root;
    UIViewController screen;
    UINavigationController navigation(root);
    RecordingObserver observer;
    EXPECT_EQ(navigation.topViewController(), &root);
    EXPECT_EQ(root.navigationController(), &navigation);
    EXPECT_FALSE(navigation.popViewControllerAnimated(true));
    navigation.pushViewController(screen, true);
    EXPECT_THAT(navigation.viewControllers(), ElementsAre(&root, &screen));
    EXPECT_TRUE(navigation.popViewControllerAnimated(true));
    EXPECT_EQ(screen.navigationController(), nullptr);
    EXPECT_THAT(navigation.viewControllers(), ElementsAre(&root));
    EXPECT_THAT(observer.events, ElementsAre("pushed", "popped"));
}

TEST(UINavigationController, AScreenIsPushedOnce) {
    UIViewController root;
    UIViewController screen;
    UINavigationController navigation(root);
    RecordingObserver observer;
    navigation.pushViewController(screen, true);
    navigation.pushViewController(screen, true);
    navigation.pushViewController(root, true);
    EXPECT_EQ(navigation.viewControllers().size(), 2U);
    EXPECT_THAT(observer.events, ElementsAre("pushed"));
}

TEST(UINavigationController, TheBackButtonNamesTheScreenBelow) {
    UIViewController root;
    UIViewController screen;
    UINavigationController navigation(root);
    root.navigationItem().setTitle("Zorel");
    EXPECT_EQ(navigation.backButtonTitle(), "");
    navigation.pushViewController(screen, false);
    EXPECT_EQ(navigation.backButtonTitle(), "Zorel");
    root.navigationItem().setBackBarButtonItem(UIBarButtonItem{"Back", UIBarButtonItemStyle::bordered});
    EXPECT_EQ(navigation.backButtonTitle(), "Back");
}

TEST(UINavigationController, ADestroyedScreenLeavesTheStack) {
    auto root = std::make_unique<UIViewController>();
    auto screen = std::make_unique<UIViewController>();
    UINavigationController navigation(*root);
    navigation.pushViewController(*screen, false);
    RecordingObserver observer;
    screen.reset();
    EXPECT_EQ(navigation.topViewController(), root.get());
    EXPECT_THAT(observer.events, ElementsAre("popped"));
    root.reset();
    EXPECT_EQ(navigation.topViewController(), nullptr);
    EXPECT_THAT(navigation.viewControllers(), IsEmpty());
    EXPECT_EQ(navigation.backButtonTitle(), "");
}

TEST(UINavigationController, ADestroyedStackSetsItsScreensFree) {
    UIViewController root;
    {
        UINavigationController navigation(root);
        EXPECT_EQ(root.navigationController(), &navigation);
    }
    EXPECT_EQ(root.navigationController(), nullptr);
    UINavigationController second(root);
    UINavigationController third(root);
    EXPECT_EQ(root.navigationController(), &third);
    EXPECT_THAT(second.viewControllers(), IsEmpty());
}

} // namespace
} // namespace zorel
