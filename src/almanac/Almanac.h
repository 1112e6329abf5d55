// SPDX-License-Identifier: Apache-2.0
/// @file
/// The almanac of a place: everything that a person can be told of its days, from one computation.
///
///     #include <zorel/almanac/Almanac.h>
///
///     using namespace zorel::almanac;
///     const Place here{.name = "Paris", .latitude = 48.8566, .longitude = 2.3522,
///                      .clock = PlaceClock::ofZone("Europe/Paris").value()};
///     const Day day = Almanac(here).day(2026y / 7 / 1);
///     const LocalTime sunset = day[Prayer::maghrib].local; // if day[Prayer::maghrib].exists()
///
/// Times are those of the engine (FastAstro), fed with the offset of the day's noon, bit for bit, unless a
/// named correction applies (Corrections.h). docs/accuracy.md measures them against the sky.
///
/// No call depends on an earlier one; nothing is global; values may be used from several threads. Failure: a
/// place or date out of range gives a Day whose times do not exist (Absence::outOfRange) and empty answers;
/// nothing is thrown but std::bad_alloc.
#pragma once

#include "almanac/Day.h"
#include "almanac/Magnetic.h"
#include "almanac/Place.h"
#include "almanac/Qibla.h"
#include "almanac/Sky.h"

#include "engine/Api.h"
#include "engine/Records.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace zorel::almanac {

/// Positions of the Sun that one day and place leave for the next. With or without it the results are the
/// same to the bit; with it, neighbouring days and many places on one day are several times faster. One for
/// each thread.
class ZOREL_API Memory {
public:
    Memory();
    Memory(Memory&&) noexcept;
    Memory& operator=(Memory&&) noexcept;
    ~Memory();

private:
    friend class Almanac;
    struct Held;
    std::unique_ptr<Held> held_;
};

class ZOREL_API Almanac {
public:
    explicit Almanac(Place place) : place_(std::move(place)) {}

    [[nodiscard]] const Place& place() const { return place_; }

    /// The fifteen times of a date with their explanations.
    [[nodiscard]] Day day(Date date) const;
    [[nodiscard]] Day day(Date date, Memory& memory) const;

    /// The next of the six times after an instant, by its shown minute (or second), and the one before.
    [[nodiscard]] NextPrayer next(Instant instant, Precision precision = Precision::minutes) const;
    [[nodiscard]] NextPrayer next(Instant instant, Memory& memory,
                                  Precision precision = Precision::minutes) const;

    /// The Moon on a local date.
    [[nodiscard]] MoonOfDay moon(Date date) const;
    /// Sun and Moon at an instant.
    [[nodiscard]] Sky sky(Instant instant) const;
    /// Where Sun and Moon stand from 0:00 to 24:00 of a local date, in steps [s, more than 0]; both ends are
    /// in it.
    [[nodiscard]] std::vector<SkyMoment> course(Date date, std::chrono::seconds step) const;
    /// Direction of the Kaaba, and when the Sun shows it on a local date.
    [[nodiscard]] Qibla qibla(Date date) const;
    /// Civil, observation-based Hijri and Rumi date. The Hijri day is the one whose daylight falls on the
    /// date; it begins at the sunset before.
    [[nodiscard]] AllCalendarRecord calendars(Date date) const;
    /// Nothing where the field gives no direction (at the magnetic poles' very point).
    [[nodiscard]] std::optional<Magnetic> magnetic(Date date) const;

private:
    Place place_;
};

} // namespace zorel::almanac
