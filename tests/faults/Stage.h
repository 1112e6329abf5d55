// SPDX-License-Identifier: Apache-2.0
/// @file
/// The command line as a program of its own, on a data folder that is put back after each try, and a look at
/// what it has left: the rows of the database and what the calendar's events say.
#pragma once

#include "alarms/PrayerAlarms.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/eventkit/FolderCalendar.h"
#include "platform/eventkit/GnomeSource.h"
#include "platform/eventkit/OneFile.h"
#include "store/DatabaseFunctions.h"
#include "store/UserRows.h"
#include "tests/support/HomeWorld.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace zorel::test {

/// How a program ended.
struct Ended {
    int status = 0; ///< exit status, or minus the signal that killed it
    std::string out;
    std::string err;
};

/// What goes wrong while a program runs.
struct Fault {
    std::string name;
    int error = 0; ///< as the preloaded library understands it
    bool lasting = false;
};

/// What a command was to bring about, in words that two runs can be compared by.
struct Outcome {
    std::string cities; ///< of the list, in its order, "*" at the home city
    std::string alarms; ///< of each alarm: its choices, what it does, and when
    std::string home;
    std::string gnome;   ///< whether GNOME has the calendar, and what it has to ring
    std::string file;    ///< what was exported
    bool isGood = false; ///< every alarm that is on rings, no other does

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

class Stage {
public:
    explicit Stage(const std::string& present = "2026-11-22T09:00:00Z") : present_(present) {
        for (const char* tone : {"Bell.wav", "Flute.wav"}) {
            writeFile(folder_.path("tones/") + tone, "tone");
        }
        writeFile(imported(), kImported);
        std::filesystem::create_directory(folder_.path("exported"));
        // Of the programs, and of the looking.
        setenv("XDG_CONFIG_HOME", config().c_str(), 1);
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage() { unsetenv("XDG_CONFIG_HOME"); }

    /// From now on the time is this one.
    void setPresent(const std::string& present) { present_ = present; }
    [[nodiscard]] std::string data() const { return folder_.path("data"); }
    [[nodiscard]] std::string config() const { return folder_.path("config"); }
    /// Where a command exports to ("{export}" in its words), and what it imports ("{import}").
    [[nodiscard]] std::string exported() const { return folder_.path("exported/file.json"); }
    [[nodiscard]] std::string imported() const { return folder_.path("imported.json"); }

    /// Starts the program; its process.
    [[nodiscard]] pid_t start(const std::string& command, const std::vector<std::string>& fault = {}) const {
        std::vector<std::string> words{ZOREL_PROGRAM, "--lang",      "en",
                                       "--data-dir",  data(),        "--now",
                                       present_,      "--ringtones", folder_.path("tones"),
                                       "--bundle",    bundle()};
        std::istringstream line(command);
        for (std::string word; line >> word;) {
            words.push_back(word == "{export}" ? exported() : word == "{import}" ? imported() : word);
        }
        std::vector<std::string> environment{"LC_ALL=C.UTF-8", "TZ=UTC", "HOME=" + folder_.path(),
                                             "XDG_CONFIG_HOME=" + config()};
        environment.insert(environment.end(), fault.begin(), fault.end());
        return spawn(words, environment);
    }
    [[nodiscard]] Ended wait(pid_t process) const {
        int status = 0;
        waitpid(process, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), readFile(folder_.path("out")),
                readFile(folder_.path("err"))};
    }
    Ended run(const std::string& command) const { return wait(start(command)); }
    Ended run(const std::string& command, const Fault& fault, int nth) const {
        return wait(
            start(command, {"LD_PRELOAD=" ZOREL_FAULT_PRELOAD,
                            "ZOREL_FAULT_UNDER=" + data() + ":" + config() + ":" + folder_.path("exported") +
                                ":" + imported() + ":" + bundle() + "/database",
                            "ZOREL_FAULT_NTH=" + std::to_string(nth),
                            "ZOREL_FAULT_ERROR=" + std::to_string(fault.error),
                            std::string("ZOREL_FAULT_LASTING=") + (fault.lasting ? "1" : "0"),
                            "ZOREL_FAULT_COUNT=" + folder_.path("count")}));
    }
    /// How many calls on files a command makes when nothing goes wrong.
    [[nodiscard]] int callsOf(const std::string& command) const {
        run(command, {"", 0, false}, 0);
        return std::stoi(readFile(folder_.path("count")));
    }

    /// Remembers the folders that commands write into as they are now.
    void keep() {
        files_.clear();
        for (const std::string& folder : written()) {
            std::error_code missing;
            for (std::filesystem::recursive_directory_iterator entry(folder, missing), end; entry != end;
                 entry.increment(missing)) {
                if (entry->is_regular_file()) {
                    files_[entry->path().string()] = readFile(entry->path().string());
                }
            }
        }
    }
    void putBack() const {
        for (const std::string& folder : written()) {
            std::filesystem::remove_all(folder);
        }
        std::filesystem::create_directory(folder_.path("exported"));
        for (const auto& [path, bytes] : files_) {
            writeFile(path, bytes);
        }
    }

    /// What the files say, read without the program.
    [[nodiscard]] Outcome look() const {
        const TemporaryLocations quiet; // the log of the looking goes elsewhere
        EKEventStore::setCalendar(std::make_shared<FolderCalendar>(data() + "/calendar"));
        GlobalFuncs functions;
        functions.appBundlePath = bundle();
        DatabaseFunctions database(functions);
        database.setUserDBPath(data() + "/user.sqlite");
        const TimeZoneOverride zone("UTC");
        const ClockOverride clock(presentInstant());
        Outcome outcome =
            tell(storedUserCities(database.userDBPath()).rows, PrayerAlarms(functions, database).report());
        const std::string calendar = data() + "/calendar";
        outcome.gnome = isGnomeConnected(calendar) ? "connected" : "";
        std::istringstream lines(std::filesystem::exists(oneFileOf(calendar)) ? readFile(oneFileOf(calendar))
                                                                              : "");
        std::set<std::string> starts; // files and so lines stand in the order of random names
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("DTSTART")) {
                starts.insert(line);
            }
        }
        for (const std::string& start : starts) {
            outcome.gnome += " " + start;
        }
        outcome.file = std::filesystem::exists(exported()) ? readFile(exported()) : "";
        EKEventStore::setCalendar(nullptr);
        return outcome;
    }

private:
    /// Another city and another alarm than the tests begin with.
    static constexpr const char* kImported =
        R"({"schema": "zorel/export/1", "cities": [{"id": 323786}, {"id": 2643743}], "home": 2643743,
"alarms": [{"name": "maghrib", "active": true, "offset_minutes": 5, "ringtone": "Bell.wav", "duration": 2}],
"paused_until": null})";

    [[nodiscard]] std::vector<std::string> written() const {
        return {data(), config(), folder_.path("exported")};
    }
    static std::string bundle() { return std::string(ZOREL_BINARY_DIR) + "/share/zorel/Zorel.bundle"; }

    [[nodiscard]] Instant presentInstant() const {
        const auto moment = almanac::parseMoment(present_).value();
        return std::chrono::sys_days(*moment.date) + moment.timeOfDay;
    }

    static std::int64_t seconds(const std::optional<almanac::Instant>& instant) {
        return instant ? instant->time_since_epoch().count() : 0;
    }
    static Outcome tell(const std::vector<UserCity>& cities, const AlarmReport& report) {
        Outcome outcome;
        const auto home = homePosition(cities);
        for (std::size_t row = 0; row < cities.size(); ++row) {
            outcome.cities += cities[row].cityId + (row == home ? "* " : " ");
        }
        outcome.home = home ? cities[*home].cityId : "";
        for (const AlarmStatus& alarm : report.alarms) {
            outcome.alarms +=
                fmt::format("{} {} {} {} {} {} {}; ", alarm.info.active, alarm.info.timeOffset,
                            alarm.info.melodyName, alarm.info.melodyTime, static_cast<int>(alarm.state),
                            seconds(alarm.ringsAt), seconds(alarm.skipped));
        }
        outcome.alarms += std::to_string(seconds(report.pausedUntil));
        outcome.isGood = report.isGood() || cities.empty();
        return outcome;
    }

    [[nodiscard]] pid_t spawn(std::vector<std::string>& words, std::vector<std::string>& environment) const {
        std::vector<char*> argv;
        std::vector<char*> envp;
        for (std::string& word : words) {
            argv.push_back(word.data());
        }
        for (std::string& variable : environment) {
            envp.push_back(variable.data());
        }
        argv.push_back(nullptr);
        envp.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, folder_.path("out").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, folder_.path("err").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        pid_t process = 0;
        if (posix_spawn(&process, argv[0], &actions, nullptr, argv.data(), envp.data()) != 0) {
            throw std::runtime_error("cannot start " + words.front());
        }
        posix_spawn_file_actions_destroy(&actions);
        return process;
    }

    TemporaryFolder folder_;
    std::string present_;
    std::map<std::string, std::string> files_;
};

} // namespace zorel::test
