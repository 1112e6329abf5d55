// SPDX-License-Identifier: Apache-2.0
#include "print/Csv.h"

#include "platform/foundation/Utf8.h"

#include <array>
#include <charconv>

namespace zorel::cli {

using almanac::Prayer;

void appendCsvField(std::string& line, std::string_view text) {
    const std::string clean = cleanText(text);
    line += ',';
    if (clean.find_first_of(",\"") == std::string::npos) {
        line += clean;
        return;
    }
    line += '"';
    for (const char character : clean) {
        line.append(character == '"' ? 2 : 1, character);
    }
    line += '"';
}

void appendCsvNumber(std::string& line, double number, int decimals) {
    std::array<char, 400> digits{}; // the largest double has 309 before the point
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, decimals);
    line += ',';
    line.append(digits.data(), end.ptr);
}

namespace {
void appendCsvTime(std::string& line, const almanac::Day& day, Prayer prayer, const Clockface& clock) {
    line += ',';
    if (const ShownTime time = clock.of(day[prayer])) {
        line += clockAndDayText(*time, day.date, clock.precision(), "");
    }
}
} // namespace

std::string csvTimesHeader(bool others) {
    std::string header = ",utc_offset";
    for (const Prayer prayer : almanac::kSixPrayers) {
        header.append(",").append(almanac::keyOf(prayer));
    }
    header += ",latitude_lowered_to,fajr_from_other_day,isha_from_other_day";
    for (const Prayer prayer : almanac::kOtherPrayers) {
        if (others) {
            header.append(",").append(almanac::keyOf(prayer));
        }
    }
    return header;
}

void appendCsvTimes(std::string& line, const almanac::Day& day, const Clockface& clock, bool others) {
    line += ',';
    line += almanac::isoOffset(day.offset);
    for (const Prayer prayer : almanac::kSixPrayers) {
        appendCsvTime(line, day, prayer, clock);
    }
    if (const auto latitude = day.loweredLatitude()) {
        appendCsvNumber(line, *latitude, 4);
    } else {
        line += ',';
    }
    line += day[Prayer::fajr].takenFrom() ? ",1" : ",0";
    line += day[Prayer::isha].takenFrom() ? ",1" : ",0";
    for (const Prayer prayer : almanac::kOtherPrayers) {
        if (others) {
            appendCsvTime(line, day, prayer, clock);
        }
    }
}

} // namespace zorel::cli
