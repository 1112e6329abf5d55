// SPDX-License-Identifier: Apache-2.0
// Names that want to take over the terminal: of ringtones, of folders, of places in a foreign catalogue.
// Whatever is printed is clean.
#include "CliRunner.h"
#include "platform/foundation/Utf8.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sqlite3.h>

#include <filesystem>
#include <sstream>

namespace zorel::test {
namespace {

namespace fs = std::filesystem;

/// Colour, a second line, the upper controls as bytes and as characters, a turned direction, hidden text.
constexpr const char* kEvil = "Evil\x1b[31mred\n\x9B"
                              "2J\u009B2J\u202Egpj\u2066\u200F\x07\x7F\uFEFF";

testing::AssertionResult isClean(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) {
            line.pop_back(); // of iCalendar
        }
        if (cleanText(line) != line) {
            return testing::AssertionFailure() << cleanText(line);
        }
    }
    return testing::AssertionSuccess();
}

TEST(CliHostileNames, OfRingtones) {
    CliRunner run;
    const std::string ringtones = run.folder.path("tones");
    writeFile(ringtones + "/" + kEvil + ".wav", "x");
    run.common += " --ringtones " + ringtones;
    ASSERT_EQ(run("cities add Ankara").code, 0);
    ASSERT_EQ(run("alarms on fajr").code, 0);
    for (const std::string line :
         {"alarms", "alarms --json", "alarms ringtone fajr Evil", "alarms ringtone fajr x"}) {
        const CliResult result = run(line);
        EXPECT_TRUE(isClean(result.out)) << line;
        EXPECT_TRUE(isClean(result.err)) << line;
    }
}

TEST(CliHostileNames, OfFolders) {
    CliRunner run;
    const std::string evil = run.folder.path(kEvil);
    writeFile(evil + "/user.sqlite", "no database");
    for (const std::string word : {"today", "cities", "alarms", "table"}) {
        const CliResult damaged = run.plain({"--bundle", builtBundle(), "--data-dir", evil, word});
        EXPECT_EQ(damaged.code, 3) << word;
        EXPECT_NE(damaged.err.find("Evil?[31mred??2J?2J?gpj"), std::string::npos) << damaged.err;
        EXPECT_TRUE(isClean(damaged.err)) << word;
        const CliResult missing = run.plain({"--bundle", evil, "--data-dir", evil + "/x", word});
        EXPECT_EQ(missing.code, word == "cities" ? 0 : 3) << word;
        EXPECT_TRUE(isClean(missing.out + missing.err)) << word;
    }
}

class HostileCatalogue : public testing::Test {
protected:
    void SetUp() override {
        const std::string bundle = run.folder.path("Foreign.bundle");
        fs::copy(builtBundle(), bundle, fs::copy_options::recursive);
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open((bundle + "/database/cities.sqlite").c_str(), &database), SQLITE_OK);
        sqlite3_stmt* update = nullptr;
        for (const char* sql :
             {"UPDATE CITY SET NAME = 'Ankara' || ?1 WHERE ID = 323786",
              "UPDATE CITY_PARENT SET NAME = NAME || ?1", "UPDATE COUNTRY SET NAMEEN = NAMEEN || ?1"}) {
            ASSERT_EQ(sqlite3_prepare_v2(database, sql, -1, &update, nullptr), SQLITE_OK);
            sqlite3_bind_text(update, 1, kEvil, -1, SQLITE_STATIC);
            ASSERT_EQ(sqlite3_step(update), SQLITE_DONE) << sql;
            sqlite3_finalize(update);
        }
        sqlite3_close(database);
        run.common += " --bundle " + bundle;
    }

    /// The catalogue of the options before is the built one: of two, the last counts nowhere.
    CliResult foreign(const std::string& line) {
        std::vector<std::string> words{"--data-dir", run.folder.path("data")};
        for (const std::string& word : splitWords(run.common + ' ' + line)) {
            words.push_back(word);
        }
        return run.plain(words);
    }

    CliRunner run;
};

TEST_F(HostileCatalogue, NothingOfItReachesTheTerminal) {
    int shown = 0;
    for (const std::string line : {"cities add 323786",
                                   "cities",
                                   "cities --json",
                                   "today",
                                   "today --json",
                                   "today --explain",
                                   "tomorrow",
                                   "table --to +3",
                                   "table --to +3 --csv",
                                   "table --to +3 --json",
                                   "table --to +3 --ics",
                                   "table --all --count 3 --from-id 323786",
                                   "table --all --count 3 --from-id 323786 --json",
                                   "sky",
                                   "sky --json",
                                   "compass",
                                   "compass --json",
                                   "hijri",
                                   "widget",
                                   "next",
                                   "next --format {city}",
                                   "search Ankara",
                                   "search Ankara --json",
                                   "today Ankara",
                                   "alarms on fajr",
                                   "alarms",
                                   "alarms --json",
                                   "alarms refresh",
                                   "cities home 323786",
                                   "cities remove 323786"}) {
        const CliResult result = foreign(line);
        EXPECT_EQ(result.code, 0) << line << "\n" << cleanText(result.err);
        EXPECT_TRUE(isClean(result.out)) << line;
        EXPECT_TRUE(isClean(result.err)) << line;
        shown += (result.out + result.err).find("Evil") != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(shown, 15) << "the name is not told at all";
}

/// JSON keeps what is in the name, in escapes.
TEST_F(HostileCatalogue, JsonSaysTheWholeName) {
    const CliResult result = foreign("today 323786 --json");
    ASSERT_EQ(result.code, 0) << result.err;
    const std::string name = nlohmann::json::parse(result.out)["place"]["name"];
    EXPECT_NE(name.find("\u202Egpj\u2066\u200F\x07\x7F\uFEFF"), std::string::npos);
    EXPECT_NE(name.find("\x1b[31mred\n"), std::string::npos);
}

} // namespace
} // namespace zorel::test
