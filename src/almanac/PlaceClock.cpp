// SPDX-License-Identifier: Apache-2.0
#include "almanac/PlaceClock.h"

#include "almanac/Offsets.h"
#include "almanac/RuleDays.h"
#include "almanac/ZoneData.h"

#include <cmath>
#include <cstdlib>
#include <map>
#include <mutex>
#include <tuple>

namespace zorel::almanac {

namespace {
using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;

/// A rule that can be computed with and compared.
ClockRule finite(ClockRule rule) {
    const auto orZero = [](double hours) { return std::abs(hours) <= 24.0 ? hours : 0.0; };
    rule.standard = orZero(rule.standard);
    if (rule.departure) {
        rule.departure->offset = orZero(rule.departure->offset);
    }
    return rule;
}
} // namespace

struct PlaceClock::Kind {
    std::shared_ptr<const Offsets> offsets;
    ClockSource source = ClockSource::fixed;
    std::string zone{};
    /// Where the system's data is older than the rule: both, and the days on which the rule was preferred.
    std::shared_ptr<const Offsets> olderSystem{};
    ClockRule rule{};
    std::vector<DayRun> ruleDays{};

    [[nodiscard]] bool isRuleDay(Date date) const { return contains(ruleDays, date); }
    [[nodiscard]] bool differsOn(Date date) const {
        if (!olderSystem || date < kRuleExactFrom || (rule.exact && date <= kRuleExactTo)) {
            return isRuleDay(date);
        }
        return almanac::offsetOn(*olderSystem, date) != ruleOffsetOn(rule, date);
    }

    /// A place whose zone the system knows.
    static Kind ofBoth(const std::string& zone, std::shared_ptr<const NearOffsets> system,
                       const ClockRule& rule, const std::string& edition) {
        if (!isOlderEdition(systemZoneEdition(), edition)) {
            return {system, ClockSource::zoneData, zone};
        }
        std::vector<DayRun> days = rule.exact ? differingDays(*system, rule) : std::vector<DayRun>{};
        const auto offsets = days.empty() ? system : withRuleOn(days, system, rule);
        return {offsets, ClockSource::zoneData, zone, system, rule, std::move(days)};
    }

    static Kind ofPlace(const std::string& zone, const ClockRule& rule, const std::string& edition) {
        const auto system = loadZone(zone);
        if (system) {
            return ofBoth(zone, system, rule, edition);
        }
        return {std::make_shared<const RuleOffsets>(rule), ClockSource::rule, zone};
    }

    static Kind ofMachine() {
        const std::string name = machineZoneName();
        if (auto zone = loadZone(name)) {
            return {std::move(zone), ClockSource::zoneData, name};
        }
        if (std::getenv("TZ") == nullptr) {
            if (auto zone = loadZoneFile("/etc/localtime")) {
                return {std::move(zone), ClockSource::zoneData};
            }
        }
        return {std::make_shared<const ProcessOffsets>(), ClockSource::zoneData};
    }
};

PlaceClock::PlaceClock(std::shared_ptr<const Kind> kind) : kind_(std::move(kind)) {}

PlaceClock::PlaceClock() : PlaceClock(fixed(seconds(0))) {}

PlaceClock PlaceClock::fixed(seconds offset) {
    return PlaceClock(std::make_shared<const Kind>(Kind{std::make_shared<const FixedOffset>(offset)}));
}

std::optional<PlaceClock> PlaceClock::ofZone(const std::string& zone) {
    auto offsets = loadZone(zone);
    if (!offsets) {
        return std::nullopt;
    }
    return PlaceClock(std::make_shared<const Kind>(Kind{std::move(offsets), ClockSource::zoneData, zone}));
}

PlaceClock PlaceClock::ofPlace(const std::string& zone, const ClockRule& given, const std::string& edition) {
    static std::mutex mutex;
    static std::map<std::tuple<std::string, ClockRule, std::string>, std::shared_ptr<const Kind>> known;
    const ClockRule rule = finite(given);
    const std::scoped_lock lock(mutex);
    auto& kind = known[{zone, rule, edition}];
    if (!kind) {
        kind = std::make_shared<const Kind>(Kind::ofPlace(zone, rule, edition));
    }
    return PlaceClock(kind);
}

PlaceClock PlaceClock::ofMachine() {
    return PlaceClock(std::make_shared<const Kind>(Kind::ofMachine()));
}

seconds PlaceClock::offsetAt(Instant instant) const {
    return kind_->offsets->at(instant).offset;
}

seconds PlaceClock::offsetOn(Date date) const {
    return almanac::offsetOn(*kind_->offsets, date);
}

LocalTime PlaceClock::localTime(Instant instant) const {
    const seconds offset = offsetAt(instant);
    const sys_days midnight = std::chrono::floor<days>(instant + offset);
    return {Date(midnight), instant + offset - midnight, offset};
}

Instant PlaceClock::instantOf(Date date, seconds timeOfDay) const {
    return almanac::instantOf(*kind_->offsets, date, timeOfDay);
}

std::optional<seconds> PlaceClock::steadyOffsetAround(Date date) const {
    const Offsets& offsets = *kind_->offsets;
    Stretch stretch = offsets.at(sys_days(date));
    const seconds offset = stretch.offset;
    const Instant end = sys_days(date) + days(2) - offset;
    const Instant begin = sys_days(date) - days(1) - offset;
    if (begin < stretch.from) {
        stretch = offsets.at(begin);
    }
    while (stretch.to < end && stretch.offset == offset) {
        stretch = offsets.at(stretch.to);
    }
    return stretch.offset == offset ? std::optional(offset) : std::nullopt;
}

ClockSource PlaceClock::sourceOn(Date date) const {
    return kind_->isRuleDay(date) ? ClockSource::rule : kind_->source;
}

ClockNotice PlaceClock::noticeOn(Date date) const {
    if (kind_->source == ClockSource::rule) {
        return ClockNotice::ruleOnly;
    }
    if (kind_->isRuleDay(date)) {
        return ClockNotice::ruleIsNewer;
    }
    return kind_->differsOn(date) ? ClockNotice::systemIsOlder : ClockNotice::none;
}

std::optional<seconds> PlaceClock::otherOffsetOn(Date date) const {
    if (!kind_->differsOn(date)) {
        return std::nullopt;
    }
    return kind_->isRuleDay(date) ? almanac::offsetOn(*kind_->olderSystem, date)
                                  : ruleOffsetOn(kind_->rule, date);
}

const std::string& PlaceClock::zoneName() const {
    return kind_->zone;
}

} // namespace zorel::almanac
