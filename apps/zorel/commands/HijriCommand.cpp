// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "grammar/DateArgument.h"
#include "print/DayJson.h"

#include "almanac/Almanac.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
std::string halfYearText(const Context& context, const AllCalendarRecord& calendars) {
    const Word half = calendars.summerHalf == 1 ? Word::dayOfSummerHalf : Word::dayOfWinterHalf;
    return fmt::format("{} {}", context.word(half), calendars.dayOfHalf);
}

void printText(const Context& context, almanac::Date date, const AllCalendarRecord& calendars) {
    TextTable table("ll");
    const std::string hijri = hijriText(calendars, context.language);
    table.add({std::string(context.word(Word::hijri)), hijri.empty() ? "-" : hijri},
              TextTable::Emphasis::bold);
    table.add({std::string(context.word(Word::rumi)), rumiText(calendars, context.language)});
    context.streams.out << context.style.bold(longDate(date, context.language)) << '\n'
                        << table.text(context.style, "  ") << "  " << halfYearText(context, calendars)
                        << '\n';
}
} // namespace

Exit runHijri(const Context& context) {
    const almanac::Date today = almanac::PlaceClock::ofMachine().dateAt(context.now());
    const almanac::Date date =
        context.options.words.empty() ? today : requireDate(context.argument(), today, "DATE");
    const AllCalendarRecord calendars = almanac::Almanac({}).calendars(date);
    if (context.options.json) {
        Json document{{"schema", "zorel/hijri/1"}, {"date", almanac::isoDate(date)}};
        document.update(calendarsJson(context, calendars));
        writeJson(context, document);
    } else {
        printText(context, date, calendars);
    }
    return Exit::ok;
}

} // namespace zorel::cli
