// SPDX-License-Identifier: Apache-2.0
#include "print/Csv.h"

#include <fmt/format.h>

namespace zorel::cli {

using almanac::Prayer;

std::string csvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        return std::string(text);
    }
    std::string field = "\"";
    for (const char character : text) {
        field.append(character == '"' ? 2 : 1, character);
    }
    return field + '"';
}

std::string csvTimesHeader() {
    std::string header = ",utc_offset";
    for (const Prayer prayer : almanac::kSixPrayers) {
        header.append(",").append(almanac::keyOf(prayer));
    }
    return header + ",latitude_lowered_to,fajr_from_other_day,isha_from_other_day";
}

void appendCsvTimes(std::string& line, const almanac::Day& day, const Clockface& clock) {
    line += ',';
    line += almanac::isoOffset(day.offset);
    for (const Prayer prayer : almanac::kSixPrayers) {
        line += ',';
        if (const ShownTime time = clock.of(day[prayer])) {
            line += clockAndDayText(*time, day.date, clock.precision(), "");
        }
    }
    line += ',';
    if (const auto latitude = day.loweredLatitude()) {
        line += fmt::format("{:.4f}", *latitude);
    }
    line += day[Prayer::fajr].takenFrom() ? ",1" : ",0";
    line += day[Prayer::isha].takenFrom() ? ",1" : ",0";
}

} // namespace zorel::cli
