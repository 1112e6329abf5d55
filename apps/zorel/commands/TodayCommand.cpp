// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/PlaceResolver.h"
#include "draw/DayBar.h"
#include "grammar/DateArgument.h"
#include "print/ClockNotices.h"
#include "print/DayJson.h"
#include "print/DayText.h"
#include "print/ExplainText.h"
#include "print/PlaceText.h"

#include "almanac/Almanac.h"

#include <fmt/format.h>

namespace zorel::cli {

using almanac::Day;
using almanac::DayTime;
using almanac::Prayer;

namespace {
/// Everything that is shown of one day.
struct Report {
    ShownPlace place;
    Day day;
    std::optional<DayTime> next; ///< only for the place's today
    almanac::Qibla qibla;
    AllCalendarRecord calendars;
    std::optional<EzaniHours> ezani;     ///< only when asked for
    std::optional<DayLight> light;       ///< only for a picture
    std::optional<almanac::Instant> now; ///< only for the place's today
};

Report makeReport(const Context& context, ShownPlace place, almanac::Date date, bool isToday) {
    const almanac::Almanac almanac(place.place);
    almanac::Memory memory;
    Report report;
    if (isToday) {
        report.now = context.now();
        report.next = almanac.next(*report.now, memory, context.precision()).next;
    }
    if (!context.options.json && !context.options.shortForm) {
        report.light = dayLight(almanac, memory, date);
    }
    report.day = almanac.day(date, memory);
    report.qibla = almanac.qibla(date);
    report.calendars = almanac.calendars(date);
    if (context.options.ezani) {
        report.ezani = almanac::ezaniHours(report.day);
    }
    report.place = std::move(place);
    return report;
}

std::string headingText(const Context& context, const Report& report) {
    const std::string hijri = hijriText(report.calendars);
    std::vector<std::string> parts{longDate(report.day.date)};
    if (!hijri.empty()) {
        parts.push_back(tr("Hijri: {}", hijri));
    }
    parts.push_back(tr("Rumi: {}", rumiText(report.calendars)));
    parts.push_back("UTC" + almanac::isoOffset(report.day.offset));
    const std::string line = fmt::format("{}", fmt::join(parts, "  |  "));
    const bool fits = displayWidth(line) <= context.knownColumns().value_or(line.size());
    return context.style.bold(placeText(report.place)) + '\n' +
           (fits ? line : fmt::format("{}", fmt::join(parts, "\n"))) + "\n\n";
}

std::string barText(const Context& context, const Report& report) {
    if (!report.light) {
        return {};
    }
    const std::string bar = dayBarText(context, report.place.clock(), *report.light, report.now);
    return bar.empty() ? bar : bar + '\n';
}

void printText(const Context& context, const Report& report) {
    const almanac::PlaceClock& clock = report.place.clock();
    const DayTextParts parts{!context.options.shortForm, report.ezani, report.qibla, report.next};
    context.streams.out << headingText(context, report) << barText(context, report)
                        << dayText(context, report.day, Clockface(clock, context.precision()), parts)
                        << flagsText(context, report.day)
                        << clockNoticeLine(context, report.place, report.day.date);
    if (context.options.explain) {
        context.streams.out << explainText(context, report.day, clock);
    }
}

Json nextJson(const Context& context, const std::optional<DayTime>& next, const Clockface& clock) {
    if (!next) {
        return nullptr;
    }
    return Json{{"name", almanac::keyOf(next->prayer)},
                {"label", context.nameOf(next->prayer)},
                {"at", timeJson(clock.of(*next))},
                {"seconds", (next->rounded(clock.precision()) - context.now()).count()}};
}

Json ezaniJson(const EzaniHours& hours) {
    Json times = Json::object();
    for (const Prayer prayer : almanac::kListedPrayers) {
        const std::string text = ezaniText(hours[static_cast<std::size_t>(prayer)]);
        times[std::string(almanac::keyOf(prayer))] = text.empty() ? Json(nullptr) : Json(text);
    }
    return times;
}

Json namesJson(const Context& context) {
    Json names = Json::object();
    for (const Prayer prayer : almanac::kListedPrayers) {
        names[std::string(almanac::keyOf(prayer))] = context.nameOf(prayer);
    }
    return names;
}

Json reportJson(const Context& context, const Report& report) {
    const Day& day = report.day;
    const Clockface clock(report.place.clock(), context.precision());
    return Json{{"schema", "zorel/day/1"},
                {"place", placeJson(report.place)},
                {"date", almanac::isoDate(day.date)},
                {"utc_offset", almanac::isoOffset(day.offset)},
                {"clock", clockJson(report.place, day.date)},
                {"calendars", calendarsJson(report.calendars)},
                {"names", namesJson(context)},
                {"times", timesJson(day, almanac::kSixPrayers, clock)},
                {"other_times", timesJson(day, almanac::kOtherPrayers, clock)},
                {"sun_at_qibla", sunAtQiblaJson(report.qibla)},
                {"flags", flagsJson(day)},
                {"corrections", correctionsJson(day, almanac::kListedPrayers)},
                {"next", nextJson(context, report.next, clock)}};
}

void printJson(const Context& context, const Report& report) {
    Json document = reportJson(context, report);
    if (report.ezani) {
        document["ezani"] = ezaniJson(*report.ezani);
    }
    if (context.options.explain) {
        document["explanations"] = explainJson(report.day);
    }
    writeJson(context, document);
}

Exit show(const Context& context, int daysAhead) {
    ShownPlace place = resolvePlace(context);
    const almanac::Date today = place.clock().dateAt(context.now());
    const almanac::Date date = context.options.date.empty()
                                   ? almanac::addDays(today, daysAhead)
                                   : requireDate(context.options.date, today, "--date");
    const Report report = makeReport(context, std::move(place), date, date == today);
    if (context.options.json) {
        printJson(context, report);
    } else {
        printText(context, report);
    }
    return Exit::ok;
}
} // namespace

Exit runToday(const Context& context) {
    return show(context, 0);
}

Exit runTomorrow(const Context& context) {
    return show(context, 1);
}

} // namespace zorel::cli
