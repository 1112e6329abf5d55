// SPDX-License-Identifier: Apache-2.0
/// @file
/// What shall ring, as the program that reads the alarms tells it to the one that waits.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::ring {

using Instant = std::chrono::sys_seconds;

/// One ringing of one alarm, with all that a person is told then.
struct Ring {
    std::string prayer;   ///< key of the prayer ("fajr")
    Instant at;           ///< start of the alarm's event
    std::string title;    ///< "Fajr"
    std::string body;     ///< "06:08, Istanbul"
    std::string missed;   ///< "Fajr was at 06:08"
    std::string ringtone; ///< path; empty: the bundled tone
    std::string bundled;  ///< path of the tone that rings when the other cannot
    std::chrono::seconds duration{0};

    friend bool operator==(const Ring&, const Ring&) = default;
};

/// What is known of the alarms at one moment.
struct Plan {
    std::vector<Ring> rings;      ///< those ahead, and those that passed within the last ten minutes
    std::optional<Instant> again; ///< when the alarms have to be looked at again whatever happens
    std::string stop;             ///< labels of the notification's buttons, in the user's language
    std::string snooze;
    std::string keeper;  ///< who else rings ("gnome"), so that this program keeps still; empty: nobody
    std::string trouble; ///< why the alarms could not be read or kept; empty: they could

    friend bool operator==(const Plan&, const Plan&) = default;
};

/// A ring in one line: fields with tabs between them. Control characters of its texts become spaces.
[[nodiscard]] std::string lineOf(const Ring& ring);
[[nodiscard]] std::optional<Ring> ringOfLine(std::string_view line);

/// A plan as lines; the last one is "end", so that a plan that broke off is not taken for a short one.
[[nodiscard]] std::string textOf(const Plan& plan);
/// Nothing when the text is no complete plan.
[[nodiscard]] std::optional<Plan> planOfText(std::string_view text);

} // namespace zorel::ring
