// SPDX-License-Identifier: Apache-2.0
// Direction of the Kaaba and of the compass.
#include "almanac/Almanac.h"
#include "almanac/CivilDay.h"
#include "almanac/Usable.h"

#include "engine/SunAtBearing.h"

namespace zorel::almanac {

namespace {

std::vector<SunAtQibla> instantsOf(const Place& place, Date date, double bearing) {
    const CivilDay day(place.clock, date);
    std::vector<SunAtQibla> instants;
    for (const SunAtBearingInstant& found :
         SunAtBearing(place.latitude, place.longitude, bearing, julianDayOf(day.begin), 0.0, day.hours())) {
        if (found.visible) {
            const ExactInstant exact = hoursAfter(day.begin, found.hour);
            instants.push_back({toldByMinute(place.clock, exact), exact, found.altitude});
        }
    }
    return instants;
}

} // namespace

Qibla Almanac::qibla(Date date) const {
    Qibla qibla;
    if (!isOnEarth(place_)) {
        return qibla;
    }
    qibla.bearing = qiblaBearing(place_.latitude, place_.longitude);
    qibla.distance = qiblaDistance(place_.latitude, place_.longitude);
    if (qibla.bearing && isInRange(date)) {
        qibla.instants = instantsOf(place_, date, *qibla.bearing);
    }
    return qibla;
}

std::optional<Magnetic> Almanac::magnetic(Date date) const {
    return isOnEarth(place_) ? magneticAt(place_.latitude, place_.longitude, place_.height, date)
                             : std::nullopt;
}

} // namespace zorel::almanac
