// SPDX-License-Identifier: Apache-2.0
#include "Values.h"

#include "engine/PrayerDay.h"

namespace zorel::bits {

namespace {

template <class Values> void addAll(Hash& hash, const Values& values) {
    for (const double value : values) {
        hash.add(value);
    }
}

void addDate(Hash& hash, const DateTimeRecord& date) {
    addAll(hash, std::array<double, 3>{double(date.year), double(date.month), double(date.day)});
}

void addEntry(Hash& hash, const PrayerTrace::Entry& entry) {
    const IterationInput& input = entry.input;
    const IterationResult& result = entry.result;
    addAll(hash,
           std::array{input.latitude.degrees, input.latitude.sine, input.latitude.cosine, input.longitudeTerm,
                      input.temkin, input.timeZone, double(input.altitude), double(input.direction)});
    addAll(hash, std::array{result.time, double(result.answer), double(result.converged),
                            double(result.rounds), result.altitude});
    addDate(hash, entry.date);
    addAll(hash, std::array{entry.latitude, entry.temkin, entry.addition});
}

} // namespace

void add(Hash& hash, const PrayerTimes& times) {
    addAll(hash, times.times);
    addAll(hash, times.ezani);
    addAll(hash,
           std::array{times.priorLatitude, double(times.latitudeLowered), double(times.dawnFromOtherDay),
                      double(times.nightfallFromOtherDay), double(times.secondNightfallFromOtherDay)});
}

void addFields(Hash& hash, const FastAstro& engine) {
    const SunDetails& sun = engine.Sun;
    const PlaceRecord& place = engine.iPlace;
    addAll(hash, engine.SunInfo.field);
    addAll(hash,
           std::array{engine.Lat, engine.Lon, engine.SunDec, engine.SunRA, engine.SunDistance,
                      engine.EclipticLongitude, engine.SRT, engine.YE, engine.Zero1, engine.Zero2, engine.DX,
                      engine.UTRise, engine.UTSet, double(engine.Rise), double(engine.Sett)});
    addAll(hash, std::array{sun.declination, sun.rightAscension, sun.altitude, sun.azimuth, sun.rise,
                            sun.transit, sun.set, sun.siderealTime, sun.equationOfTime, sun.distance,
                            sun.diameter, sun.shadowRatio, sun.gha});
    addAll(hash, std::array{place.timeZone, double(place.dstActive), place.qibla.q0, place.qibla.q1});
}

void addTrace(Hash& hash, FastAstro& engine) {
    const PlaceRecord& place = engine.iPlace;
    engine.SetLatLon(place.latitude, place.longitude);
    PrayerTimes times;
    PrayerTrace trace;
    PrayerDay(engine, place.latitude, place.longitude, engine.iCurrentDate, place.elevation, times,
              engine.KibleAcisi(place.latitude, place.longitude), PrayerDay::Extent::everything, &trace)
        .run();
    for (const PrayerTrace::Entry& entry : trace.entries) {
        addEntry(hash, entry);
    }
    add(hash, times);
}

} // namespace zorel::bits
