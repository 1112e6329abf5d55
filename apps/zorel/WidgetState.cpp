// SPDX-License-Identifier: Apache-2.0
#include "WidgetState.h"

#include "Calendars.h"
#include "DayJson.h"
#include "DayText.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>

namespace zorel::cli {

namespace {
using std::chrono::minutes;
using std::chrono::seconds;

constexpr minutes kNowLasts(5);

std::string textOf(const Context& context, const NextPrayer& next, Date today, UtcSeconds instant) {
    if (next.index < 0)
        return std::string(context.word(Word::noneToday));
    std::string text =
        fmt::format("{} {}", context.nameOf(next.index), eventText(context, next.event, today));
    if (context.options.countdown)
        text += fmt::format(" ({})", durationText(next.event.utc - instant, context.language));
    return text;
}

std::string tooltipOf(const Context& context, const Place& place, const Day& day) {
    TextTable table("lr");
    for (const int index : kPrayerIndices)
        table.add({context.nameOf(index), eventText(context, day.event(index), day.date)});
    std::string text =
        fmt::format("{}\n{}\n", placeText(place, context.language), longDate(day.date, context.language));
    if (const std::string hijri = hijriText(calendarsOf(day.date), context.language); !hijri.empty())
        text += hijri + '\n';
    text += table.text(Style(false));
    text.pop_back();
    return text;
}

std::string_view className(Nearness nearness) {
    switch (nearness) {
    case Nearness::soon:
        return "soon";
    case Nearness::now:
        return "now";
    default:
        return "calm";
    }
}

/// The instant at which the percentage becomes one more.
UtcSeconds nextPercent(const NextPrayer& next, UtcSeconds instant) {
    if (next.index < 0 || next.previousIndex < 0)
        return instant + std::chrono::hours(1);
    const auto span = (next.event.utc - next.previousEvent.utc).count();
    const auto wanted = percentageOf(next, instant) + 1;
    return next.previousEvent.utc + seconds((span * wanted + 99) / 100);
}

UtcSeconds nextMidnight(const Place& place, UtcSeconds instant) {
    const UtcSeconds wall = std::chrono::sys_days(addDays(place.clock.dateAt(instant), 1));
    return wall - place.clock.offsetAt(wall - place.clock.offsetAt(instant));
}

UtcSeconds earliestAfter(UtcSeconds instant, std::initializer_list<UtcSeconds> candidates) {
    UtcSeconds earliest = instant + std::chrono::hours(24);
    for (const UtcSeconds candidate : candidates) {
        if (candidate > instant)
            earliest = std::min(earliest, candidate);
    }
    return earliest;
}

UtcSeconds nextChangeOf(const Context& context, const Place& place, const NextPrayer& next,
                        UtcSeconds instant) {
    const UtcSeconds minute = std::chrono::floor<minutes>(instant) + minutes(1);
    return earliestAfter(instant,
                         {next.event.utc, next.event.utc - minutes(context.options.soon),
                          next.previousEvent.utc + kNowLasts, nextPercent(next, instant),
                          nextMidnight(place, instant), context.options.countdown ? minute : instant});
}
} // namespace

Nearness nearnessOf(const NextPrayer& next, UtcSeconds instant, minutes soon) {
    if (next.previousIndex >= 0 && instant - next.previousEvent.utc < kNowLasts)
        return Nearness::now;
    if (next.index >= 0 && next.event.utc - instant <= soon)
        return Nearness::soon;
    return Nearness::calm;
}

int percentageOf(const NextPrayer& next, UtcSeconds instant) {
    if (next.index < 0 || next.previousIndex < 0)
        return 0;
    const auto span = (next.event.utc - next.previousEvent.utc).count();
    const auto over = (instant - next.previousEvent.utc).count();
    return static_cast<int>(std::clamp<std::int64_t>(over * 100 / std::max<std::int64_t>(span, 1), 0, 100));
}

WidgetState widgetState(const Context& context, DayComputer& computer, const Place& place,
                        UtcSeconds instant) {
    const NextPrayer next = nextPrayer(computer, place, instant);
    const Day day = computer.compute(place, place.clock.dateAt(instant));
    const Json line{{"text", textOf(context, next, day.date, instant)},
                    {"tooltip", tooltipOf(context, place, day)},
                    {"class", className(nearnessOf(next, instant, minutes(context.options.soon)))},
                    {"percentage", percentageOf(next, instant)}};
    return {line.dump(-1, ' ', false, Json::error_handler_t::replace),
            nextChangeOf(context, place, next, instant)};
}

} // namespace zorel::cli
