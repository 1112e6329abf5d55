// SPDX-License-Identifier: Apache-2.0
#include "grammar/Examples.h"

#include "words/Tr.h"

#include <fmt/format.h>

#include <map>

namespace zorel::cli {

namespace {
struct Example {
    Example(const char* typed, const char* why = nullptr) : line(typed), comment(why) {}
    const char* line;
    const char* comment; ///< nothing where the line tells it
};

const std::map<std::string, std::vector<Example>>& examples() {
    static const std::map<std::string, std::vector<Example>> table{
        {"",
         {{"zorel today Ankara", trLater("a place of the catalogue by its name")},
          {"zorel today", trLater("the home city")},
          {"zorel today 69.65,18.96,Europe/Oslo", trLater("any point of the Earth")},
          {"zorel widget --follow", trLater("one line of JSON at each change, for a status bar")}}},
        {"today",
         {"zorel today Istanbul",
          "zorel today \"Paris, Texas\" --json",
          "zorel today 745044 --date 2026-12-21 --ezani",
          {"zorel today Oslo --explain", trLater("why is this minute different?")}}},
        {"tomorrow", {"zorel tomorrow Konya --short"}},
        {"next",
         {"zorel next", "zorel next Cairo --format \"{name} {time} ({clock})\"",
          "zorel next --follow --format \"{city}: {name} in {minutes} min, {hijri}\""}},
        {"table",
         {"zorel table Berlin --from 2027-01-01 --to 2027-12-31 --ics > berlin.ics",
          "zorel table Medina --from today --to +6",
          "zorel table Ankara --ics --reminder 15 --name \"Prayer times\" > ankara.ics",
          {"zorel table --all --on 2027-01-01 --csv > day.csv", trLater("every place")},
          {"zorel table --all --from-id 745044 --count 1000 --csv", trLater("a part of it")}}},
        {"chart",
         {"zorel chart Istanbul", "zorel chart Oslo --svg > oslo-year.svg",
          "zorel chart Istanbul --with Oslo --year 2027"}},
        {"sheet",
         {"zorel sheet Istanbul > month.html", "zorel sheet Istanbul --ramadan 1448 --pdf ramadan.pdf",
          "zorel sheet \"Paris, Texas\" --year 2027 --paper letter > year.html"}},
        {"sky",
         {"zorel sky London", "zorel sky London --chart --at 21:30", "zorel sky Istanbul --svg > sky.svg",
          "zorel sky London --at 2026-12-24T18:00 --json"}},
        {"hijri", {"zorel hijri", "zorel hijri 2027-03-10"}},
        {"compass",
         {"zorel compass Jakarta", "zorel compass Istanbul --chart",
          "zorel compass Istanbul --svg > qibla.svg", "zorel compass 40.71,-74.01,America/New_York --json"}},
        {"search", {"zorel search kudüs", "zorel search Москва --json"}},
        {"cities", {"zorel cities", "zorel cities add Ankara", "zorel cities home Ankara"}},
        {"cities add", {"zorel cities add Bursa"}},
        {"cities home", {"zorel cities home Bursa"}},
        {"cities remove", {"zorel cities remove Bursa"}},
        {"alarms", {"zorel alarms", "zorel alarms on fajr", "zorel alarms offset fajr -15"}},
        {"alarms on", {"zorel alarms on fajr", "zorel alarms on all"}},
        {"alarms off", {"zorel alarms off fajr", "zorel alarms off all"}},
        {"alarms offset", {{"zorel alarms offset fajr -15", trLater("a quarter of an hour before dawn")}}},
        {"alarms ringtone", {"zorel alarms ringtone maghrib Evening Flute"}},
        {"alarms duration",
         {{"zorel alarms duration maghrib 30", trLater("half a minute")}, "zorel alarms duration fajr 2m"}},
        {"alarms skip", {"zorel alarms skip fajr", "zorel alarms skip fajr --undo"}},
        {"alarms pause", {"zorel alarms pause --until 2026-12-01", "zorel alarms pause --off"}},
        {"alarms check", {"zorel alarms check", "zorel alarms check --heal"}},
        {"alarms clear", {"zorel alarms clear"}},
        {"export", {"zorel export zorel.json", "zorel export - | ssh phone zorel import -"}},
        {"import", {"zorel import zorel.json"}},
        {"alarms test", {"zorel alarms test fajr"}},
        {"alarms stop", {"zorel alarms stop"}},
        {"alarms connect", {"zorel alarms connect gnome", "zorel alarms connect none"}},
        {"alarms refresh", {"zorel alarms refresh"}},
        {"widget", {"zorel widget", "zorel widget Cairo --follow --countdown --soon 20"}},
        {"completion", {"zorel completion bash > ~/.local/share/bash-completion/completions/zorel"}},
        {"manual", {"zorel manual | man -l -"}},
    };
    return table;
}
} // namespace

std::vector<std::string> examplesOf(const std::string& command) {
    const auto found = examples().find(command);
    std::vector<std::string> lines;
    for (const Example& example : found == examples().end() ? std::vector<Example>() : found->second) {
        lines.push_back(example.comment == nullptr
                            ? example.line
                            : fmt::format("{}  # {}", example.line, tr(example.comment)));
    }
    return lines;
}

} // namespace zorel::cli
