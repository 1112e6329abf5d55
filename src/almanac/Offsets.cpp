// SPDX-License-Identifier: Apache-2.0
#include "almanac/Offsets.h"

#include "engine/AstroGlobalFuncs.h"

#include <cmath>
#include <ctime>

namespace zorel::almanac {

namespace {
using std::chrono::days;
using std::chrono::hours;
using std::chrono::seconds;
using std::chrono::sys_days;

/// No clock was ever farther from universal time.
constexpr seconds kFarthest = hours(16);

seconds ofHours(double value) {
    return seconds(std::lround(value * 3600.0));
}

bool isSavingDay(const ClockRule& rule, Date date) {
    std::int32_t start = 0;
    std::int32_t stop = 0;
    const DateTimeRecord day = engineDate(date);
    return AstroGlobalFuncs().IsDSTDay(rule.startDay, rule.startMonth, rule.stopDay, rule.stopMonth, day.year,
                                       day.month, day.day, start, stop);
}

/// The C library's offset at an instant; universal time for one that it cannot tell.
seconds processOffset(Instant instant) {
    const std::time_t time = instant.time_since_epoch().count();
    std::tm fields{};
    return localtime_r(&time, &fields) == nullptr ? seconds(0) : seconds(fields.tm_gmtoff);
}

/// The first instant with the later offset, of a span whose ends differ.
Instant processChange(Instant from, Instant to) {
    const seconds before = processOffset(from);
    while (to - from > seconds(1)) {
        const Instant middle = from + (to - from) / 2;
        (processOffset(middle) == before ? from : to) = middle;
    }
    return to;
}
} // namespace

seconds ruleOffsetOn(const ClockRule& rule, Date date) {
    if (rule.departure && date >= rule.departure->first && date <= rule.departure->last) {
        return ofHours(rule.departure->offset);
    }
    const bool saving = rule.saving && isSavingDay(rule, date);
    return ofHours(rule.standard + (saving ? 1.0 : 0.0));
}

RuleOffsets::RuleOffsets(const ClockRule& rule) : rule_(rule), standard_(ofHours(rule.standard)) {}

Stretch RuleOffsets::at(Instant instant) const {
    if (!rule_.saving && !rule_.departure) {
        return {kEarliest, kLatest, standard_};
    }
    const sys_days day = std::chrono::floor<days>(instant + standard_);
    const Instant midnight = day - standard_;
    return {midnight, midnight + days(1), ruleOffsetOn(rule_, Date(day))};
}

ProcessOffsets::ProcessOffsets() {
    tzset();
}

Stretch ProcessOffsets::at(Instant instant) const {
    const Instant from = std::chrono::floor<days>(instant);
    const Instant to = from + days(1);
    const seconds before = processOffset(from);
    const seconds after = processOffset(to);
    if (before == after) {
        return {from, to, before};
    }
    const Instant change = processChange(from, to);
    return instant < change ? Stretch{from, change, before} : Stretch{change, to, after};
}

Instant instantOf(const Offsets& offsets, Date date, seconds timeOfDay) {
    const Instant wall = sys_days(date) + timeOfDay;
    Stretch stretch = offsets.at(wall - kFarthest);
    Instant found = wall - stretch.offset;
    while (found >= stretch.to) {
        const Stretch next = offsets.at(stretch.to);
        if (wall - next.offset < next.from) {
            break; // skipped: it stays with the offset before
        }
        stretch = next;
        found = wall - stretch.offset;
    }
    return found;
}

seconds offsetOn(const Offsets& offsets, Date date) {
    return offsets.at(instantOf(offsets, date, hours(12))).offset;
}

} // namespace zorel::almanac
