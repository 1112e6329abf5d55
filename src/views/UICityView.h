// SPDX-License-Identifier: Apache-2.0
/// @file
/// One row of the list of cities: a name and the button that marks the home city.
#pragma once

#include "views/UIButtonX.h"

#include <cstdint>
#include <memory>

namespace zorel {

class UICityView;

class UICityViewDelegate {
public:
    virtual ~UICityViewDelegate() = default;
    /// The Home button of a city that was not the home city was tapped; the delegate clears the other rows'
    /// buttons.
    virtual void delegateUICityView_HomeTapped(UICityView& view) = 0;
};

class UICityView : public UIView, public UIButtonXDelegate {
public:
    UICityView(const CGRect& frame, const GlobalFuncs& glbFuncs, const Settings& glbSettings);
    ~UICityView() override;

    void setDelegate(UICityViewDelegate* delegate) { delegate_ = delegate; }
    [[nodiscard]] UICityViewDelegate* delegate() const { return delegate_; }
    [[nodiscard]] std::int32_t cityId() const { return cityId_; } ///< catalogue id
    void setCityId(std::int32_t cityId) { cityId_ = cityId; }
    [[nodiscard]] UILabel& cityName() const { return *cityName_; }
    [[nodiscard]] UIButtonX& buttonHome() const { return *buttonHome_; }

    /// The home city cannot be unmarked: its button is selected again. Any other tap is passed on.
    void delegateUIButtonXTapped(UIButtonX& button) override;

private:
    UICityViewDelegate* delegate_ = nullptr;
    std::unique_ptr<UILabel> cityName_;
    std::unique_ptr<UIButtonX> buttonHome_;
    std::int32_t cityId_ = 0;
};

} // namespace zorel
