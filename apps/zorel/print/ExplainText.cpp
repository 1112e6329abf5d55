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

std::string altitudeText(double degrees) {
    if (degrees == 0.0) {
        return tr("the Sun stands at the horizon");
    }
    const std::string size = fmt::format("{:.0f}", std::abs(degrees));
    return degrees < 0.0 ? tr("the Sun stands {}° below the horizon", size)
                         : tr("the Sun stands {}° above the horizon", size);
}

std::string shadowText(const Explanation& why) {
    // translators: {0} is 1 or 2
    return tr("shadows are longer than at noon by {0} times the staff, the Sun {1}° high", why.shadowFactor,
              fmt::format("{:.1f}", why.targetAltitude));
}

std::string nightText(const Context& context, const Explanation& why) {
    const auto parts = std::llround(1.0 / std::abs(why.partOfNight));
    const std::string name = context.nameOf(why.nightFrom);
    // translators: {1} is the name of a prayer time
    return why.partOfNight < 0.0 ? tr("1/{0} of the night is left until {1}", parts, name)
                                 : tr("1/{0} of the night has passed since {1}", parts, name);
}

std::string ruleText(const Context& context, const Explanation& why) {
    switch (why.rule) {
    case PrayTimeRule::altitude:
        return altitudeText(why.targetAltitude);
    case PrayTimeRule::shadow:
        return shadowText(why);
    case PrayTimeRule::transit:
        return tr("the Sun stands at its highest");
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
        // translators: {0} a prayer time, {1} its rule, such as "the Sun stands 17° below the horizon"
        return tr("{0}: none today. Its rule: {1}.", name, rule);
    }
    // translators: {0} a prayer time, {1} the clock's time, {2} its rule: "the Sun stands at its highest"
    return tr("{0} {1} because {2}.", name,
              clockAndDayText(time.local, day.date, almanac::Precision::minutes, " "), rule);
}

/// "exact 06:07:24, temkin -8:31, rounds 2, latitude 41.01°"; what is not there is left out, and the date
/// where it is the day's own.
std::string figuresText(const Day& day, const DayTime& time, const Clockface& seconds) {
    const Explanation& why = time.why;
    std::vector<std::string> figures;
    if (const ShownTime exact = seconds.of(time)) {
        figures.push_back(tr("exact {}", clockAndDayText(*exact, day.date, seconds.precision(), " ")));
    }
    if (why.temkin != 0.0) {
        // translators: temkin is the margin of safety that the times carry
        figures.push_back(tr("temkin {}", minutesText(why.temkin)));
    }
    if (why.addition != 0.0) {
        figures.push_back(tr("added {}", minutesText(why.addition)));
    }
    if (why.rounds != 0) {
        // translators: how often the computation was repeated
        figures.push_back(tr("rounds {}", why.rounds));
    }
    if (why.date != day.date) {
        figures.push_back(tr("date {}", almanac::isoDate(why.date)));
    }
    figures.push_back(tr("latitude {:.2f}°", why.latitude));
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
            lines += paragraph(correctionText(seen_[i]), fmt::format("  [{}] ", i + 1), "      ",
                               context.columns());
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

std::string correctionText(almanac::Correction correction) {
    switch (correction) {
    case almanac::Correction::beforeMidnight:
        return tr(
            "before midnight, on the eve: the engine adds an hour to such a time; the parts of the night "
            "follow it");
    case almanac::Correction::seamOfDays:
        return tr("by the Sun of this day: the engine judges by the day before whether it rises and sets");
    case almanac::Correction::ownSun:
        return tr("by the Sun of this day: the engine takes that of an earlier day");
    case almanac::Correction::dateLine:
        return tr("the clock is a day away from the meridian, beyond the date line");
    case almanac::Correction::nightWithoutEnds:
        return tr("the night has no beginning or no end, so there is no part of it");
    case almanac::Correction::sunStillUp:
        return tr("moved to where the Sun is really down (or up): its way is too flat for the temkin");
    case almanac::Correction::clockChange:
        return tr("the clock changes between this time and noon: told by the clock then in force");
    case almanac::Correction::outOfOrder:
        return tr("taken from an earlier day it would stand out of its order: there is none that day");
    default:
        return tr("towards the Kaaba itself");
    }
}

std::string explainText(const Context& context, const Day& day, const almanac::PlaceClock& clock) {
    const Clockface seconds(clock, almanac::Precision::seconds);
    Footnotes footnotes;
    std::string text = '\n' + context.style.bold(tr("Why these times")) + '\n';
    for (const Prayer prayer : almanac::kListedPrayers) {
        const DayTime& time = day[prayer];
        const std::string figures = figuresText(day, time, seconds);
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
