// SPDX-License-Identifier: Apache-2.0
/// @file
/// Places for names in a picture, none on another.
#pragma once

#include <algorithm>
#include <vector>

namespace zorel::cli {

struct LabelBox {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    [[nodiscard]] bool touches(const LabelBox& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    [[nodiscard]] bool within(const LabelBox& other) const {
        return left >= other.left && right <= other.right && top >= other.top && bottom <= other.bottom;
    }
};

class LabelBoxes {
public:
    /// @param ground no label may stand outside of it.
    explicit LabelBoxes(LabelBox ground) : ground_(ground) {}

    /// Occupies a box without asking whether it is free.
    void occupy(LabelBox box) { boxes_.push_back(box); }
    /// Occupies the box when it is free. @return whether it was.
    bool take(LabelBox box) {
        const bool free = box.within(ground_) &&
                          std::ranges::none_of(boxes_, [&](const LabelBox& one) { return one.touches(box); });
        if (free) {
            boxes_.push_back(box);
        }
        return free;
    }

private:
    LabelBox ground_;
    std::vector<LabelBox> boxes_;
};

} // namespace zorel::cli
