// SPDX-License-Identifier: Apache-2.0
#include "commands/PlaceResolver.h"

#include "commands/CataloguePlaces.h"
#include "commands/UserData.h"
#include "print/PlaceText.h"
#include "store/NearestPlace.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
constexpr double kFarthestClock = 200.0; // [km]

ShownPlace placeOfId(const Context& context, std::int32_t id) {
    requireCatalogue(context.services);
    const auto row = placeById(context.services, id);
    if (!row) {
        throw CliError(Exit::noResult, tr("no place has the catalogue id {}", id),
                       tr("find the id with: zorel search NAME"));
    }
    return shownPlace(*row);
}

almanac::PlaceClock clockOfZone(const std::string& zone) {
    if (auto clock = almanac::PlaceClock::ofZone(zone)) {
        return *std::move(clock);
    }
    throw CliError(Exit::badUse, tr("no time zone {} on this system", quote(zone)),
                   tr("give an IANA name such as Europe/Istanbul, or an offset such as +3 or -03:30"));
}

/// A document says it itself.
void noteClock(const Context& context, const std::string& whose) {
    if (!context.options.json) {
        context.note(whose);
    }
}

/// A place of the catalogue lends its clock to a point nearby.
void takeClock(const Context& context, ShownPlace& point, const CataloguePlace& nearest, double distance) {
    const ShownPlace owner = shownPlace(nearest);
    point.place.clock = owner.clock();
    point.zoneEdition = owner.zoneEdition;
    point.clockOwner = ClockOwner{owner.id, owner.place.name, distance};
    noteClock(context, // translators: {0} a place, {1} a distance such as "3 km", {2} a time zone
              tr("the clock is that of {0}, {1} away ({2}); for another give LAT,LON,ZONE",
                 printable(owner.place.name), distanceText(distance), owner.clock().zoneName()));
}

/// Far from every place the clock is that of the zone of the sea: whole hours by the meridian.
void takeMeridian(const Context& context, ShownPlace& point) {
    const std::chrono::hours offset(std::lround(point.place.longitude / 15.0));
    point.place.clock = almanac::PlaceClock::fixed(offset);
    point.meridianClock = true;
    noteClock(context, tr("no place of the catalogue is within {0:.0f} km, so the clock is that of the "
                          "meridian (UTC{1}); for "
                          "another give LAT,LON,ZONE",
                          kFarthestClock, almanac::isoOffset(offset)));
}

void takeClockNearby(const Context& context, ShownPlace& point) {
    requireCatalogue(context.services);
    const auto nearest =
        nearestPlace(context.services, point.place.latitude, point.place.longitude, kFarthestClock);
    if (!nearest) {
        throw unreadableCatalogue(context.services);
    }
    if (nearest->place) {
        takeClock(context, point, *nearest->place, nearest->distance);
    } else {
        takeMeridian(context, point);
    }
}

ShownPlace placeOfPoint(const Context& context, const PlaceByCoordinates& point) {
    ShownPlace place;
    place.place.latitude = point.latitude;
    place.place.longitude = point.longitude;
    if (const auto* offset = std::get_if<std::chrono::seconds>(&point.zone)) {
        place.place.clock = almanac::PlaceClock::fixed(*offset);
    } else if (const auto* zone = std::get_if<std::string>(&point.zone)) {
        place.place.clock = clockOfZone(*zone);
    } else {
        takeClockNearby(context, place);
    }
    return place;
}

std::string nothingGiven(const std::string& zone) {
    return zone.empty()
               ? tr("no place was given and there is no home city")
               : tr("no place was given and there is no home city, nor a place in the system's time zone {}",
                    quote(zone));
}

ShownPlace defaultPlace(const Context& context) {
    if (const std::int32_t id = homeCityId(); id != 0) {
        return placeOfId(context, id);
    }
    requireCatalogue(context.services);
    const std::string zone = almanac::machineZoneName();
    const auto largest = largestPlaceOfTimeZone(context.services, zone);
    if (!largest) {
        throw CliError(
            Exit::badUse, nothingGiven(zone),
            tr("give a place (zorel today Ankara) or choose one for good: zorel cities add Ankara"));
    }
    context.note(tr("no home city yet, so the largest place of {} is taken; choose yours with: zorel cities "
                    "add NAME",
                    zone));
    return shownPlace(*largest);
}

/// The table of --temkin in place of the place's own.
void takeTemkin(const Context& context, ShownPlace& place) {
    if (context.options.temkin != 0) {
        place.place.temkin =
            context.options.temkin == 500 ? almanac::Temkin::upTo500m : almanac::Temkin::upTo250m;
    }
}

struct Resolve {
    const Context& context;
    Telling telling;
    ShownPlace operator()(const PlaceById& wanted) const { return placeOfId(context, wanted.id); }
    ShownPlace operator()(const PlaceByName& wanted) const {
        return placeOfId(context, idOfName(context, wanted.text, telling));
    }
    ShownPlace operator()(const PlaceByCoordinates& wanted) const { return placeOfPoint(context, wanted); }
};
} // namespace

ShownPlace resolvePlace(const Context& context, Telling telling) {
    if (!context.options.words.empty()) {
        return resolvePlaceText(context, context.argument(), telling);
    }
    ShownPlace place = defaultPlace(context);
    takeTemkin(context, place);
    return place;
}

ShownPlace resolvePlaceText(const Context& context, const std::string& text, Telling telling) {
    ShownPlace place = std::visit(Resolve{context, telling}, parsePlaceQuery(text));
    takeTemkin(context, place);
    return place;
}

} // namespace zorel::cli
