// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the command line asked for, as plain values.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zorel::cli {

inline constexpr int kLeastColumns = 40;
inline constexpr int kMostColumns = 500;

struct Options {
    std::string command; ///< "today", "cities add" and so on

    // Every command.
    std::string bundle;
    std::string dataDir;
    std::string ringtones;
    std::string calendar;
    std::string language;
    std::string colour = "auto";
    std::string now;

    // What is asked about.
    std::vector<std::string> words; ///< the PLACE, TEXT or DATE argument, as many words as were typed
    std::string date;
    std::string from;
    std::string to;
    std::string on;
    std::string at;
    int temkin = 0; ///< 0: the place's own; 250 or 500 [m]

    // How it is shown.
    bool json = false;
    bool csv = false;
    bool ics = false;
    bool seconds = false;
    bool shortForm = false;
    bool ezani = false;
    bool explain = false;
    int width = 0; ///< columns; 0: those of the terminal
    bool ascii = false;

    // Pictures and pages.
    std::string with;  ///< a second place
    int year = 0;      ///< 0: this one
    std::string month; ///< "2026-12"; empty: this one
    int ramadan = 0;   ///< Hijri year; 0: no Ramadan
    std::string paper = "a4";
    std::string pdf;            ///< file; empty: HTML on the output
    std::string calendarName;   ///< of --ics; empty: the place's
    std::vector<int> reminders; ///< of --ics [min before the time]
    bool chart = false;         ///< a picture in place of figures, or with them
    bool svg = false;
    bool others = false; ///< the other times too

    // Whole catalogue.
    bool all = false;
    std::int32_t fromId = 0;
    std::int64_t count = 0; ///< 0: no limit

    int limit = 20; ///< search results

    // Status bar.
    std::string format; ///< of `next`; empty: the usual one
    bool follow = false;
    bool countdown = false;
    int soon = 15; ///< [min]

    // Alarms.
    std::string prayer;
    std::string value;
    bool undo = false; ///< of `alarms skip`
    std::string until; ///< of `alarms pause`
    bool off = false;  ///< of `alarms pause`
    bool heal = false; ///< of `alarms check`
    std::string file;  ///< of `export` and `import`; "-": standard output or input

    std::string shell;
    bool markdown = false;
};

} // namespace zorel::cli
