// SPDX-License-Identifier: Apache-2.0
/// @file
/// The pane in its window.
#pragma once

#include "WindowOptions.h"
#include "host/FirstPage.h"
#include "host/Freshness.h"
#include "host/Host.h"
#include "host/Window.h"
#include "platform/uikit/UIViewController.h"
#include "settings/ZorelSettingsController.h"

#include <QImage>

#include <memory>
#include <string>

namespace zorel {

/// Makes the pane on the folders in force and shows it.
class PaneWindow {
public:
    /// @param problem what stands in the way, with the remedy; "" for nothing. Shown at the top of the
    /// window.
    PaneWindow(const WindowOptions& options, const QString& problem);

    PaneWindow(const PaneWindow&) = delete;
    PaneWindow& operator=(const PaneWindow&) = delete;
    ~PaneWindow();

    [[nodiscard]] QQuickView& window() { return *window_; }
    /// Goes to one of the screens "cities", "search", "confirm", "alarm", "why" and "edit", at once.
    void openScreen(const std::string& screen, const std::string& searchText);
    /// Says when the program that rings does not run.
    void watchRinging();
    /// The window's picture once it has been drawn.
    [[nodiscard]] QImage picture();

private:
    void openSearch(const std::string& text);
    /// Moves the alarms to where they should be; false when another program was at work on them.
    bool refreshUnlessBusy();
    /// Asks the desktop what the person wants of it, and moves the alarms if that is still to be done.
    void askAfterFirstFrame();
    /// What the window shows and time alone changes: the home city's date, the machine's offset, the number
    /// of alarms that have rung.
    [[nodiscard]] std::string moment() const;

    Host host_;
    std::unique_ptr<ZorelSettingsController> controller_;
    std::unique_ptr<UINavigationController> navigation_;
    std::unique_ptr<FirstPage> firstPage_;
    std::unique_ptr<Window> window_;
    std::unique_ptr<Freshness> freshness_;
    bool refreshed_ = false; ///< whether the alarms were moved before the window was made
};

} // namespace zorel
