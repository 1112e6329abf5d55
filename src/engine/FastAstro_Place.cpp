// SPDX-License-Identifier: Apache-2.0
// Place, date and the conversion between universal and local time.
#include "engine/FastAstro.h"
#include "engine/Integers.h"

#include <algorithm>

namespace zorel {

namespace {

bool inDaylightSaving(const AstroGlobalFuncs& calendar, const PlaceRecord& place,
                      const DateTimeRecord& date) {
    std::int32_t startDay = 0;
    std::int32_t stopDay = 0;
    return calendar.IsDSTDay(place.startDay, place.startMonth, place.stopDay, place.stopMonth, date.year,
                             date.month, date.day, startDay, stopDay);
}

} // namespace

void FastAstro::SetLatLon(double latitude, double longitude) {
    Lat = latitude;
    Lon = longitude;
}

void FastAstro::SetCurrentDate(std::int32_t day, std::int32_t month, std::int32_t year) {
    iCurrentDate.year = year;
    iCurrentDate.month = month;
    iCurrentDate.day = day;
}

void FastAstro::SetCurrentDateTime(const DateTimeRecord& record) {
    iCurrentDate = record;
}

void FastAstro::SetPlace(double latitude, double longitude, double timeZone, std::int32_t dstInUse,
                         std::int32_t startMonth, std::int32_t startDay, std::int32_t stopMonth,
                         std::int32_t stopDay, std::int32_t dstShift, std::int32_t elevation) {
    iPlace.latitude = latitude;
    iPlace.longitude = longitude;
    SetLatLon(latitude, longitude);
    iPlace.timeZone = timeZone;
    iPlace.dstActive = false;
    iPlace.dstInUse = dstInUse == 1;
    const bool inUse = iPlace.dstInUse;
    iPlace.startDay = inUse ? startDay : 0;
    iPlace.startMonth = inUse ? startMonth : 0;
    iPlace.stopDay = inUse ? stopDay : 0;
    iPlace.stopMonth = inUse ? stopMonth : 0;
    iPlace.dstShift = inUse ? static_cast<double>(dstShift) : 0.0;
    if (inUse && inDaylightSaving(astroGlobalFuncs, iPlace, iCurrentDate)) {
        iPlace.dstActive = true;
        iPlace.timeZone += 1.0; // one hour, whatever the shift of the rule
    }
    iPlace.elevation = elevation == 1;
}

std::int32_t FastAstro::wholeZone() const {
    constexpr std::int32_t kBound = 1000000; // [h]
    return std::clamp(toInt(iPlace.timeZone), -kBound, kBound);
}

void FastAstro::SetUniversalTime(DateTimeRecord& record) const {
    if (inDaylightSaving(astroGlobalFuncs, iPlace, record)) {
        record.hour = clampInt(std::int64_t{record.hour} - toInt(iPlace.dstShift));
    }
    record.hour = clampInt(std::int64_t{record.hour} - toInt(iPlace.timeZone));
    astroGlobalFuncs.JulianToCalendar(astroGlobalFuncs.JulianDay(record), record, 1);
}

void FastAstro::SetLocalTime(double& time, const DateTimeRecord& date) const {
    if (time == kNoSolarEvent) {
        return;
    }
    if (inDaylightSaving(astroGlobalFuncs, iPlace, date)) {
        time += toInt(iPlace.dstShift);
    }
    time += toInt(iPlace.timeZone);
}

void FastAstro::SetLocalTimeManual(DateTimeRecord& record, std::int32_t days) const {
    astroGlobalFuncs.JulianToCalendar(astroGlobalFuncs.JulianDay(record) + days, record, 1);
}

} // namespace zorel
