// SPDX-License-Identifier: Apache-2.0
#include "Arguments.h"

#include "Examples.h"
#include "ZorelVersion.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <sstream>

namespace zorel::cli {

namespace {
constexpr std::string_view kDescription =
    "Prayer times, alarms, Sun and Moon, qibla and Hijri dates for any place, offline.";

constexpr const char* kPlaceHelp = "name (\"Paris, Texas\"), catalogue id, or LAT,LON[,ZONE]; default: the "
                                   "home city, else the largest place of the "
                                   "system's time zone";

using Prayers = std::vector<std::string>;
const Prayers kPrayers{"fajr", "sunrise", "dhuhr", "asr", "maghrib", "isha"};

/// Builds the grammar around one Options value.
class Grammar {
public:
    explicit Grammar(Options& options) : options_(options), app_(std::string(kDescription), "zorel") {
        app_.set_version_flag("-V,--version", std::string("zorel ") + kZorelVersion,
                              "Print the version and exit");
        app_.set_help_flag("-h,--help", "Print help and exit");
        app_.require_subcommand(1);
        app_.fallthrough();
        app_.failure_message(CLI::FailureMessage::simple);
        addCommon();
        addTimes();
        addTable();
        addAstronomy();
        addLists();
        addWidget();
        addManual();
    }

    CLI::App& app() { return app_; }

private:
    CLI::App* command(CLI::App& parent, const std::string& name, const std::string& description) {
        CLI::App* sub = parent.add_subcommand(name, description);
        sub->fallthrough();
        const std::string full = &parent == &app_ ? name : parent.get_name() + ' ' + name;
        sub->callback([this, full, sub] {
            if (sub->get_subcommands().empty())
                options_.command = full;
        });
        sub->footer(examplesFooter(full));
        return sub;
    }

    void addCommon() {
        app_.add_option("--data-dir", options_.dataDir, "Folder of the user's cities, alarms and log")
            ->type_name("DIR");
        app_.add_option("--bundle", options_.bundle, "Folder of the catalogue and the language files")
            ->type_name("DIR");
        app_.add_option("--ringtones", options_.ringtones, "Folder of the ringtones")->type_name("DIR");
        app_.add_option("--calendar", options_.calendar, "Folder of .ics files that carries the alarms")
            ->type_name("DIR");
        app_.add_option("--lang", options_.language,
                        "Language of names: tr, en, fr, de; default: from the locale")
            ->type_name("LANG")
            ->check(CLI::IsMember({"tr", "en", "fr", "de"}));
        app_.add_option("--color", options_.colour, "Colours: auto (only on a terminal), always, never")
            ->type_name("WHEN")
            ->check(CLI::IsMember({"auto", "always", "never"}));
        app_.add_option("--now", options_.now,
                        "Pretend that this is the present moment (2026-11-21T15:04[+03:00])")
            ->type_name("TIME");
        app_.footer(examplesFooter(""));
    }

    void place(CLI::App* sub) { sub->add_option("PLACE", options_.words, kPlaceHelp)->type_name(""); }
    void json(CLI::App* sub) { sub->add_flag("--json", options_.json, "Print JSON (docs/json.md)"); }
    void seconds(CLI::App* sub) {
        sub->add_flag("--seconds", options_.seconds, "Show seconds instead of whole minutes");
    }
    void temkin(CLI::App* sub) {
        sub->add_option("--temkin", options_.temkin,
                        "Precaution table: 250 or 500 m; default: the place's own")
            ->type_name("METRES")
            ->check(CLI::IsMember({250, 500}));
    }
    CLI::Option* day(CLI::App* sub, const char* name, std::string& target, const char* help) {
        return sub->add_option(name, target, help)->type_name("DATE");
    }

    void addDayOptions(CLI::App* sub) {
        place(sub);
        json(sub);
        seconds(sub);
        temkin(sub);
        sub->add_flag("--short", options_.shortForm, "Only the six prayer times");
        sub->add_flag("--ezani", options_.ezani, "Also the sunset-based clock, on which sunset is 12:00");
        sub->add_flag("--explain", options_.explain,
                      "For each time: its rule, temkin, fixed additions, rounds, date and latitude");
    }

    void addTimes() {
        CLI::App* today = command(app_, "today", "Prayer times of today (or --date), and what comes next");
        addDayOptions(today);
        day(today, "--date", options_.date, "Another day: 2026-11-21, today, tomorrow, +3, -3");
        addDayOptions(command(app_, "tomorrow", "Prayer times of tomorrow"));
    }

    void addTable() {
        CLI::App* table = command(app_, "table", "Prayer times of many days, or of every place on one day");
        place(table);
        day(table, "--from", options_.from, "First day; default: today");
        day(table, "--to", options_.to, "Last day; default: 29 days after the first");
        auto* csv = table->add_flag("--csv", options_.csv, "Print comma-separated values");
        auto* jsonFlag = table->add_flag("--json", options_.json, "Print JSON (docs/json.md)");
        auto* ics = table->add_flag("--ics", options_.ics, "Print a calendar to import or subscribe to");
        csv->excludes(jsonFlag)->excludes(ics);
        jsonFlag->excludes(ics);
        seconds(table);
        temkin(table);
        auto* all =
            table->add_flag("--all", options_.all, "Every place of the catalogue on one day (with --on)");
        day(table, "--on", options_.on, "The day of --all; default: today, by the system's clock")
            ->needs(all);
        table->add_option("--from-id", options_.fromId, "Start --all at this place of the catalogue")
            ->type_name("ID")
            ->needs(all);
        table->add_option("--count", options_.count, "Stop --all after this many places")
            ->type_name("N")
            ->check(CLI::PositiveNumber)
            ->needs(all);
        all->excludes(ics);
    }

    void addAstronomy() {
        CLI::App* sky = command(app_, "sky", "Sun and Moon now: where they stand, rise and set, phases");
        place(sky);
        sky->add_option("--at", options_.at, "The moment: 2026-11-21T15:04[+03:00] or 15:04; default: now")
            ->type_name("TIME");
        json(sky);
        CLI::App* hijri = command(app_, "hijri", "A day in the Hijri and Rumi calendars");
        hijri->add_option("DATE", options_.words, "2026-11-21, today, tomorrow, +3, -3; default: today")
            ->type_name("");
        json(hijri);
        CLI::App* compass = command(app_, "compass", "Qibla as true and magnetic bearing, Sun in the qibla");
        place(compass);
        day(compass, "--date", options_.date, "The day; default: today");
        json(compass);
    }

    void addLists() {
        CLI::App* search = command(app_, "search", "Search the catalogue (three characters or more)");
        search->add_option("TEXT", options_.words, "part of a name, in any spelling the catalogue has")
            ->type_name("")
            ->required();
        search->add_option("--limit", options_.limit, "Most results to print; 0: all")
            ->type_name("N")
            ->check(CLI::NonNegativeNumber)
            ->capture_default_str();
        json(search);
        addCities();
        addAlarms();
    }

    void addCities() {
        CLI::App* cities = command(app_, "cities", "Your cities: list, add, home, remove");
        json(cities);
        place(command(*cities, "add", "Add a city; the first one becomes the home city"));
        place(command(*cities, "home",
                      "Make one of your cities the home city; active alarms move to its times"));
        place(command(*cities, "remove", "Remove a city from the list"));
    }

    CLI::App* alarmCommand(CLI::App* alarms, const char* name, const char* help) {
        CLI::App* sub = command(*alarms, name, help);
        sub->add_option("PRAYER", options_.prayer, "fajr, sunrise, dhuhr, asr, maghrib or isha")
            ->type_name("")
            ->required()
            ->check(CLI::IsMember(kPrayers, CLI::ignore_case));
        return sub;
    }

    void addAlarms() {
        CLI::App* alarms = command(app_, "alarms", "The six prayer alarms of the home city");
        json(alarms);
        alarmCommand(alarms, "on", "Switch an alarm on");
        alarmCommand(alarms, "off", "Switch an alarm off and remove its event");
        alarmCommand(alarms, "offset", "Minutes from the prayer time, -59 to 59")
            ->add_option("MINUTES", options_.value, "minutes; negative: before the prayer time")
            ->type_name("")
            ->required();
        alarmCommand(alarms, "ringtone", "Choose a ringtone of the ringtone folder")
            ->add_option("NAME", options_.value, "file name, with or without its extension")
            ->type_name("")
            ->required();
        alarmCommand(alarms, "duration", "How long the ringtone plays")
            ->add_option("CHOICE", options_.value, "0 to 7, as \"zorel alarms\" lists them")
            ->type_name("")
            ->required();
        command(*alarms, "refresh", "Move every active alarm to its next occurrence (for a daily timer)");
    }

    void addWidget() {
        CLI::App* widget = command(app_, "widget", "One line of JSON for a status bar");
        place(widget);
        widget->add_flag("--follow", options_.follow,
                         "Print again at each change, until the reader goes away");
        widget->add_flag("--countdown", options_.countdown, "Show the remaining time in the text");
        widget
            ->add_option("--soon", options_.soon,
                         "Minutes before a prayer time from which the class is \"soon\"")
            ->type_name("MIN")
            ->check(CLI::Range(0, 720))
            ->capture_default_str();
    }

    void addManual() {
        CLI::App* completion = command(app_, "completion", "Print a completion script for a shell");
        completion->add_option("SHELL", options_.shell, "bash, zsh or fish")
            ->type_name("")
            ->required()
            ->check(CLI::IsMember({"bash", "zsh", "fish"}));
        CLI::App* manual = command(app_, "manual", "Print the manual page (roff)");
        manual->add_flag("--markdown", options_.markdown, "As markdown");
    }

    Options& options_;
    CLI::App app_;
};

OptionHelp describeOption(const CLI::Option& option) {
    OptionHelp help;
    for (const auto& name : option.get_lnames())
        help.names.push_back("--" + name);
    for (const auto& name : option.get_snames())
        help.names.insert(help.names.begin(), "-" + name);
    help.description = option.get_description();
    help.argument =
        option.get_expected_max() > 0 && option.get_type_size_max() > 0 ? option.get_type_name() : "";
    // A check appends ":{tr,en}" to the type's name.
    const auto braces = help.argument.find(":{");
    if (braces != std::string::npos) {
        std::stringstream list(help.argument.substr(braces + 2, help.argument.rfind('}') - braces - 2));
        for (std::string choice; std::getline(list, choice, ',');)
            help.choices.push_back(choice);
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
            if (!option->get_required())
                described.argument = '[' + described.argument + ']';
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

ParseResult parseArguments(std::span<const std::string> words, Options& options) {
    Grammar grammar(options);
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    try {
        grammar.app().parse(std::move(reversed));
        return {true, Exit::ok, {}};
    } catch (const CLI::Success& request) {
        std::ostringstream text;
        grammar.app().exit(request, text, text);
        return {false, Exit::ok, text.str()};
    } catch (const CLI::RequiredError& error) {
        const auto unknown = grammar.app().remaining();
        return {false, Exit::badUse, unknown.empty() ? error.what() : "no command " + quote(unknown.front())};
    } catch (const CLI::ParseError& error) {
        return {false, Exit::badUse, error.what()};
    }
}

std::vector<CommandHelp> describeCommands() {
    Options unused;
    Grammar grammar(unused);
    std::vector<CommandHelp> commands{describe(grammar.app(), "")};
    describeBelow(grammar.app(), "", commands);
    return commands;
}

} // namespace zorel::cli
