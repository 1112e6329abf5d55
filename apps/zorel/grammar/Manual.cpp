// SPDX-License-Identifier: Apache-2.0
#include "ZorelVersion.h"
#include "grammar/HelpText.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
std::string joined(const std::vector<std::string>& parts, std::string_view separator) {
    return fmt::format("{}", fmt::join(parts, separator));
}

/// Text for roff: hyphens that are copied to a terminal stay hyphens, a leading dot or quote is no request.
std::string roff(std::string_view text) {
    std::string result;
    for (const char character : text) {
        if (character == '\\') {
            result += "\\e";
        } else if (character == '-') {
            result += "\\-";
        } else {
            result += character;
        }
    }
    return result.starts_with('.') || result.starts_with('\'') ? "\\&" + result : result;
}

std::string roffItem(const std::string& term, const std::string& description) {
    return fmt::format(".TP\n.B {}\n{}\n", roff(term), roff(description));
}

std::string roffCommand(const CommandHelp& command) {
    std::string text =
        command.name.empty()
            ? fmt::format(".SH {}\n{}\n", tr("OPTIONS"), roff(tr("These may stand anywhere.")))
            : fmt::format(".SS {}\n{}\n", roff(synopsis(command)), roff(asSentence(command.description)));
    for (const OptionHelp& positional : command.positionals) {
        text += roffItem(positional.argument, positional.description);
    }
    for (const OptionHelp& option : command.options) {
        if (!isCommon(command, option)) {
            text += roffItem(optionLine(option), option.description);
        }
    }
    if (!command.name.empty() && !command.examples.empty()) {
        text += fmt::format(".PP\n{}:\n.nf\n.RS\n", tr("Examples"));
        for (const std::string& example : command.examples) {
            text += roff(example) + '\n';
        }
        text += ".RE\n.fi\n";
    }
    return text;
}

struct Section {
    std::string title;
    std::vector<std::pair<std::string, std::string>> items;
    std::string text;
};

std::vector<Section> sections() {
    return {
        {tr("PLACES"),
         {},
         tr("A place is a whole name of the catalogue in any of its spellings and scripts (capitals, "
            "accents, "
            "hyphens and apostrophes aside), with region or country behind it where that helps (\"Paris, "
            "Texas\", "
            "Paris TX, \"Paris, US\"); a catalogue id, which zorel search prints; or a point LAT,LON[,ZONE] "
            "in "
            "decimal degrees (41.01,28.97 or 41.01N,28.97E), whose ZONE is an IANA name (Europe/Istanbul) or "
            "an "
            "offset (+3, -03:30). Of several places of one name the largest is taken, and this is said once; "
            "a "
            "part of a name or a misspelling is no name, but is answered with suggestions. A point without "
            "ZONE takes the clock of the nearest place of the catalogue within 200 km, farther away that of "
            "its "
            "meridian in whole hours, and says which.")},
        {tr("CLOCKS"),
         {},
         tr("Times are told by the clock of the place, from the system's time zone data. The catalogue "
            "carries "
            "a rule of its own for each zone: it serves where the system has no data of the zone, and on "
            "days "
            "on "
            "which the system's data is older and says otherwise, if the rule is known to hold for that day. "
            "Whenever the rule serves or an older system disagrees with it, every output says so: a line "
            "below "
            "the times, a note on the error stream beside CSV, calendars and the status bar (whose "
            "description "
            "and tooltip carry it too), the member \"clock\" of JSON.")},
        {tr("READING THE TIMES"),
         {},
         tr("Times are those of the place's own clock, whose distance from UTC stands above them. A time "
            "with "
            "+1 "
            "behind it belongs to the next day, one with -1 to the day before: far north a summer's sunset "
            "comes "
            "after midnight. \"! latitude lowered to\" says that the Sun does not rise or set there that "
            "day, "
            "so "
            "that the times are those of the nearest latitude at which it does, whole degrees farther south "
            "(in "
            "the Antarctic there may be none, and such times are \"none today\"); \"taken from\" that the "
            "sky "
            "does "
            "not get dark enough, so that the time is that of the named earlier day. In tables * stands for "
            "the "
            "former, ~ for the latter, and ^ for a time that is corrected where the rules alone would be "
            "wrong; "
            "--explain says why and how.")},
        {tr("ROUNDING"),
         {},
         tr("Times are shown in whole minutes. Dawn, sunrise, the time before noon, the afternoon 5 degree "
            "time, the "
            "night's first third and its middle go to the earlier minute, all others to the later one: "
            "nobody "
            "eats after "
            "dawn, nobody prays before a prayer's time. With --seconds the same holds for whole seconds. "
            "The engine's own rounding goes to the nearest minute plus a second, which can be too early for "
            "a "
            "prayer, so it "
            "is not used here. An alarm rings at the minute that is shown, moved by its offset.")},
        {tr("EXIT STATUS"),
         {{"0", tr("the question was answered")},
          {"1", tr("the question was good, the answer is nothing (no such place)")},
          {"2", tr("the command line cannot be understood")},
          {"3", tr("catalogue, user database, calendar or output cannot be used")}},
         ""},
        {tr("ENVIRONMENT"),
         {{"XDG_DATA_HOME", tr("the data folder is zorel in this one; default: ~/.local/share")},
          {"LANGUAGE, LC_ALL, LC_MESSAGES, LANG",
           tr("the language of all texts; English where it is none of those of --lang")},
          {"TZ, TZDIR", tr("the system's time zone and the folder of its data")},
          {"NO_COLOR", tr("not empty: no colours unless --color always is given")}},
         ""},
        {tr("FILES"),
         {{"~/.local/share/zorel/user.sqlite", tr("cities and alarms")},
          {"~/.local/share/zorel/user.sqlite.owner",
           tr("random text that tells this database's events from others'")},
          {"~/.local/share/zorel/calendar/", tr("one .ics file for each active alarm")},
          {"~/.local/share/zorel/SettingsLog.txt",
           tr("what went wrong, with date and time; at 128 KiB it becomes SettingsLog.1.txt")}},
         ""},
    };
}

std::string roffSection(const Section& section) {
    std::string text = fmt::format(".SH {}\n", section.title);
    if (!section.text.empty()) {
        text += roff(section.text) + '\n';
    }
    for (const auto& [term, description] : section.items) {
        text += roffItem(term, description);
    }
    return text;
}

std::string markdownTable(const CommandHelp& command) {
    std::string rows;
    for (const OptionHelp& positional : command.positionals) {
        rows += fmt::format("| `{}` | {} |\n", positional.argument, positional.description);
    }
    for (const OptionHelp& option : command.options) {
        if (!isCommon(command, option)) {
            rows += fmt::format("| `{}` | {} |\n", optionLine(option), option.description);
        }
    }
    return rows.empty() ? rows : "\n| | |\n|---|---|\n" + rows;
}

std::string markdownCommand(const CommandHelp& command) {
    std::string text =
        command.name.empty()
            ? fmt::format("## {}\n\n{}\n", tr("Options of every command"), tr("These may stand anywhere."))
            : fmt::format("### `{}`\n\n{}\n", synopsis(command), asSentence(command.description));
    text += markdownTable(command);
    if (!command.examples.empty()) {
        text += fmt::format("\n```sh\n{}\n```\n", joined(command.examples, "\n"));
    }
    return text;
}

std::string markdownSection(const Section& section) {
    std::string title = section.title.substr(0, 1);
    for (const char letter : section.title.substr(1)) {
        title += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    std::string text = fmt::format("## {}\n\n", title);
    if (!section.text.empty()) {
        text += section.text + "\n";
    }
    if (!section.items.empty()) {
        text += "| | |\n|---|---|\n";
    }
    for (const auto& [term, description] : section.items) {
        text += fmt::format("| `{}` | {} |\n", term, description);
    }
    return text;
}
} // namespace

std::string manualPage() {
    const auto commands = describeCommands();
    std::string text = fmt::format(
        ".TH ZOREL 1 \"\" \"zorel {}\" \"{}\"\n.SH {}\nzorel \\- {}\n.SH {}\n.B zorel\n[OPTIONS] COMMAND\n"
        ".SH {}\n{}\n.SH {}\n",
        kZorelVersion, tr("User Commands"), tr("NAME"),
        roff(tr("prayer times, alarms, Sun and Moon in a terminal")), tr("SYNOPSIS"), tr("DESCRIPTION"),
        roff(commands.front().description), tr("COMMANDS"));
    for (std::size_t i = 1; i < commands.size(); ++i) {
        text += roffCommand(commands[i]);
    }
    text += roffCommand(commands.front());
    for (const Section& section : sections()) {
        text += roffSection(section);
    }
    text += fmt::format(".SH {}\n.nf\n", tr("EXAMPLES"));
    for (const std::string& example : commands.front().examples) {
        text += roff(example) + '\n';
    }
    return text + ".fi\n";
}

std::string manualMarkdown() {
    const auto commands = describeCommands();
    std::string text = fmt::format(
        "# zorel: {}\n\n{}\n\n{}\n\n{}", tr("the command line"), commands.front().description,
        tr("This page is printed by `zorel manual --markdown`; the manual page `zorel(1)` and the help texts "
           "come from the same source."),
        markdownCommand(commands.front()));
    for (const Section& section : sections()) {
        text += '\n' + markdownSection(section);
    }
    text += fmt::format("\n## {}\n", tr("Commands"));
    for (std::size_t i = 1; i < commands.size(); ++i) {
        text += '\n' + markdownCommand(commands[i]);
    }
    return text;
}

} // namespace zorel::cli
