// SPDX-License-Identifier: Apache-2.0
#include "almanac/Almanac.h"

#include "almanac/DayMaker.h"

namespace zorel::almanac {

struct Memory::Held {
    FastAstro engine;
};

Memory::Memory() : held_(std::make_unique<Held>()) {}
Memory::Memory(Memory&&) noexcept = default;
Memory& Memory::operator=(Memory&&) noexcept = default;
Memory::~Memory() = default;

namespace {

Day makeDay(const Place& place, Date date, FastAstro& engine) {
    if (!canBeTold(place, date)) {
        return untoldDay(date);
    }
    Day day;
    DayMaker(place, engine, date, day).make();
    return day;
}

/// The search for the next time, among the times of some days.
class Neighbours {
public:
    Neighbours(Instant instant, Precision precision) : instant_(instant), precision_(precision) {}

    void consider(const Day& day) {
        for (const Prayer prayer : kSixPrayers) {
            if (day[prayer].exists()) {
                consider(day[prayer]);
            }
        }
    }
    [[nodiscard]] const NextPrayer& found() const { return found_; }

private:
    [[nodiscard]] Instant of(const DayTime& time) const { return time.rounded(precision_); }
    void consider(const DayTime& time) {
        if (of(time) > instant_) {
            if (!found_.next || of(time) < of(*found_.next)) {
                found_.next = time;
            }
        } else if (!found_.previous || of(time) >= of(*found_.previous)) {
            found_.previous = time;
        }
    }

    Instant instant_;
    Precision precision_;
    NextPrayer found_;
};

} // namespace

Day Almanac::day(Date date) const {
    FastAstro engine;
    return makeDay(place_, date, engine);
}

Day Almanac::day(Date date, Memory& memory) const {
    return makeDay(place_, date, memory.held_->engine);
}

NextPrayer Almanac::next(Instant instant, Precision precision) const {
    Memory memory;
    return next(instant, memory, precision);
}

/// A time of a neighbouring date may stand between those of the date itself.
NextPrayer Almanac::next(Instant instant, Memory& memory, Precision precision) const {
    const Date today = place_.clock.dateAt(instant);
    Neighbours neighbours(instant, precision);
    for (const int step : {-1, 0, 1}) {
        neighbours.consider(day(addDays(today, step), memory));
    }
    if (!neighbours.found().previous) {
        neighbours.consider(day(addDays(today, -2), memory));
    }
    if (!neighbours.found().next) {
        neighbours.consider(day(addDays(today, 2), memory));
    }
    return neighbours.found();
}

} // namespace zorel::almanac
