// SPDX-License-Identifier: Apache-2.0
/// @file
/// One line that says how far the work is.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zorel::catalogue {

/// Writes to standard error: on a terminal one line that is redrawn at every percent, elsewhere one line per
/// step.
class Progress {
public:
    explicit Progress(bool quiet);
    /// A new step of the work begins.
    void step(std::string_view name);
    /// `done` of `all` parts of the step are finished.
    void advance(std::size_t done, std::size_t all);
    /// The work is finished: the last line stays.
    void finish(std::string_view summary);

private:
    void draw(std::string_view text, bool last) const;

    bool quiet_;
    bool terminal_;
    std::string step_;
    std::size_t percent_ = 0;
};

} // namespace zorel::catalogue
