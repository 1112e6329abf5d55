// SPDX-License-Identifier: Apache-2.0
// Leaving out, clearing, checking, and cities and alarms on their way to another device.
#include "CliRunner.h"
#include "platform/foundation/FileLock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

#include <filesystem>

namespace zorel::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::json;
namespace fs = std::filesystem;

class CliMoving : public testing::Test {
protected:
    CliRunner run;

    CliMoving() {
        writeFile(run.folder.path("tones/Bell.wav"), "x");
        run.common += " --ringtones " + run.folder.path("tones");
    }
    CliResult ok(const std::string& line) {
        CliResult result = run(line);
        EXPECT_EQ(result.code, 0) << line << '\n' << result.err;
        return result;
    }
    CliResult fails(int code, const std::string& line) {
        CliResult result = run(line);
        EXPECT_EQ(result.code, code) << line << '\n' << result.err;
        EXPECT_FALSE(result.err.empty());
        return result;
    }
    Json alarms() { return Json::parse(ok("alarms --json").out); }
    Json alarm(std::size_t row) { return alarms()["alarms"][row]; }
    /// Two cities, two alarms.
    void settle() {
        ok("cities add Istanbul");
        ok("cities add 2950159");
        ok("alarms on dhuhr");
        ok("alarms offset dhuhr -15");
        ok("alarms on isha");
        ok("alarms duration isha 1m");
    }
    std::size_t events() {
        std::size_t count = 0;
        for (const auto& entry : fs::directory_iterator(run.folder.path("data/calendar"))) {
            count += entry.path().extension() == ".ics" ? 1 : 0;
        }
        return count;
    }
    [[nodiscard]] std::string file() const { return run.folder.path("export.json"); }
    /// The exported document with something else in it.
    void spoil(const std::function<void(Json&)>& change) {
        ok("export " + file());
        Json document = Json::parse(readFile(file()));
        change(document);
        writeFile(file(), document.dump());
    }
    void expectRefused(const std::string& reason) {
        const std::string before = ok("alarms --json").out + ok("cities --json").out;
        const CliResult result = fails(3, "import " + file());
        EXPECT_THAT(result.err, HasSubstr(reason));
        EXPECT_EQ(ok("alarms --json").out + ok("cities --json").out, before);
    }
};

// Leaving out.

TEST_F(CliMoving, TheNextRingIsLeftOutAndRingsAgainWhenThatIsUndone) {
    settle();
    const std::string next = alarm(2)["rings_at"];
    const CliResult skipped = ok("alarms skip dhuhr");
    EXPECT_THAT(skipped.out, HasSubstr("2026-11-22 12:45 (skips 2026-11-21 12:45)"));
    EXPECT_EQ(alarm(2)["skipped"], next);
    EXPECT_NE(alarm(2)["rings_at"], next);
    EXPECT_TRUE(alarm(5)["skipped"].is_null());
    ok("alarms skip dhuhr --undo");
    EXPECT_EQ(alarm(2)["rings_at"], next);
    EXPECT_THAT(fails(1, "alarms skip asr").err, HasSubstr("zorel alarms on asr"));
}

TEST_F(CliMoving, APauseIsSaidWithItsEnd) {
    settle();
    const CliResult paused = ok("alarms pause --until 2026-12-01");
    EXPECT_THAT(paused.out, HasSubstr("paused until 2026-12-01 00:00\n"));
    EXPECT_EQ(alarms()["paused_until"], "2026-12-01T00:00:00+03:00");
    EXPECT_THAT(alarm(2)["rings_at"].get<std::string>(), HasSubstr("2026-12-01T"));
    EXPECT_EQ(alarms()["good"], true);
    EXPECT_THAT(ok("alarms pause --off").out, Not(HasSubstr("paused")));
    EXPECT_TRUE(alarms()["paused_until"].is_null());
    ok("alarms pause --until tomorrow");
    EXPECT_EQ(alarms()["paused_until"], "2026-11-22T00:00:00+03:00");
}

TEST_F(CliMoving, APauseNeedsADayAhead) {
    settle();
    for (const char* until : {"2026-11-21", "2026-11-20", "2027-12-01", "soon", "9998-12-31"}) {
        EXPECT_THAT(fails(2, std::string("alarms pause --until ") + until).err, HasSubstr("--until"))
            << until;
    }
    EXPECT_THAT(fails(2, "alarms pause").err, HasSubstr("--until DATE"));
    fails(2, "alarms pause --off --until tomorrow");
    EXPECT_TRUE(alarms()["paused_until"].is_null());
}

// Clearing.

TEST_F(CliMoving, ClearingTakesEveryEventAwayAndKeepsWhatWasChosen) {
    settle();
    EXPECT_EQ(events(), 2U);
    writeFile(run.folder.path("data/calendar/dentist.ics"), "BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n");
    EXPECT_THAT(ok("alarms clear").err, HasSubstr("none of them is left"));
    EXPECT_EQ(events(), 1U) << "that of another program stays";
    EXPECT_EQ(alarm(2)["active"], false);
    EXPECT_EQ(alarm(2)["offset_minutes"], -15);
    ok("alarms clear");
}

// Moving.

TEST_F(CliMoving, WhatWasExportedIsThereAfterAnImportElsewhere) {
    settle();
    ok("cities home 2950159");
    ok("alarms pause --until 2026-11-25");
    ok("export " + file());
    struct stat status {};
    ASSERT_EQ(stat(file().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U) << "where a person lives is nobody else's business";
    const std::string cities = ok("cities --json").out;
    const Json before = alarms();
    fs::remove_all(run.folder.path("data"));
    ok("import " + file());
    EXPECT_EQ(ok("cities --json").out, cities);
    EXPECT_EQ(alarms(), before);
    EXPECT_EQ(events(), 2U);
    ok("export " + run.folder.path("again.json"));
    EXPECT_EQ(readFile(run.folder.path("again.json")), readFile(file()));
}

TEST_F(CliMoving, AnImportReplacesWhatWasThere) {
    settle();
    ok("export " + file());
    ok("alarms on fajr");
    ok("cities add Ankara");
    ok("cities remove 2950159");
    ok("import " + file());
    EXPECT_EQ(alarm(0)["active"], false);
    EXPECT_EQ(Json::parse(ok("cities --json").out)["cities"].size(), 2U);
    EXPECT_EQ(events(), 2U);
}

TEST_F(CliMoving, AMinusIsTheStandardOutput) {
    settle();
    const Json document = Json::parse(ok("export -").out);
    EXPECT_EQ(document["schema"], "zorel/export/1");
    EXPECT_EQ(document["cities"][0]["id"], 745044);
    EXPECT_EQ(document["home"], 745044);
    EXPECT_EQ(document["alarms"][2]["offset_minutes"], -15);
    EXPECT_TRUE(document["paused_until"].is_null());
}

TEST_F(CliMoving, MembersThatAreNotKnownArePassedOver) {
    settle();
    spoil([](Json& document) {
        document["colour"] = "green";
        document["alarms"].erase(0);
    });
    ok("import " + file());
}

TEST_F(CliMoving, ARingtoneThatIsNotThereIsSaid) {
    settle();
    spoil([](Json& document) { document["alarms"][2]["ringtone"] = "Other.wav"; });
    EXPECT_THAT(ok("import " + file()).err, HasSubstr("Other.wav"));
}

TEST_F(CliMoving, WhatIsNewerOrNoExportIsRefused) {
    settle();
    spoil([](Json& document) { document["schema"] = "zorel/export/2"; });
    expectRefused("of version 2");
    for (const char* schema : {"zorel/export/", "zorel/export/x", "zorel/export/01", "zorel/alarms/1", ""}) {
        spoil([&](Json& document) { document["schema"] = schema; });
        expectRefused("nothing was imported");
    }
    for (const char* text : {"", "[]", "7", "{", "null", "{\"schema\": 1}", "\xff\xfe"}) {
        writeFile(file(), text);
        expectRefused("nothing was imported");
    }
    writeFile(file(), std::string(500'000, '['));
    expectRefused("nothing was imported");
    writeFile(file(), std::string(2'000'000, ' '));
    expectRefused("cannot read");
}

TEST_F(CliMoving, WhatNobodyCouldHaveChosenIsRefused) {
    settle();
    const std::vector<std::function<void(Json&)>> spoils{
        [](Json& it) { it["cities"][1]["id"] = it["cities"][0]["id"]; },
        [](Json& it) { it["cities"][0]["id"] = 99'999'999; },
        [](Json& it) { it["cities"][0]["id"] = "745044"; },
        [](Json& it) { it["cities"][0]["id"] = 18'446'744'073'709'551'615ULL; },
        [](Json& it) { it["cities"] = Json::array(); },
        [](Json& it) { it["cities"] = 7; },
        [](Json& it) { it["cities"][0] = 745044; },
        [](Json& it) { it["home"] = 1; },
        [](Json& it) { it["home"] = nullptr; },
        [](Json& it) { it.erase("alarms"); },
        [](Json& it) { it["alarms"].push_back(it["alarms"][0]); },
        [](Json& it) { it["alarms"][0] = it["alarms"][1]; },
        [](Json& it) { it["alarms"][0]["name"] = "noon"; },
        [](Json& it) { it["alarms"][0]["active"] = 1; },
        [](Json& it) { it["alarms"][0]["offset_minutes"] = 60; },
        [](Json& it) { it["alarms"][0]["offset_minutes"] = 1.5; },
        [](Json& it) { it["alarms"][0]["duration"] = 8; },
        [](Json& it) { it["alarms"][0]["ringtone"] = "It's late.wav"; },
        [](Json& it) { it["alarms"][0]["ringtone"] = "../../etc/passwd"; },
        [](Json& it) { it["alarms"][0]["ringtone"] = "/etc/passwd"; },
        [](Json& it) { it["alarms"][0]["ringtone"] = "a\x1b[31m.wav"; },
        [](Json& it) { it["alarms"][0]["ringtone"] = std::string(300, 'a'); },
        [](Json& it) { it["paused_until"] = "soon"; },
        [](Json& it) { it["paused_until"] = 7; },
        [](Json& it) { it.erase("paused_until"); },
    };
    for (std::size_t index = 0; index < spoils.size(); ++index) {
        SCOPED_TRACE(index);
        spoil(spoils[index]);
        expectRefused("nothing was imported");
    }
}

TEST_F(CliMoving, AFileThatCannotBeReadOrWrittenIsSaid) {
    EXPECT_THAT(fails(1, "export " + file()).err, HasSubstr("zorel cities add NAME"));
    settle();
    EXPECT_THAT(fails(3, "import " + run.folder.path("nothing.json")).err, HasSubstr("cannot read"));
    EXPECT_THAT(fails(3, "import " + run.folder.path("data")).err, HasSubstr("cannot read"));
    ASSERT_EQ(mkfifo(run.folder.path("pipe").c_str(), 0600), 0);
    EXPECT_THAT(fails(3, "import " + run.folder.path("pipe")).err, HasSubstr("cannot read"));
    EXPECT_THAT(fails(3, "export " + run.folder.path("pipe")).err, HasSubstr("cannot write"));
    EXPECT_TRUE(fs::is_fifo(run.folder.path("pipe"))) << "it is not replaced";
    EXPECT_THAT(fails(3, "export " + run.folder.path("no/such/folder.json")).err, HasSubstr("cannot write"));
    fails(2, "export");
    fails(2, "import");
}

// Checking.

TEST_F(CliMoving, ACheckOfANewUserIsGood) {
    const CliResult result = ok("alarms check");
    EXPECT_THAT(result.out, HasSubstr("no city was added yet"));
    EXPECT_THAT(result.out, Not(HasSubstr("bad")));
    EXPECT_FALSE(fs::exists(run.folder.path("data/user.sqlite"))) << "a check changes nothing";
}

TEST_F(CliMoving, ACheckSaysHowManyAlarmsAreOnAndWhichIsNext) {
    settle();
    const CliResult result = ok("alarms check");
    EXPECT_THAT(result.out, HasSubstr("2 cities, 2 alarms are on"));
    EXPECT_THAT(result.out, HasSubstr("the next is Dhuhr, 2026-11-21 12:45"));
    const Json document = Json::parse(ok("alarms check --json").out);
    EXPECT_EQ(document["schema"], "zorel/check/1");
    EXPECT_EQ(document["good"], true);
    ASSERT_EQ(document["checks"].size(), 7U);
    for (const Json& check : document["checks"]) {
        EXPECT_EQ(check["good"], true) << check;
        EXPECT_TRUE(check["remedy"].is_null());
    }
}

TEST_F(CliMoving, WhatIsBadIsSaidWithItsRemedyAndMended) {
    settle();
    for (const auto& entry : fs::directory_iterator(run.folder.path("data/calendar"))) {
        if (entry.path().extension() == ".ics") {
            fs::remove(entry.path());
        }
    }
    const CliResult result = fails(3, "alarms check");
    EXPECT_THAT(result.out, HasSubstr("bad   alarms"));
    EXPECT_THAT(result.out, HasSubstr("-> check that the calendar's folder"));
    EXPECT_THAT(result.err, HasSubstr("zorel alarms check --heal"));
    const Json document = Json::parse(fails(3, "alarms check --json").out);
    EXPECT_EQ(document["good"], false);
    EXPECT_EQ(document["checks"][4]["name"], "alarms");
    EXPECT_EQ(document["checks"][4]["good"], false);
    ok("alarms check --heal");
    ok("alarms check");
    EXPECT_EQ(events(), 2U);
}

TEST_F(CliMoving, ADatabaseOrACatalogueThatCannotBeReadIsBad) {
    settle();
    const std::string rows = readFile(run.folder.path("data/user.sqlite"));
    writeFile(run.folder.path("data/user.sqlite"), "this is no database, it is a text of some length");
    EXPECT_THAT(fails(3, "alarms check").out, HasSubstr("bad   database"));
    EXPECT_THAT(fails(3, "alarms check --heal").out, HasSubstr("-> check its permissions"));
    writeFile(run.folder.path("data/user.sqlite"), rows);
    std::vector<std::string> words = splitWords(run.common + " alarms check");
    words.insert(words.begin(),
                 {"--data-dir", run.folder.path("data"), "--bundle", run.folder.path("bundle")});
    fs::copy(builtBundle(), run.folder.path("bundle"), fs::copy_options::recursive);
    fs::remove_all(run.folder.path("bundle/database"));
    EXPECT_THAT(run.plain(words).out, HasSubstr("bad   catalogue"));
    {
        const FileLock other(run.folder.path("data/user.sqlite.lock"));
        EXPECT_THAT(fails(3, "alarms check").out, HasSubstr("-> try again"));
    }
    ok("alarms check");
}

} // namespace
} // namespace zorel::test
