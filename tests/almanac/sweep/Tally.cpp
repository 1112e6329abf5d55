// SPDX-License-Identifier: Apache-2.0
// What a sweep counts and prints.
#include "tests/almanac/sweep/Sweep.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace zorel::almanac::tests {

namespace {

constexpr int kMostExamples = 5;

const char* nameOf(Absence absence) {
    constexpr std::array names{"exists",       "never reached", "night without ends",
                               "out of order", "no bearing",    "out of range"};
    return names[static_cast<std::size_t>(absence)];
}

const char* bandOf(double latitude) {
    const double size = std::fabs(latitude);
    return size <= 61.0 ? "0 to 61 degrees" : (size <= 66.0 ? "61 to 66 degrees" : "66 to 90 degrees");
}

std::string placeDayAndPrayer(const SweptPlace& place, Date date, const DayTime& time) {
    return place.place.name + ' ' + isoDate(date) + ' ' + std::string(keyOf(time.prayer));
}

} // namespace

void Violations::add(const std::string& kind, const std::string& where) {
    if (byKind[kind]++ < kMostExamples) {
        examples.push_back(kind + ": " + where);
    }
}

std::string Violations::text() const {
    std::string all;
    for (const auto& [kind, count] : byKind) {
        all += std::to_string(count) + " x " + kind + '\n';
    }
    for (const std::string& example : examples) {
        all += example + '\n';
    }
    return all;
}

void Largest::add(double difference, const std::string& of) {
    ++events;
    if (std::fabs(difference) > std::fabs(seconds)) {
        seconds = difference;
        where = of;
    }
}

/// A clock's change moves nothing but the reading of the clock.
void Corrected::add(Correction correction, const SweptPlace& place, const DayTime& time, Date date) {
    ++times;
    lowestLatitude = std::min(lowestLatitude, std::fabs(place.place.latitude));
    const bool isAlone = time.why.corrections == Corrections(correction);
    const bool areBoth = time.exists() && time.why.engineHours != kNoSolarEvent;
    if (isAlone && areBoth && time.why.rule != PrayTimeRule::partOfNight) {
        most[bandOf(place.place.latitude)].add((time.hours - time.why.engineHours) * 3600.0,
                                               placeDayAndPrayer(place, date, time));
    }
}

void Sweep::count() {
    ++tally_.days;
    tally_.byRule += isNearRule_ ? 1 : 0;
    tally_.lowered += day_.loweredLatitude() ? 1 : 0;
    for (const DayTime& time : day_.times) {
        ++tally_.times;
        ++tally_.absences[nameOf(time.absence)];
        tally_.corrected += time.why.corrections.none() ? 0 : 1;
        for (std::size_t kind = 0; kind < kCorrections; ++kind) {
            const auto correction = static_cast<Correction>(kind);
            if (time.why.corrections.has(correction)) {
                tally_.corrections[std::string(keyOf(correction))].add(correction, *swept_, time, day_.date);
            }
        }
    }
}

/// Times that wait for the limb follow the sky already.
void Sweep::compareWithSky(const DayTime& time) {
    const Explanation& why = time.why;
    const bool isOfSun = why.rule == PrayTimeRule::altitude || why.rule == PrayTimeRule::shadow ||
                         why.rule == PrayTimeRule::transit;
    if (!isOfSun || why.corrections.has(Correction::sunStillUp)) {
        return;
    }
    const SunInSky& sky = skyOn(why.date, why.latitude);
    const HalfDay half = why.morning ? HalfDay::morning : HalfDay::evening;
    const SunCrossing found = why.rule == PrayTimeRule::transit  ? SunCrossing{sky.transit(), true}
                              : why.rule == PrayTimeRule::shadow ? sky.shadow(why.shadowFactor)
                                                                 : sky.centre(why.targetAltitude, half);
    const std::string event(keyOf(time.prayer));
    if (!found.occurs) {
        ++tally_.differences[bandOf(why.latitude)][event + ", the sky only comes near"].events;
        return;
    }
    const double seconds = (time.hours - why.temkin - why.addition - zone_ - found.hour) * 3600.0;
    tally_.differences[bandOf(why.latitude)][event].add(seconds, placeDayAndPrayer(*swept_, day_.date, time));
}

void Tally::print() const {
    std::printf("place-days swept                 %d\n", days);
    std::printf("  told at a lower latitude       %d\n", lowered);
    std::printf("  near a day of the newer rule   %d\n", byRule);
    std::printf("times                            %d, of them corrected %d\n", times, corrected);
    for (const auto& [name, count] : absences) {
        std::printf("  %-30s %d\n", name.c_str(), count);
    }
    std::printf("corrections\n");
    for (const auto& [name, each] : corrections) {
        std::printf("  %-20s %8d  from %4.1f degrees on\n", name.c_str(), each.times, each.lowestLatitude);
        for (const auto& [band, most] : each.most) {
            std::printf("    %-18s %8d  %+9.1f min  %s\n", band.c_str(), most.events, most.seconds / 60.0,
                        most.where.c_str());
        }
    }
    for (const auto& [band, events] : differences) {
        std::printf("largest difference from the sky, %s\n", band.c_str());
        for (const auto& [event, largest] : events) {
            std::printf("  %-55s %8d  %+9.1f s  %s\n", event.c_str(), largest.events, largest.seconds,
                        largest.where.c_str());
        }
    }
}

} // namespace zorel::almanac::tests
