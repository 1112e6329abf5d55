// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/PlaceResolver.h"
#include "grammar/DateArgument.h"
#include "print/ClockNotices.h"
#include "print/Csv.h"
#include "print/DayJson.h"
#include "print/DayMarks.h"
#include "print/DayText.h"
#include "print/IcsTable.h"
#include "print/PlaceText.h"
#include "terminal/Progress.h"

#include "almanac/Almanac.h"

#include <fmt/format.h>

#include <functional>
#include <span>

namespace zorel::cli {

using almanac::Date;
using almanac::Day;
using almanac::Prayer;

namespace {
constexpr int kDefaultDays = 30;
constexpr std::int64_t kMostDays = 36'600; // a century

struct Range {
    Date first{};
    std::int64_t days = 0;
};

Range rangeOf(const Context& context, const almanac::PlaceClock& clock) {
    const Options& options = context.options;
    const Date today = clock.dateAt(context.now());
    Range range{options.from.empty() ? today : requireDate(options.from, today, "--from"), kDefaultDays};
    if (!options.to.empty()) {
        range.days = almanac::daysBetween(range.first, requireDate(options.to, today, "--to")) + 1;
    }
    if (range.days < 1) {
        throw CliError(Exit::badUse, tr("--to is before --from"), tr("give the earlier day as --from"));
    }
    if (range.days > kMostDays) {
        throw CliError(Exit::badUse,
                       trPlural("{} day is too many for one table", "{} days are too many for one table",
                                static_cast<unsigned long long>(range.days)),
                       tr("at most a hundred years; ask for several tables"));
    }
    return range;
}

/// Tells the days one after the other and hands each over.
/// @return what is to be known of their clock.
ClockNotices eachDay(const Context& context, const ShownPlace& place, const Range& range,
                     const std::function<void(const Day&)>& use) {
    const almanac::Almanac almanac(place.place);
    almanac::Memory memory;
    ClockNotices notices(context, place);
    Progress progress(context.streams.err, context.streams.errIsTerminal, range.days, Progress::Unit::days);
    for (std::int64_t i = 0; i < range.days; ++i) {
        const Day day = almanac.day(almanac::addDays(range.first, static_cast<int>(i)), memory);
        use(day);
        notices.add(day.date, day.clockNotice);
        progress.update(i + 1);
    }
    progress.finish();
    return notices;
}

/// The times that are asked for, in the order of the columns.
std::span<const Prayer> prayersOf(const Context& context) {
    const std::span<const Prayer> all(almanac::kListedPrayers);
    return context.options.others ? all : all.first(almanac::kSixPrayers.size());
}

void printCsv(const Context& context, const ShownPlace& place, const Range& range) {
    const Clockface clock(place.clock(), context.precision());
    context.streams.out << "date" << csvTimesHeader(context.options.others) << '\n';
    const ClockNotices notices = eachDay(context, place, range, [&](const Day& day) {
        std::string line = almanac::isoDate(day.date);
        appendCsvTimes(line, day, clock, context.options.others);
        context.streams.out << line << '\n';
    });
    notices.note();
}

void printJson(const Context& context, const ShownPlace& place, const Range& range) {
    const Clockface clock(place.clock(), context.precision());
    Json days = Json::array();
    eachDay(context, place, range, [&](const Day& day) {
        Json one = Json{{"date", almanac::isoDate(day.date)},
                        {"utc_offset", almanac::isoOffset(day.offset)},
                        {"clock", clockJson(place, day.date)},
                        {"times", timesJson(day, almanac::kSixPrayers, clock)},
                        {"flags", flagsJson(day)},
                        {"corrections", correctionsJson(day, prayersOf(context))}};
        if (context.options.others) {
            one["other_times"] = timesJson(day, almanac::kOtherPrayers, clock);
        }
        days.push_back(std::move(one));
    });
    writeJson(context,
              Json{{"schema", "zorel/table/1"}, {"place", placeJson(place)}, {"days", std::move(days)}});
}

std::string uidPlace(const ShownPlace& place) {
    return place.id != 0 ? fmt::format("{}", place.id)
                         : fmt::format("{:.4f}_{:.4f}", place.place.latitude, place.place.longitude);
}

void printIcs(const Context& context, const ShownPlace& place, const Range& range) {
    std::vector<IcsEntry> entries;
    const std::string at = uidPlace(place);
    const ClockNotices notices = eachDay(context, place, range, [&](const Day& day) {
        for (const Prayer prayer : prayersOf(context)) {
            if (day[prayer].exists()) {
                entries.push_back(
                    {fmt::format("{}-{}-{}@zorel", at, almanac::isoDate(day.date), almanac::keyOf(prayer)),
                     context.nameOf(prayer), day[prayer].rounded(context.precision())});
            }
        }
    });
    const std::string location = placeText(place);
    const std::string& chosen = context.options.calendarName;
    const std::string description = fmt::format("{}", fmt::join(notices.sentences(), "\n"));
    context.streams.out << icsDocument(
        {chosen.empty() ? location : chosen, description, location, context.now(), context.options.reminders},
        entries);
    notices.note();
}

/// "12 Jumada II": the year stands in other outputs.
std::string hijriOf(const almanac::Almanac& almanac, Date date) {
    return hijriDayAndMonth(almanac.calendars(date));
}

std::vector<std::string> rowOf(const Context& context, const Day& day, const std::string& hijri,
                               const Clockface& clock) {
    std::vector<std::string> cells{almanac::isoDate(day.date), weekdayName(day.date), hijri};
    for (const Prayer prayer : prayersOf(context)) {
        cells.push_back(timeText(context, clock.of(day[prayer]), day.date));
    }
    cells.push_back(marksOf(day, prayersOf(context)));
    return cells;
}

void printText(const Context& context, const ShownPlace& place, const Range& range) {
    TextTable table("llr");
    const almanac::Almanac almanac(place.place);
    std::vector<std::string> heads{"", "", ""};
    for (const Prayer prayer : prayersOf(context)) {
        heads.push_back(context.nameOf(prayer));
    }
    table.add(std::move(heads), TextTable::Emphasis::bold);
    std::string marks;
    const Clockface clock(place.clock(), context.precision());
    const ClockNotices notices = eachDay(context, place, range, [&](const Day& day) {
        auto row = rowOf(context, day, hijriOf(almanac, day.date), clock);
        marks += row.back();
        table.add(std::move(row));
    });
    context.streams.out << context.style.bold(placeText(place)) << '\n' << table.text(context.style);
    for (const std::string& sentence : legendOf(marks)) {
        context.streams.out << sentence << '\n';
    }
    for (const std::string& sentence : notices.sentences()) {
        context.streams.out << "! " << context.style.warning(sentence) << '\n';
    }
}
} // namespace

Exit runTable(const Context& context) {
    if (context.options.all) {
        return runTableAll(context);
    }
    const ShownPlace place = resolvePlace(context);
    const Range range = rangeOf(context, place.clock());
    if (context.options.csv) {
        printCsv(context, place, range);
    } else if (context.options.json) {
        printJson(context, place, range);
    } else if (context.options.ics) {
        printIcs(context, place, range);
    } else {
        printText(context, place, range);
    }
    return Exit::ok;
}

} // namespace zorel::cli
