// SPDX-License-Identifier: Apache-2.0
#include "Reference.h"

#include "engine/AstroGlobalFuncs.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <fstream>
#include <functional>
#include <stdexcept>

namespace zorel::accuracy {

namespace {

using Fields = std::vector<std::string>;

template <typename Number> Number number(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw std::runtime_error(fmt::format("not a number: {}", text));
    }
    return value;
}

/// "2026-01-01" or "2026-01-01T10:07:36.909Z" (seconds may be missing).
DateTimeRecord dateOf(std::string_view text) {
    return DateRecordMake(number<std::int32_t>(text.substr(8, 2)), number<std::int32_t>(text.substr(5, 2)),
                          number<std::int32_t>(text.substr(0, 4)), 0, 0, 0);
}

double julianDayOf(std::string_view text) {
    constexpr double secondsOfDay = 86400.0;
    // The calendar function adds 0.00005 s to guard a truncation; 0 h of the day is exact to that.
    const double midnight = AstroGlobalFuncs().JulianDay(dateOf(text));
    const double seconds = text.size() > 17 ? number<double>(text.substr(17, text.size() - 18)) : 0.0;
    return midnight + (number<double>(text.substr(11, 2)) * 3600.0 +
                       number<double>(text.substr(14, 2)) * 60.0 + seconds) /
                          secondsOfDay;
}

Fields split(const std::string& line) {
    Fields fields;
    std::size_t start = 0;
    for (std::size_t tab = line.find('\t'); tab != std::string::npos; tab = line.find('\t', start)) {
        fields.push_back(line.substr(start, tab - start));
        start = tab + 1;
    }
    fields.push_back(line.substr(start));
    return fields;
}

template <typename Record>
std::vector<Record> readTable(const std::string& file, std::size_t columns,
                              const std::function<Record(const Fields&)>& read) {
    std::ifstream stream(file);
    std::string line;
    if (!std::getline(stream, line)) {
        throw std::runtime_error(fmt::format("{} is missing or empty", file));
    }
    std::vector<Record> records;
    for (int count = 2; std::getline(stream, line); ++count) {
        const Fields fields = split(line);
        try {
            if (fields.size() != columns) {
                throw std::runtime_error(fmt::format("{} columns instead of {}", fields.size(), columns));
            }
            records.push_back(read(fields));
        } catch (const std::exception& error) {
            throw std::runtime_error(fmt::format("{}, line {}: {}", file, count, error.what()));
        }
    }
    return records;
}

} // namespace

std::vector<RiseSetEvent> readRiseSets(const std::string& file) {
    return readTable<RiseSetEvent>(file, 5, [](const Fields& fields) {
        return RiseSetEvent{fields[0] == "Moon",       fields[4] == "rise",    number<double>(fields[2]),
                            number<double>(fields[1]), julianDayOf(fields[3]), fields[3]};
    });
}

std::vector<PhaseEvent> readPhases(const std::string& file) {
    return readTable<PhaseEvent>(file, 2, [](const Fields& fields) {
        return PhaseEvent{number<int>(fields[0]), julianDayOf(fields[1]), fields[1]};
    });
}

std::vector<SunEvent> readSunEvents(const std::string& file) {
    return readTable<SunEvent>(file, 6, [](const Fields& fields) {
        SunEvent event{
            fields[0],   number<double>(fields[1]), number<double>(fields[2]), dateOf(fields[3]), fields[4],
            std::nullopt};
        if (fields[5] != "none") {
            event.julianDay = julianDayOf(fields[5]);
        }
        return event;
    });
}

std::vector<SunDay> readSunDays(const std::string& file) {
    constexpr std::array names{"transit", "dawn_-19", "limb_rise", "rise_0",   "morning_+5", "afternoon_+5",
                               "set_0",   "limb_set", "dusk_-17",  "dusk_-19", "shadow_1",   "shadow_2"};
    constexpr std::size_t before = 5; // columns that say where and when
    return readTable<SunDay>(file, before + names.size(), [&](const Fields& fields) {
        SunDay day{fields[0], number<double>(fields[1]), number<double>(fields[2]),
                   fields[3], dateOf(fields[4]),         {}};
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::string& text = fields[before + i];
            day.events[names[i]] = text == "none" ? std::nullopt : std::optional(number<double>(text));
        }
        return day;
    });
}

} // namespace zorel::accuracy
