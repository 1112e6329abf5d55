// SPDX-License-Identifier: Apache-2.0
/// @file
/// The name of a calendar.
#pragma once

#include <string>

namespace zorel {

/// Which calendar an event belongs to.
struct EKCalendar {
    std::string calendarIdentifier;
    std::string title;

    friend bool operator==(const EKCalendar&, const EKCalendar&) = default;
};

} // namespace zorel
