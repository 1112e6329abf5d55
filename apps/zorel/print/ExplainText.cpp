// SPDX-License-Identifier: Apache-2.0
#include "print/ExplainText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace zorel::cli {

using almanac::Corrections;
using almanac::Day;
using almanac::DayTime;
using almanac::Explanation;
using almanac::Prayer;

namespace {
/// A span of hours as signed minutes and seconds, "-8:31"; "-" when there is none.
std::string minutesText(double hours) {
    const auto seconds = std::llround(std::abs(hours) * 3600.0);
    if (seconds == 0) {
        return "-";
    }
    return fmt::format("{}{}:{:02}", hours < 0.0 ? '-' : '+', seconds / 60, seconds % 60);
}

/// The time to the second on its safe side, as hours after 0:00 of the day by the clock in force at the time:
/// "06:02:17", "24:12:03", "-00:08:29".
std::string hoursText(const DayTime& time, almanac::Date date) {
    const auto wall = time.rounded(almanac::Precision::seconds) + time.offset - std::chrono::sys_days(date);
    const auto seconds = std::abs(wall.count());
    return fmt::format("{}{:02}:{:02}:{:02}", wall.count() < 0 ? "-" : "", seconds / 3600, seconds / 60 % 60,
                       seconds % 60);
}

std::string altitudeText(const Context& context, double degrees) {
    if (degrees == 0.0) {
        return std::string(context.word(Word::sunAtHorizon));
    }
    return fmt::format("{} {:.0f}°", context.word(degrees < 0.0 ? Word::sunBelow : Word::sunAbove),
                       std::abs(degrees));
}

std::string nightText(const Context& context, const Explanation& why) {
    const auto parts = std::llround(1.0 / std::abs(why.partOfNight));
    return fmt::format("{} {} 1/{} {}", context.nameOf(why.nightFrom), why.partOfNight < 0.0 ? '-' : '+',
                       parts, context.word(Word::night));
}

std::string ruleText(const Context& context, const Explanation& why) {
    switch (why.rule) {
    case PrayTimeRule::altitude:
        return altitudeText(context, why.targetAltitude);
    case PrayTimeRule::shadow:
        return fmt::format("{} {} ({:.1f}°)", context.word(Word::shadowRule), why.shadowFactor,
                           why.targetAltitude);
    case PrayTimeRule::transit:
        return std::string(context.word(Word::sunHighest));
    case PrayTimeRule::partOfNight:
        return nightText(context, why);
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

std::string roundsText(const Explanation& why) {
    return why.rounds == 0 ? "-" : fmt::format("{}", why.rounds);
}

/// The corrections that occur in a day, numbered as footnotes.
class Footnotes {
public:
    /// "1 3", the numbers of a time's corrections.
    std::string numbersOf(Corrections corrections) {
        std::vector<std::size_t> numbers;
        for (std::size_t i = 0; i < almanac::kCorrections; ++i) {
            if (corrections.has(static_cast<almanac::Correction>(i))) {
                numbers.push_back(numberOf(static_cast<almanac::Correction>(i)));
            }
        }
        return fmt::format("{}", fmt::join(numbers, " "));
    }
    [[nodiscard]] std::string text(const Context& context) const {
        std::string lines;
        for (std::size_t i = 0; i < seen_.size(); ++i) {
            lines += fmt::format("  {}  {}\n", i + 1, correctionText(seen_[i], context.language));
        }
        return lines;
    }

private:
    std::size_t numberOf(almanac::Correction correction) {
        const auto found = std::find(seen_.begin(), seen_.end(), correction);
        const auto number = static_cast<std::size_t>(found - seen_.begin()) + 1;
        if (found == seen_.end()) {
            seen_.push_back(correction);
        }
        return number;
    }

    std::vector<almanac::Correction> seen_;
};

Json altitudeJson(const Explanation& why) {
    const bool has = why.rule == PrayTimeRule::altitude || why.rule == PrayTimeRule::shadow;
    return has ? Json(why.targetAltitude) : Json(nullptr);
}

Json oneJson(const DayTime& time, almanac::Date date) {
    const Explanation& why = time.why;
    return Json{{"name", almanac::keyOf(time.prayer)},
                {"rule", ruleKey(why.rule)},
                {"altitude", altitudeJson(why)},
                {"shadow_factor", why.shadowFactor == 0 ? Json(nullptr) : Json(why.shadowFactor)},
                {"part_of_night", why.partOfNight == 0.0 ? Json(nullptr) : Json(why.partOfNight)},
                {"temkin_seconds", std::llround(why.temkin * 3600.0)},
                {"addition_seconds", std::llround(why.addition * 3600.0)},
                {"rounds", why.rounds},
                {"date", almanac::isoDate(why.date)},
                {"latitude", why.latitude},
                {"exact", time.exists() ? Json(hoursText(time, date)) : Json(nullptr)},
                {"corrections", correctionsJson(why.corrections)}};
}
} // namespace

std::string explainText(const Context& context, const Day& day, const almanac::PlaceClock& clock) {
    TextTable table("lllrrrlrl");
    const Clockface seconds(clock, almanac::Precision::seconds);
    const auto head = [&](Word which) { return std::string(context.word(which)); };
    table.add({"", head(Word::exactTime), head(Word::rule), "temkin", head(Word::addition),
               head(Word::rounds), head(Word::dateWord), head(Word::latitude)},
              TextTable::Emphasis::dim);
    Footnotes footnotes;
    for (const Prayer prayer : almanac::kListedPrayers) {
        const DayTime& time = day[prayer];
        const ShownTime exact = seconds.of(time);
        table.add({context.nameOf(time.prayer),
                   exact ? clockAndDayText(*exact, day.date, seconds.precision(), " ") : "-",
                   ruleText(context, time.why), minutesText(time.why.temkin), minutesText(time.why.addition),
                   roundsText(time.why), almanac::isoDate(time.why.date),
                   fmt::format("{:.2f}°", time.why.latitude), footnotes.numbersOf(time.why.corrections)});
    }
    return '\n' + context.style.bold(context.word(Word::explanation)) + '\n' +
           table.text(context.style, "  ") + footnotes.text(context);
}

Json explainJson(const Day& day) {
    Json list = Json::array();
    for (const Prayer prayer : almanac::kListedPrayers) {
        list.push_back(oneJson(day[prayer], day.date));
    }
    return list;
}

} // namespace zorel::cli
