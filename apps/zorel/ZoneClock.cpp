// SPDX-License-Identifier: Apache-2.0
#include "ZoneClock.h"

#include "CliError.h"
#include "engine/AstroGlobalFuncs.h"
#include "platform/foundation/Clock.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>

namespace zorel::cli {

namespace {
using std::chrono::days;
using std::chrono::hours;
using std::chrono::seconds;
using std::chrono::sys_days;

std::filesystem::path zoneFolder() {
    const char* folder = std::getenv("TZDIR");
    return folder != nullptr && *folder != '\0' ? folder : "/usr/share/zoneinfo";
}

bool isPlainZoneName(const std::string& zone) {
    constexpr std::string_view allowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_+-/";
    return zone.find_first_not_of(allowed) == std::string::npos && zone.front() != '/' &&
           zone.find("//") == std::string::npos;
}

bool zoneExists(const std::string& zone) {
    std::error_code ignored;
    return isPlainZoneName(zone) && std::filesystem::is_regular_file(zoneFolder() / zone, ignored);
}

/// The C library's offset at an instant, in the zone the process is in.
seconds processOffset(UtcSeconds instant) {
    const std::time_t time = instant.time_since_epoch().count();
    std::tm fields{};
    return localtime_r(&time, &fields) == nullptr ? seconds(0) : seconds(fields.tm_gmtoff);
}

seconds ruleOffset(const RuleClock& rule, Date date) {
    bool saving = false;
    if (rule.dst == 1) {
        std::int32_t start = 0;
        std::int32_t stop = 0;
        const DateTimeRecord day = engineDate(date);
        saving = AstroGlobalFuncs().IsDSTDay(rule.startDay, rule.startMonth, rule.stopDay, rule.stopMonth,
                                             day.year, day.month, day.day, start, stop);
    }
    return seconds(std::lround((rule.gmt + (saving ? 1.0 : 0.0)) * 3600.0));
}
} // namespace

ZoneClock::ZoneClock(NamedClock named) : kind_(named) {
    if (!named.zone.empty() && !zoneExists(named.zone))
        throw CliError(Exit::badUse, fmt::format("no time zone {} on this system", quote(named.zone)),
                       "give an IANA name such as Europe/Istanbul, or an offset such as +3 or -03:30");
}

seconds ZoneClock::namedOffset(UtcSeconds instant) const {
    const std::string& zone = std::get<NamedClock>(kind_).zone;
    if (zone.empty())
        return processOffset(instant);
    const TimeZoneOverride lives(zone.c_str());
    return processOffset(instant);
}

seconds ZoneClock::offsetAt(UtcSeconds instant) const {
    if (const auto* fixed = std::get_if<FixedClock>(&kind_))
        return fixed->offset;
    if (const auto* rule = std::get_if<RuleClock>(&kind_))
        return ruleOffset(*rule, dateAt(instant));
    const sys_days day = std::chrono::floor<days>(instant);
    const auto atMidnight = [this](sys_days midnight) {
        const auto [entry, isNew] = midnightOffsets_.try_emplace(midnight);
        if (isNew)
            entry->second = namedOffset(midnight);
        return entry->second;
    };
    const seconds before = atMidnight(day);
    return before == atMidnight(day + days(1)) ? before : namedOffset(instant);
}

seconds ZoneClock::offsetOn(Date date) const {
    if (const auto* rule = std::get_if<RuleClock>(&kind_))
        return ruleOffset(*rule, date);
    const UtcSeconds noon = sys_days(date) + hours(12);
    return offsetAt(noon - offsetAt(noon));
}

Date ZoneClock::dateAt(UtcSeconds instant) const {
    if (const auto* rule = std::get_if<RuleClock>(&kind_)) {
        const seconds standard(std::lround(rule->gmt * 3600.0));
        const Date guess(std::chrono::floor<days>(instant + standard));
        return Date(std::chrono::floor<days>(instant + ruleOffset(*rule, guess)));
    }
    return Date(std::chrono::floor<days>(instant + offsetAt(instant)));
}

std::string ZoneClock::zoneName() const {
    const auto* named = std::get_if<NamedClock>(&kind_);
    return named != nullptr ? named->zone : std::string();
}

std::optional<ZoneClock> systemClock(const std::string& zone) {
    if (zone.empty() || !zoneExists(zone))
        return std::nullopt;
    return ZoneClock(NamedClock{zone});
}

std::string systemZoneName() {
    const char* variable = std::getenv("TZ");
    const bool isSet = variable != nullptr && *variable != '\0';
    std::error_code missing;
    const std::string zone = isSet ? std::string(*variable == ':' ? variable + 1 : variable)
                                   : std::filesystem::read_symlink("/etc/localtime", missing).string();
    const std::string_view folder = "/zoneinfo/";
    const auto below = zone.find(folder);
    if (below != std::string::npos)
        return zone.substr(below + folder.size());
    return isSet ? zone : std::string();
}

} // namespace zorel::cli
