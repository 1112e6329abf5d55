// SPDX-License-Identifier: Apache-2.0
/// @file
/// Fonts by name, and how text is set. The host finds the nearest font that it has.
#pragma once

#include <string>

namespace zorel {

struct UIFont {
    std::string name;   ///< family ("Verdana"); "" is the host's own
    double size = 17.0; ///< [pt]

    friend bool operator==(const UIFont&, const UIFont&) = default;
};

enum class UITextAlignment { left = 0, center = 1, right = 2 };
enum class UILineBreakMode { wordWrapping = 0, truncatingTail = 4 };
enum class UIBaselineAdjustment { alignBaselines = 0, alignCenters = 1 };

} // namespace zorel
