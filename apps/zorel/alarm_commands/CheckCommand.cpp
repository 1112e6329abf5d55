// SPDX-License-Identifier: Apache-2.0
// Whether the alarms will ring: each thing that they need, good or bad, and what to do.
#include "commands/Commands.h"

#include "alarm_commands/RingClient.h"
#include "commands/CataloguePlaces.h"
#include "commands/HeadlessPane.h"
#include "commands/UserData.h"
#include "print/ClockNotices.h"
#include "print/DayJson.h"
#include "print/DayText.h"
#include "terminal/Program.h"

#include "alarms/PrayerAlarms.h"
#include "almanac/PlaceClock.h"
#include "platform/eventkit/EKEventStore.h"
#include "store/DatabaseFunctions.h"
#include "words/Tr.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <vector>

namespace zorel::cli {

namespace {
constexpr const char* kTimer = "zorel-refresh.timer";

/// One thing that was looked at.
struct Look {
    const char* name;
    bool good = true;
    std::string text;
    std::string remedy = {}; ///< of what is bad
};

/// What all looks start from.
struct Findings {
    UserCities cities;
    AlarmReport report;
    std::ptrdiff_t on = 0; ///< alarms that are on
    bool isPretended = false;
    RingStatus service; ///< of the real present only

    [[nodiscard]] bool hasTrouble(std::initializer_list<AlarmTrouble> troubles) const {
        return std::ranges::find(troubles, report.trouble) != troubles.end();
    }
};

Findings lookAround(const Context& context) {
    DatabaseFunctions rows(context.services);
    Findings findings;
    findings.cities = storedUserCities(rows.userDBPath());
    if (findings.cities.result.state != StoreState::missing) {
        findings.report = PrayerAlarms(context.services, rows).report();
    }
    findings.on = std::ranges::count_if(findings.report.alarms,
                                        [](const AlarmStatus& alarm) { return alarm.info.active; });
    findings.isPretended = !context.options.now.empty();
    if (!findings.isPretended) {
        findings.service = ringStatus();
    }
    return findings;
}

Look lookAtDatabase(const Findings& findings) {
    constexpr const char* name = trLater("database");
    if (findings.hasTrouble({AlarmTrouble::busy, AlarmTrouble::unreadableRows})) {
        return {name, false, findings.report.reason, remedyFor(findings.report)};
    }
    if (findings.cities.rows.empty()) {
        return {name, true, tr("no city was added yet")};
    }
    return {name, true,
            trIn("cities and alarms", "{0}, {1}",
                 trPlural("{} city", "{} cities", static_cast<std::ptrdiff_t>(findings.cities.rows.size())),
                 findings.on == 0 ? tr("no alarm is on")
                                  : trPlural("{} alarm is on", "{} alarms are on", findings.on))};
}

Look lookAtCalendar(const Findings& findings) {
    constexpr const char* name = trLater("calendar");
    if (findings.hasTrouble(
            {AlarmTrouble::unreadableCalendar, AlarmTrouble::unpublished, AlarmTrouble::leftovers})) {
        return {name, false, findings.report.reason, remedyFor(findings.report)};
    }
    const std::string folder = EKEventStore().defaultCalendarForNewEvents().calendarIdentifier;
    std::error_code error;
    if (!std::filesystem::exists(folder, error) && !error) {
        return {name, true, tr("no event was placed yet")};
    }
    if (access(folder.c_str(), R_OK | W_OK | X_OK) != 0) {
        return {name, false, tr("{} cannot be written", folder), storingHint()};
    }
    return {name, true, folder};
}

Look lookAtCatalogue(const Context& context, const Findings& findings) {
    constexpr const char* name = trLater("catalogue");
    if (findings.hasTrouble({AlarmTrouble::unknownHome, AlarmTrouble::unreadableCatalogue})) {
        return {name, false, findings.report.reason, remedyFor(findings.report)};
    }
    const auto one = [](const CataloguePlace&) { return false; };
    if (!forEachPlace(context.services, 0, one)) {
        const CliError trouble = unreadableCatalogue(context.services);
        return {name, false, trouble.what(), trouble.hint()};
    }
    return {name, true, tr("can be read")};
}

Look lookAtZoneData(const Context& context, const Findings& findings) {
    constexpr const char* name = trLater("zone data");
    const std::string edition = almanac::systemZoneEdition();
    if (!findings.report.home.row) {
        return {name, true, edition.empty() ? tr("of an unknown edition") : tr("edition {}", edition)};
    }
    const ShownPlace home = shownPlace(*findings.report.home.row);
    const almanac::Date today = home.clock().dateAt(context.now());
    const almanac::ClockNotice notice = home.clock().noticeOn(today);
    if (notice == almanac::ClockNotice::none) {
        return {name, true,
                edition.empty() ? home.clock().zoneName()
                                : tr("{0}, edition {1}", home.clock().zoneName(), edition)};
    }
    const bool isRight = notice == almanac::ClockNotice::ruleIsNewer;
    return {name, isRight, clockNoticeText(home, today),
            isRight ? "" : tr("update the system's package tzdata")};
}

Look lookAtAlarms(const Context& context, const Findings& findings) {
    constexpr const char* name = trLater("alarms");
    if (findings.cities.result.state == StoreState::missing) {
        return {name, true, tr("all are off")};
    }
    if (findings.report.trouble == AlarmTrouble::none && !findings.report.isGood()) {
        return {name, false, findings.report.complaint(), remedyFor(findings.report)};
    }
    const AlarmStatus* next = nullptr;
    for (const AlarmStatus& alarm : findings.report.alarms) {
        const bool rings = alarm.state == AlarmState::rings;
        next = rings && (next == nullptr || *alarm.ringsAt < *next->ringsAt) ? &alarm : next;
    }
    if (next == nullptr) {
        return {name, true, findings.on == 0 ? tr("all are off") : tr("none rings within the next two days")};
    }
    const auto at = almanac::PlaceClock::ofMachine().localTime(*next->ringsAt);
    return {name, true,
            tr("the next is {0}, {1} {2} by this machine's clock", context.nameOf(next->prayer),
               almanac::isoDate(at.date), almanac::clockText(at.timeOfDay, almanac::Precision::minutes))};
}

std::string wakeText(const RingStatus& service) {
    const auto wakes = service.words.find("wakes");
    return wakes != service.words.end() && wakes->second == "yes"
               ? tr("it wakes a sleeping machine")
               : tr("it cannot wake a sleeping machine (it lacks the capability CAP_WAKE_ALARM)");
}

Look lookAtService(const Findings& findings) {
    constexpr const char* name = trLater("ring service");
    const RingStatus& service = findings.service;
    if (findings.isPretended) {
        return {name, true, tr("not asked, because the moment is pretended")};
    }
    if (!service.runs && isGnomeRinging()) {
        return {name, true, tr("does not run; GNOME rings")};
    }
    if (!service.runs) {
        return findings.on == 0 ? Look{name, true, tr("does not run; no alarm is on")}
                                : Look{name, false, tr("does not run in this session"),
                                       tr("start it with zorel-ring --start; docs/alarms.md has other ways")};
    }
    if (const auto trouble = service.words.find("trouble"); trouble != service.words.end()) {
        return {name, false, trouble->second, tr("zorel alarms refresh says why")};
    }
    return {name, true, whoRings(service) + "; " + wakeText(service)};
}

Look lookAtTimer(const Findings& findings) {
    constexpr const char* name = trLater("timer");
    if (findings.isPretended) {
        return {name, true, tr("not asked, because the moment is pretended")};
    }
    if (findings.service.runs) {
        return {name, true, tr("not needed while the ring service runs")};
    }
    if (runProgram({"systemctl", "--user", "is-enabled", kTimer}).status == 0) {
        return {name, true, tr("{} moves the alarms every night", kTimer)};
    }
    return findings.on == 0 ? Look{name, true, tr("not needed; no alarm is on")}
                            : Look{name, false, tr("nothing moves the alarms to their next times at night"),
                                   fmt::format("systemctl --user enable --now {}", kTimer)};
}

/// What can be mended is what a refresh and a start of the service do; the looks tell what is left.
void heal(const Context& context) {
    try {
        makeDataDir();
        HeadlessPane pane;
        static_cast<void>(pane.act([](UserActions& actions) { return actions.refresh(); }));
    } catch (const CliError&) {
        return;
    }
    const Findings findings = lookAround(context);
    if (!findings.isPretended && findings.on > 0 && !findings.service.runs) {
        startRinging(context);
    }
}

void print(const Context& context, const std::vector<Look>& looks, bool good) {
    if (context.options.json) {
        Json checks = Json::array();
        for (const Look& look : looks) {
            checks.push_back(Json{{"name", look.name},
                                  {"good", look.good},
                                  {"text", look.text},
                                  {"remedy", look.remedy.empty() ? Json(nullptr) : Json(look.remedy)}});
        }
        writeJson(context, Json{{"schema", "zorel/check/1"}, {"good", good}, {"checks", checks}});
        return;
    }
    TextTable table("lll");
    for (const Look& look : looks) {
        table.add({look.good ? trIn("state of a thing", "good") : trIn("state of a thing", "bad"),
                   tr(look.name), look.text},
                  look.good ? TextTable::Emphasis::none : TextTable::Emphasis::bold);
        if (!look.remedy.empty()) {
            table.add({"", "", "-> " + look.remedy});
        }
    }
    context.streams.out << table.text(context.style);
}
} // namespace

Exit runAlarmsCheck(const Context& context) {
    if (context.options.heal) {
        heal(context);
    }
    const Findings findings = lookAround(context);
    const std::vector<Look> looks{lookAtDatabase(findings),
                                  lookAtCalendar(findings),
                                  lookAtCatalogue(context, findings),
                                  lookAtZoneData(context, findings),
                                  lookAtAlarms(context, findings),
                                  lookAtService(findings),
                                  lookAtTimer(findings)};
    const auto bad = std::ranges::count(looks, false, &Look::good);
    print(context, looks, bad == 0);
    if (bad > 0) {
        throw CliError(Exit::dataTrouble,
                       trPlural("{} thing is not as it must be", "{} things are not as they must be", bad),
                       context.options.heal ? tr("what is left needs you: the lines with -> say what to do")
                                            : tr("zorel alarms check --heal mends what it can"));
    }
    return Exit::ok;
}

} // namespace zorel::cli
