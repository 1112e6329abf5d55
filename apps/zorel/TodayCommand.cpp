// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "Calendars.h"
#include "DayJson.h"
#include "DayText.h"
#include "Explain.h"
#include "PlaceResolver.h"
#include "QiblaInstants.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
/// Everything that is shown of one day.
struct Report {
    Place place;
    Day day;
    DayFlags flags;
    std::optional<NextPrayer> next; ///< only for the place's today
    std::vector<EventTime> sunAtQibla;
    AllCalendarRecord calendars;
    std::vector<PrayTimeExplanation> explanations; ///< only when asked for
};

Report makeReport(const Context& context, Place place, Date date, bool isToday) {
    const Precision precision = context.options.seconds ? Precision::seconds : Precision::minutes;
    DayComputer computer;
    Report report;
    if (isToday)
        report.next = nextPrayer(computer, place, context.now(), precision);
    report.day = computer.compute(place, date, precision);
    report.flags = flagsOf(computer, place, report.day);
    if (context.options.explain)
        report.explanations = explainDay(computer, place, report.day);
    report.sunAtQibla = sunAtQiblaInstants(place, date);
    report.calendars = calendarsOf(date);
    report.place = std::move(place);
    return report;
}

std::string headingText(const Context& context, const Report& report) {
    const std::string hijri = hijriText(report.calendars, context.language);
    std::string text = context.style.bold(placeText(report.place, context.language)) + '\n';
    text += longDate(report.day.date, context.language);
    if (!hijri.empty())
        text += fmt::format("  |  {}: {}", context.word(Word::hijri), hijri);
    text += fmt::format("  |  {}: {}  |  UTC{}\n\n", context.word(Word::rumi),
                        rumiText(report.calendars, context.language), isoOffset(report.day.offset));
    return text;
}

void printText(const Context& context, const Report& report) {
    DayTextParts parts;
    parts.others = !context.options.shortForm;
    parts.ezani = context.options.ezani;
    parts.sunAtQibla = report.sunAtQibla;
    parts.next = report.next ? &*report.next : nullptr;
    context.streams.out << headingText(context, report) << dayText(context, report.day, parts)
                        << flagsText(context, report.flags) << explainText(context, report.explanations);
}

Json nextJson(const Context& context, const NextPrayer& next) {
    if (next.index < 0)
        return nullptr;
    return Json{{"name", keyOf(next.index)},
                {"label", context.nameOf(next.index)},
                {"at", eventJson(next.event)},
                {"seconds", (next.event.utc - context.now()).count()}};
}

Json ezaniJson(const Day& day) {
    Json times = Json::object();
    const auto add = [&](std::span<const int> indices) {
        for (const int index : indices) {
            const std::string text = ezaniText(day, index);
            times[std::string(keyOf(index))] = text.empty() ? Json(nullptr) : Json(text);
        }
    };
    add(kPrayerIndices);
    add(kOtherIndices);
    return times;
}

Json namesJson(const Context& context) {
    Json names = Json::object();
    for (const int index : kPrayerIndices)
        names[std::string(keyOf(index))] = context.nameOf(index);
    for (const int index : kOtherIndices)
        names[std::string(keyOf(index))] = context.nameOf(index);
    return names;
}

void printJson(const Context& context, const Report& report) {
    Json qibla = Json::array();
    for (const EventTime& instant : report.sunAtQibla)
        qibla.push_back(eventJson(instant));
    Json document{{"schema", "zorel/day/1"},
                  {"place", placeJson(context, report.place)},
                  {"date", isoDate(report.day.date)},
                  {"utc_offset", isoOffset(report.day.offset)},
                  {"calendars", calendarsJson(context, report.calendars)},
                  {"names", namesJson(context)},
                  {"times", timesJson(report.day, kPrayerIndices)},
                  {"other_times", timesJson(report.day, kOtherIndices)},
                  {"sun_at_qibla", qibla},
                  {"flags", flagsJson(report.flags)},
                  {"next", report.next ? nextJson(context, *report.next) : Json(nullptr)}};
    if (context.options.ezani)
        document["ezani"] = ezaniJson(report.day);
    if (context.options.explain)
        document["explanations"] = explainJson(report.explanations);
    writeJson(context, document);
}

/// The catalogue's clock rule is a year or more old when it is used; the system's time zone data may know
/// better.
void compareClocks(const Context& context, const Place& place, Date date) {
    const auto known = systemClock(place.zoneName);
    if (place.clock.rule() == nullptr || !known || known->offsetOn(date) == place.clock.offsetOn(date))
        return;
    context.note(
        fmt::format("the catalogue's clock rule gives UTC{} here on {}, the system's time zone data for {} "
                    "UTC{}; for the latter give {:.4f},{:.4f},{}",
                    isoOffset(place.clock.offsetOn(date)), isoDate(date), place.zoneName,
                    isoOffset(known->offsetOn(date)), place.latitude, place.longitude, place.zoneName));
}

Exit show(const Context& context, int daysAhead) {
    Place place = resolvePlace(context);
    const Date today = place.clock.dateAt(context.now());
    const Date date = context.options.date.empty() ? addDays(today, daysAhead)
                                                   : requireDate(context.options.date, today, "--date");
    compareClocks(context, place, date);
    const Report report = makeReport(context, std::move(place), date, date == today);
    if (context.options.json)
        printJson(context, report);
    else
        printText(context, report);
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
