// SPDX-License-Identifier: Apache-2.0
// What people are told, beside the sky: almanac::Day with its corrections, by the clock of the place.
#include "Comparisons.h"
#include "Statistics.h"

#include "almanac/Almanac.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace zorel::accuracy {
namespace {

using almanac::Almanac;
using almanac::Correction;
using almanac::Date;
using almanac::Day;
using almanac::DayTime;
using almanac::Prayer;

constexpr std::array<std::pair<Prayer, const char*>, 10> kEvents{{
    {Prayer::fajr, "dawn_-19"},
    {Prayer::sunrise, "rise_0"},
    {Prayer::morningFiveDegrees, "morning_+5"},
    {Prayer::dhuhr, "transit"},
    {Prayer::asr, "shadow_1"},
    {Prayer::asrSecond, "shadow_2"},
    {Prayer::afternoonFiveDegrees, "afternoon_+5"},
    {Prayer::maghrib, "set_0"},
    {Prayer::isha, "dusk_-17"},
    {Prayer::ishaSecond, "dusk_-19"},
}};

std::string season(const SunDay& day) {
    constexpr std::array names{"December to February", "March to May", "June to August",
                               "September to November"};
    return names[static_cast<std::size_t>(day.day.month % 12 / 3)];
}

constexpr std::array kBands{std::pair{30.0, "0 to 30 degrees"}, std::pair{50.0, "30 to 50 degrees"},
                            std::pair{61.0, "50 to 61 degrees"}, std::pair{66.0, "61 to 66 degrees"}};

std::string bandOf(const SunDay& day) {
    for (const auto& [end, name] : kBands) {
        if (std::fabs(day.latitude) < end) {
            return name;
        }
    }
    throw std::runtime_error("a place beyond 66 degrees: " + day.place);
}

Day dayTold(const SunDay& day, almanac::Memory& memory) {
    const auto clock = almanac::PlaceClock::ofZone(day.zone);
    if (!clock) {
        throw std::runtime_error("no time zone data of " + day.zone);
    }
    almanac::Place place;
    place.latitude = day.latitude;
    place.longitude = day.longitude;
    place.clock = *clock;
    return Almanac(place).day(almanac::dateOf(day.day), memory);
}

/// Seconds of universal time after 0:00 of the day; whole days that a clock is away from its meridian do not
/// count.
double secondsOf(const DayTime& time, const SunDay& day, double reference) {
    const auto since = time.exact - std::chrono::sys_days(almanac::dateOf(day.day));
    const double seconds = static_cast<double>(since.count()) / 1000.0;
    return seconds - kSecondsOfDay * std::round((seconds - reference) / kSecondsOfDay);
}

class ToldComparison {
public:
    ToldComparison() {
        for (const auto& band : kBands) {
            for (const auto& event : kEvents) {
                byBand_.row(fmt::format("{}, {}", band.second, event.second));
            }
        }
    }

    void add(const SunDay& reference) {
        const Day day = dayTold(reference, memory_);
        for (const auto& [prayer, event] : kEvents) {
            add(reference, day[prayer], event);
        }
        addLimb(reference, day[Prayer::sunrise], "limb_rise", -1.0);
        addLimb(reference, day[Prayer::maghrib], "limb_set", 1.0);
    }

    void print(std::ostream& out) const {
        byEvent_.print(out);
        byBand_.print(out);
        bySeason_.print(out);
        out << fmt::format(
            "{} times of those days are taken from an earlier day or a lower latitude, the sky having "
            "none; {} wait for the Sun's upper limb.\n\n",
            elsewhere_, waiting_);
        out << "### Sunrise and Maghrib beside the Sun's upper limb\n\n"
               "How long before the rise of the upper limb the end of the dawn prayer is told, how long "
               "after its "
               "set Maghrib, precaution and additions included.\n\n"
               "| | events | least | middle | most | the least is |\n|---|---:|---:|---:|---:|---|\n";
        for (const auto& [name, margins] : limbs_) {
            std::vector<Margin> sorted = margins;
            std::ranges::sort(sorted, {}, &Margin::seconds);
            out << fmt::format("| {} | {} | {:.0f} s | {:.0f} s | {:.0f} s | {} |\n", name, sorted.size(),
                               sorted.front().seconds, sorted[sorted.size() / 2].seconds,
                               sorted.back().seconds, sorted.front().where);
        }
        out << '\n';
    }

private:
    struct Margin {
        double seconds;
        std::string where;
    };

    void add(const SunDay& reference, const DayTime& time, const char* event) {
        const std::optional<double>& theirs = reference.events.at(event);
        if (time.why.daysBack != 0 || time.why.latitudeLowered) {
            ++elsewhere_;
            if (!theirs) {
                return;
            }
        }
        if (time.why.corrections.has(Correction::sunStillUp)) {
            ++waiting_;
            return;
        }
        const std::string where =
            fmt::format("{} {} {}", reference.place, almanac::isoDate(almanac::dateOf(reference.day)), event);
        for (Statistics* row :
             {&byEvent_.row(event), &byBand_.row(fmt::format("{}, {}", bandOf(reference), event)),
              &bySeason_.row(season(reference))}) {
            if (time.exists() != theirs.has_value()) {
                row->addMissed(where);
            } else if (theirs) {
                const double added = 3600.0 * (time.why.temkin + time.why.addition);
                row->add(secondsOf(time, reference, *theirs) - added - *theirs, where);
            }
        }
    }

    /// @param sign of what is meant to be above zero
    void addLimb(const SunDay& reference, const DayTime& time, const char* event, double sign) {
        const std::optional<double>& limb = reference.events.at(event);
        if (limb && time.exists() && !time.why.latitudeLowered) {
            limbs_[fmt::format("{}, {}", event, bandOf(reference))].push_back(
                {sign * (secondsOf(time, reference, *limb) - *limb),
                 fmt::format("{} {}", reference.place, almanac::isoDate(almanac::dateOf(reference.day)))});
        }
    }

    almanac::Memory memory_;
    std::size_t elsewhere_ = 0;
    std::size_t waiting_ = 0;
    std::map<std::string, std::vector<Margin>> limbs_;
    Table byEvent_{
        "What people are told, by event",
        "71 places from 54 degrees south to 66 north, every third day of 2026 and 2027, the clock of the "
        "place; precaution and additions taken off."};
    Table byBand_{"What people are told, by event and latitude", "The same events; north and south alike."};
    Table bySeason_{"What people are told, by season", "The same events."};
};

} // namespace

void compareToldDays(const std::string& folder, std::ostream& out) {
    ToldComparison comparison;
    for (const SunDay& day : readSunDays(folder + "/sun_days.tsv")) {
        comparison.add(day);
    }
    comparison.print(out);
}

} // namespace zorel::accuracy
