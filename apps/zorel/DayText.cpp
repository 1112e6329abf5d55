// SPDX-License-Identifier: Apache-2.0
#include "DayText.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
Precision precisionOf(const Context& context) {
    return context.options.seconds ? Precision::seconds : Precision::minutes;
}

std::string nextText(const Context& context, const NextPrayer& next) {
    return fmt::format("{}, {} {}", context.word(Word::next), context.word(Word::in),
                       durationText(next.event.utc - context.now(), context.language));
}

void addPrayers(TextTable& table, const Context& context, const Day& day, const DayTextParts& parts) {
    for (const int index : kPrayerIndices) {
        std::vector<std::string> cells{context.nameOf(index), eventText(context, day.event(index), day.date)};
        if (parts.ezani)
            cells.push_back(ezaniText(day, index));
        const bool isNext = parts.next != nullptr && parts.next->index == index &&
                            parts.next->event.utc == day.event(index).utc;
        if (isNext)
            cells.push_back(nextText(context, *parts.next));
        table.add(std::move(cells), isNext ? TextTable::Emphasis::highlight : TextTable::Emphasis::none);
    }
}

void addOthers(TextTable& table, const Context& context, const Day& day, const DayTextParts& parts) {
    for (const int index : kOtherIndices) {
        std::vector<std::string> cells{context.nameOf(index), eventText(context, day.event(index), day.date)};
        if (parts.ezani)
            cells.push_back(ezaniText(day, index));
        table.add(std::move(cells));
    }
    if (parts.sunAtQibla.empty())
        table.add({context.nameOf(PrayerTimes::qiblaTime), std::string(context.word(Word::noneToday))});
    for (const EventTime& instant : parts.sunAtQibla)
        table.add({context.nameOf(PrayerTimes::qiblaTime), eventText(context, instant, day.date)});
}

/// The next time is tomorrow's: a row of its own below today's.
void addTomorrow(TextTable& table, const Context& context, const Day& day, const DayTextParts& parts) {
    if (parts.next == nullptr || parts.next->index < 0 ||
        day.event(parts.next->index).utc == parts.next->event.utc)
        return;
    std::vector<std::string> cells{context.nameOf(parts.next->index),
                                   eventText(context, parts.next->event, day.date)};
    if (parts.ezani)
        cells.emplace_back();
    cells.push_back(nextText(context, *parts.next));
    table.add(std::move(cells), TextTable::Emphasis::highlight);
}
} // namespace

std::string eventText(const Context& context, const EventTime& event, Date date) {
    if (!event.exists)
        return std::string(context.word(Word::noneToday));
    const std::string text = clockText(event.timeOfDay, precisionOf(context));
    const auto days = daysBetween(date, event.date);
    return days == 0 ? text : fmt::format("{} {:+}", text, days);
}

std::string ezaniText(const Day& day, int index) {
    if (!day.event(index).exists)
        return {};
    const auto minutes = std::lround(day.record.ezani[static_cast<std::size_t>(index)] * 60.0);
    const auto onDial = ((minutes % 720) + 720) % 720;
    return fmt::format("{}:{:02}", onDial < 60 ? 12 : onDial / 60, onDial % 60);
}

std::string flagsText(const Context& context, const DayFlags& flags) {
    std::string text;
    const auto add = [&](const std::string& sentence) {
        text += "  ! " + context.style.warning(sentence) + '\n';
    };
    const auto addTaken = [&](int index, const std::optional<Date>& date) {
        if (date)
            add(fmt::format("{}: {} {}", context.nameOf(index), context.word(Word::takenFrom),
                            dayAndMonth(*date, context.language)));
    };
    if (flags.loweredLatitude)
        add(fmt::format("{} {:.4g}° {}", context.word(Word::latitudeLowered),
                        std::abs(*flags.loweredLatitude), *flags.loweredLatitude < 0.0 ? 'S' : 'N'));
    addTaken(PrayerTimes::dawn, flags.dawnFrom);
    addTaken(PrayerTimes::nightfall, flags.nightfallFrom);
    addTaken(PrayerTimes::secondNightfall, flags.secondNightfallFrom);
    addTaken(PrayerTimes::morningFiveDegrees, flags.fiveDegreesFrom);
    addTaken(PrayerTimes::afternoonFiveDegrees, flags.fiveDegreesFrom);
    return text;
}

std::string dayText(const Context& context, const Day& day, const DayTextParts& parts) {
    TextTable prayers("llr");
    addPrayers(prayers, context, day, parts);
    addTomorrow(prayers, context, day, parts);
    std::string text = prayers.text(context.style, "  ");
    if (!parts.others)
        return text;
    TextTable others("llr");
    addOthers(others, context, day, parts);
    return text + '\n' + context.style.bold(context.word(Word::otherTimes)) + '\n' +
           others.text(context.style, "  ");
}

} // namespace zorel::cli
