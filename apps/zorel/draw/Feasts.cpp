// SPDX-License-Identifier: Apache-2.0
#include "draw/Feasts.h"

#include "words/Tr.h"

#include <algorithm>
#include <array>

namespace zorel::cli {

namespace {
struct Feast {
    int month;
    int firstDay;
    int lastDay;
    const char* name;
    bool holiday = false;
};

constexpr std::array kFeasts{
    Feast{1, 1, 1, trLaterIn("feast", "New Year")},
    Feast{1, 10, 10, trLaterIn("feast", "Ashura")},
    Feast{3, 12, 12, trLaterIn("feast", "Mawlid")},
    Feast{7, 27, 27, trLaterIn("feast", "Isra and Miraj")},
    Feast{8, 15, 15, trLaterIn("feast", "Mid-Shaban")},
    Feast{9, 1, 1, trLaterIn("feast", "Ramadan begins")},
    Feast{9, 27, 27, trLaterIn("feast", "Night of Power")},
    Feast{10, 1, 3, trLaterIn("feast", "Eid al-Fitr"), true},
    Feast{12, 9, 9, trLaterIn("feast", "Arafah")},
    Feast{12, 10, 13, trLaterIn("feast", "Eid al-Adha"), true},
};

const Feast* find(const AllCalendarRecord& calendars) {
    const auto* feast = std::ranges::find_if(kFeasts, [&](const Feast& one) {
        return one.month == calendars.hijriMonth && one.firstDay <= calendars.hijriDay &&
               calendars.hijriDay <= one.lastDay;
    });
    return feast == kFeasts.end() ? nullptr : feast;
}
} // namespace

std::string feastOf(const AllCalendarRecord& calendars) {
    const Feast* feast = find(calendars);
    return feast == nullptr ? std::string() : trIn("feast", feast->name);
}

bool isHoliday(const AllCalendarRecord& calendars) {
    const Feast* feast = find(calendars);
    return feast != nullptr && feast->holiday;
}

} // namespace zorel::cli
