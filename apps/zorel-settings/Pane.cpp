// SPDX-License-Identifier: Apache-2.0
#include "Pane.h"

#include "platform/foundation/Locale.h"
#include "platform/uikit/UISearchBar.h"

#include <QFontInfo>
#include <QGuiApplication>

#include <algorithm>

namespace zorel {

namespace {

/// The desktop's text size in proportion to 10 points at 96 dots per inch, within reason.
double desktopTextScale() {
    constexpr double usualPixels = 40.0 / 3.0;
    const double pixels = QFontInfo(QGuiApplication::font()).pixelSize();
    return std::clamp(pixels / usualPixels, 0.8, 2.5);
}

/// A picture has the usual size unless it is asked for otherwise.
double textScale(const Arguments& arguments) {
    if (arguments.textScale > 0.0) {
        return arguments.textScale;
    }
    return arguments.screenshot.empty() ? desktopTextScale() : 1.0;
}

UISearchBar* searchBarIn(UIView& view) {
    for (UIView* subview : view.subviews()) {
        if (subview->kind() == UIViewKind::searchBar) {
            return static_cast<UISearchBar*>(subview);
        }
    }
    return nullptr;
}

} // namespace

Pane::Pane(const Arguments& arguments, const QString& problem) : host_(currentLocale().starts_with("tr")) {
    host_.setProblem(problem);
    host_.setTextScale(textScale(arguments));
    if (!arguments.appearance.empty()) {
        host_.setDark(arguments.appearance == "dark");
    }
    const double scale = host_.textScale();
    host_.setScreenSize(std::min(arguments.width / scale, kColumnWidth), arguments.height / scale);
    controller_ = std::make_unique<ZorelSettingsController>();
    navigation_ = std::make_unique<UINavigationController>(*controller_);
    if (controller_->navigationItem().title().empty()) {
        controller_->navigationItem().setTitle("Zorel");
    }
    host_.show(*navigation_);
    window_ = std::make_unique<Window>(host_, QSize(arguments.width, arguments.height));
    window_->setTitle(QStringLiteral("Zorel"));
}

void Pane::openScreen(const std::string& screen, const std::string& searchText) {
    if (screen == "alarm") {
        constexpr int alarms = 1;
        controller_->table().userSelectsRow({alarms, 0});
    } else if (screen == "search") {
        controller_->delegateUICityHeaderView_AddTapped(controller_->cityHeaderView().buttonAdd());
        UIView* view = navigation_->topViewController()->view();
        if (UISearchBar* bar = searchBarIn(*view); bar != nullptr && !searchText.empty()) {
            bar->setText(searchText);
            bar->userTapsSearch();
        }
    }
}

QImage Pane::picture() {
    return window_->grabWindow();
}

} // namespace zorel
