// SPDX-License-Identifier: Apache-2.0
#include "print/DayText.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

using almanac::Date;
using almanac::Day;
using almanac::DayTime;
using almanac::Prayer;

namespace {
/// Writes the times of one day into tables.
class DayRows {
public:
    DayRows(const Context& context, const Day& day, const Clockface& clock, const DayTextParts& parts)
        : context_(context), day_(day), clock_(clock), parts_(parts) {}

    void addSix(TextTable& table) const {
        for (const Prayer prayer : almanac::kSixPrayers) {
            if (isNext(prayer)) {
                addNext(table, day_[prayer], ezani(prayer));
            } else {
                table.add(cells(prayer));
            }
        }
        if (parts_.next && !isNext(parts_.next->prayer)) { // that of another day: a row of its own
            addNext(table, *parts_.next, {});
        }
    }
    void addOthers(TextTable& table) const {
        for (const Prayer prayer : almanac::kOtherPrayers) {
            table.add(cells(prayer));
        }
        const std::string name = context_.nameOf(Prayer::sunAtQibla);
        if (parts_.qibla.instants.empty()) {
            table.add({name, timeText(context_, std::nullopt, day_.date)});
        }
        for (const almanac::SunAtQibla& instant : parts_.qibla.instants) {
            table.add({name, timeText(context_, instant.at.local, day_.date)});
        }
    }

private:
    [[nodiscard]] bool isNext(Prayer prayer) const {
        return parts_.next && parts_.next->prayer == prayer && parts_.next->exact == day_[prayer].exact;
    }
    [[nodiscard]] std::string ezani(Prayer prayer) const {
        return parts_.ezani ? ezaniText((*parts_.ezani)[static_cast<std::size_t>(prayer)]) : std::string();
    }
    [[nodiscard]] std::vector<std::string> cells(const DayTime& time, std::string ezani) const {
        std::vector<std::string> cells{context_.nameOf(time.prayer),
                                       timeText(context_, clock_.of(time), day_.date)};
        if (parts_.ezani) {
            cells.push_back(std::move(ezani));
        }
        return cells;
    }
    [[nodiscard]] std::vector<std::string> cells(Prayer prayer) const {
        return cells(day_[prayer], ezani(prayer));
    }
    void addNext(TextTable& table, const DayTime& time, std::string ezani) const {
        auto row = cells(time, std::move(ezani));
        row.push_back(
            // translators: stands behind the next prayer time; {} is "2 h 5 min"
            tr("next, in {}", durationText(time.rounded(clock_.precision()) - context_.now())));
        table.add(std::move(row), TextTable::Emphasis::highlight);
    }

    const Context& context_;
    const Day& day_;
    const Clockface& clock_;
    const DayTextParts& parts_;
};
} // namespace

std::string timeText(const Context& context, const ShownTime& time, Date date) {
    return time ? clockAndDayText(*time, date, context.precision(), " ") : tr("none today");
}

std::string ezaniText(const std::optional<double>& hours) {
    if (!hours) {
        return {};
    }
    const auto minutes = std::lround(*hours * 60.0);
    const auto onDial = ((minutes % 720) + 720) % 720;
    return fmt::format("{}:{:02}", onDial < 60 ? 12 : onDial / 60, onDial % 60);
}

std::string flagsText(const Context& context, const Day& day) {
    std::string text;
    const auto add = [&](const std::string& sentence) {
        text += "  ! " + context.style.warning(sentence) + '\n';
    };
    if (const auto latitude = day.loweredLatitude()) {
        add(*latitude < 0.0 ? tr("latitude lowered to {:.4g}° S", -*latitude)
                            : tr("latitude lowered to {:.4g}° N", *latitude));
    }
    for (const Prayer prayer : {Prayer::fajr, Prayer::isha, Prayer::ishaSecond}) {
        if (const auto date = day[prayer].takenFrom()) {
            // translators: {0} a prayer time, {1} a day: "3 May"
            add(tr("{0}: taken from {1}", context.nameOf(prayer), dayAndMonth(*date)));
        }
    }
    return text;
}

std::string dayText(const Context& context, const Day& day, const Clockface& clock,
                    const DayTextParts& parts) {
    const DayRows rows(context, day, clock, parts);
    TextTable prayers("llr");
    rows.addSix(prayers);
    std::string text = prayers.text(context.style, "  ");
    if (!parts.others) {
        return text;
    }
    TextTable others("llr");
    rows.addOthers(others);
    return text + '\n' + context.style.bold(tr("Other times")) + '\n' + others.text(context.style, "  ");
}

} // namespace zorel::cli
