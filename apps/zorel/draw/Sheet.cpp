// SPDX-License-Identifier: Apache-2.0
#include "draw/Sheet.h"

namespace zorel::cli {

SheetPage sheetPage(const almanac::Almanac& almanac, almanac::Memory& memory, std::string title,
                    almanac::Date first, almanac::Date last) {
    SheetPage page;
    page.title = std::move(title);
    std::chrono::seconds offset = almanac.place().clock.offsetOn(almanac::addDays(first, -1));
    for (almanac::Date date = first; date <= last; date = almanac::addDays(date, 1)) {
        SheetDay row{almanac.day(date, memory), almanac.calendars(date), {}};
        row.clockChange = row.day.offset - offset;
        offset = row.day.offset;
        page.days.push_back(std::move(row));
    }
    return page;
}

} // namespace zorel::cli
