// SPDX-License-Identifier: Apache-2.0
/// @file
/// Comma-separated values (RFC 4180, with LF line ends) of prayer times.
#pragma once

#include "print/Clockface.h"

#include <string>
#include <string_view>

namespace zorel::cli {

/// Appends a comma and the field as clean text (cleanText), in quotation marks when it holds a comma or one
/// of them.
void appendCsvField(std::string& line, std::string_view text);
/// Appends a comma and a number, rounded to some decimals as printf does.
void appendCsvNumber(std::string& line, double number, int decimals);
/// ",fajr,sunrise,...,latitude_lowered_to": the columns that appendCsvTimes fills.
[[nodiscard]] std::string csvTimesHeader(bool others);
/// Appends offset, the six times and the flags of a day, then the other times if asked, each with a comma
/// before it. A time is "HH:MM"
/// local, followed by "+1" when it falls on the next date ("-1": the one before), empty when there is none.
void appendCsvTimes(std::string& line, const almanac::Day& day, const Clockface& clock, bool others);

} // namespace zorel::cli
