// SPDX-License-Identifier: Apache-2.0
// Answers questions about clocks, one line each, in the environment that it is started with:
//   clock_probe "edition" "machine 0" "zone Europe/Berlin 2026-07-01" "place 2026f Africa/Casablanca
//   2026-12-01"
//               "local 2026f America/Vancouver 1793520000"
#include "almanac/PlaceClock.h"
#include "tests/almanac/ZoneTable.h"

#include <iostream>

namespace {

using namespace zorel::almanac;

Date dateIn(std::istream& words) {
    std::string text;
    words >> text;
    return parseDate(text, {}).value();
}

Instant instantIn(std::istream& words) {
    std::int64_t count = 0;
    words >> count;
    return Instant(std::chrono::seconds(count));
}

PlaceClock placeIn(std::istream& words) {
    std::string edition;
    std::string zone;
    words >> edition >> zone;
    return PlaceClock::ofPlace(zone, ZoneTable().rule(zone), edition);
}

std::string dayOf(const PlaceClock& clock, Date date) {
    static const char* const sources[] = {"zoneData", "rule", "fixed"};
    static const char* const notices[] = {"none", "ruleOnly", "ruleIsNewer", "systemIsOlder"};
    const auto other = clock.otherOffsetOn(date);
    return isoOffset(clock.offsetOn(date)) + ' ' + sources[static_cast<std::size_t>(clock.sourceOn(date))] +
           ' ' + notices[static_cast<std::size_t>(clock.noticeOn(date))] +
           (other ? ' ' + isoOffset(*other) : "");
}

std::string answer(std::istream& words) {
    std::string question;
    words >> question;
    if (question == "edition") {
        return systemZoneEdition();
    }
    if (question == "machine") {
        return '\'' + machineZoneName() + "' '" + PlaceClock::ofMachine().zoneName() + "' " +
               isoDateTime(PlaceClock::ofMachine().localTime(instantIn(words)));
    }
    if (question == "zone") {
        std::string zone;
        words >> zone;
        const auto clock = PlaceClock::ofZone(zone);
        return clock ? isoOffset(clock->offsetOn(dateIn(words))) : "no zone";
    }
    const PlaceClock clock = placeIn(words);
    return question == "place" ? dayOf(clock, dateIn(words)) : isoDateTime(clock.localTime(instantIn(words)));
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        std::istringstream words(argv[i]);
        std::cout << answer(words) << '\n';
    }
    return 0;
}
