// SPDX-License-Identifier: Apache-2.0
/// @file
/// What is due now, and until when one may sleep.
#pragma once

#include "ring/Plan.h"
#include "ring/RungLog.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace zorel::ring {

/// An event that began no longer ago than this is on time.
inline constexpr std::chrono::seconds kOnTime{5};
/// An event that was missed by no longer than this is still told, without sound.
inline constexpr std::chrono::minutes kStillTold{10};
/// How long a ring is put off.
inline constexpr std::chrono::minutes kSnooze{5};
/// A calendar event is over one minute after its start; then its alarm is moved to its next time.
inline constexpr std::chrono::minutes kEventLasts{1};

/// What to do at one moment.
struct Step {
    std::vector<Ring> ring;      ///< with sound
    std::vector<Ring> missed;    ///< told without sound
    bool wantsPlan = false;      ///< the alarms have to be looked at again
    std::optional<Instant> next; ///< when the next step is due; nothing: only when something else happens
};

/// Holds plan and clock against each other. Knows no clock itself: each question says what time it is, and
/// time may jump either way between two questions.
class Schedule {
public:
    /// @param log outlives the schedule.
    explicit Schedule(RungLog& log) : log_(log) {}

    /// Replaces what is known. What fell due before and was not asked for is lost: take a step first.
    void setPlan(Plan plan);
    [[nodiscard]] const Plan& plan() const { return plan_; }
    /// The first ring ahead; nullptr when there is none.
    [[nodiscard]] const Ring* upcoming(Instant now) const;

    /// What is due. Whatever it names is noted as told, on the disk, before it returns; what cannot be noted
    /// is told all the same, and `trouble` says so.
    [[nodiscard]] Step step(Instant now);
    /// Why the last note failed; empty when it did not.
    [[nodiscard]] const std::string& trouble() const { return trouble_; }

    /// Rings it again kSnooze after now.
    void snooze(const Ring& ring, Instant now);

private:
    void takeDue(const Ring& ring, Instant due, Instant now, Step& step) const;
    void takePlanned(Instant now, Step& step);
    void takeSnoozed(Instant now, Step& step);
    [[nodiscard]] bool wantsPlan(Instant now);
    [[nodiscard]] std::optional<Instant> nextAfter(Instant now) const;
    void note(std::error_code error);

    RungLog& log_;
    Plan plan_;
    std::optional<Instant> again_; ///< when to look at the alarms again
    std::string trouble_;
};

} // namespace zorel::ring
