// SPDX-License-Identifier: Apache-2.0
#include "Calendars.h"

#include "engine/FastAstro.h"

namespace zorel::cli {

AllCalendarRecord calendarsOf(Date date) {
    FastAstro engine;
    AllCalendarRecord calendars;
    engine.ConvertAllCalendar(engineDate(date), calendars);
    return calendars;
}

} // namespace zorel::cli
