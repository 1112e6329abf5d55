// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "grammar/DateArgument.h"
#include "print/DayJson.h"

#include "almanac/Almanac.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
std::string halfYearText(const AllCalendarRecord& calendars) {
    // translators: the halves of the year in the Turkish folk calendar, summer (from 6 May) and winter
    return calendars.summerHalf == 1 ? tr("day of the Hızır half-year {}", calendars.dayOfHalf)
                                     : tr("day of the Kasım half-year {}", calendars.dayOfHalf);
}

void printText(const Context& context, almanac::Date date, const AllCalendarRecord& calendars) {
    TextTable table("ll");
    const std::string hijri = hijriText(calendars);
    table.add({tr("Hijri"), hijri.empty() ? "-" : hijri}, TextTable::Emphasis::bold);
    table.add({tr("Rumi"), rumiText(calendars)});
    context.streams.out << context.style.bold(longDate(date)) << '\n'
                        << table.text(context.style, "  ") << "  " << halfYearText(calendars) << '\n';
}
} // namespace

Exit runHijri(const Context& context) {
    const almanac::Date today = almanac::PlaceClock::ofMachine().dateAt(context.now());
    const almanac::Date date =
        context.options.words.empty() ? today : requireDate(context.argument(), today, "DATE");
    const AllCalendarRecord calendars = almanac::Almanac({}).calendars(date);
    if (context.options.json) {
        Json document{{"schema", "zorel/hijri/1"}, {"date", almanac::isoDate(date)}};
        document.update(calendarsJson(calendars));
        writeJson(context, document);
    } else {
        printText(context, date, calendars);
    }
    return Exit::ok;
}

} // namespace zorel::cli
