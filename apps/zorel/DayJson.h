// SPDX-License-Identifier: Apache-2.0
/// @file
/// The parts of JSON documents that several commands share. The schema is docs/zorel.schema.json.
#pragma once

#include "Context.h"
#include "Day.h"
#include "DayFlags.h"

#include <nlohmann/json.hpp>

namespace zorel::cli {

using Json = nlohmann::ordered_json;

[[nodiscard]] Json placeJson(const Context& context, const Place& place);
/// An ISO 8601 time with offset, or null.
[[nodiscard]] Json eventJson(const EventTime& event);
/// {"fajr": ..., ...} for some positions of PrayerTimes.
[[nodiscard]] Json timesJson(const Day& day, std::span<const int> indices);
[[nodiscard]] Json calendarsJson(const Context& context, const AllCalendarRecord& calendars);
[[nodiscard]] Json flagsJson(const DayFlags& flags);
/// Writes one document, indented, with a line feed. Text that is not UTF-8 is mended with U+FFFD.
void writeJson(const Context& context, const Json& document);

} // namespace zorel::cli
