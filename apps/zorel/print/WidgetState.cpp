// SPDX-License-Identifier: Apache-2.0
#include "print/WidgetState.h"

#include "print/ClockNotices.h"
#include "print/DayJson.h"
#include "print/DayText.h"
#include "print/PlaceText.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

using almanac::Day;
using almanac::Instant;
using almanac::NextPrayer;
using almanac::Prayer;

namespace {
using std::chrono::minutes;
using std::chrono::seconds;

constexpr minutes kNowLasts(5);

std::string textOf(const Context& context, const NextPrayer& next, almanac::Date today, Instant instant) {
    if (!next.next) {
        return tr("none today");
    }
    std::string text =
        fmt::format("{} {}", context.nameOf(next.next->prayer), timeText(context, next.next->local, today));
    if (context.options.countdown) {
        text += fmt::format(" ({})", durationText(next.next->shown - instant));
    }
    return text;
}

std::string datesText(const ShownPlace& place, const Day& day) {
    std::string text = fmt::format("{}\n{}\n", placeText(place), longDate(day.date));
    const std::string hijri = hijriText(almanac::Almanac(place.place).calendars(day.date));
    return hijri.empty() ? text : text + hijri + '\n';
}

std::string tooltipOf(const Context& context, const ShownPlace& place, const Day& day) {
    const Clockface clock(place.clock(), almanac::Precision::minutes);
    TextTable table("lr");
    for (const Prayer prayer : almanac::kSixPrayers) {
        table.add({context.nameOf(prayer), timeText(context, clock.of(day[prayer]), day.date)});
    }
    const std::string notice = clockNoticeText(place, day.date);
    std::string text = datesText(place, day) + table.text(Style(false)) + notice;
    if (notice.empty()) {
        text.pop_back();
    }
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
Instant nextPercent(const NextPrayer& next, Instant instant) {
    if (!next.next || !next.previous) {
        return instant + std::chrono::hours(1);
    }
    const auto span = (next.next->shown - next.previous->shown).count();
    const auto wanted = percentageOf(next, instant) + 1;
    return next.previous->shown + seconds((span * wanted + 99) / 100);
}

Instant nextChangeOf(const Context& context, const ShownPlace& place, const NextPrayer& next,
                     Instant instant) {
    const Instant comes = next.next ? next.next->shown : instant;
    const Instant came = next.previous ? next.previous->shown : instant - kNowLasts;
    return earliestAfter(instant, {comes, comes - minutes(context.options.soon), came + kNowLasts,
                                   nextPercent(next, instant), nextMidnight(place.clock(), instant),
                                   context.options.countdown ? nextMinute(instant) : instant});
}
} // namespace

Nearness nearnessOf(const NextPrayer& next, Instant instant, minutes soon) {
    if (next.previous && instant - next.previous->shown < kNowLasts) {
        return Nearness::now;
    }
    if (next.next && next.next->shown - instant <= soon) {
        return Nearness::soon;
    }
    return Nearness::calm;
}

int percentageOf(const NextPrayer& next, Instant instant) {
    if (!next.next || !next.previous) {
        return 0;
    }
    const auto span = (next.next->shown - next.previous->shown).count();
    const auto over = (instant - next.previous->shown).count();
    return static_cast<int>(std::clamp<std::int64_t>(over * 100 / std::max<std::int64_t>(span, 1), 0, 100));
}

StatusLine widgetLine(const Context& context, almanac::Memory& memory, const ShownPlace& place,
                      Instant instant) {
    const almanac::Almanac almanac(place.place);
    const NextPrayer next = almanac.next(instant, memory);
    const Day day = almanac.day(place.clock().dateAt(instant), memory);
    const Json line{{"text", textOf(context, next, day.date, instant)},
                    {"tooltip", tooltipOf(context, place, day)},
                    {"class", className(nearnessOf(next, instant, minutes(context.options.soon)))},
                    {"percentage", percentageOf(next, instant)}};
    return {jsonText(line, -1), nextChangeOf(context, place, next, instant)};
}

} // namespace zorel::cli
