// SPDX-License-Identifier: Apache-2.0
// Every way to fail: the exit code, a message that names what is wrong, and a hint what to do. Nothing on the
// output.
#include "CliRunner.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

namespace zorel::test {
namespace {

struct ErrorCase {
    const char* line;
    int code;
    const char* says;
};

TEST(CliErrors, EachSaysWhatIsWrongAndWhatToDo) {
    const std::vector<ErrorCase> cases{
        {"", 2, "a command is missing"},
        {"tody", 2, "did you mean: zorel today\n"},
        {"alarms onn fajr", 2, "did you mean: zorel alarms on\n"},
        {"Istanbul", 2, "zorel today PLACE"},
        {"-v", 2, "no option \"-v\""},
        {"today --what", 2, "no option \"--what\""},
        {"today --jsn", 2, "no option \"--jsn\"\n  did you mean: --json\n"},
        {"today --jsn Ankara", 2, "did you mean: --json\n"},
        {"today --expl", 2, "did you mean: --explain\n"},
        {"table --form today", 2, "did you mean: --from\n"},
        {"today --lnag de", 2, "did you mean: --lang\n"},
        {"chart --wdith=60", 2, "did you mean: --width\n"},
        {"today --method MWL", 2, "zorel today --help"},
        {"--json today Ankara", 2, "behind \"today\""},
        {"Ankara today", 2, "write: zorel today Ankara\n"},
        {"today Ankara --svg", 2, "today has no option \"--svg\"\n  --svg belongs to: chart, sky, compass\n"},
        {"chart --json", 2, "--json belongs to: today, tomorrow"},
        {"alarms on fajr isha", 2, "\"isha\" is one word too many"},
        {"today Ankara --date 2026-02-30", 2, "\"2026-02-30\" is not a date"},
        {"today --date", 2, "--date: its value is missing"},
        {"today Ankara --date \"\"", 2, "--date: its value is empty"},
        {"today Ankara --date +1 --date +2", 2, "--date is given more than once"},
        {"today Xyzzyxyzzy", 1, "no place is called Xyzzyxyzzy\n"},
        {"today \"Paris, Nowhere\"", 1, "no place called Paris lies in Nowhere\n"},
        {"today \"Paris, Nowhere\"", 1, "there are: Paris / Île-de-France / France (2988507); Paris / Texas"},
        {"today \"Istanbul, Greece\"", 1, "there are: İstanbul / Türkiye (745044)"},
        {"today Ankra", 1, "no place is called Ankra; did you mean Ankara,"},
        {"today Ank", 1, "did you mean Ankara,"},
        {"tomorrow Berln", 1, "no place is called Berln; did you mean Berlin,"},
        {"sky Istanb", 1, "did you mean İstanbul"},
        {"cities add Islamabadd", 1, "no place is called Islamabadd; did you mean Islamabad,"},
        {"table a%b", 1, "no place is called a%b"},
        {"today %%%", 1, "no place is called %%%\n"},
        {"today ,", 2, "the place is empty"},
        {"today 1", 1, "catalogue id 1"},
        {"today 99999999999", 2, "too large"},
        {"today ab", 1, "no place is called ab"},
        {"today 91,0", 2, "latitude"},
        {"today 41.01 28.97", 2, "write a point as 41.01,28.97"},
        {"today -1", 2, "neither a name nor a point"},
        {"today 0,200", 2, "longitude"},
        {"today 1,2,Mars/Olympus", 2, "no time zone"},
        {"today 1,2,../../etc/passwd", 2, "no time zone"},
        {"today --temkin 300 Ankara", 2, "300"},
        {"--lang xx today Ankara", 2, "xx"},
        {"--color maybe today Ankara", 2, "maybe"},
        {"--now yesterday today Ankara", 2, "--now"},
        {"--now 12:00 today Ankara", 2, "--now"},
        {"table Ankara --from 2026-02-01 --to 2026-01-01", 2, "--to is before --from"},
        {"table Ankara --from 2000-01-01 --to 2999-01-01", 2, "too many"},
        {"table Ankara --csv --json", 2, "--json"},
        {"table Ankara --on 2026-01-01", 2, "--all"},
        {"table Ankara --all", 2, "do not go together"},
        {"table --all --from 2026-01-01", 2, "--on"},
        {"table --all --count 0", 2, "--count: \"0\" is not a whole number of 1 or more\n"},
        {"table --all --from-id x", 2, "--from-id: \"x\" is not a whole number of 0 or more\n"},
        {"table --all --from-id 2147483647", 1, "2147483647"},
        {"sky Ankara --at noon", 2, "--at"},
        {"hijri 10/03/2027", 2, "DATE"},
        {"hijri \"\"", 2, "DATE"},
        {"search", 2, "TEXT"},
        {"search ab", 2, "too short"},
        {"search 123", 2, "not a name"},
        {"search Xyzzyxyzzy", 1, "Xyzzyxyzzy"},
        {"search konya --limit -1", 2, "--limit"},
        {"widget Ankara --follow --now 2026-01-01T00:00", 2, "--follow"},
        {"widget Ankara --soon 9999", 2, "minutes from 0 to 720\n"},
        {"completion tcsh", 2, "tcsh"},
        {"alarms on noon", 2, "\"noon\" is none of fajr, sunrise"},
        {"alarms on", 2, "for example: zorel alarms on fajr\n"},
        {"alarms offset fajr 60", 2, "60"},
        {"alarms offset fajr soon", 2, "soon"},
        {"alarms duration fajr 8", 2,
         "\"8\" is no duration of an alarm\n  it can ring for 5, 10, 20, 30 seconds"},
        {"alarms duration fajr all", 2, "1m, 2m"},
        {"alarms offset all 5", 2, "\"all\" is none of fajr"},
        {"alarms offset fajr 1h", 2, "whole minutes from -59 to 59"},
        {"table Ankara --ics --reminder 90s", 2, "whole number of minutes from 0 to 720"},
        {"alarms on fajr", 1, "home"},
        {"cities add", 2, "PLACE"},
        {"cities add 1,2", 2, "catalogue"},
        {"cities remove Ankara", 1, "not in your list"},
        {"cities home Ankara", 1, "not in your list"},
    };
    for (const ErrorCase& expected : cases) {
        CliRunner run;
        run.common =
            std::string(expected.line).find("--now") == std::string::npos ? run.common : "--color auto";
        const CliResult result = run(expected.line);
        EXPECT_EQ(result.code, expected.code) << expected.line << '\n' << result.err;
        EXPECT_NE(result.err.find(expected.says), std::string::npos) << expected.line << '\n' << result.err;
        EXPECT_TRUE(result.err.starts_with("zorel: ")) << expected.line << '\n' << result.err;
        EXPECT_TRUE(result.out.empty() || std::string(expected.line).find("--all") != std::string::npos)
            << expected.line << '\n'
            << result.out;
    }
}

TEST(CliErrors, ControlCharactersOfTheCommandLineDoNotReachTheTerminal) {
    CliRunner run;
    EXPECT_EQ(run("today \"Xyz\x1b[2Jzy\"").err.find('\x1b'), std::string::npos);
}

TEST(CliErrors, DataThatCannotBeUsed) {
    CliRunner run;
    const std::string empty = run.folder.path("empty");
    std::filesystem::create_directories(empty);
    const std::string data = run.folder.path("data");
    const auto with = [&](const std::vector<std::string>& words) { return run.plain(words); };
    CliResult result = with({"--bundle", empty, "--data-dir", data, "today", "Ankara"});
    EXPECT_EQ(result.code, 3);
    EXPECT_NE(result.err.find("cities.sqlite"), std::string::npos) << result.err;
    result = with({"--bundle", empty, "--data-dir", data, "--lang", "en", "today", "41,29,+3"});
    EXPECT_EQ(result.code, 3);
    EXPECT_NE(result.err.find("language file"), std::string::npos) << result.err;
    writeFile(run.folder.path("file"), "x");
    result = with({"--bundle", builtBundle(), "--data-dir", run.folder.path("file") + "/below", "cities"});
    EXPECT_EQ(result.code, 3);
    EXPECT_NE(result.err.find("--data-dir"), std::string::npos) << result.err;
}

/// A user database in which the words of a command line come to nothing.
void expectDataTrouble(CliRunner& run, const std::string& line, const char* says) {
    const CliResult result = run(line);
    EXPECT_EQ(result.code, 3) << line << '\n' << result.out << result.err;
    EXPECT_NE(result.err.find(says), std::string::npos) << line << '\n' << result.err;
    EXPECT_EQ(result.out, "") << line;
}

TEST(CliErrors, AUserDatabaseThatCannotBeReadIsNotTakenForAnEmptyOne) {
    CliRunner run;
    writeFile(run.folder.path("data/user.sqlite"), "this is no database, it is a text of some length");
    for (const char* line : {"cities", "cities add Oslo", "alarms", "alarms refresh", "today", "widget"}) {
        expectDataTrouble(run, line, "cannot read your cities");
    }
    EXPECT_EQ(run("today Oslo").code, 0);
}

TEST(CliErrors, AListOfCitiesThatBreaksOffIsNotTakenForAShorterOne) {
    CliRunner run;
    ASSERT_EQ(run("cities add Oslo").code, 0);
    const std::string path = run.folder.path("data/user.sqlite");
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(database,
                           "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 2000) "
                           "INSERT INTO USER_CITY SELECT I, 0 FROM N; UPDATE USER_CITY SET SETASHOME = 0",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
    std::string bytes = readFile(path);
    bytes.replace(bytes.size() - 4096, 4096, 4096, '\xff');
    writeFile(path, bytes);
    expectDataTrouble(run, "today", "cannot read your cities");
}

TEST(CliErrors, ChangesThatAreNotStoredAreNotReportedAsDone) {
    CliRunner run;
    ASSERT_EQ(run("cities add Oslo").code, 0);
    ASSERT_EQ(run("cities add Ankara").code, 0);
    ASSERT_EQ(run("alarms on fajr").code, 0);
    // Triggers refuse every change, whoever runs the test; permissions would not stop root.
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(run.folder.path("data/user.sqlite").c_str(), &database), SQLITE_OK);
    for (const char* change : {"INSERT ON USER_CITY", "DELETE ON USER_CITY", "UPDATE ON USER_CITY"}) {
        const std::string trigger = "CREATE TRIGGER \"" + std::string(change) + "\" BEFORE " + change +
                                    " BEGIN SELECT RAISE(FAIL, 'no'); END";
        EXPECT_EQ(sqlite3_exec(database, trigger.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << trigger;
    }
    sqlite3_close(database);
    expectDataTrouble(run, "cities add Bursa", "the change of Bursa could not be stored");
    expectDataTrouble(run, "cities home Ankara", "the change of Ankara could not be stored");
    expectDataTrouble(run, "cities remove Oslo", "the change of Oslo could not be stored");
}

TEST(CliErrors, AnAlarmThatCannotBeMovedIsSaid) {
    CliRunner run;
    ASSERT_EQ(run("cities add Istanbul").code, 0);
    ASSERT_EQ(run("alarms on fajr").code, 0);
    // A file in the place of the calendar's folder.
    std::filesystem::remove_all(run.folder.path("data/calendar"));
    writeFile(run.folder.path("data/calendar"), "x");
    expectDataTrouble(run, "alarms refresh", "the alarm fajr will not ring: cannot make the folder");
}

TEST(CliErrors, ABrokenCatalogueIsDataTroubleOrNoResultButNeverACrash) {
    CliRunner run;
    const std::string bundle = run.folder.path("Broken.bundle");
    std::filesystem::copy(std::string(ZOREL_SOURCE_DIR) + "/resources/Zorel.bundle", bundle,
                          std::filesystem::copy_options::recursive);
    for (const std::string& content :
         {std::string(), std::string("not a database"), std::string(4096, '\0')}) {
        writeFile(bundle + "/database/cities.sqlite", content);
        for (const char* word : {"Ankara", "745044"}) {
            const int code =
                run.plain({"--bundle", bundle, "--data-dir", run.folder.path("d"), "today", word}).code;
            EXPECT_TRUE(code == 1 || code == 3) << code;
        }
    }
}

} // namespace
} // namespace zorel::test
