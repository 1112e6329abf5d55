// SPDX-License-Identifier: Apache-2.0
/// @file
/// A view that the user operates: enabled or not, selected or not, with an action for a changed value. A
/// disabled control still gets its touches; what it makes of them is its own affair.
#pragma once

#include "platform/uikit/UIView.h"

namespace zorel {

class UIControl : public UIView {
public:
    using UIView::UIView;

    [[nodiscard]] bool isEnabled() const { return enabled_; }
    virtual void setEnabled(bool enabled) { change(enabled_, enabled, UIProperty::state); }
    [[nodiscard]] bool isSelected() const { return selected_; }
    virtual void setSelected(bool selected) { change(selected_, selected, UIProperty::state); }
    /// What to do when the user changes the value (one action; the last one set).
    void setValueChangedAction(std::function<void()> action) { valueChanged_ = std::move(action); }

protected:
    /// Runs the value-changed action, which may destroy this control.
    void sendValueChanged();

private:
    std::function<void()> valueChanged_;
    bool enabled_ = true;
    bool selected_ = false;
};

} // namespace zorel
