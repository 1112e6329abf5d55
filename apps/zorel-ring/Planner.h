// SPDX-License-Identifier: Apache-2.0
/// @file
/// Brings the calendar in step with the alarms and makes the plan of what shall ring.
#pragma once

#include "alarms/AlarmReport.h"
#include "almanac/Prayer.h"
#include "ring/Plan.h"

#include <optional>
#include <string>

namespace zorel {
class GlobalFuncs;
}

namespace zorel::ring {

/// A plan, and whether it may take the place of the one before.
struct Planned {
    Plan plan;
    bool isKnown = true; ///< false: the alarms could not be read, `plan.trouble` says why
};

/// Makes plans from reports. Every text is in the language of the services.
class Planner {
public:
    /// @param services outlive the planner. @param now the present, to whole seconds.
    Planner(const GlobalFuncs& services, Instant now) : services_(services), now_(now) {}

    /// @param before report from before the calendar was brought in step: it still has what passed.
    /// @param after report from then on.
    [[nodiscard]] Planned plan(const AlarmReport& before, const AlarmReport& after) const;
    /// The plan of a user who has no database yet: nothing rings.
    [[nodiscard]] Planned nothing() const { return {emptyPlan(), true}; }
    /// The plan that rings one alarm now, whether it is on or not.
    [[nodiscard]] Planned test(const AlarmReport& report, almanac::Prayer prayer) const;

private:
    [[nodiscard]] Plan emptyPlan() const;
    [[nodiscard]] Ring ringOf(const AlarmReport& report, const AlarmStatus& alarm, Instant at) const;
    [[nodiscard]] std::string text(std::int32_t key) const;
    [[nodiscard]] std::string bodyOf(const HomePlace& home, std::int32_t offset) const;

    const GlobalFuncs& services_;
    Instant now_;
};

/// How long an alarm rings. @param choice index of the duration, 0 to 7; the shortest for any other.
[[nodiscard]] std::chrono::seconds durationOf(std::int32_t choice);

} // namespace zorel::ring
