// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIViewController.h"

#include <utility>

namespace zorel {

void UINavigationItem::setTitle(std::string title) {
    if (title_ != title) {
        title_ = std::move(title);
        UIObserver::current().viewControllerChanged(controller_);
    }
}

void UINavigationItem::setBackBarButtonItem(std::optional<UIBarButtonItem> item) {
    if (backBarButtonItem_ != item) {
        backBarButtonItem_ = std::move(item);
        UIObserver::current().viewControllerChanged(controller_);
    }
}

UIViewController::~UIViewController() {
    endLifetime();
    if (navigationController_ != nullptr) {
        navigationController_->remove(*this, false);
    }
}

void UIViewController::setView(UIView* view) {
    view_ = UIWeak<UIView>(view);
    UIObserver::current().viewControllerChanged(*this);
}

UINavigationController::UINavigationController(UIViewController& root) {
    if (root.navigationController_ != nullptr) {
        root.navigationController_->remove(root, false);
    }
    root.navigationController_ = this;
    viewControllers_.push_back(&root);
}

UINavigationController::~UINavigationController() {
    endLifetime();
    for (UIViewController* controller : viewControllers_) {
        controller->navigationController_ = nullptr;
    }
}

UIViewController* UINavigationController::topViewController() const {
    return viewControllers_.empty() ? nullptr : viewControllers_.back();
}

void UINavigationController::pushViewController(UIViewController& controller, bool animated) {
    if (controller.navigationController_ != nullptr) {
        return;
    }
    controller.navigationController_ = this;
    viewControllers_.push_back(&controller);
    UIObserver::current().viewControllerPushed(*this, controller, animated);
}

bool UINavigationController::popViewControllerAnimated(bool animated) {
    if (viewControllers_.size() < 2) {
        return false;
    }
    remove(*viewControllers_.back(), animated);
    return true;
}

void UINavigationController::remove(UIViewController& controller, bool animated) {
    std::erase(viewControllers_, &controller);
    controller.navigationController_ = nullptr;
    UIObserver::current().viewControllerPopped(*this, controller, animated);
}

std::string UINavigationController::backButtonTitle() const {
    if (viewControllers_.size() < 2) {
        return {};
    }
    const UINavigationItem& below = viewControllers_[viewControllers_.size() - 2]->navigationItem();
    const auto& item = below.backBarButtonItem();
    return item ? item->title : below.title();
}

} // namespace zorel
