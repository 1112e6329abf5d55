// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a person has to know of the clock that times are told by.
#pragma once

#include "grammar/Context.h"
#include "print/ShownPlace.h"

#include <array>
#include <string>
#include <vector>

namespace zorel::cli {

/// The notice of one date in a sentence; empty when there is none.
[[nodiscard]] std::string clockNoticeText(const ShownPlace& place, almanac::Date date);
/// The same as a warning on a line of its own.
[[nodiscard]] std::string clockNoticeLine(const Context& context, const ShownPlace& place,
                                          almanac::Date date);
/// The notice of the present date on the error stream, for lines that another program shows.
void noteClock(const Context& context, const ShownPlace& place);

/// The notices of the days of a table, one sentence for each kind.
class ClockNotices {
public:
    ClockNotices(const Context& context, const ShownPlace& place) : context_(context), place_(place) {}

    /// Days come in their order.
    void add(almanac::Date date, almanac::ClockNotice notice);
    [[nodiscard]] std::vector<std::string> sentences() const;
    /// On the error stream, for outputs that another program reads.
    void note() const;

private:
    struct Days {
        int count = 0;
        almanac::Date first{};
        almanac::Date last{};
    };

    [[nodiscard]] std::string sentence(const Days& days) const;

    const Context& context_;
    const ShownPlace& place_;
    int days_ = 0;
    std::array<Days, 4> byNotice_{};
};

} // namespace zorel::cli
