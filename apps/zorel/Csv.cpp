// SPDX-License-Identifier: Apache-2.0
#include "Csv.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
void appendTime(std::string& line, const EventTime& event, Date date, Precision precision) {
    line += ',';
    if (!event.exists)
        return;
    line += clockText(event.timeOfDay, precision);
    if (event.date != date)
        line += fmt::format("{:+}", daysBetween(date, event.date));
}
} // namespace

std::string csvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos)
        return std::string(text);
    std::string field = "\"";
    for (const char character : text)
        field.append(character == '"' ? 2 : 1, character);
    return field + '"';
}

std::string csvTimesHeader() {
    std::string header = ",utc_offset";
    for (const int index : kPrayerIndices)
        header.append(",").append(keyOf(index));
    return header + ",latitude_lowered_to,fajr_from_other_day,isha_from_other_day";
}

void appendCsvTimes(std::string& line, const Day& day, Precision precision) {
    line += ',';
    line += isoOffset(day.offset);
    for (const int index : kPrayerIndices)
        appendTime(line, day.event(index), day.date, precision);
    line += ',';
    if (day.record.latitudeLowered)
        line += fmt::format("{:.4f}", day.record.priorLatitude - 1.0);
    line += day.record.dawnFromOtherDay ? ",1" : ",0";
    line += day.record.nightfallFromOtherDay ? ",1" : ",0";
}

} // namespace zorel::cli
