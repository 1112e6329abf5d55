// SPDX-License-Identifier: Apache-2.0
/// @file
/// Head of the list of cities: a title and the button that adds a city.
#pragma once

#include "views/UIButtonX.h"

#include <memory>

namespace zorel {

class UICityHeaderViewDelegate {
public:
    virtual ~UICityHeaderViewDelegate() = default;
    /// @param button the Add button (not the header)
    virtual void delegateUICityHeaderView_AddTapped(UIButtonX& button) = 0;
};

class UICityHeaderView : public UIView, public UIButtonXDelegate {
public:
    UICityHeaderView(const CGRect& frame, const GlobalFuncs& glbFuncs, const Settings& glbSettings);
    ~UICityHeaderView() override;

    void setDelegate(UICityHeaderViewDelegate* delegate) { delegate_ = delegate; }
    [[nodiscard]] UICityHeaderViewDelegate* delegate() const { return delegate_; }
    [[nodiscard]] UILabel& text() const { return *text_; }
    [[nodiscard]] UIButtonX& buttonAdd() const { return *buttonAdd_; }

    void delegateUIButtonXTapped(UIButtonX& button) override;

private:
    UICityHeaderViewDelegate* delegate_ = nullptr;
    std::unique_ptr<UILabel> text_;
    std::unique_ptr<UIButtonX> buttonAdd_;
};

} // namespace zorel
