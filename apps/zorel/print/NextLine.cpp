// SPDX-License-Identifier: Apache-2.0
#include "print/NextLine.h"

#include "print/DayText.h"
#include "print/PlaceText.h"

#include "platform/foundation/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace zorel::cli {

using almanac::Instant;

namespace {
/// What the fields are taken from.
struct Moment {
    const Context& context;
    const ShownPlace& place;
    const almanac::DayTime& next;
    Instant now{};
    almanac::Date today{};
};

std::chrono::seconds left(const Moment& moment) {
    return moment.next.shown - moment.now;
}

std::string nameText(const Moment& moment) {
    return moment.context.nameOf(moment.next.prayer);
}

std::string keyText(const Moment& moment) {
    return std::string(almanac::keyOf(moment.next.prayer));
}

std::string nextTimeText(const Moment& moment) {
    return timeText(moment.context, moment.next.local, moment.today);
}

std::string countdownText(const Moment& moment) {
    return durationText(left(moment));
}

std::string minutesText(const Moment& moment) {
    return fmt::format("{}", std::chrono::floor<std::chrono::minutes>(left(moment)).count());
}

std::string clockLeftText(const Moment& moment) {
    const auto minutes = std::chrono::floor<std::chrono::minutes>(left(moment)).count();
    return fmt::format("{}:{:02}", minutes / 60, minutes % 60);
}

std::string cityText(const Moment& moment) {
    const almanac::Place& place = moment.place.place;
    return moment.place.id == 0 ? pointText(place.latitude, place.longitude) : cleanText(place.name);
}

std::string dateText(const Moment& moment) {
    return almanac::isoDate(moment.today);
}

std::string weekdayText(const Moment& moment) {
    return weekdayName(moment.today);
}

std::string hijriDateText(const Moment& moment) {
    return hijriText(almanac::Almanac(moment.place.place).calendars(moment.today));
}

struct Field {
    std::string_view name;
    std::string (*text)(const Moment&);
    bool counts = false; ///< another text each minute
};

constexpr std::array kFields{
    Field{"name", nameText},
    Field{"key", keyText},
    Field{"time", nextTimeText},
    Field{"countdown", countdownText, true},
    Field{"minutes", minutesText, true},
    Field{"clock", clockLeftText, true},
    Field{"city", cityText},
    Field{"date", dateText},
    Field{"weekday", weekdayText},
    Field{"hijri", hijriDateText},
};

const Field* fieldOf(std::string_view name) {
    const auto* found = std::ranges::find(kFields, name, &Field::name);
    return found == kFields.end() ? nullptr : found;
}

CliError wrongPattern(const std::string& what) {
    std::vector<std::string_view> names;
    for (const Field& field : kFields) {
        names.push_back(field.name);
    }
    return {
        Exit::badUse, "--format: " + what,
        tr("fields: {}; a brace itself is written twice", fmt::format("{{{}}}", fmt::join(names, "} {")))};
}
} // namespace

NextPattern::NextPattern(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char character = text[at];
        const bool isBrace = character == '{' || character == '}';
        if (isBrace && text.substr(at + 1).starts_with(character)) {
            addText(text[at++]);
        } else if (character == '{') {
            at = addField(text, at);
        } else if (character == '}') {
            throw wrongPattern(tr("a \"}\" has no \"{\" before it"));
        } else {
            addText(character);
        }
    }
}

/// @return the position of the closing brace.
std::size_t NextPattern::addField(std::string_view text, std::size_t at) {
    const std::size_t end = text.find('}', at);
    if (end == std::string_view::npos) {
        throw wrongPattern(tr("a \"{\" has no \"}\" behind it"));
    }
    const std::string name(text.substr(at + 1, end - at - 1));
    if (fieldOf(name) == nullptr) {
        throw wrongPattern(tr("there is no field {}", quote(name)));
    }
    parts_.push_back({name, true});
    return end;
}

void NextPattern::addText(char character) {
    if (parts_.empty() || parts_.back().isField) {
        parts_.emplace_back();
    }
    parts_.back().text += character;
}

bool NextPattern::counts() const {
    return std::ranges::any_of(parts_,
                               [](const Part& part) { return part.isField && fieldOf(part.text)->counts; });
}

StatusLine nextLine(const Context& context, almanac::Memory& memory, const ShownPlace& place,
                    const NextPattern& pattern, Instant instant) {
    const almanac::PlaceClock& clock = place.clock();
    const auto next = almanac::Almanac(place.place).next(instant, memory).next;
    const Instant midnight = nextMidnight(clock, instant);
    if (!next) {
        return {tr("none today"), midnight};
    }
    const Moment moment{context, place, *next, instant, clock.dateAt(instant)};
    std::string line;
    for (const NextPattern::Part& part : pattern.parts()) {
        line += part.isField ? fieldOf(part.text)->text(moment) : part.text;
    }
    return {line, earliestAfter(instant,
                                {next->shown, midnight, pattern.counts() ? nextMinute(instant) : instant})};
}

} // namespace zorel::cli
