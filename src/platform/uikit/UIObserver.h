// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a host hears of the views: one observer for the whole process, told once of every change, so that it
/// never has to look by itself. All calls come on the main thread, after the change. An observer may read
/// everything, but changes no view and reloads no table from inside a call.
#pragma once

namespace zorel {

class UIActionSheet;
class UINavigationController;
class UIPickerView;
class UISearchBar;
class UISwitch;
class UITableView;
class UIView;
class UIViewController;

/// What about a view has changed.
enum class UIProperty {
    frame,           ///< position or size
    alpha,           ///< opacity set by the program
    transform,       ///< uniform scale set by the program
    presentation,    ///< an animation has moved the visible opacity or scale
    hidden,          ///< hidden or shown
    backgroundColor, ///< colour or corner radius
    interaction,     ///< whether touches are taken
    content,         ///< text, font, colours or layout of a label, search bar or cell
    state            ///< a control enabled, selected, or neither
};

class UIObserver {
public:
    UIObserver() = default;
    UIObserver(const UIObserver&) = delete;
    UIObserver& operator=(const UIObserver&) = delete;
    /// An observer that is destroyed is no longer told anything.
    virtual ~UIObserver();

    /// Puts the observer in force (nullptr: nobody listens). It is not owned.
    static void install(UIObserver* observer);
    /// The observer in force, or one that ignores everything.
    [[nodiscard]] static UIObserver& current();

    virtual void viewAdded(UIView& /*superview*/, UIView& /*view*/) {}
    /// Also sent while either of the two is being destroyed: then only the addresses and the plain UIView are
    /// left.
    virtual void viewRemoved(UIView& /*superview*/, UIView& /*view*/) {}
    /// The last call about a view: only its address is still of use.
    virtual void viewDestroyed(UIView& /*view*/) {}
    virtual void viewNeedsDisplay(UIView& /*view*/) {}
    virtual void viewChanged(UIView& /*view*/, UIProperty /*what*/) {}

    /// The rows are to be asked for anew. The table's former cells are gone when the running event has ended.
    virtual void tableReloaded(UITableView& /*table*/) {}
    /// The table's indexPathForSelectedRow has changed, or is gone.
    virtual void rowSelectionChanged(UITableView& /*table*/) {}
    virtual void pickerReloaded(UIPickerView& /*picker*/) {}
    /// The program has turned the wheel.
    virtual void pickerRowSelected(UIPickerView& /*picker*/, bool /*animated*/) {}
    /// The switch has been set, by the program or the user.
    virtual void switchChanged(UISwitch& /*control*/, bool /*animated*/) {}
    /// The search bar has gained or lost the keyboard.
    virtual void firstResponderChanged(UISearchBar& /*searchBar*/) {}
    virtual void actionSheetPresented(UIActionSheet& /*sheet*/, UIView& /*view*/) {}
    virtual void actionSheetDismissed(UIActionSheet& /*sheet*/) {}
    virtual void viewControllerPushed(UINavigationController& /*navigation*/, UIViewController& /*pushed*/,
                                      bool /*animated*/) {}
    /// Also sent for a controller that is being destroyed: then only its address is of use.
    virtual void viewControllerPopped(UINavigationController& /*navigation*/, UIViewController& /*popped*/,
                                      bool /*animated*/) {}
    /// A controller's view, title or back button has changed.
    virtual void viewControllerChanged(UIViewController& /*controller*/) {}
    /// RunLoop::nextWake has changed: move the run loop's clock there when that time comes.
    virtual void runLoopWantsWake(double /*time*/) {}
};

} // namespace zorel
