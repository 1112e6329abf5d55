// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "alarm_commands/AlarmList.h"
#include "commands/HeadlessPane.h"
#include "commands/UserData.h"
#include "grammar/DateArgument.h"
#include "grammar/Duration.h"

#include "alarms/RingDurations.h"
#include "almanac/PlaceClock.h"
#include "almanac/Scanner.h"
#include "platform/foundation/Locale.h"
#include "words/Tr.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
constexpr std::chrono::minutes kLargestOffset{59};
constexpr int kMostDaysOfPause = 366;
constexpr std::string_view kAll = "all";

std::int32_t wantedPrayer(const Context& context) {
    const auto prayer = almanac::prayerOfKey(lowerCase(context.options.prayer));
    if (prayer && almanac::identityOf(*prayer).row >= 0) {
        return almanac::identityOf(*prayer).id;
    }
    throw CliError(Exit::badUse, tr("{} is no prayer", quote(context.options.prayer)),
                   "fajr, sunrise, dhuhr, asr, maghrib, isha");
}

/// Minutes with an optional sign.
int wantedOffset(const Context& context) {
    std::string_view text = context.options.value;
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const auto offset = parseDuration(text, std::chrono::minutes(1));
    if (!offset || *offset % std::chrono::minutes(1) != std::chrono::seconds(0) || *offset > kLargestOffset) {
        throw CliError(Exit::badUse, tr("{} is no offset", quote(context.options.value)),
                       tr("whole minutes from {0} to {1}", -kLargestOffset.count(), kLargestOffset.count()));
    }
    const auto minutes = static_cast<int>(*offset / std::chrono::minutes(1));
    return negative ? -minutes : minutes;
}

/// The index of a duration that an alarm can have.
int wantedDuration(const Context& context) {
    const auto wanted = parseDuration(context.options.value, std::chrono::seconds(1));
    const auto* found = wanted ? std::ranges::find(kRingDurations, *wanted) : kRingDurations.end();
    if (found == kRingDurations.end()) {
        throw CliError(Exit::badUse, tr("{} is no duration of an alarm", quote(context.options.value)),
                       tr("it can ring for 5, 10, 20, 30 seconds or 1m, 2m, 3m, 5m"));
    }
    return static_cast<int>(found - kRingDurations.begin());
}

std::string wantedRingtone(const Context& context, const HeadlessPane& pane) {
    const std::string name = context.argument();
    std::vector<std::string> known;
    for (const UIComboboxItem& item : pane.ringtones()) {
        if (item.originalText == name || lowerCase(item.displayText) == lowerCase(name)) {
            return item.originalText;
        }
        known.push_back(item.displayText);
    }
    throw CliError(Exit::badUse, tr("no ringtone {} in the ringtone folder", quote(name)),
                   known.empty() ? tr("name another folder with --ringtones DIR")
                                 : tr("there are: {}", fmt::format("{}", fmt::join(known, ", "))));
}

/// As the editor: an alarm without a ringtone, or with one that is no longer there, takes the first that can
/// be stored.
void completeRingtone(const HeadlessPane& pane, AlarmInfo& alarm) {
    const auto& tones = pane.ringtones();
    const bool isThere = std::ranges::any_of(
        tones, [&](const UIComboboxItem& item) { return item.originalText == alarm.melodyName; });
    if (!isThere) {
        const auto first = std::ranges::find_if(
            tones, [](const UIComboboxItem& item) { return isStorableRingtone(item.originalText); });
        alarm.melodyName = first == tones.end() ? std::string() : first->originalText;
    }
}

/// Says why not with the remedy of that alarm.
void requireChanged(const Context& context, const ActionResult& result) {
    if (result.state == ActionState::noHome) {
        throw CliError(Exit::noResult, tr("there is no home city whose times an alarm could follow"),
                       "zorel cities add NAME");
    }
    if (context.options.prayer == kAll) {
        requireDone(result, tr("the change of the alarms"));
    }
    if (result.state == ActionState::alarmIsOff) {
        throw CliError(Exit::noResult,
                       context.options.command == "alarms skip"
                           ? tr("the alarm {} is off, and an alarm that is off has nothing to leave out",
                                context.options.prayer)
                           : tr("the alarm {} is off, and an alarm that is off keeps no changes",
                                context.options.prayer),
                       "zorel alarms on " + context.options.prayer);
    }
    requireDone(result, context.options.prayer.empty() ? tr("the pause")
                                                       : tr("the alarm {}", context.options.prayer));
}

Exit listAfterwards(const Context& context, const HeadlessPane& pane, const AlarmReport& report) {
    return showAfterwards(context, pane, [&] { printAlarms(context, pane, report); });
}

void requireReadable(const AlarmReport& report) {
    if (report.trouble == AlarmTrouble::busy || report.trouble == AlarmTrouble::unreadableRows) {
        throw CliError(Exit::dataTrouble, tr("cannot read your alarms: {}", report.reason),
                       remedyFor(report));
    }
}

/// The beginning of the day that --until names, where the home city is.
almanac::Instant pauseEnd(const Context& context, const HomePlace& home) {
    if (!home.reason.empty()) { // another city's midnight would be another moment
        throw CliError(Exit::dataTrouble, home.reason,
                       tr("install zorel again, or choose another home city: zorel cities home NAME"));
    }
    const auto clock = home.place ? home.place->clock : almanac::PlaceClock::ofMachine();
    const almanac::Date today = clock.dateAt(context.now());
    const almanac::Date date = requireDate(context.options.until, today, "--until");
    const std::int64_t days = almanac::daysBetween(today, date);
    if (days < 1 || days > kMostDaysOfPause) {
        throw CliError(Exit::badUse,
                       tr("{0}: {1} is not within the next year", "--until", almanac::isoDate(date)),
                       tr("a day from tomorrow to {}; the alarms ring again on it",
                          almanac::isoDate(almanac::addDays(today, kMostDaysOfPause))));
    }
    return clock.instantOf(date, std::chrono::seconds(0));
}

using Action = std::function<ActionResult(UserActions&, std::int32_t prayerId)>;

Exit change(const Context& context, HeadlessPane& pane, const Action& action) {
    const std::int32_t prayerId = wantedPrayer(context);
    const ActionResult result = pane.act([&](UserActions& actions) { return action(actions, prayerId); });
    requireChanged(context, result);
    const AlarmReport& report = result.alarms ? *result.alarms : pane.alarms();
    if (report.of(prayerId).skipsNext()) {
        context.note(tr("less than five minutes are left, so this alarm rings the time after"));
    }
    return listAfterwards(context, pane, report);
}

/// All six as one action.
Exit changeAll(const Context& context, HeadlessPane& pane,
               const std::function<ActionResult(UserActions&)>& action) {
    const ActionResult result = pane.act(action);
    requireChanged(context, result);
    return listAfterwards(context, pane, result.alarms ? *result.alarms : pane.alarms());
}
} // namespace

/// The list tells what is, and the status whether all of it will ring.
Exit runAlarms(const Context& context) {
    const HeadlessPane pane;
    const AlarmReport& report = pane.alarms();
    requireReadable(report);
    printAlarms(context, pane, report);
    if (!report.isGood()) {
        throw CliError(Exit::dataTrouble, report.complaint(), remedyFor(report));
    }
    return Exit::ok;
}

Exit runAlarmsOn(const Context& context) {
    HeadlessPane pane;
    const auto complete = [&](AlarmInfo& alarm) { completeRingtone(pane, alarm); };
    if (context.options.prayer == kAll) {
        return changeAll(context, pane, [&](UserActions& actions) { return actions.switchAllOn(complete); });
    }
    return change(context, pane, [&](UserActions& actions, std::int32_t prayerId) {
        return actions.switchOn(prayerId, complete);
    });
}

Exit runAlarmsOff(const Context& context) {
    HeadlessPane pane;
    if (context.options.prayer == kAll) {
        return changeAll(context, pane, [](UserActions& actions) { return actions.switchAllOff(); });
    }
    return change(context, pane,
                  [](UserActions& actions, std::int32_t prayerId) { return actions.switchOff(prayerId); });
}

Exit runAlarmsOffset(const Context& context) {
    const int minutes = wantedOffset(context);
    HeadlessPane pane;
    return change(context, pane, [&](UserActions& actions, std::int32_t prayerId) {
        return actions.setOffset(prayerId, minutes);
    });
}

Exit runAlarmsRingtone(const Context& context) {
    HeadlessPane pane;
    const std::string name = wantedRingtone(context, pane);
    return change(context, pane, [&](UserActions& actions, std::int32_t prayerId) {
        return actions.setRingtone(prayerId, name);
    });
}

Exit runAlarmsDuration(const Context& context) {
    const int choice = wantedDuration(context);
    HeadlessPane pane;
    return change(context, pane, [&](UserActions& actions, std::int32_t prayerId) {
        return actions.setDuration(prayerId, choice);
    });
}

Exit runAlarmsSkip(const Context& context) {
    HeadlessPane pane;
    return change(context, pane, [&](UserActions& actions, std::int32_t prayerId) {
        return context.options.undo ? actions.undoSkip(prayerId) : actions.skipNext(prayerId);
    });
}

Exit runAlarmsPause(const Context& context) {
    const bool ends = context.options.off;
    if (!ends && context.options.until.empty()) {
        throw CliError(Exit::badUse, tr("until when shall the alarms be silent?"),
                       tr("zorel alarms pause --until DATE; they ring again on that day"));
    }
    HeadlessPane pane;
    requireReadable(pane.alarms());
    const auto until = ends ? std::nullopt : std::optional(pauseEnd(context, pane.alarms().home));
    const ActionResult result = pane.act([&](UserActions& actions) { return actions.pauseUntil(until); });
    requireChanged(context, result);
    return listAfterwards(context, pane, *result.alarms);
}

Exit runAlarmsClear(const Context& context) {
    HeadlessPane pane;
    const ActionResult result = pane.act([](UserActions& actions) { return actions.clear(); });
    requireDone(result, tr("clearing the calendar"));
    context.note(tr("every alarm is off, and none of them is left in the calendar"));
    return listAfterwards(context, pane, *result.alarms);
}

Exit runAlarmsRefresh(const Context& context) {
    HeadlessPane pane;
    const ActionResult result = pane.act([](UserActions& actions) { return actions.refresh(); });
    if (result.state == ActionState::refused) {
        throw CliError(Exit::dataTrouble, result.reason, remedyFor(*result.alarms));
    }
    requireDone(result, tr("the refresh of the alarms"));
    return listAfterwards(context, pane, *result.alarms);
}

} // namespace zorel::cli
