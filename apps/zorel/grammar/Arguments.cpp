// SPDX-License-Identifier: Apache-2.0
#include "grammar/Arguments.h"

#include "ZorelVersion.h"
#include "grammar/Checks.h"
#include "grammar/Duration.h"
#include "grammar/Examples.h"
#include "grammar/HelpText.h"
#include "grammar/ParseProblem.h"

#include "platform/foundation/Locale.h"
#include "words/Tr.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <sstream>

namespace zorel::cli {

namespace {
constexpr const char* kDescription =
    trLater("Prayer times, alarms, Sun and Moon, qibla, Hijri dates for any place, offline.");

constexpr const char* kPlaceHelp =
    trLater("name (\"Paris, Texas\"), catalogue id, or LAT,LON[,ZONE]; default: the "
            "home city, else the largest place of the "
            "system's time zone");

/// What a date may be.
std::string dateForms() {
    return tr("2026-11-21 (years 1583 to 9998), today, tomorrow, yesterday, +3 or -3 (days from today)");
}

const std::vector<std::string> kPrayers{"fajr", "sunrise", "dhuhr", "asr", "maghrib", "isha"};

/// Builds the grammar around one Options value: every command by name, and what stands below the commands
/// that the words can mean. Building all of it takes longer than computing a day.
class Grammar {
public:
    /// @param words of the command line; none: the grammar is built whole
    Grammar(Options& options, std::span<const std::string> words)
        : options_(options), words_(words), app_(tr(kDescription), "zorel") {
        app_.set_version_flag("-V,--version", std::string("zorel ") + kZorelVersion,
                              tr("Print the version and exit"));
        app_.set_help_flag("-h,--help", tr("Print help and exit"));
        app_.require_subcommand(1);
        app_.fallthrough();
        addCommon();
        addTimes();
        addNext();
        addTable();
        addChart();
        addSheet();
        addSky();
        addHijri();
        addCompass();
        addSearch();
        addCities();
        addAlarms();
        addMoving();
        addWidget();
        addCompletion();
        addManual();
    }

    CLI::App& app() { return app_; }

private:
    CLI::App* command(CLI::App& parent, const std::string& name, const std::string& description) {
        CLI::App* sub = parent.add_subcommand(name, description);
        sub->fallthrough();
        const std::string full = &parent == &app_ ? name : parent.get_name() + ' ' + name;
        sub->callback([this, full, sub] {
            if (sub->get_subcommands().empty()) {
                options_.command = full;
            }
        });
        return sub;
    }

    /// Whether the words can mean this command.
    [[nodiscard]] bool asked(const CLI::App* sub) const {
        return words_.empty() || std::ranges::find(words_, sub->get_name()) != words_.end();
    }

    CLI::Option* value(CLI::App& sub, const char* name, std::string& target, const char* type,
                       const std::string& help) {
        return sub.add_option(name, target, help)->type_name(type)->check(someText());
    }

    void addCommon() {
        value(app_, "--data-dir", options_.dataDir, "DIR", tr("Folder of the user's cities, alarms and log"));
        value(app_, "--bundle", options_.bundle, "DIR", tr("Folder of the catalogue and the language files"));
        value(app_, "--ringtones", options_.ringtones, "DIR", tr("Folder of the ringtones"));
        value(app_, "--calendar", options_.calendar, "DIR",
              tr("Folder of .ics files that carries the alarms"));
        value(app_, "--lang", options_.language, "LANG",
              tr("Language of texts: {}; default: from the locale",
                 fmt::format("{}", fmt::join(kLanguages, ", "))))
            ->transform(oneOf({kLanguages.begin(), kLanguages.end()}));
        value(app_, "--color", options_.colour, "WHEN",
              tr("Colours: auto (only on a terminal), always, never; default: auto"))
            ->transform(oneOf({"auto", "always", "never"}));
        value(app_, "--now", options_.now, "TIME",
              tr("Pretend that this is the present moment (2026-11-21T15:04[+03:00])"));
    }

    void place(CLI::App* sub) { sub->add_option("PLACE", options_.words, tr(kPlaceHelp))->type_name(""); }
    void city(CLI::App* sub, const std::string& help) {
        sub->add_option("PLACE", options_.words, help)->type_name("")->required();
    }
    void json(CLI::App* sub) { sub->add_flag("--json", options_.json, tr("Print JSON (docs/json.md)")); }
    void seconds(CLI::App* sub) {
        sub->add_flag("--seconds", options_.seconds, tr("Show seconds instead of whole minutes"));
    }
    void follow(CLI::App* sub) {
        sub->add_flag("--follow", options_.follow,
                      tr("Print again at each change, until the reader goes away"));
    }
    /// How a picture of characters is drawn.
    void drawing(CLI::App* sub) {
        sub->add_option("--width", options_.width, tr("Columns, 40 to 500; default: the terminal's, else 80"))
            ->type_name("N")
            ->check(wholeNumber(kLeastColumns, kMostColumns));
        sub->add_flag("--ascii", options_.ascii,
                      tr("Draw with plain ASCII characters, as on a terminal without UTF-8"));
    }
    void temkin(CLI::App* sub) {
        sub->add_option("--temkin", options_.temkin,
                        tr("Precaution table: 250 or 500 m; default: the place's own"))
            ->type_name("METRES")
            ->check(oneOf({"250", "500"}));
    }
    CLI::Option* day(CLI::App* sub, const char* name, std::string& target, const std::string& help) {
        return value(*sub, name, target, "DATE", help);
    }

    void addDayOptions(CLI::App* sub) {
        if (!asked(sub)) {
            return;
        }
        place(sub);
        json(sub);
        seconds(sub);
        temkin(sub);
        sub->add_flag("--short", options_.shortForm, tr("Only the six prayer times, no picture"));
        sub->add_flag("--ezani", options_.ezani, tr("Also the sunset-based clock, on which sunset is 12:00"));
        sub->add_flag("--explain", options_.explain,
                      tr("For each time: its rule, temkin, fixed additions, rounds, date and latitude"));
        drawing(sub);
    }

    void addTimes() {
        CLI::App* today =
            command(app_, "today", tr("Prayer times of today (or --date), and what comes next"));
        addDayOptions(today);
        if (asked(today)) {
            day(today, "--date", options_.date, tr("Another day: {}", dateForms()));
        }
        addDayOptions(command(app_, "tomorrow", tr("Prayer times of tomorrow")));
    }

    void addNext() {
        CLI::App* next =
            command(app_, "next", tr("The next prayer time in one line, for prompts and status bars"));
        if (!asked(next)) {
            return;
        }
        place(next);
        value(*next, "--format", options_.format, "TEXT",
              tr("What to print: text with {name}, {key}, {time}, {countdown}, {minutes}, {clock}, {city}, "
                 "{date}, "
                 "{weekday}, {hijri}"));
        follow(next);
    }

    void addTable() {
        CLI::App* table =
            command(app_, "table", tr("Prayer times of many days, or of every place on one day"));
        if (!asked(table)) {
            return;
        }
        place(table);
        day(table, "--from", options_.from, tr("First day: {}; default: today", dateForms()));
        day(table, "--to", options_.to, tr("Last day, as for --from; default: 29 days after the first"));
        auto* csv = table->add_flag("--csv", options_.csv, tr("Print comma-separated values"));
        auto* jsonFlag = table->add_flag("--json", options_.json, tr("Print JSON (docs/json.md)"));
        auto* ics = table->add_flag("--ics", options_.ics, tr("Print a calendar to import or subscribe to"));
        table
            ->add_option("--reminder", options_.reminders,
                         tr("With --ics: remind so many minutes (or 1h, 1h30) before each time"))
            ->type_name("MIN")
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
            ->transform(wholeMinutes(0, 720))
            ->needs(ics);
        value(*table, "--name", options_.calendarName, "TEXT",
              tr("With --ics: the calendar's name; default: the place's"))
            ->needs(ics);
        others(table);
        csv->excludes(jsonFlag)->excludes(ics);
        jsonFlag->excludes(ics);
        seconds(table);
        temkin(table);
        auto* all = table->add_flag("--all", options_.all,
                                    tr("Every place of the catalogue on one day, as CSV or with --json"));
        day(table, "--on", options_.on, tr("The day of --all; default: today, by the system's clock"))
            ->needs(all);
        table->add_option("--from-id", options_.fromId, tr("Start --all at this place of the catalogue"))
            ->type_name("ID")
            ->check(wholeNumber(0))
            ->needs(all);
        table->add_option("--count", options_.count, tr("Stop --all after this many places"))
            ->type_name("N")
            ->check(wholeNumber(1))
            ->needs(all);
        all->excludes(ics);
    }

    CLI::Option* svg(CLI::App* sub) {
        return sub->add_flag("--svg", options_.svg, tr("Print a picture (SVG) instead of characters"));
    }
    /// A picture for those who ask for it; --svg asks too.
    void picture(CLI::App* sub, const std::string& help) {
        auto* jsonFlag = sub->get_option("--json");
        sub->add_flag("--chart", options_.chart, help)->excludes(jsonFlag);
        svg(sub)->excludes(jsonFlag);
        drawing(sub);
    }
    CLI::Option* year(CLI::App* sub, const std::string& help) {
        return sub->add_option("--year", options_.year, help)
            ->type_name("YEAR")
            ->check(wholeNumber(1584, 9997));
    }
    CLI::Option* others(CLI::App* sub) {
        return sub->add_flag("--others", options_.others, tr("Also the times beside the six"));
    }

    void addChart() {
        CLI::App* chart =
            command(app_, "chart", tr("A year of a place as a picture: its times over the months"));
        if (!asked(chart)) {
            return;
        }
        place(chart);
        year(chart, tr("The year, 1584 to 9997; default: this one"));
        value(*chart, "--with", options_.with, "PLACE", tr("Draw a second place beside it, dashed"));
        others(chart);
        svg(chart);
        drawing(chart);
        temkin(chart);
    }

    void addSheet() {
        CLI::App* sheet =
            command(app_, "sheet", tr("A month, a year or a Ramadan as pages to print and hang up"));
        if (!asked(sheet)) {
            return;
        }
        place(sheet);
        auto* month =
            value(*sheet, "--month", options_.month, "MONTH", tr("The month, 2026-12; default: this one"));
        year(sheet, tr("A whole year, a page for each month"))->excludes(month);
        sheet->add_option("--ramadan", options_.ramadan, tr("The Ramadan of a Hijri year, such as 1448"))
            ->type_name("YEAR")
            ->check(wholeNumber(992, 9666))
            ->excludes(month)
            ->excludes("--year");
        value(*sheet, "--paper", options_.paper, "PAPER", tr("a4 or letter; default: a4"))
            ->transform(oneOf({"a4", "letter"}));
        others(sheet);
        value(*sheet, "--pdf", options_.pdf, "FILE",
              tr("Write a PDF (by weasyprint) instead of printing HTML"));
        temkin(sheet);
    }

    void addSky() {
        CLI::App* sky = command(app_, "sky", tr("Sun and Moon now: where they stand, rise and set, phases"));
        if (!asked(sky)) {
            return;
        }
        place(sky);
        value(*sky, "--at", options_.at, "TIME",
              tr("The moment: 2026-11-21T15:04[+03:00] or 15:04; default: now"));
        json(sky);
        picture(sky, tr("Draw the sky: horizon, ways of Sun and Moon through the day, face of the Moon"));
    }

    void addHijri() {
        CLI::App* hijri = command(app_, "hijri", tr("A day in the Hijri and Rumi calendars"));
        if (!asked(hijri)) {
            return;
        }
        hijri->add_option("DATE", options_.words, tr("{}; default: today", dateForms()))->type_name("");
        json(hijri);
    }

    void addCompass() {
        CLI::App* compass =
            command(app_, "compass", tr("Qibla as true and magnetic bearing, Sun in the qibla"));
        if (!asked(compass)) {
            return;
        }
        place(compass);
        day(compass, "--date", options_.date, tr("The day: {}; default: today", dateForms()));
        json(compass);
        picture(compass, tr("Draw a rose with the qibla, true and magnetic north"));
    }

    void addSearch() {
        CLI::App* search =
            command(app_, "search",
                    tr("Search the catalogue for a name or a part of one (three characters or more)"));
        if (!asked(search)) {
            return;
        }
        search->add_option("TEXT", options_.words, tr("part of a name, in any spelling the catalogue has"))
            ->type_name("")
            ->required();
        search->add_option("--limit", options_.limit, tr("Most results to print; 0: all; default: 20"))
            ->type_name("N")
            ->check(wholeNumber(0));
        json(search);
    }

    void addCities() {
        CLI::App* cities = command(app_, "cities", tr("Your cities: list, add, home, remove"));
        if (!asked(cities)) {
            return;
        }
        json(cities);
        city(command(*cities, "add", tr("Add a city; the first one becomes the home city")),
             tr("name (\"Paris, Texas\") or id of a place of the catalogue"));
        const std::string listed = tr("name or catalogue id of one of your cities");
        city(command(*cities, "home",
                     tr("Make one of your cities the home city; active alarms move to its times")),
             listed);
        city(command(*cities, "remove", tr("Remove a city from the list")), listed);
    }

    /// @param all whether the word "all" stands for every alarm.
    CLI::App* alarmCommand(CLI::App* alarms, const char* name, const std::string& help, bool all = false) {
        CLI::App* sub = command(*alarms, name, help);
        std::vector<std::string> choices = kPrayers;
        if (all) {
            choices.emplace_back("all");
        }
        sub->add_option("PRAYER", options_.prayer,
                        all ? tr("fajr, sunrise, dhuhr, asr, maghrib, isha; or all six at once: all")
                            : tr("fajr, sunrise, dhuhr, asr, maghrib or isha"))
            ->type_name("")
            ->required()
            ->transform(oneOf(choices));
        return sub;
    }

    void addAlarms() {
        CLI::App* alarms = command(app_, "alarms", tr("The six prayer alarms of the home city"));
        if (!asked(alarms)) {
            return;
        }
        json(alarms);
        alarmCommand(alarms, "on", tr("Switch an alarm on, or all of them"), true);
        alarmCommand(alarms, "off", tr("Switch an alarm off, or all of them, and remove what was to ring"),
                     true);
        alarmCommand(alarms, "offset", tr("Minutes from the prayer time, -59 to 59"))
            ->add_option("MINUTES", options_.value,
                         tr("minutes, such as 10 or -15m; negative: before the prayer time"))
            ->type_name("")
            ->required();
        alarmCommand(alarms, "ringtone", tr("Choose a ringtone of the ringtone folder"))
            ->add_option("NAME", options_.words,
                         tr("file name, with or without its extension; any other lists them"))
            ->type_name("")
            ->required();
        alarmCommand(alarms, "duration", tr("How long the ringtone plays"))
            ->add_option("TIME", options_.value,
                         tr("seconds, or minutes with m: 5, 10, 20, 30, 1m, 2m, 3m or 5m"))
            ->type_name("")
            ->required();
        alarmCommand(alarms, "skip", tr("Leave out what an alarm would ring next, once"))
            ->add_flag("--undo", options_.undo, tr("Ring it all the same"));
        CLI::App* pause = command(*alarms, "pause", tr("Let no alarm ring until a day"));
        auto* until =
            day(pause, "--until", options_.until,
                tr("The day on which the alarms ring again: 2026-12-01, tomorrow, +3 (days from today)"));
        pause->add_flag("--off", options_.off, tr("Let them ring again now"))->excludes(until);
        command(*alarms, "check", tr("Look whether the alarms will ring: one line for each thing they need"))
            ->add_flag("--heal", options_.heal, tr("Mend what can be mended first"));
        command(*alarms, "clear",
                tr("Switch every alarm off and take all of their events out of the calendar"));
        alarmCommand(alarms, "test", tr("Ring an alarm now, as it would"));
        command(*alarms, "stop", tr("Silence what rings"));
        command(*alarms, "connect", tr("Let GNOME ring instead of the ring service, or not any more"))
            ->add_option("WHOM", options_.value, tr("gnome or none"))
            ->type_name("")
            ->required()
            ->check(CLI::IsMember({"gnome", "none"}));
        command(*alarms, "refresh", tr("Move every active alarm to its next time (for a daily timer)"));
    }

    void addMoving() {
        const auto file = [this](CLI::App* sub, const std::string& help) {
            if (asked(sub)) {
                sub->add_option("FILE", options_.file, help)->type_name("")->required()->check(someText());
            }
        };
        file(command(app_, "export", tr("Write your cities and alarms into a file, for another device")),
             tr("the file to write; -: print it"));
        file(command(app_, "import", tr("Replace your cities and alarms by those of an exported file")),
             tr("the file to read; -: from the standard input"));
    }

    void addWidget() {
        CLI::App* widget = command(app_, "widget", tr("One line of JSON for a status bar"));
        if (!asked(widget)) {
            return;
        }
        place(widget);
        follow(widget);
        widget->add_flag("--countdown", options_.countdown, tr("Show the remaining time in the text"));
        widget
            ->add_option("--soon", options_.soon,
                         tr("Minutes before a prayer time from which the class is \"soon\"; default: 15"))
            ->type_name("MIN")
            ->transform(wholeMinutes(0, 720));
    }

    void addCompletion() {
        CLI::App* completion = command(app_, "completion", tr("Print a completion script for a shell"));
        if (!asked(completion)) {
            return;
        }
        completion->add_option("SHELL", options_.shell, tr("bash, zsh or fish"))
            ->type_name("")
            ->required()
            ->transform(oneOf({"bash", "zsh", "fish"}));
    }

    void addManual() {
        CLI::App* manual = command(app_, "manual", tr("Print the manual page (roff)"));
        manual->add_flag("--markdown", options_.markdown, tr("As markdown"));
    }

    Options& options_;
    std::span<const std::string> words_;
    CLI::App app_;
};

OptionHelp describeOption(const CLI::Option& option) {
    OptionHelp help;
    for (const auto& name : option.get_lnames()) {
        help.names.push_back("--" + name);
    }
    for (const auto& name : option.get_snames()) {
        help.names.insert(help.names.begin(), "-" + name);
    }
    help.description = option.get_description();
    help.argument =
        option.get_expected_max() > 0 && option.get_type_size_max() > 0 ? option.get_type_name() : "";
    // A check appends ":{tr,en}" to the type's name.
    const auto braces = help.argument.find(":{");
    if (braces != std::string::npos) {
        std::stringstream list(help.argument.substr(braces + 2, help.argument.rfind('}') - braces - 2));
        for (std::string choice; std::getline(list, choice, ',');) {
            help.choices.push_back(choice);
        }
    }
    help.argument = help.argument.substr(0, help.argument.find(':'));
    help.isPath = help.argument == "DIR";
    return help;
}

CommandHelp describe(const CLI::App& app, const std::string& name) {
    CommandHelp help;
    help.name = name;
    help.description = app.get_description();
    help.examples = examplesOf(name);
    help.hasSubcommands = !app.get_subcommands([](const CLI::App*) { return true; }).empty();
    for (const CLI::Option* option : app.get_options()) {
        OptionHelp described = describeOption(*option);
        if (option->get_positional()) {
            described.argument = option->get_name(true);
            if (!option->get_required()) {
                described.argument = '[' + described.argument + ']';
            }
            help.positionals.push_back(described);
        } else {
            help.options.push_back(described);
        }
    }
    return help;
}

void describeBelow(const CLI::App& app, const std::string& prefix, std::vector<CommandHelp>& out) {
    for (const CLI::App* sub : app.get_subcommands([](const CLI::App*) { return true; })) {
        const std::string name = prefix + sub->get_name();
        out.push_back(describe(*sub, name));
        describeBelow(*sub, name + ' ', out);
    }
}
} // namespace

std::string languageOnLine(std::span<const std::string> words) {
    constexpr std::string_view kOption = "--lang";
    for (auto word = words.begin(); word != words.end(); ++word) {
        if (*word == kOption && word + 1 != words.end()) {
            return lowerCase(*(word + 1));
        }
        if (word->starts_with(kOption) && word->substr(kOption.size()).starts_with('=')) {
            return lowerCase(word->substr(kOption.size() + 1));
        }
    }
    return {};
}

ParseResult parseArguments(std::span<const std::string> words, Options& options) {
    Grammar grammar(options, words);
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    // "zorel help today" is what "zorel today --help" is.
    if (!words.empty() && words.front() == "help") {
        reversed.pop_back();
        reversed.insert(reversed.begin(), "--help");
    }
    try {
        grammar.app().parse(std::move(reversed));
        return {true, Exit::ok, {}, {}};
    } catch (const CLI::CallForHelp&) {
        return {false, Exit::ok, helpText(describeCommands(), commandReached(grammar.app())), {}};
    } catch (const CLI::CallForVersion& version) {
        return {false, Exit::ok, version.what() + std::string("\n"), {}};
    } catch (const CLI::ParseError& error) {
        ParseProblem problem = problemOf(grammar.app(), error);
        return {false, Exit::badUse, std::move(problem.what), std::move(problem.hint)};
    }
}

std::vector<CommandHelp> describeCommands() {
    Options unused;
    Grammar grammar(unused, {});
    std::vector<CommandHelp> commands{describe(grammar.app(), "")};
    describeBelow(grammar.app(), "", commands);
    return commands;
}

} // namespace zorel::cli
