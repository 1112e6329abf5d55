// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/CataloguePlaces.h"
#include "commands/HeadlessPane.h"
#include "commands/UserData.h"
#include "print/ClockNotices.h"
#include "print/DayJson.h"
#include "print/DayText.h"

#include "almanac/Almanac.h"
#include "almanac/Scanner.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/foundation/Locale.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueLookup.h"
#include "views/AlarmView.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace zorel::cli {

using almanac::Prayer;

namespace {
constexpr int kLargestOffset = 59; // [min]
constexpr std::int32_t kNoSuchTimeText = 1043;

/// One alarm as it is listed.
struct ListedAlarm {
    Prayer prayer = Prayer::fajr;
    AlarmInfo info;
    ShownTime time;                        ///< of today
    std::optional<almanac::Instant> rings; ///< start of its calendar event
};

/// The home city, its date of today and its alarms.
struct AlarmList {
    std::optional<ShownPlace> home;
    almanac::Date today{};
    std::vector<ListedAlarm> alarms;
};

std::int32_t prayerIdOf(Prayer prayer) {
    return almanac::identityOf(prayer).id;
}

/// The place of the home city; nothing without one.
std::optional<ShownPlace> homePlace(const Context& context, const HeadlessPane& pane) {
    const auto row = pane.home() == nullptr ? std::nullopt
                                            : placeById(context.services, integerValue(pane.home()->cityId));
    return row ? std::optional(shownPlace(*row)) : std::nullopt;
}

std::optional<almanac::Instant> ringsAt(const std::string& eventId) {
    const auto event = eventId.empty() ? std::nullopt : EKEventStore().eventWithIdentifier(eventId);
    return event ? std::optional(std::chrono::floor<std::chrono::seconds>(event->startDate)) : std::nullopt;
}

/// When an alarm that is on rings, by the clock of this machine.
ShownTime shownRing(const ListedAlarm& alarm) {
    if (!alarm.info.active || !alarm.rings) {
        return std::nullopt;
    }
    return almanac::PlaceClock::ofMachine().localTime(*alarm.rings);
}

AlarmList listedAlarms(const Context& context, const HeadlessPane& pane) {
    AlarmList list{homePlace(context, pane), {}, {}};
    almanac::Day day;
    if (list.home) {
        list.today = list.home->clock().dateAt(context.now());
        day = almanac::Almanac(list.home->place).day(list.today);
    }
    for (const Prayer prayer : almanac::kSixPrayers) {
        const ShownTime time =
            list.home && day[prayer].exists() ? ShownTime(day[prayer].local) : std::nullopt;
        const std::int32_t id = prayerIdOf(prayer);
        list.alarms.push_back({prayer, pane.alarm(id), time, ringsAt(pane.eventId(id))});
    }
    return list;
}

std::string durationLabel(const HeadlessPane& pane, std::int32_t duration) {
    const auto& durations = pane.editor().melodyTimeArray();
    const bool known = duration >= 0 && duration < static_cast<std::int32_t>(durations.size());
    return known ? durations[static_cast<std::size_t>(duration)].displayText : std::string();
}

std::string prayerText(const Context& context, const HeadlessPane& pane, const ListedAlarm& alarm,
                       almanac::Date today) {
    if (pane.home() == nullptr) {
        return "-";
    }
    return alarm.time ? timeText(context, alarm.time, today)
                      : context.services.GetKeyValue(kNoSuchTimeText)
                            .value_or(std::string(context.word(Word::noSuchTimeToday)));
}

std::string ringsText(const ShownTime& ring) {
    return ring ? fmt::format("{} {}", almanac::isoDate(ring->date),
                              almanac::clockText(ring->timeOfDay, almanac::Precision::minutes))
                : std::string();
}

void printText(const Context& context, const HeadlessPane& pane, const AlarmList& list) {
    TextTable table("lllrlll");
    table.add({"", "", std::string(context.word(Word::time)), std::string(context.word(Word::offset)),
               std::string(context.word(Word::rings)), std::string(context.word(Word::ringtone)),
               std::string(context.word(Word::duration))},
              TextTable::Emphasis::dim);
    for (const ListedAlarm& alarm : list.alarms) {
        table.add({context.nameOf(alarm.prayer),
                   std::string(context.word(alarm.info.active ? Word::on : Word::off)),
                   prayerText(context, pane, alarm, list.today), fmt::format("{:+}", alarm.info.timeOffset),
                   ringsText(shownRing(alarm)), alarm.info.melodyName,
                   fmt::format("{} ({})", alarm.info.melodyTime, durationLabel(pane, alarm.info.melodyTime))},
                  alarm.info.active ? TextTable::Emphasis::bold : TextTable::Emphasis::none);
    }
    context.streams.out << (pane.home() == nullptr ? std::string(context.word(Word::noCities))
                                                   : context.style.bold(pane.home()->name))
                        << '\n'
                        << table.text(context.style);
    if (list.home) {
        context.streams.out << clockNoticeLine(context, *list.home, list.today);
    }
}

Json alarmJson(const Context& context, const HeadlessPane& pane, const ListedAlarm& alarm) {
    return Json{{"name", almanac::keyOf(alarm.prayer)},
                {"label", context.nameOf(alarm.prayer)},
                {"active", alarm.info.active},
                {"offset_minutes", alarm.info.timeOffset},
                {"ringtone", alarm.info.melodyName},
                {"duration", alarm.info.melodyTime},
                {"duration_label", durationLabel(pane, alarm.info.melodyTime)},
                {"prayer_time", timeJson(alarm.time)},
                {"rings_at", timeJson(shownRing(alarm))},
                {"no_such_time_today", pane.home() != nullptr && !alarm.time}};
}

/// Alarms ring by the clock of this machine, whatever that of the home city says.
void compareClocks(const Context& context, const std::optional<ShownPlace>& home) {
    if (!home) {
        return;
    }
    const auto here = almanac::PlaceClock::ofMachine().offsetAt(context.now());
    const auto there = home->clock().offsetAt(context.now());
    if (here != there) {
        context.note(fmt::format("alarms ring by this machine's clock (UTC{}), not by that of {} (UTC{})",
                                 almanac::isoOffset(here), home->place.name, almanac::isoOffset(there)));
    }
}

Json listJson(const Context& context, const HeadlessPane& pane, const AlarmList& list) {
    Json items = Json::array();
    for (const ListedAlarm& alarm : list.alarms) {
        items.push_back(alarmJson(context, pane, alarm));
    }
    return Json{{"schema", "zorel/alarms/1"},
                {"home", pane.home() == nullptr ? Json(nullptr) : Json(pane.home()->name)},
                {"clock", list.home ? clockJson(*list.home, list.today) : Json(nullptr)},
                {"alarms", items}};
}

Exit list(const Context& context, const HeadlessPane& pane) {
    const AlarmList alarms = listedAlarms(context, pane);
    compareClocks(context, alarms.home);
    if (context.options.json) {
        writeJson(context, listJson(context, pane, alarms));
    } else {
        printText(context, pane, alarms);
    }
    return Exit::ok;
}

std::int32_t wantedPrayer(const Context& context) {
    const auto prayer = almanac::prayerOfKey(lowerCase(context.options.prayer));
    if (prayer && almanac::identityOf(*prayer).row >= 0) {
        return prayerIdOf(*prayer);
    }
    throw CliError(Exit::badUse, fmt::format("{} is no prayer", quote(context.options.prayer)),
                   "fajr, sunrise, dhuhr, asr, maghrib or isha");
}

/// A whole number of a range, with an optional sign.
int wantedNumber(const Context& context, int smallest, int largest, std::string_view what) {
    almanac::Scanner scan(context.options.value);
    const bool negative = scan.take('-');
    if (!negative) {
        scan.take('+');
    }
    const auto size = scan.number(1000);
    const int number = size ? (negative ? -*size : *size) : 0;
    if (!size || !scan.atEnd() || number < smallest || number > largest) {
        throw CliError(Exit::badUse, fmt::format("{} is no {}", quote(context.options.value), what),
                       fmt::format("a whole number from {} to {}", smallest, largest));
    }
    return number;
}

std::string wantedRingtone(const Context& context, const HeadlessPane& pane) {
    const std::string name = context.argument();
    std::vector<std::string> known;
    for (const UIComboboxItem& item : pane.editor().melodyArray()) {
        if (item.originalText == name || lowerCase(item.displayText) == lowerCase(name)) {
            return item.originalText;
        }
        known.push_back(item.displayText);
    }
    throw CliError(Exit::badUse, fmt::format("no ringtone {} in the ringtone folder", quote(name)),
                   known.empty() ? "name another folder with --ringtones DIR"
                                 : fmt::format("there are: {}", fmt::join(known, ", ")));
}

/// After a refresh every active alarm rings in the future; the pane only logs what it could not store.
void requireUpcoming(const Context& context, const HeadlessPane& pane) {
    for (const ListedAlarm& alarm : listedAlarms(context, pane).alarms) {
        if (alarm.info.active && (!alarm.rings || *alarm.rings <= context.now())) {
            throw CliError(
                Exit::dataTrouble,
                fmt::format("the alarm {} could not be moved to its next time", almanac::keyOf(alarm.prayer)),
                storingHint());
        }
    }
}

/// Changes one alarm as its editor would; refuses when the pane refuses.
Exit change(const Context& context, HeadlessPane& pane, HeadlessPane::Change what,
            const std::function<void(AlarmView&)>& edit,
            const std::function<bool(const AlarmInfo&)>& isStored) {
    const std::int32_t prayerId = wantedPrayer(context);
    if (pane.home() == nullptr) {
        throw CliError(Exit::noResult, "there is no home city whose times an alarm could follow",
                       "zorel cities add NAME");
    }
    if (!pane.edit(prayerId, what, edit)) {
        throw CliError(Exit::noResult,
                       fmt::format("the alarm {} is off, and an alarm that is off keeps no changes",
                                   context.options.prayer),
                       fmt::format("zorel alarms on {}", context.options.prayer));
    }
    if (!isStored(pane.alarm(prayerId))) {
        throw CliError(Exit::dataTrouble,
                       fmt::format("the alarm {} could not be stored", context.options.prayer),
                       storingHint() + "; a ringtone's name must not hold a quote");
    }
    return list(context, pane);
}
} // namespace

Exit runAlarms(const Context& context) {
    return list(context, HeadlessPane());
}

Exit runAlarmsOn(const Context& context) {
    HeadlessPane pane;
    return change(
        context, pane, HeadlessPane::Change::on, [](AlarmView&) {},
        [](const AlarmInfo& info) { return info.active; });
}

Exit runAlarmsOff(const Context& context) {
    HeadlessPane pane;
    return change(
        context, pane, HeadlessPane::Change::off, [](AlarmView&) {},
        [](const AlarmInfo& info) { return !info.active; });
}

Exit runAlarmsOffset(const Context& context) {
    const int minutes = wantedNumber(context, -kLargestOffset, kLargestOffset, "offset");
    HeadlessPane pane;
    return change(
        context, pane, HeadlessPane::Change::offset,
        [minutes](AlarmView& view) { view.setTimeOffset(minutes); },
        [minutes](const AlarmInfo& info) { return info.timeOffset == minutes; });
}

Exit runAlarmsRingtone(const Context& context) {
    HeadlessPane pane;
    const std::string name = wantedRingtone(context, pane);
    return change(
        context, pane, HeadlessPane::Change::ringtone, [&](AlarmView& view) { view.setMelodyName(name); },
        [&](const AlarmInfo& info) { return info.melodyName == name; });
}

Exit runAlarmsDuration(const Context& context) {
    const int choice = wantedNumber(context, 0, 7, "duration");
    HeadlessPane pane;
    return change(
        context, pane, HeadlessPane::Change::duration,
        [choice](AlarmView& view) { view.setMelodyTime(choice); },
        [choice](const AlarmInfo& info) { return info.melodyTime == choice; });
}

Exit runAlarmsRefresh(const Context& context) {
    HeadlessPane pane;
    if (pane.home() != nullptr) {
        pane.refresh();
    }
    requireUpcoming(context, pane);
    return list(context, pane);
}

} // namespace zorel::cli
