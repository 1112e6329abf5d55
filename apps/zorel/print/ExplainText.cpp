// SPDX-License-Identifier: Apache-2.0
#include "print/ExplainText.h"

#include "terminal/Wrap.h"

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
/// A span of hours as signed minutes and seconds, "-8:31".
std::string minutesText(double hours) {
    const auto seconds = std::llround(std::abs(hours) * 3600.0);
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
    const Word pattern = degrees < 0.0 ? Word::sunBelow : Word::sunAbove;
    return fmt::format(fmt::runtime(context.word(pattern)),
                       fmt::arg("degrees", fmt::format("{:.0f}", std::abs(degrees))));
}

std::string shadowText(const Context& context, const Explanation& why) {
    return fmt::format(fmt::runtime(context.word(Word::shadowRule)), fmt::arg("staffs", why.shadowFactor),
                       fmt::arg("degrees", fmt::format("{:.1f}", why.targetAltitude)));
}

std::string nightText(const Context& context, const Explanation& why) {
    const Word pattern = why.partOfNight < 0.0 ? Word::nightLeft : Word::nightPassed;
    return fmt::format(fmt::runtime(context.word(pattern)),
                       fmt::arg("parts", std::llround(1.0 / std::abs(why.partOfNight))),
                       fmt::arg("name", context.nameOf(why.nightFrom)));
}

std::string ruleText(const Context& context, const Explanation& why) {
    switch (why.rule) {
    case PrayTimeRule::altitude:
        return altitudeText(context, why.targetAltitude);
    case PrayTimeRule::shadow:
        return shadowText(context, why);
    case PrayTimeRule::transit:
        return std::string(context.word(Word::sunHighest));
    case PrayTimeRule::partOfNight:
        return nightText(context, why);
    default:
        return "-";
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

/// "Fajr 06:07 because the Sun stands 19° below the horizon."
std::string reasonText(const Context& context, const Day& day, const DayTime& time) {
    const std::string name = context.nameOf(time.prayer);
    const std::string rule = ruleText(context, time.why);
    if (!time.exists()) {
        return fmt::format(fmt::runtime(context.word(Word::noneBecause)), fmt::arg("name", name),
                           fmt::arg("rule", rule));
    }
    return fmt::format(
        fmt::runtime(context.word(Word::because)), fmt::arg("name", name),
        fmt::arg("time", clockAndDayText(time.local, day.date, almanac::Precision::minutes, " ")),
        fmt::arg("rule", rule));
}

/// "exact 06:07:24, temkin -8:31, rounds 2, latitude 41.01°"; what is not there is left out, and the date
/// where it is the day's own.
std::string figuresText(const Context& context, const Day& day, const DayTime& time,
                        const Clockface& seconds) {
    const Explanation& why = time.why;
    std::vector<std::string> figures;
    const auto add = [&](std::string_view name, const std::string& value) {
        figures.push_back(fmt::format("{} {}", name, value));
    };
    if (const ShownTime exact = seconds.of(time)) {
        add(context.word(Word::exactTime), clockAndDayText(*exact, day.date, seconds.precision(), " "));
    }
    if (why.temkin != 0.0) {
        add("temkin", minutesText(why.temkin));
    }
    if (why.addition != 0.0) {
        add(context.word(Word::addition), minutesText(why.addition));
    }
    if (why.rounds != 0) {
        add(context.word(Word::rounds), fmt::format("{}", why.rounds));
    }
    if (why.date != day.date) {
        add(context.word(Word::dateWord), almanac::isoDate(why.date));
    }
    add(context.word(Word::latitude), fmt::format("{:.2f}°", why.latitude));
    return fmt::format("{}", fmt::join(figures, ", "));
}

/// The corrections that occur in a day, numbered as footnotes.
class Footnotes {
public:
    /// " [1] [3]", the numbers of a time's corrections.
    std::string numbersOf(Corrections corrections) {
        std::string numbers;
        for (std::size_t i = 0; i < almanac::kCorrections; ++i) {
            if (corrections.has(static_cast<almanac::Correction>(i))) {
                numbers += fmt::format(" [{}]", numberOf(static_cast<almanac::Correction>(i)));
            }
        }
        return numbers;
    }
    [[nodiscard]] std::string text(const Context& context) const {
        std::string lines;
        for (std::size_t i = 0; i < seen_.size(); ++i) {
            lines += paragraph(correctionText(seen_[i], context.language), fmt::format("  [{}] ", i + 1),
                               "      ", context.columns());
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
    const Clockface seconds(clock, almanac::Precision::seconds);
    Footnotes footnotes;
    std::string text = '\n' + context.style.bold(context.word(Word::explanation)) + '\n';
    for (const Prayer prayer : almanac::kListedPrayers) {
        const DayTime& time = day[prayer];
        const std::string figures = figuresText(context, day, time, seconds);
        text += paragraph(reasonText(context, day, time) + footnotes.numbersOf(time.why.corrections), "  ",
                          "    ", context.columns());
        text += paragraph(figures, "    ", "    ", context.columns());
    }
    return text + footnotes.text(context);
}

Json explainJson(const Day& day) {
    Json list = Json::array();
    for (const Prayer prayer : almanac::kListedPrayers) {
        list.push_back(oneJson(day[prayer], day.date));
    }
    return list;
}

} // namespace zorel::cli
