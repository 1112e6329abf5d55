// SPDX-License-Identifier: Apache-2.0
#include "Explain.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
/// A span of hours as signed minutes and seconds, "-8:31"; "-" when there is none.
std::string minutesText(double hours) {
    const auto seconds = std::llround(std::abs(hours) * 3600.0);
    if (seconds == 0)
        return "-";
    return fmt::format("{}{}:{:02}", hours < 0.0 ? '-' : '+', seconds / 60, seconds % 60);
}

/// The unrounded time, "06:02:17"; hours outside a day keep counting (24:12:03).
std::string exactText(const PrayTimeExplanation& explanation) {
    if (!explanation.occurs || !std::isfinite(explanation.time))
        return "-";
    const auto seconds = std::llround(std::abs(explanation.time) * 3600.0);
    return fmt::format("{}{:02}:{:02}:{:02}", explanation.time < 0.0 ? "-" : "", seconds / 3600,
                       seconds / 60 % 60, seconds % 60);
}

std::string altitudeText(const Context& context, double degrees) {
    if (degrees == 0.0)
        return std::string(context.word(Word::sunAtHorizon));
    return fmt::format("{} {:.0f}°", context.word(degrees < 0.0 ? Word::sunBelow : Word::sunAbove),
                       std::abs(degrees));
}

std::string nightText(const Context& context, const PrayTimeExplanation& explanation) {
    const auto parts = std::llround(1.0 / std::abs(explanation.partOfNight));
    return fmt::format("{} {} 1/{} {}", context.nameOf(explanation.nightFrom),
                       explanation.partOfNight < 0.0 ? '-' : '+', parts, context.word(Word::night));
}

std::string ruleText(const Context& context, const PrayTimeExplanation& explanation) {
    switch (explanation.rule) {
    case PrayTimeRule::altitude:
        return altitudeText(context, explanation.targetAltitude);
    case PrayTimeRule::shadow:
        return fmt::format("{} {} ({:.1f}°)", context.word(Word::shadowRule), explanation.shadowFactor,
                           explanation.targetAltitude);
    case PrayTimeRule::transit:
        return std::string(context.word(Word::sunHighest));
    case PrayTimeRule::partOfNight:
        return nightText(context, explanation);
    default:
        return {};
    }
}

std::string_view ruleKey(PrayTimeRule rule) {
    switch (rule) {
    case PrayTimeRule::altitude:
        return "altitude";
    case PrayTimeRule::shadow:
        return "shadow";
    case PrayTimeRule::transit:
        return "transit";
    case PrayTimeRule::partOfNight:
        return "part_of_night";
    default:
        return "none";
    }
}

Date dateOf(const DateTimeRecord& record) {
    return Date{std::chrono::year{record.year}, std::chrono::month{static_cast<unsigned>(record.month)},
                std::chrono::day{static_cast<unsigned>(record.day)}};
}

std::string roundsText(const PrayTimeExplanation& explanation) {
    return explanation.rounds == 0 ? "-" : fmt::format("{}", explanation.rounds);
}

Json oneJson(const PrayTimeExplanation& explanation) {
    return Json{
        {"name", keyOf(explanation.index)},
        {"rule", ruleKey(explanation.rule)},
        {"altitude", explanation.rule == PrayTimeRule::altitude || explanation.rule == PrayTimeRule::shadow
                         ? Json(explanation.targetAltitude)
                         : Json(nullptr)},
        {"shadow_factor", explanation.shadowFactor == 0 ? Json(nullptr) : Json(explanation.shadowFactor)},
        {"part_of_night", explanation.partOfNight == 0.0 ? Json(nullptr) : Json(explanation.partOfNight)},
        {"temkin_seconds", std::llround(explanation.temkin * 3600.0)},
        {"addition_seconds", std::llround(explanation.addition * 3600.0)},
        {"rounds", explanation.rounds},
        {"date", isoDate(dateOf(explanation.date))},
        {"latitude", explanation.latitude},
        {"exact", explanation.occurs ? Json(exactText(explanation)) : Json(nullptr)}};
}
} // namespace

std::vector<PrayTimeExplanation> explainDay(DayComputer& computer, const Place& place, const Day& day) {
    computer.prepare(place, day.date);
    std::vector<PrayTimeExplanation> explanations;
    const auto add = [&](std::span<const int> indices) {
        for (const int index : indices)
            explanations.push_back(computer.engine().ExplainPrayTime(index, engineDate(day.date)));
    };
    add(kPrayerIndices);
    add(kOtherIndices);
    return explanations;
}

std::string explainText(const Context& context, const std::vector<PrayTimeExplanation>& explanations) {
    if (explanations.empty())
        return {};
    TextTable table("lrlrrrlr");
    const auto head = [&](Word which) { return std::string(context.word(which)); };
    table.add({"", head(Word::exactTime), head(Word::rule), "temkin", head(Word::addition),
               head(Word::rounds), head(Word::dateWord), head(Word::latitude)},
              TextTable::Emphasis::dim);
    for (const PrayTimeExplanation& explanation : explanations)
        table.add({context.nameOf(explanation.index), exactText(explanation), ruleText(context, explanation),
                   minutesText(explanation.temkin), minutesText(explanation.addition),
                   roundsText(explanation), isoDate(dateOf(explanation.date)),
                   fmt::format("{:.2f}°", explanation.latitude)});
    return '\n' + context.style.bold(context.word(Word::explanation)) + '\n' +
           table.text(context.style, "  ");
}

Json explainJson(const std::vector<PrayTimeExplanation>& explanations) {
    Json list = Json::array();
    for (const PrayTimeExplanation& explanation : explanations)
        list.push_back(oneJson(explanation));
    return list;
}

} // namespace zorel::cli
