// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "CataloguePlaces.h"
#include "Day.h"
#include "DayJson.h"
#include "DayText.h"
#include "Pane.h"
#include "Scanner.h"
#include "UserData.h"

#include "platform/eventkit/EKEventStore.h"
#include "platform/foundation/Locale.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueLookup.h"
#include "views/AlarmView.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace zorel::cli {

namespace {
constexpr int kLargestOffset = 59; // [min]
constexpr std::int32_t kNoSuchTimeText = 1043;

/// One alarm as it is listed.
struct ListedAlarm {
    int index = 0; ///< position in PrayerTimes
    AlarmInfo info;
    EventTime prayer;               ///< today's time
    std::optional<EventTime> rings; ///< start of its calendar event
};

std::int32_t prayerIdOfRow(std::size_t row) {
    return kFirstAlarmPrayerId + static_cast<std::int32_t>(row);
}

/// The home city's day; nothing without a home city.
std::optional<Day> homeDay(const Context& context, const Pane& pane) {
    if (pane.home() == nullptr)
        return std::nullopt;
    const auto row = placeById(context.services, integerValue(pane.home()->cityId));
    if (!row)
        return std::nullopt;
    const Place place = placeOf(*row);
    return DayComputer().compute(place, place.clock.dateAt(context.now()));
}

std::optional<EventTime> ringsAt(const std::string& eventId) {
    const auto event = eventId.empty() ? std::nullopt : EKEventStore().eventWithIdentifier(eventId);
    if (!event)
        return std::nullopt;
    return eventAt(ZoneClock(NamedClock{}), std::chrono::floor<std::chrono::seconds>(event->startDate));
}

std::vector<ListedAlarm> listedAlarms(const Context& context, const Pane& pane) {
    const auto day = homeDay(context, pane);
    std::vector<ListedAlarm> alarms;
    for (std::size_t row = 0; row < kPrayerIndices.size(); ++row) {
        const int index = kPrayerIndices[row];
        alarms.push_back({index, pane.alarm(prayerIdOfRow(row)), day ? day->event(index) : EventTime(),
                          ringsAt(pane.eventId(prayerIdOfRow(row)))});
    }
    return alarms;
}

std::string durationLabel(const Pane& pane, std::int32_t duration) {
    const auto& durations = pane.editor().melodyTimeArray();
    const bool known = duration >= 0 && duration < static_cast<std::int32_t>(durations.size());
    return known ? durations[static_cast<std::size_t>(duration)].displayText : std::string();
}

std::string prayerText(const Context& context, const Pane& pane, const ListedAlarm& alarm, Date today) {
    if (pane.home() == nullptr)
        return "-";
    return alarm.prayer.exists ? eventText(context, alarm.prayer, today)
                               : context.services.GetKeyValue(kNoSuchTimeText)
                                     .value_or(std::string(context.word(Word::noSuchTimeToday)));
}

std::string ringsText(const ListedAlarm& alarm) {
    if (!alarm.info.active || !alarm.rings)
        return "";
    return fmt::format("{} {}", isoDate(alarm.rings->date),
                       clockText(alarm.rings->timeOfDay, Precision::minutes));
}

void printText(const Context& context, const Pane& pane, const std::vector<ListedAlarm>& alarms) {
    const Date today = ZoneClock(NamedClock{}).dateAt(context.now());
    TextTable table("lllrlll");
    table.add({"", "", std::string(context.word(Word::time)), std::string(context.word(Word::offset)),
               std::string(context.word(Word::rings)), std::string(context.word(Word::ringtone)),
               std::string(context.word(Word::duration))},
              TextTable::Emphasis::dim);
    for (const ListedAlarm& alarm : alarms)
        table.add({context.nameOf(alarm.index),
                   std::string(context.word(alarm.info.active ? Word::on : Word::off)),
                   prayerText(context, pane, alarm, today), fmt::format("{:+}", alarm.info.timeOffset),
                   ringsText(alarm), alarm.info.melodyName,
                   fmt::format("{} ({})", alarm.info.melodyTime, durationLabel(pane, alarm.info.melodyTime))},
                  alarm.info.active ? TextTable::Emphasis::bold : TextTable::Emphasis::none);
    context.streams.out << (pane.home() == nullptr ? std::string(context.word(Word::noCities))
                                                   : context.style.bold(pane.home()->name))
                        << '\n'
                        << table.text(context.style);
}

Json alarmJson(const Context& context, const Pane& pane, const ListedAlarm& alarm) {
    return Json{{"name", keyOf(alarm.index)},
                {"label", context.nameOf(alarm.index)},
                {"active", alarm.info.active},
                {"offset_minutes", alarm.info.timeOffset},
                {"ringtone", alarm.info.melodyName},
                {"duration", alarm.info.melodyTime},
                {"duration_label", durationLabel(pane, alarm.info.melodyTime)},
                {"prayer_time", eventJson(alarm.prayer)},
                {"rings_at", alarm.info.active && alarm.rings ? eventJson(*alarm.rings) : Json(nullptr)},
                {"no_such_time_today", pane.home() != nullptr && !alarm.prayer.exists}};
}

/// Alarms ring by the clock of this machine, whatever that of the home city says.
void compareClocks(const Context& context, const Pane& pane) {
    const auto row = pane.home() == nullptr ? std::nullopt
                                            : placeById(context.services, integerValue(pane.home()->cityId));
    if (!row)
        return;
    const auto here = ZoneClock(NamedClock{}).offsetAt(context.now());
    const auto there = placeOf(*row).clock.offsetAt(context.now());
    if (here != there)
        context.note(fmt::format("alarms ring by this machine's clock (UTC{}), not by that of {} (UTC{})",
                                 isoOffset(here), pane.home()->name, isoOffset(there)));
}

Exit list(const Context& context, const Pane& pane) {
    compareClocks(context, pane);
    const auto alarms = listedAlarms(context, pane);
    if (!context.options.json) {
        printText(context, pane, alarms);
        return Exit::ok;
    }
    Json items = Json::array();
    for (const ListedAlarm& alarm : alarms)
        items.push_back(alarmJson(context, pane, alarm));
    const Json home = pane.home() == nullptr ? Json(nullptr) : Json(pane.home()->name);
    writeJson(context, Json{{"schema", "zorel/alarms/1"}, {"home", home}, {"alarms", items}});
    return Exit::ok;
}

std::int32_t wantedPrayer(const Context& context) {
    const std::string key = lowerCase(context.options.prayer);
    for (std::size_t row = 0; row < kPrayerIndices.size(); ++row) {
        if (keyOf(kPrayerIndices[row]) == key)
            return prayerIdOfRow(row);
    }
    throw CliError(Exit::badUse, fmt::format("{} is no prayer", quote(context.options.prayer)),
                   "fajr, sunrise, dhuhr, asr, maghrib or isha");
}

/// A whole number of a range, with an optional sign.
int wantedNumber(const Context& context, int smallest, int largest, std::string_view what) {
    Scanner scan(context.options.value);
    const bool negative = scan.take('-');
    if (!negative)
        scan.take('+');
    const auto size = scan.number(1000);
    const int number = size ? (negative ? -*size : *size) : 0;
    if (!size || !scan.atEnd() || number < smallest || number > largest)
        throw CliError(Exit::badUse, fmt::format("{} is no {}", quote(context.options.value), what),
                       fmt::format("a whole number from {} to {}", smallest, largest));
    return number;
}

std::string wantedRingtone(const Context& context, const Pane& pane) {
    const std::string name = context.argument();
    std::vector<std::string> known;
    for (const UIComboboxItem& item : pane.editor().melodyArray()) {
        if (item.originalText == name || lowerCase(item.displayText) == lowerCase(name))
            return item.originalText;
        known.push_back(item.displayText);
    }
    throw CliError(Exit::badUse, fmt::format("no ringtone {} in the ringtone folder", quote(name)),
                   known.empty() ? "name another folder with --ringtones DIR"
                                 : fmt::format("there are: {}", fmt::join(known, ", ")));
}

/// After a refresh every active alarm rings in the future; the pane only logs what it could not store.
void requireUpcoming(const Context& context, const Pane& pane) {
    for (const ListedAlarm& alarm : listedAlarms(context, pane)) {
        if (alarm.info.active && (!alarm.rings || alarm.rings->utc <= context.now()))
            throw CliError(
                Exit::dataTrouble,
                fmt::format("the alarm {} could not be moved to its next time", keyOf(alarm.index)),
                storingHint());
    }
}

/// Changes one alarm as its editor would; refuses when the pane refuses.
Exit change(const Context& context, Pane& pane, Pane::Change what,
            const std::function<void(AlarmView&)>& edit,
            const std::function<bool(const AlarmInfo&)>& isStored) {
    const std::int32_t prayerId = wantedPrayer(context);
    if (pane.home() == nullptr)
        throw CliError(Exit::noResult, "there is no home city whose times an alarm could follow",
                       "zorel cities add NAME");
    if (!pane.edit(prayerId, what, edit))
        throw CliError(Exit::noResult,
                       fmt::format("the alarm {} is off, and an alarm that is off keeps no changes",
                                   context.options.prayer),
                       fmt::format("zorel alarms on {}", context.options.prayer));
    if (!isStored(pane.alarm(prayerId)))
        throw CliError(Exit::dataTrouble,
                       fmt::format("the alarm {} could not be stored", context.options.prayer),
                       storingHint() + "; a ringtone's name must not hold a quote");
    return list(context, pane);
}
} // namespace

Exit runAlarms(const Context& context) {
    return list(context, Pane());
}

Exit runAlarmsOn(const Context& context) {
    Pane pane;
    return change(
        context, pane, Pane::Change::on, [](AlarmView&) {},
        [](const AlarmInfo& info) { return info.active; });
}

Exit runAlarmsOff(const Context& context) {
    Pane pane;
    return change(
        context, pane, Pane::Change::off, [](AlarmView&) {},
        [](const AlarmInfo& info) { return !info.active; });
}

Exit runAlarmsOffset(const Context& context) {
    const int minutes = wantedNumber(context, -kLargestOffset, kLargestOffset, "offset");
    Pane pane;
    return change(
        context, pane, Pane::Change::offset, [minutes](AlarmView& view) { view.setTimeOffset(minutes); },
        [minutes](const AlarmInfo& info) { return info.timeOffset == minutes; });
}

Exit runAlarmsRingtone(const Context& context) {
    Pane pane;
    const std::string name = wantedRingtone(context, pane);
    return change(
        context, pane, Pane::Change::ringtone, [&](AlarmView& view) { view.setMelodyName(name); },
        [&](const AlarmInfo& info) { return info.melodyName == name; });
}

Exit runAlarmsDuration(const Context& context) {
    const int choice = wantedNumber(context, 0, 7, "duration");
    Pane pane;
    return change(
        context, pane, Pane::Change::duration, [choice](AlarmView& view) { view.setMelodyTime(choice); },
        [choice](const AlarmInfo& info) { return info.melodyTime == choice; });
}

Exit runAlarmsRefresh(const Context& context) {
    Pane pane;
    if (pane.home() != nullptr)
        pane.refresh();
    requireUpcoming(context, pane);
    return list(context, pane);
}

} // namespace zorel::cli
