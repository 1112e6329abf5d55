// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "Csv.h"
#include "DayJson.h"
#include "DayText.h"
#include "IcsTable.h"
#include "PlaceResolver.h"
#include "Progress.h"

#include <fmt/format.h>

#include <functional>

namespace zorel::cli {

namespace {
constexpr int kDefaultDays = 30;
constexpr std::int64_t kMostDays = 36'600; // a century

struct Range {
    Date first{};
    std::int64_t days = 0;
};

Range rangeOf(const Context& context, const Place& place) {
    const Options& options = context.options;
    const Date today = place.clock.dateAt(context.now());
    Range range{options.from.empty() ? today : requireDate(options.from, today, "--from"), kDefaultDays};
    if (!options.to.empty())
        range.days = daysBetween(range.first, requireDate(options.to, today, "--to")) + 1;
    if (range.days < 1)
        throw CliError(Exit::badUse, "--to is before --from", "give the earlier day as --from");
    if (range.days > kMostDays)
        throw CliError(Exit::badUse, fmt::format("{} days are too many for one table", range.days),
                       "at most a hundred years; ask for several tables");
    return range;
}

Precision precisionOf(const Context& context) {
    return context.options.seconds ? Precision::seconds : Precision::minutes;
}

/// Computes the days one after the other and hands each over.
void eachDay(const Context& context, const Place& place, const Range& range,
             const std::function<void(DayComputer&, const Day&)>& use) {
    DayComputer computer;
    Progress progress(context.streams.err, context.streams.errIsTerminal, range.days, "days");
    for (std::int64_t i = 0; i < range.days; ++i) {
        const Day day =
            computer.compute(place, addDays(range.first, static_cast<int>(i)), precisionOf(context));
        use(computer, day);
        progress.update(i + 1);
    }
    progress.finish();
}

void printCsv(const Context& context, const Place& place, const Range& range) {
    context.streams.out << "date" << csvTimesHeader() << '\n';
    eachDay(context, place, range, [&](DayComputer&, const Day& day) {
        std::string line = isoDate(day.date);
        appendCsvTimes(line, day, precisionOf(context));
        context.streams.out << line << '\n';
    });
}

void printJson(const Context& context, const Place& place, const Range& range) {
    Json days = Json::array();
    eachDay(context, place, range, [&](DayComputer& computer, const Day& day) {
        days.push_back(Json{{"date", isoDate(day.date)},
                            {"utc_offset", isoOffset(day.offset)},
                            {"times", timesJson(day, kPrayerIndices)},
                            {"flags", flagsJson(flagsOf(computer, place, day))}});
    });
    writeJson(context,
              Json{{"schema", "zorel/table/1"}, {"place", placeJson(context, place)}, {"days", days}});
}

std::string uidPlace(const Place& place) {
    return place.id != 0 ? fmt::format("{}", place.id)
                         : fmt::format("{:.4f}_{:.4f}", place.latitude, place.longitude);
}

void printIcs(const Context& context, const Place& place, const Range& range) {
    std::vector<IcsEntry> entries;
    const std::string at = uidPlace(place);
    eachDay(context, place, range, [&](DayComputer&, const Day& day) {
        for (const int index : kPrayerIndices) {
            if (day.event(index).exists)
                entries.push_back({fmt::format("{}-{}-{}@zorel", at, isoDate(day.date), keyOf(index)),
                                   context.nameOf(index), day.event(index).utc});
        }
    });
    const std::string name = placeText(place, context.language);
    context.streams.out << icsDocument(name, name, entries, context.now());
}

/// A mark behind the date of a day whose times are unusual, and its legend.
std::string markOf(const Day& day) {
    std::string mark = day.record.latitudeLowered ? "*" : "";
    if (day.record.dawnFromOtherDay || day.record.nightfallFromOtherDay)
        mark += '~';
    return mark;
}

void printText(const Context& context, const Place& place, const Range& range) {
    TextTable table("llllllll");
    std::vector<std::string> heads{""};
    for (const int index : kPrayerIndices)
        heads.push_back(context.nameOf(index));
    table.add(std::move(heads), TextTable::Emphasis::bold);
    std::string marks;
    eachDay(context, place, range, [&](DayComputer&, const Day& day) {
        std::vector<std::string> cells{isoDate(day.date)};
        for (const int index : kPrayerIndices)
            cells.push_back(eventText(context, day.event(index), day.date));
        cells.push_back(markOf(day));
        marks += cells.back();
        table.add(std::move(cells));
    });
    context.streams.out << context.style.bold(placeText(place, context.language)) << '\n'
                        << table.text(context.style);
    if (marks.find('*') != std::string::npos)
        context.streams.out << "* " << context.word(Word::markLowered) << '\n';
    if (marks.find('~') != std::string::npos)
        context.streams.out << "~ " << context.word(Word::markOtherDay) << '\n';
}
} // namespace

Exit runTable(const Context& context) {
    if (context.options.all)
        return runTableAll(context);
    const Place place = resolvePlace(context);
    const Range range = rangeOf(context, place);
    if (context.options.csv)
        printCsv(context, place, range);
    else if (context.options.json)
        printJson(context, place, range);
    else if (context.options.ics)
        printIcs(context, place, range);
    else
        printText(context, place, range);
    return Exit::ok;
}

} // namespace zorel::cli
