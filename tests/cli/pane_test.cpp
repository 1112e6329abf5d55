// SPDX-License-Identifier: Apache-2.0
// Cities and alarms from the terminal: the pane's rules, the calendar folder, refreshing twice.
#include "CliRunner.h"
#include "platform/foundation/FileLock.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <map>

namespace zorel::test {
namespace {

using Json = nlohmann::json;

class CliPane : public testing::Test {
protected:
    CliRunner run;

    CliResult ok(const std::string& line) {
        CliResult result = run(line);
        EXPECT_EQ(result.code, 0) << line << '\n' << result.err;
        return result;
    }
    Json cities() { return Json::parse(ok("cities --json").out)["cities"]; }
    Json alarm(std::size_t row) { return Json::parse(ok("alarms --json").out)["alarms"][row]; }
    std::map<std::string, std::string> calendarFiles() {
        std::map<std::string, std::string> files;
        const std::string folder = run.folder.path("data/calendar");
        if (!std::filesystem::exists(folder)) {
            return files;
        }
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".ics") {
                files[entry.path().filename().string()] = readFile(entry.path().string());
            }
        }
        return files;
    }
};

TEST_F(CliPane, TheFirstCityBecomesTheHomeCity) {
    EXPECT_TRUE(cities().empty());
    ok("cities add Bursa");
    ok("cities add Konya");
    const Json list = cities();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0]["name"], "Bursa");
    EXPECT_EQ(list[0]["home"], true);
    EXPECT_EQ(list[1]["home"], false);
    EXPECT_TRUE(run("today --short").out.starts_with("Bursa"));
}

TEST_F(CliPane, ACityIsListedOnce) {
    ok("cities add Bursa");
    EXPECT_NE(ok("cities add Bursa").err.find("already"), std::string::npos);
    EXPECT_EQ(cities().size(), 1U);
}

TEST_F(CliPane, AnotherHomeCityAndRemoval) {
    ok("cities add Bursa");
    ok("cities add Konya");
    ok("cities home Konya");
    EXPECT_EQ(cities()[1]["home"], true);
    EXPECT_TRUE(run("today --short").out.starts_with("Konya"));
    ok("cities remove Konya");
    EXPECT_EQ(cities().size(), 1U);
    EXPECT_EQ(cities()[0]["home"], true);
    ok("cities remove Bursa");
    EXPECT_TRUE(cities().empty());
}

TEST_F(CliPane, AnAlarmIsAnEventOfTheCalendar) {
    ok("cities add Istanbul");
    ok("alarms on dhuhr");
    EXPECT_EQ(alarm(2)["active"], true);
    EXPECT_EQ(alarm(2)["prayer_time"], "2026-11-21T13:00:00+03:00");
    const auto files = calendarFiles();
    ASSERT_EQ(files.size(), 1U);
    EXPECT_NE(files.begin()->second.find("SUMMARY:Prayer Alarm"), std::string::npos);
    EXPECT_EQ(alarm(2)["rings_at"], alarm(2)["prayer_time"]) << "what rings is what is shown";
    EXPECT_EQ(alarm(2)["state"], "rings");
    ok("alarms off dhuhr");
    EXPECT_EQ(alarm(2)["active"], false);
    EXPECT_TRUE(alarm(2)["rings_at"].is_null());
    EXPECT_TRUE(calendarFiles().empty());
}

TEST_F(CliPane, OffsetMovesTheEvent) {
    ok("cities add Istanbul");
    ok("alarms on dhuhr");
    const std::string before = alarm(2)["rings_at"];
    ok("alarms offset dhuhr -15");
    EXPECT_EQ(alarm(2)["offset_minutes"], -15);
    EXPECT_NE(alarm(2)["rings_at"], before);
    EXPECT_EQ(calendarFiles().size(), 1U);
    ok("alarms offset dhuhr +10");
    EXPECT_EQ(alarm(2)["offset_minutes"], 10);
}

TEST_F(CliPane, AnAlarmThatIsOffKeepsNoChanges) {
    ok("cities add Istanbul");
    for (const char* line : {"alarms offset asr 5", "alarms duration asr 30"}) {
        const CliResult result = run(line);
        EXPECT_EQ(result.code, 1) << line;
        EXPECT_NE(result.err.find("zorel alarms on asr"), std::string::npos) << result.err;
    }
    EXPECT_EQ(alarm(3)["offset_minutes"], 0);
}

TEST_F(CliPane, AllAlarmsAtOnce) {
    EXPECT_EQ(run("alarms on all").code, 1); // no home city
    ok("cities add Istanbul");
    ok("alarms on fajr");
    ok("alarms offset fajr -15m");
    ok("alarms on all");
    EXPECT_EQ(calendarFiles().size(), 6U);
    EXPECT_EQ(alarm(0)["offset_minutes"], -15);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_TRUE(alarm(i)["active"].get<bool>());
    }
    ok("alarms on all");
    EXPECT_EQ(calendarFiles().size(), 6U);
    ok("alarms off all");
    EXPECT_EQ(calendarFiles().size(), 0U);
    EXPECT_FALSE(alarm(3)["active"].get<bool>());
}

TEST_F(CliPane, DurationsAreTyped) {
    ok("cities add Istanbul");
    ok("alarms on isha");
    const auto index = [&](const std::string& text) {
        ok("alarms duration isha " + text);
        return alarm(5)["duration"].get<int>();
    };
    EXPECT_EQ(index("5"), 0);
    EXPECT_EQ(index("20s"), 2);
    EXPECT_EQ(index("60"), 4);
    EXPECT_EQ(index("1m"), 4);
    EXPECT_EQ(index("0m30"), 3);
    EXPECT_EQ(index("5min"), 7);
}

TEST_F(CliPane, RingtoneAndDuration) {
    run.common += " --ringtones " + run.folder.path("tones");
    writeFile(run.folder.path("tones/Chimes.wav"), "x");
    writeFile(run.folder.path("tones/It's late.wav"), "x");
    ok("cities add Istanbul");
    ok("alarms on isha");
    ok("alarms ringtone isha chimes");
    writeFile(run.folder.path("tones/Evening Flute.wav"), "x");
    ok("alarms ringtone isha evening flute");
    EXPECT_EQ(alarm(5)["ringtone"], "Evening Flute.wav");
    ok("alarms ringtone isha chimes");
    EXPECT_EQ(alarm(5)["ringtone"], "Chimes.wav");
    const CliResult refused = run("alarms ringtone isha \"It's late\"");
    EXPECT_EQ(refused.code, 3);
    EXPECT_NE(refused.err.find("could not be stored"), std::string::npos) << refused.err;
    EXPECT_EQ(alarm(5)["ringtone"], "Chimes.wav");
    ok("alarms duration isha 30");
    EXPECT_EQ(alarm(5)["duration"], 3);
    EXPECT_FALSE(alarm(5)["duration_label"].get<std::string>().empty());
    const CliResult unknown = run("alarms ringtone isha Gong");
    EXPECT_EQ(unknown.code, 2);
    EXPECT_NE(unknown.err.find("Chimes"), std::string::npos) << unknown.err;
}

TEST_F(CliPane, RefreshMovesToTheNextDayAndChangesNothingTheSecondTime) {
    ok("cities add Istanbul");
    for (const char* prayer : {"fajr", "dhuhr", "isha"}) {
        ok("alarms on " + std::string(prayer));
    }
    const auto first = calendarFiles();
    ASSERT_EQ(first.size(), 3U);
    run.common = "--lang en --now 2026-11-22T00:05:00+03:00";
    ok("alarms refresh");
    const auto second = calendarFiles();
    EXPECT_NE(first, second);
    ASSERT_EQ(second.size(), 3U);
    EXPECT_EQ(alarm(2)["rings_at"].get<std::string>().substr(0, 10), "2026-11-22");
    const auto written =
        std::filesystem::last_write_time(run.folder.path("data/calendar/" + second.begin()->first));
    ok("alarms refresh");
    EXPECT_EQ(calendarFiles(), second);
    EXPECT_EQ(std::filesystem::last_write_time(run.folder.path("data/calendar/" + second.begin()->first)),
              written);
}

TEST_F(CliPane, RefreshWithoutCitiesDoesNothing) {
    ok("alarms refresh");
    EXPECT_TRUE(calendarFiles().empty());
}

TEST_F(CliPane, NoSuchTimeTodayIsSaidInWords) {
    run.common = "--lang en --now 2026-12-21T12:00:00+01:00";
    ok("cities add Istanbul");
    EXPECT_EQ(ok("alarms").out.find("No such time today"), std::string::npos);
    EXPECT_EQ(alarm(0)["no_such_time_today"], false);
}

TEST_F(CliPane, AlarmsOfACityWithAnotherClockComeWithAWarning) {
    ok("cities add Istanbul");
    EXPECT_EQ(ok("alarms").err, "");
    ok("cities add Tokyo");
    ok("cities home Tokyo");
    EXPECT_NE(
        ok("alarms on fajr").err.find("at the times of Tokyo (UTC+09:00); this machine's clock is UTC+03:00"),
        std::string::npos);
}

/// Nobody has refreshed for three days: the list must not promise a ring, nor may its status.
TEST_F(CliPane, AnAlarmThatHasPassedIsSaidAndIsNoSuccess) {
    ok("cities add Istanbul");
    ok("alarms on fajr");
    ok("alarms");
    run.common = "--lang en --now 2026-11-24T09:00:00+03:00";
    const CliResult passed = run("alarms");
    EXPECT_EQ(passed.code, 3);
    EXPECT_NE(passed.out.find("2026-11-22 06:"), std::string::npos) << passed.out;
    EXPECT_NE(passed.out.find("has passed"), std::string::npos) << passed.out;
    EXPECT_NE(passed.err.find("zorel alarms refresh"), std::string::npos) << passed.err;
    EXPECT_EQ(Json::parse(run("alarms --json").out)["alarms"][0]["state"], "passed");
    ok("alarms refresh");
    EXPECT_EQ(ok("alarms").out.find("has passed"), std::string::npos);
    EXPECT_EQ(alarm(0)["rings_at"].get<std::string>().substr(0, 10), "2026-11-25");
}

TEST_F(CliPane, AnAlarmDueAtOnceWaitsForItsNextTimeAndSaysSo) {
    run.common = "--lang en --now 2026-11-21T12:57:00+03:00";
    ok("cities add Istanbul");
    EXPECT_NE(ok("alarms on dhuhr").err.find("less than five minutes are left"), std::string::npos);
    EXPECT_EQ(alarm(2)["skips_next"], true);
    EXPECT_EQ(alarm(2)["rings_at"].get<std::string>().substr(0, 10), "2026-11-22");
    ok("alarms refresh");
    EXPECT_EQ(alarm(2)["rings_at"].get<std::string>().substr(0, 10), "2026-11-22") << "what is right stays";
}

/// A file in the place of the calendar's folder takes no event and lets none go.
TEST_F(CliPane, WhatTheCalendarRefusesIsTakenBackAndIsNoSuccess) {
    ok("cities add Istanbul");
    ok("cities add Tokyo");
    ok("alarms on fajr");
    const std::string folder = run.folder.path("data/calendar");
    std::filesystem::rename(folder, folder + ".away");
    writeFile(folder, "x");
    for (const char* line : {"alarms on asr", "cities home Tokyo", "cities remove Istanbul"}) {
        const CliResult result = run(line);
        EXPECT_EQ(result.code, 3) << line;
        EXPECT_NE(result.err.find("taken back"), std::string::npos) << result.err;
        EXPECT_EQ(cities()[0]["home"], true) << line;
    }
    std::filesystem::remove(folder);
    std::filesystem::rename(folder + ".away", folder);
    ok("alarms refresh");
    EXPECT_EQ(alarm(3)["active"], false);
    EXPECT_EQ(calendarFiles().size(), 1U);
    ok("cities home Tokyo");
    ok("alarms off fajr");
    EXPECT_TRUE(calendarFiles().empty());
}

TEST_F(CliPane, ABusyDatabaseIsCalledBusy) {
    ok("cities add Istanbul");
    const FileLock other(run.folder.path("data/user.sqlite.lock"));
    ASSERT_EQ(other.state(), LockState::acquired);
    const CliResult result = run("cities");
    EXPECT_EQ(result.code, 3);
    EXPECT_NE(result.err.find("another program is working"), std::string::npos) << result.err;
    EXPECT_NE(result.err.find("try again"), std::string::npos) << result.err;
}

TEST_F(CliPane, AnotherCalendarFolder) {
    run.common += " --calendar " + run.folder.path("elsewhere");
    ok("cities add Istanbul");
    ok("alarms on fajr");
    EXPECT_TRUE(calendarFiles().empty());
    EXPECT_TRUE(std::filesystem::exists(run.folder.path("elsewhere/displayname")));
}

} // namespace
} // namespace zorel::test
