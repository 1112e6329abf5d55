// SPDX-License-Identifier: Apache-2.0
/// @file
/// A screen: a view with a title, and the stack of screens that it is pushed onto.
#pragma once

#include "platform/uikit/UIObject.h"
#include "platform/uikit/UIView.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel {

class UINavigationController;
class UIViewController;

enum class UIBarButtonItemStyle { plain = 0, bordered = 1 };

struct UIBarButtonItem {
    std::string title;
    UIBarButtonItemStyle style = UIBarButtonItemStyle::plain;

    friend bool operator==(const UIBarButtonItem&, const UIBarButtonItem&) = default;
};

/// What a screen shows in the navigation bar.
class UINavigationItem {
public:
    explicit UINavigationItem(UIViewController& controller) : controller_(controller) {}

    [[nodiscard]] const std::string& title() const { return title_; }
    void setTitle(std::string title);
    /// The back button of the screen that is pushed on top of this one.
    [[nodiscard]] const std::optional<UIBarButtonItem>& backBarButtonItem() const {
        return backBarButtonItem_;
    }
    void setBackBarButtonItem(std::optional<UIBarButtonItem> item);

private:
    UIViewController& controller_;
    std::string title_;
    std::optional<UIBarButtonItem> backBarButtonItem_;
};

class UIViewController : public UIObject {
public:
    UIViewController() : navigationItem_(*this) {}
    /// Leaves the navigation stack.
    ~UIViewController() override;

    /// The screen's view, which someone else keeps; nullptr before it is set and after it is destroyed.
    [[nodiscard]] UIView* view() const { return view_.get(); }
    void setView(UIView* view);
    [[nodiscard]] UINavigationItem& navigationItem() { return navigationItem_; }
    [[nodiscard]] const UINavigationItem& navigationItem() const { return navigationItem_; }
    /// The stack this screen is in, or nullptr.
    [[nodiscard]] UINavigationController* navigationController() const { return navigationController_; }

private:
    friend class UINavigationController;

    UIWeak<UIView> view_;
    UINavigationItem navigationItem_;
    UINavigationController* navigationController_ = nullptr;
};

/// A stack of screens of which the last is shown. It refers to them; others keep them.
class UINavigationController : public UIObject {
public:
    explicit UINavigationController(UIViewController& root);
    ~UINavigationController() override;

    [[nodiscard]] const std::vector<UIViewController*>& viewControllers() const { return viewControllers_; }
    /// The screen on show; nullptr when all have been destroyed.
    [[nodiscard]] UIViewController* topViewController() const;
    /// Shows a screen on top. One that is in a stack already stays where it is.
    void pushViewController(UIViewController& controller, bool animated);
    /// Takes the top screen away; the root stays. @return whether there was one to take
    bool popViewControllerAnimated(bool animated);
    /// Title of the back button on the top screen: that of the screen below, "" on the root.
    [[nodiscard]] std::string backButtonTitle() const;

private:
    friend class UIViewController;
    void remove(UIViewController& controller, bool animated);

    std::vector<UIViewController*> viewControllers_;
};

} // namespace zorel
