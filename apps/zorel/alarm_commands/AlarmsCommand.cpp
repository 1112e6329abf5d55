// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "alarm_commands/AlarmList.h"
#include "commands/HeadlessPane.h"
#include "commands/UserData.h"

#include "almanac/Scanner.h"
#include "platform/foundation/Locale.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
constexpr int kLargestOffset = 59; // [min]

std::int32_t wantedPrayer(const Context& context) {
    const auto prayer = almanac::prayerOfKey(lowerCase(context.options.prayer));
    if (prayer && almanac::identityOf(*prayer).row >= 0) {
        return almanac::identityOf(*prayer).id;
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
    for (const UIComboboxItem& item : pane.ringtones()) {
        if (item.originalText == name || lowerCase(item.displayText) == lowerCase(name)) {
            return item.originalText;
        }
        known.push_back(item.displayText);
    }
    throw CliError(Exit::badUse, fmt::format("no ringtone {} in the ringtone folder", quote(name)),
                   known.empty() ? "name another folder with --ringtones DIR"
                                 : fmt::format("there are: {}", fmt::join(known, ", ")));
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
        throw CliError(Exit::noResult, "there is no home city whose times an alarm could follow",
                       "zorel cities add NAME");
    }
    if (result.state == ActionState::alarmIsOff) {
        throw CliError(Exit::noResult,
                       fmt::format("the alarm {} is off, and an alarm that is off keeps no changes",
                                   context.options.prayer),
                       fmt::format("zorel alarms on {}", context.options.prayer));
    }
    requireDone(result, fmt::format("the alarm {}", context.options.prayer));
}

/// That the alarms cannot be shown any more does not undo what was done.
Exit listAfterwards(const Context& context, const HeadlessPane& pane, const AlarmReport& report) {
    try {
        pane.requireLoaded();
        printAlarms(context, pane, report);
    } catch (const CliError& error) {
        context.note(fmt::format("this was done, but cannot be shown: {}", error.what()));
    }
    return Exit::ok;
}

using Action = std::function<ActionResult(UserActions&, std::int32_t prayerId)>;

Exit change(const Context& context, HeadlessPane& pane, const Action& action) {
    const std::int32_t prayerId = wantedPrayer(context);
    const ActionResult result = pane.act([&](UserActions& actions) { return action(actions, prayerId); });
    requireChanged(context, result);
    const AlarmReport& report = result.alarms ? *result.alarms : pane.alarms();
    if (report.of(prayerId).skipsNext()) {
        context.note("less than five minutes are left, so this alarm rings the time after");
    }
    return listAfterwards(context, pane, report);
}
} // namespace

/// The list tells what is, and the status whether all of it will ring.
Exit runAlarms(const Context& context) {
    const HeadlessPane pane;
    const AlarmReport& report = pane.alarms();
    if (report.trouble == AlarmTrouble::busy || report.trouble == AlarmTrouble::unreadableRows) {
        throw CliError(Exit::dataTrouble, "cannot read your alarms: " + report.reason, remedyFor(report));
    }
    printAlarms(context, pane, report);
    if (!report.isGood()) {
        throw CliError(Exit::dataTrouble, report.complaint(), remedyFor(report));
    }
    return Exit::ok;
}

Exit runAlarmsOn(const Context& context) {
    HeadlessPane pane;
    return change(context, pane, [&](UserActions& actions, std::int32_t prayerId) {
        return actions.switchOn(prayerId, [&](AlarmInfo& alarm) { completeRingtone(pane, alarm); });
    });
}

Exit runAlarmsOff(const Context& context) {
    HeadlessPane pane;
    return change(context, pane,
                  [](UserActions& actions, std::int32_t prayerId) { return actions.switchOff(prayerId); });
}

Exit runAlarmsOffset(const Context& context) {
    const int minutes = wantedNumber(context, -kLargestOffset, kLargestOffset, "offset");
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
    const int choice = wantedNumber(context, 0, 7, "duration");
    HeadlessPane pane;
    return change(context, pane, [&](UserActions& actions, std::int32_t prayerId) {
        return actions.setDuration(prayerId, choice);
    });
}

Exit runAlarmsRefresh(const Context& context) {
    HeadlessPane pane;
    const ActionResult result = pane.act([](UserActions& actions) { return actions.refresh(); });
    if (result.state == ActionState::refused) {
        throw CliError(Exit::dataTrouble, result.reason, remedyFor(*result.alarms));
    }
    requireDone(result, "the refresh of the alarms");
    return listAfterwards(context, pane, *result.alarms);
}

} // namespace zorel::cli
