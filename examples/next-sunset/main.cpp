// SPDX-License-Identifier: Apache-2.0
// Prints the sunset prayer of today for a place of the catalogue:  next-sunset BUNDLE-FOLDER NAME YEAR MONTH
// DAY
#include "common/GlobalFuncs.h"
#include "engine/FastAstro.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueLookup.h"

#include <cstdio>
#include <optional>
#include <string>

namespace {

double sunsetOf(const zorel::City& city, const zorel::DateTimeRecord& date) {
    using zorel::doubleValue;
    using zorel::integerValue;
    zorel::FastAstro engine;
    engine.SetCurrentDateTime(date);
    engine.SetPlace(doubleValue(city.latitude), doubleValue(city.longitude), doubleValue(city.GMT),
                    integerValue(city.DST), integerValue(city.startMonth), integerValue(city.startDay),
                    integerValue(city.stopMonth), integerValue(city.stopDay), integerValue(city.hour),
                    integerValue(city.temkin));
    return engine.CalculatePrayTimes().today.times[zorel::PrayerTimes::sunset];
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 6) {
        std::fputs("usage: next-sunset BUNDLE-FOLDER NAME YEAR MONTH DAY\n", stderr);
        return 2;
    }
    zorel::Locations::current().bundle = argv[1];
    const zorel::GlobalFuncs services;
    const auto matches = zorel::matchPlaces(services, argv[2], 1);
    const auto place = matches.empty()
                           ? std::nullopt
                           : zorel::placeById(services, zorel::integerValue(matches.front().cityId));
    if (!place) {
        std::fprintf(stderr, "next-sunset: no place \"%s\" in the catalogue of %s\n", argv[2], argv[1]);
        return 1;
    }
    const auto date = zorel::DateRecordMake(zorel::integerValue(argv[5]), zorel::integerValue(argv[4]),
                                            zorel::integerValue(argv[3]), 0, 0, 0);
    const int minutes = static_cast<int>(sunsetOf(place->city, date) * 60.0 + 1.0);
    std::printf("%s %02d:%02d\n", place->city.name.c_str(), minutes / 60 % 24, minutes % 60);
    return 0;
}
