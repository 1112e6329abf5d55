// SPDX-License-Identifier: Apache-2.0
/// @file
/// The screen's size. It is zero until a host that has a screen says otherwise.
#pragma once

#include "platform/coregraphics/CGGeometry.h"

namespace zorel {

class UIScreen {
public:
    [[nodiscard]] static UIScreen& mainScreen();

    [[nodiscard]] const CGRect& bounds() const { return bounds_; }
    void setBounds(const CGRect& bounds) { bounds_ = bounds; }

private:
    CGRect bounds_;
};

} // namespace zorel
