// SPDX-License-Identifier: Apache-2.0
#include "WindowOptions.h"

#include "words/Tr.h"

#include "almanac/Time.h"

#include <CLI/CLI.hpp>

namespace zorel {

namespace {

constexpr int kBadUse = 2;

void addOptions(CLI::App& app, WindowOptions& options) {
    app.add_option("--data-dir", options.dataDir,
                   tr("folder of your cities and alarms (default: ~/.local/share/zorel)"))
        ->type_name("DIR");
    app.add_option("--bundle", options.bundle, tr("folder of the city catalogue and the texts"))
        ->type_name("DIR");
    app.add_option("--ringtones", options.ringtones, tr("folder of the ringtones"))->type_name("DIR");
    app.add_option("--calendar", options.calendar,
                   tr("folder of the alarm events (default: calendar in the data folder)"))
        ->type_name("DIR");
    auto* screenshot = app.add_option("--screenshot", options.screenshot,
                                      tr("draw the window into a PNG file and leave; needs no display"))
                           ->type_name("FILE");
    app.add_option("--screen", options.screen, tr("the screen that --screenshot draws (default: cities)"))
        ->check(CLI::IsMember({"cities", "search", "confirm", "alarm", "why", "edit"}))
        ->option_text("cities|search|confirm|alarm|why|edit")
        ->needs(screenshot);
    app.add_option("--search", options.searchText,
                   tr("what to search for on the search screen of --screenshot"))
        ->option_text("TEXT")
        ->needs(screenshot);
    app.add_option("--at", options.at,
                   tr("the time that --screenshot draws the window for (default: the present)"))
        ->option_text("2026-11-22T13:42")
        ->check([](const std::string& text) {
            const auto moment = almanac::parseMoment(text);
            return moment && moment->date ? std::string() : tr("not a date and time: {}", text);
        })
        ->needs(screenshot);
    app.add_flag(
        "--time-start", options.timeStart,
        tr("print the milliseconds from process start to the first frame and the memory in use, and leave"));
    app.add_option("--width", options.width, tr("width of the window, 160 to 4096 points"))
        ->check(CLI::Range(160, 4096))
        ->option_text("NUMBER");
    app.add_option("--height", options.height, tr("height of the window, 240 to 4096 points"))
        ->check(CLI::Range(240, 4096))
        ->option_text("NUMBER");
    app.add_option("--text-scale", options.textScale,
                   tr("size of everything, 0.5 to 4 (default: as the desktop's text)"))
        ->check(CLI::Range(0.5, 4.0))
        ->option_text("FACTOR");
    app.add_option("--appearance", options.appearance, tr("colours (default: as the desktop)"))
        ->check(CLI::IsMember({"light", "dark"}))
        ->option_text("light|dark");
}

} // namespace

bool readWindowOptions(int argc, char** argv, WindowOptions& options, int& exitCode) {
    CLI::App app(tr("Cities and prayer alarms: the settings window of Zorel."), "zorel-settings");
    app.set_version_flag("--version", std::string("zorel-settings ") + ZOREL_VERSION);
    app.footer(tr("Everything that the window does, the command line does too: zorel --help"));
    addOptions(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        exitCode = app.exit(error) == 0 ? 0 : kBadUse;
        return false;
    }
    return true;
}

} // namespace zorel
