// SPDX-License-Identifier: Apache-2.0
/// @file
/// An on/off switch.
#pragma once

#include "platform/uikit/UIControl.h"

namespace zorel {

class UISwitch : public UIControl {
public:
    using UIControl::UIControl;

    [[nodiscard]] UIViewKind kind() const override { return UIViewKind::switchControl; }
    [[nodiscard]] bool isOn() const { return on_; }
    /// Sets the switch without running its action.
    void setOn(bool on, bool animated = false);
    /// The user flips the switch: sets it the other way and runs the value-changed action. Ignored while
    /// disabled.
    void userToggles();

private:
    bool on_ = false;
};

} // namespace zorel
