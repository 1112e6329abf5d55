// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/PdfWriter.h"
#include "commands/PlaceResolver.h"
#include "draw/Sheet.h"
#include "draw/YearOfPlace.h"

#include <fmt/format.h>

namespace zorel::cli {

using almanac::Almanac;
using almanac::Date;
using almanac::Memory;

namespace {
std::chrono::year_month monthOf(const Context& context, Date today) {
    const std::string& text = context.options.month;
    if (text.empty()) {
        return today.year() / today.month();
    }
    if (const auto first = almanac::parseDate(text + "-01", today)) {
        return first->year() / first->month();
    }
    throw CliError(Exit::badUse, tr("--month: {} is not a month", quote(text)), tr("write it as 2026-12"));
}

SheetPage civilMonth(const Almanac& almanac, Memory& memory, std::chrono::year_month month) {
    const std::string title = monthAndYear(month);
    return sheetPage(almanac, memory, title, month / 1, Date(month / std::chrono::last));
}

SheetPage ramadan(const Context& context, const Almanac& almanac, Memory& memory) {
    constexpr int kRamadan = 9;
    const int year = context.options.ramadan;
    const auto first = firstOfHijriMonth(almanac, year, kRamadan);
    const auto end = firstOfHijriMonth(almanac, year, kRamadan + 1);
    if (!first || !end) {
        throw CliError(Exit::noResult, tr("no Ramadan {} in the years 1583 to 9998", year));
    }
    SheetPage page =
        sheetPage(almanac, memory, hijriMonthAndYear(kRamadan, year), *first, almanac::addDays(*end, -1));
    page.ramadan = true;
    return page;
}

std::vector<SheetPage> pagesOf(const Context& context, const ShownPlace& place) {
    const Almanac almanac(place.place);
    Memory memory;
    if (context.options.ramadan != 0) {
        return {ramadan(context, almanac, memory)};
    }
    if (context.options.year == 0) {
        const Date today = place.clock().dateAt(context.now());
        return {civilMonth(almanac, memory, monthOf(context, today))};
    }
    std::vector<SheetPage> pages;
    for (unsigned month = 1; month <= 12; ++month) {
        pages.push_back(
            civilMonth(almanac, memory, std::chrono::year(context.options.year) / std::chrono::month(month)));
    }
    return pages;
}
} // namespace

Exit runSheet(const Context& context) {
    Sheet sheet;
    sheet.place = resolvePlace(context);
    sheet.paper = context.options.paper == "letter" ? Paper::letter : Paper::a4;
    sheet.others = context.options.others;
    sheet.pages = pagesOf(context, sheet.place);
    const std::string html = sheetHtml(context, sheet);
    if (context.options.pdf.empty()) {
        context.streams.out << html;
    } else {
        writePdf(html, context.options.pdf);
    }
    return Exit::ok;
}

} // namespace zorel::cli
