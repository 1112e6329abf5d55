// SPDX-License-Identifier: Apache-2.0
#include "almanac/RuleDays.h"

#include <algorithm>

namespace zorel::almanac {

namespace {
using std::chrono::days;
using std::chrono::hours;
using std::chrono::seconds;

/// When the rule takes over for a run, and when it gives back. The first and the last day of the rule's span
/// have no noon beside them at which both agree: there the seam is midnight.
std::pair<Instant, Instant> seamsOf(const DayRun& run, const Offsets& rule) {
    const Instant from = run.first == kRuleExactFrom ? instantOf(rule, run.first, seconds(0))
                                                     : instantOf(rule, addDays(run.first, -1), hours(12));
    const Instant to = run.last == kRuleExactTo ? instantOf(rule, addDays(run.last, 1), seconds(0))
                                                : instantOf(rule, addDays(run.last, 1), hours(12));
    return {from, to};
}

/// A course in the making; neighbours with one offset become one stretch.
class Course {
public:
    [[nodiscard]] Instant end() const { return stretches_.empty() ? kNearFirst : stretches_.back().to; }

    void follow(const Offsets& source, Instant to) {
        while (end() < to) {
            const Stretch stretch = source.at(end());
            append(std::min(stretch.to, to), stretch.offset);
        }
    }

    [[nodiscard]] std::vector<Stretch> take() { return std::move(stretches_); }

private:
    void append(Instant to, seconds offset) {
        if (!stretches_.empty() && stretches_.back().offset == offset) {
            stretches_.back().to = to;
        } else {
            stretches_.push_back({end(), to, offset});
        }
    }

    std::vector<Stretch> stretches_;
};

/// The offsets at the noons of days that come in their order: one look-up for each stretch, not for each day.
class Noons {
public:
    explicit Noons(const Offsets& offsets) : offsets_(offsets) {}

    seconds offsetOn(Date date) {
        const Instant noon = std::chrono::sys_days(date) + hours(12);
        if (noon - days(1) < stretch_.from || noon + days(1) > stretch_.to) {
            stretch_ = offsets_.at(noon);
            return almanac::offsetOn(offsets_, date);
        }
        return stretch_.offset;
    }

private:
    const Offsets& offsets_;
    Stretch stretch_{kEarliest, kEarliest, seconds(0)};
};
} // namespace

bool contains(const std::vector<DayRun>& runs, Date date) {
    const auto run = std::ranges::lower_bound(runs, date, {}, &DayRun::last);
    return run != runs.end() && run->first <= date;
}

std::vector<DayRun> differingDays(const Offsets& system, const ClockRule& rule) {
    std::vector<DayRun> runs;
    Noons noons(system);
    bool differed = false;
    for (Date date = kRuleExactFrom; date <= kRuleExactTo; date = addDays(date, 1)) {
        const bool differs = noons.offsetOn(date) != ruleOffsetOn(rule, date);
        if (differs && differed) {
            runs.back().last = date;
        } else if (differs) {
            runs.push_back({date, date});
        }
        differed = differs;
    }
    return runs;
}

std::shared_ptr<const NearOffsets> withRuleOn(const std::vector<DayRun>& runs,
                                              const std::shared_ptr<const NearOffsets>& system,
                                              const ClockRule& rule) {
    const RuleOffsets byRule(rule);
    Course course;
    for (const DayRun& run : runs) {
        const auto [from, to] = seamsOf(run, byRule);
        course.follow(*system, from);
        course.follow(byRule, to);
    }
    course.follow(*system, kNearEnd);
    return std::make_shared<const NearOffsets>(course.take(), system->others());
}

} // namespace zorel::almanac
