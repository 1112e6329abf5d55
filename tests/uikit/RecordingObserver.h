// SPDX-License-Identifier: Apache-2.0
/// @file
/// An observer that writes down what it is told, as a host would hear it.
#pragma once

#include "platform/uikit/UIObserver.h"
#include "platform/uikit/UIView.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace zorel {

class RecordingObserver : public UIObserver {
public:
    RecordingObserver() { install(this); }

    std::vector<std::string> events; ///< "added", "removed", "changed alpha" ...
    std::vector<double> wakes;       ///< [s]

    std::vector<std::string> take() { return std::exchange(events, {}); }
    [[nodiscard]] long count(const std::string& event) const {
        return std::count(events.begin(), events.end(), event);
    }

    void viewAdded(UIView&, UIView&) override { events.emplace_back("added"); }
    void viewRemoved(UIView&, UIView&) override { events.emplace_back("removed"); }
    void viewDestroyed(UIView&) override { events.emplace_back("destroyed"); }
    void viewNeedsDisplay(UIView&) override { events.emplace_back("needs display"); }
    void viewChanged(UIView&, UIProperty what) override { events.push_back("changed " + nameOf(what)); }
    void tableReloaded(UITableView&) override { events.emplace_back("reloaded"); }
    void rowSelectionChanged(UITableView&) override { events.emplace_back("selection"); }
    void pickerReloaded(UIPickerView&) override { events.emplace_back("picker reloaded"); }
    void pickerRowSelected(UIPickerView&, bool animated) override {
        events.emplace_back(animated ? "picker turned" : "picker set");
    }
    void switchChanged(UISwitch&, bool animated) override {
        events.emplace_back(animated ? "switch moved" : "switch set");
    }
    void firstResponderChanged(UISearchBar&) override { events.emplace_back("first responder"); }
    void actionSheetPresented(UIActionSheet&, UIView&) override { events.emplace_back("presented"); }
    void actionSheetDismissed(UIActionSheet&) override { events.emplace_back("dismissed"); }
    void viewControllerPushed(UINavigationController&, UIViewController&, bool) override {
        events.emplace_back("pushed");
    }
    void viewControllerPopped(UINavigationController&, UIViewController&, bool) override {
        events.emplace_back("popped");
    }
    void viewControllerChanged(UIViewController&) override { events.emplace_back("controller"); }
    void runLoopWantsWake(double time) override { wakes.push_back(time); }

private:
    static std::string nameOf(UIProperty what) {
        static const std::vector<std::string> names{"frame",        "alpha",   "transform",
                                                    "presentation", "hidden",  "ground",
                                                    "interaction",  "content", "state"};
        return names.at(static_cast<std::size_t>(what));
    }
};

} // namespace zorel
