// SPDX-License-Identifier: Apache-2.0
/// @file
/// The settings pane without a window: its list of cities, and the choices that its alarm editor offers.
#pragma once

#include "alarms/UserActions.h"
#include "common/UIComboboxItem.h"
#include "store/City.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zorel {
class ZorelSettingsController;
} // namespace zorel

namespace zorel::cli {

class HeadlessPane {
public:
    /// Opens the pane: makes the user database if there is none, loads the cities, computes the home city's
    /// times. @throws CliError (data trouble) when the cities cannot be read.
    HeadlessPane();
    HeadlessPane(const HeadlessPane&) = delete;
    HeadlessPane& operator=(const HeadlessPane&) = delete;
    ~HeadlessPane();

    [[nodiscard]] std::vector<const City*> cities() const;
    /// The home city, or nullptr without cities.
    [[nodiscard]] const City* home() const;
    /// What the alarms do.
    [[nodiscard]] const AlarmReport& alarms() const;

    /// Does something as the pane does it, and loads the cities anew.
    ActionResult act(const std::function<ActionResult(UserActions&)>& action);
    /// @throws CliError (data trouble) when the cities could not be loaded after the latest action.
    void requireLoaded() const;

    [[nodiscard]] const std::vector<UIComboboxItem>& ringtones() const;
    [[nodiscard]] const std::vector<UIComboboxItem>& durations() const;

private:
    std::unique_ptr<ZorelSettingsController> controller_;
};

} // namespace zorel::cli
