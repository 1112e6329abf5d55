// SPDX-License-Identifier: Apache-2.0
/// @file
/// The parts of JSON documents that several commands share. The schema is docs/zorel.schema.json.
#pragma once

#include "grammar/Context.h"
#include "print/Clockface.h"
#include "print/ShownPlace.h"

#include "almanac/Qibla.h"

#include <nlohmann/json.hpp>

#include <span>

namespace zorel::cli {

using Json = nlohmann::ordered_json;

[[nodiscard]] Json placeJson(const ShownPlace& place);
/// Where the clock of a date comes from, and what is to be known of it.
[[nodiscard]] Json clockJson(const ShownPlace& place, almanac::Date date);
/// An ISO 8601 time with offset, or null.
[[nodiscard]] Json timeJson(const ShownTime& time);
/// {"fajr": ..., ...} for some times of a day.
[[nodiscard]] Json timesJson(const almanac::Day& day, std::span<const almanac::Prayer> prayers,
                             const Clockface& clock);
[[nodiscard]] Json sunAtQiblaJson(const almanac::Qibla& qibla);
/// The keys of a time's corrections.
[[nodiscard]] Json correctionsJson(almanac::Corrections corrections);
/// {"fajr": ["before_midnight"]}: the corrected ones among some times of a day.
[[nodiscard]] Json correctionsJson(const almanac::Day& day, std::span<const almanac::Prayer> prayers);
[[nodiscard]] Json calendarsJson(const AllCalendarRecord& calendars);
[[nodiscard]] Json flagsJson(const almanac::Day& day);
/// A number rounded to some decimals, so that the last bits of the C library do not show; null when it is not
/// finite.
[[nodiscard]] Json numberJson(double value, int decimals);
/// The text of a document; -1: in one line. Text that is not UTF-8 is mended with U+FFFD, characters that
/// disturb a terminal are escaped.
[[nodiscard]] std::string jsonText(const Json& document, int indent);
/// Writes one document, indented, with a line feed.
void writeJson(const Context& context, const Json& document);

} // namespace zorel::cli
