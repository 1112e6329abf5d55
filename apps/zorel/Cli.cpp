// SPDX-License-Identifier: Apache-2.0
#include "Cli.h"

#include "ZorelVersion.h"
#include "commands/Commands.h"
#include "commands/Complete.h"
#include "commands/UserData.h"
#include "grammar/Arguments.h"
#include "grammar/DateArgument.h"
#include "terminal/PersonsText.h"

#include "almanac/PlaceClock.h"
#include "common/SpokenLanguage.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/eventkit/FolderCalendar.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/ProgramLocations.h"
#include "platform/foundation/Utf8.h"

#include <fmt/format.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace zorel::cli {

namespace {
using Command = Exit (*)(const Context&);

const std::map<std::string, Command>& commands() {
    static const std::map<std::string, Command> table{
        {"today", runToday},
        {"tomorrow", runTomorrow},
        {"next", runNext},
        {"chart", runChart},
        {"sheet", runSheet},
        {"table", runTable},
        {"sky", runSky},
        {"hijri", runHijri},
        {"compass", runCompass},
        {"search", runSearch},
        {"cities", runCities},
        {"cities add", runCitiesAdd},
        {"cities home", runCitiesHome},
        {"cities remove", runCitiesRemove},
        {"alarms", runAlarms},
        {"alarms on", runAlarmsOnTellingWho},
        {"alarms off", runAlarmsOff},
        {"alarms offset", runAlarmsOffset},
        {"alarms ringtone", runAlarmsRingtone},
        {"alarms duration", runAlarmsDuration},
        {"alarms refresh", runAlarmsRefresh},
        {"alarms skip", runAlarmsSkip},
        {"alarms pause", runAlarmsPause},
        {"alarms check", runAlarmsCheck},
        {"alarms clear", runAlarmsClear},
        {"alarms test", runAlarmsTest},
        {"alarms stop", runAlarmsStop},
        {"alarms connect", runAlarmsConnect},
        {"export", runExport},
        {"import", runImport},
        {"widget", runWidget},
    };
    return table;
}

std::string defaultDataDir() {
    if (auto folder = userDataDirectory()) {
        return *std::move(folder);
    }
    throw CliError(Exit::dataTrouble, tr("neither HOME nor XDG_DATA_HOME is set"),
                   tr("name the folder of your cities and alarms with --data-dir DIR"));
}

void setLocations(const Options& options) {
    Locations& locations = Locations::current();
    locations.bundle = options.bundle.empty() ? bundleBesideProgram() : options.bundle;
    locations.data = options.dataDir.empty() ? defaultDataDir() : options.dataDir;
    locations.ringtones =
        options.ringtones.empty() ? ringtonesBesideBundle(locations.bundle) : options.ringtones;
    EKEventStore::setCalendar(options.calendar.empty() ? nullptr
                                                       : std::make_shared<FolderCalendar>(options.calendar));
}

/// The instant that --now names, read in the system's time zone when it has no offset of its own.
Instant pretendedNow(const std::string& text) {
    const auto moment = almanac::parseMoment(text);
    if (!moment || !moment->date) {
        throw CliError(Exit::badUse, tr("--now: {} is not a moment", quote(text)),
                       tr("write it as 2026-11-21T15:04 or 2026-11-21T15:04:00+03:00"));
    }
    const almanac::Instant instant = instantOf(*moment, almanac::PlaceClock::ofMachine(), *moment->date);
    return Instant(std::chrono::duration_cast<Instant::duration>(instant.time_since_epoch()));
}

/// Whether a command wants the user's data to be readable. The check says itself what is not.
bool usesPane(const std::string& command) {
    return command.starts_with("cities") || command == "export" || command == "import" ||
           (command.starts_with("alarms") && command != "alarms check");
}

Exit printDescription(const Options& options, Streams& streams) {
    if (options.command == "completion") {
        streams.out << completionScript(options.shell);
    } else {
        streams.out << (options.markdown ? manualMarkdown() : manualPage());
    }
    return Exit::ok;
}

Exit runCommand(const Options& options, Streams& streams) {
    if (options.command == "completion" || options.command == "manual") {
        return printDescription(options, streams);
    }
    setLocations(options);
    speakInPane(options.language.empty() ? languageInUse() : options.language);
    std::optional<ClockOverride> clock;
    if (!options.now.empty()) {
        clock.emplace(pretendedNow(options.now));
    }
    if (usesPane(options.command)) {
        // The services write to the log; without its folder they would try and fail for every line.
        makeDataDir();
        requireReadableUserData();
    }
    const Context context(options, streams);
    return commands().at(options.command)(context);
}

/// What a shell asks for when somebody presses Tab: "complete SHELL WORDS". The words are a line in the
/// making, no options of this run.
Exit completeLine(std::span<const std::string> words, Streams& streams) {
    if (words.size() < 3) {
        return Exit::badUse;
    }
    const bool quoted = words[1] != "zsh"; // it takes the quotes away itself
    std::vector<std::string> line;
    for (const std::string& word : words.subspan(2)) {
        line.push_back(quoted ? unquoted(word) : word);
    }
    const CompletionQuestion question = completionQuestion(line);
    Options options;
    const auto folder = [&](const char* name) {
        const auto given = question.folders.find(name);
        return given == question.folders.end() ? std::string() : given->second;
    };
    options.bundle = folder("--bundle");
    options.dataDir = folder("--data-dir");
    options.ringtones = folder("--ringtones");
    setLocations(options);
    const Context context(options, streams);
    printChoices(streams.out, words[1], words.back(), question,
                 completionChoices(context.services, question));
    return Exit::ok;
}

int failed(Streams& streams, Exit code, std::string_view what, std::string_view hint) {
    streams.out.flush();
    streams.err << "zorel: " << cleanText(what) << '\n';
    if (!hint.empty()) {
        streams.err << "  " << cleanText(hint) << '\n';
    }
    return static_cast<int>(code);
}

/// Whether the output is for people, not for programs.
bool isForPeople(const Options& options) {
    const std::string& command = options.command;
    return !options.json && !options.csv && !options.ics && !options.all && !options.svg &&
           command != "sheet" && command != "widget" && command != "completion" && command != "manual";
}

/// Does what a line asks for, and says what went wrong.
int carriedOut(Streams& streams, const std::function<Exit()>& line) {
    try {
        const Exit code = line();
        streams.out.flush();
        if (!streams.out.good()) {
            return failed(streams, Exit::dataTrouble, tr("the output could not be written"),
                          tr("is the disk full?"));
        }
        return static_cast<int>(code);
    } catch (const CliError& error) {
        return failed(streams, error.code(), error.what(), error.hint());
    } catch (const std::exception& error) {
        return failed(streams, Exit::dataTrouble, error.what(), {});
    }
}

int answer(const ParseResult& parsed, const Options& options, Streams& streams) {
    if (parsed.code != Exit::ok) {
        return failed(streams, parsed.code, parsed.text, parsed.hint);
    }
    return carriedOut(streams, [&] {
        streams.out << parsed.text;
        return parsed.run ? runCommand(options, streams) : Exit::ok;
    });
}
} // namespace

int runZorel(std::span<const std::string> words, Streams& streams) {
    // Before anything else: help and errors are said in the language too.
    const std::string language = languageOnLine(words);
    language.empty() ? useLanguageOfEnvironment() : useLanguages({language});
    if (!words.empty() && words.front() == "complete") {
        return carriedOut(streams, [&] { return completeLine(words, streams); });
    }
    Options options;
    const ParseResult parsed = parseArguments(words, options);
    const Writing writing{isRightToLeft(languageInUse()), U'0'};
    if (!writing.rightToLeft) {
        return answer(parsed, options, streams);
    }
    PersonsStream out(streams.out, isForPeople(options) ? writing : Writing{});
    PersonsStream err(streams.err, writing);
    Streams shown{out, err, streams.outIsTerminal, streams.errIsTerminal, streams.outDescriptor};
    const int code = answer(parsed, options, shown);
    out.flush();
    err.flush();
    return code;
}

} // namespace zorel::cli
