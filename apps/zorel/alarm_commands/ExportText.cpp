// SPDX-License-Identifier: Apache-2.0
#include "alarm_commands/ExportText.h"

#include "print/DayJson.h"

#include "alarms/NextRings.h"
#include "alarms/UserActions.h"
#include "almanac/PlaceClock.h"
#include "almanac/Prayer.h"
#include "platform/foundation/NumberText.h"
#include "platform/foundation/Utf8.h"
#include "words/Tr.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <set>

namespace zorel::cli {

namespace {
constexpr std::string_view kKind = "zorel/export/";
constexpr int kVersion = 1;
constexpr std::size_t kMostCities = 1000;
constexpr std::size_t kLongestRingtone = 200; ///< bytes
constexpr std::int64_t kLargestOffset = 59;   ///< [min]
constexpr std::int64_t kLastDuration = 7;

[[noreturn]] void refuse(const std::string& reason) {
    throw CliError(Exit::dataTrouble, tr("nothing was imported: {}", reason),
                   tr("only a file that zorel export wrote can be imported"));
}

const Json& member(const Json& object, const char* name) {
    const auto found = object.find(name);
    if (found == object.end()) {
        refuse(tr("\"{}\" is missing", name));
    }
    return *found;
}

std::int64_t wholeNumber(const Json& object, const char* name, std::int64_t smallest, std::int64_t largest) {
    const Json& value = member(object, name);
    const bool isWhole =
        value.is_number_integer() &&
        !(value.is_number_unsigned() &&
          value.get<std::uint64_t>() > std::uint64_t{std::numeric_limits<std::int32_t>::max()});
    const std::int64_t number = isWhole ? value.get<std::int64_t>() : 0;
    if (!isWhole || number < smallest || number > largest) {
        refuse(tr("\"{0}\" is no whole number from {1} to {2}", name, smallest, largest));
    }
    return number;
}

const Json& list(const Json& object, const char* name, std::size_t most) {
    const Json& value = member(object, name);
    if (!value.is_array() || value.size() > most) {
        refuse(tr("\"{0}\" is no list of at most {1}", name, most));
    }
    for (const Json& item : value) {
        if (!item.is_object()) {
            refuse(tr("\"{}\" holds something else than objects", name));
        }
    }
    return value;
}

/// The first thing that is asked, so that a newer file is told from a broken one.
void requireKind(const Json& document) {
    const auto schema = document.is_object() ? document.find("schema") : document.end();
    const bool isText = document.is_object() && schema != document.end() && schema->is_string();
    const std::string kind = isText ? schema->get<std::string>() : "";
    if (!kind.starts_with(kKind)) {
        refuse(tr("this is no export of cities and alarms"));
    }
    const std::string version = kind.substr(kKind.size());
    if (integerValue(version) > kVersion) {
        throw CliError(Exit::dataTrouble,
                       tr("nothing was imported: the file is of version {0}, and this zorel reads {1}",
                          printable(version), kVersion),
                       tr("install a newer zorel"));
    }
    if (version != std::to_string(kVersion)) {
        refuse(tr("it has no version"));
    }
}

void takeCities(const Json& document, UserRows& rows) {
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    const Json& cities = list(document, "cities", kMostCities);
    const bool hasHome = !member(document, "home").is_null();
    const std::int64_t home = hasHome ? wholeNumber(document, "home", 1, largest) : 0;
    std::set<std::int64_t> seen;
    for (const Json& city : cities) {
        const std::int64_t id = wholeNumber(city, "id", 1, largest);
        if (!seen.insert(id).second) {
            refuse(tr("the city {} is in it twice", id));
        }
        rows.cities.push_back({fmt::format("{}", id), fmt::format("{}", id == home ? 1 : 0)});
    }
    if (hasHome ? !seen.contains(home) : !seen.empty()) {
        refuse(tr("the home city is not among the cities"));
    }
}

/// A path below the ringtone folder that can be stored and printed.
std::string ringtoneOf(const Json& alarm) {
    const Json& value = member(alarm, "ringtone");
    const std::string name = value.is_string() ? value.get<std::string>() : "";
    const bool leadsOut = name.starts_with('/') || name.starts_with("../") || name == ".." ||
                          name.find("/../") != std::string::npos || name.ends_with("/..");
    const bool isPlain = value.is_string() && name.size() <= kLongestRingtone && isStorableRingtone(name) &&
                         cleanText(name) == name && !leadsOut;
    if (!isPlain) {
        refuse(tr("a ringtone is no name of a file in the ringtone folder"));
    }
    return name;
}

void takeAlarm(const Json& alarm, UserRows& rows, std::set<almanac::Prayer>& seen) {
    const Json& name = member(alarm, "name");
    const auto prayer = name.is_string() ? almanac::prayerOfKey(name.get<std::string>()) : std::nullopt;
    if (!prayer || almanac::identityOf(*prayer).row < 0) {
        refuse(tr("an alarm is of no prayer"));
    }
    if (!seen.insert(*prayer).second) {
        refuse(tr("the alarm {} is in it twice", almanac::keyOf(*prayer)));
    }
    const Json& active = member(alarm, "active");
    if (!active.is_boolean()) {
        refuse(tr("\"active\" is neither true nor false"));
    }
    AlarmRow& row =
        rows.alarms.at(static_cast<std::size_t>(almanac::identityOf(*prayer).id - kFirstAlarmPrayerId));
    row.active = active.get<bool>();
    row.minute =
        static_cast<std::int32_t>(wholeNumber(alarm, "offset_minutes", -kLargestOffset, kLargestOffset));
    row.melodyTime = static_cast<std::int32_t>(wholeNumber(alarm, "duration", 0, kLastDuration));
    row.melodyName = ringtoneOf(alarm);
    if (row.active && rows.cities.empty()) {
        refuse(tr("an alarm is on, and there is no city whose times it could follow"));
    }
}

void takePause(const Json& document, UserRows& rows) {
    const Json& until = member(document, "paused_until");
    if (until.is_null()) {
        return;
    }
    const auto moment = until.is_string() ? almanac::parseMoment(until.get<std::string>()) : std::nullopt;
    if (!moment || !moment->date || !moment->offset) {
        refuse(tr("\"paused_until\" is no moment"));
    }
    rows.pausedUntil = (std::chrono::sys_days(*moment->date) + moment->timeOfDay - *moment->offset)
                           .time_since_epoch()
                           .count();
}

Json alarmJson(const AlarmRow& row) {
    const auto prayer = almanac::prayerOfId(row.prayerId()).value_or(almanac::Prayer::fajr);
    const AlarmInfo info = row.info();
    return Json{{"name", almanac::keyOf(prayer)},
                {"active", info.active},
                {"offset_minutes", info.timeOffset},
                {"ringtone", info.melodyName},
                {"duration", info.melodyTime}};
}

} // namespace

std::string exportText(const UserRows& rows) {
    Json cities = Json::array();
    std::set<std::string> seen;
    for (const UserCity& city : rows.cities) {
        if (seen.insert(city.cityId).second) {
            cities.push_back(Json{{"id", integerValue(city.cityId)}});
        }
    }
    Json alarms = Json::array();
    for (const AlarmRow& row : rows.alarms) {
        alarms.push_back(alarmJson(row));
    }
    const auto home = homePosition(rows.cities);
    const auto until = instantOf(rows.pausedUntil);
    const Json document{{"schema", fmt::format("{}{}", kKind, kVersion)},
                        {"cities", cities},
                        {"home", home ? Json(integerValue(rows.cities[*home].cityId)) : Json(nullptr)},
                        {"alarms", alarms},
                        {"paused_until", until ? Json(almanac::isoDateTime(
                                                     almanac::PlaceClock::ofMachine().localTime(*until)))
                                               : Json(nullptr)}};
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

UserRows rowsOfExport(std::string_view text) {
    if (text.size() > kLargestExport) {
        refuse(tr("the file is larger than any export"));
    }
    const Json document = Json::parse(text, nullptr, false);
    if (document.is_discarded()) {
        refuse(tr("it is no JSON text"));
    }
    requireKind(document);
    UserRows rows;
    takeCities(document, rows);
    std::set<almanac::Prayer> seen;
    for (const Json& alarm : list(document, "alarms", kAlarms)) {
        takeAlarm(alarm, rows, seen);
    }
    takePause(document, rows);
    return rows;
}

} // namespace zorel::cli
