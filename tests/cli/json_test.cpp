// SPDX-License-Identifier: Apache-2.0
// Every JSON document against docs/zorel.schema.json, which is the promise to its readers.
#include "CliRunner.h"
#include "SchemaChecker.h"

#include <gtest/gtest.h>

namespace zorel::test {
namespace {

using Json = nlohmann::json;

Json schema() {
    return Json::parse(readFile(std::string(ZOREL_SOURCE_DIR) + "/docs/zorel.schema.json"));
}

void expectValid(const std::string& definition, const std::string& text) {
    const Json document = Json::parse(text, nullptr, false);
    ASSERT_FALSE(document.is_discarded()) << text;
    SchemaChecker checker(schema());
    const auto problems = checker.check(document, definition);
    EXPECT_TRUE(problems.empty()) << definition << ": " << (problems.empty() ? "" : problems.front());
}

TEST(CliJson, TheCheckerKnowsEveryKeywordOfTheSchema) {
    const Json definitions = schema()["$defs"];
    for (const auto& [name, definition] : definitions.items()) {
        EXPECT_TRUE(SchemaChecker::unknownKeywords(definition).empty()) << name;
    }
    EXPECT_FALSE(SchemaChecker::unknownKeywords(Json{{"maxItems", 3}}).empty());
}

TEST(CliJson, TheCheckerFindsWhatIsWrong) {
    SchemaChecker checker(schema());
    const Json good{{"text", "x"}, {"tooltip", "y"}, {"class", "calm"}, {"percentage", 5}};
    EXPECT_TRUE(checker.check(good, "widget").empty());
    const std::vector<std::pair<std::string, Json>> wrong{
        {"class", "late"}, {"percentage", 101}, {"text", 1}, {"extra", true}, {"percentage", 1.5}};
    for (const auto& [key, value] : wrong) {
        Json bad = good;
        bad[key] = value;
        EXPECT_FALSE(checker.check(bad, "widget").empty()) << key;
    }
    Json lacking = good;
    lacking.erase("text");
    EXPECT_FALSE(checker.check(lacking, "widget").empty());
}

TEST(CliJson, EveryDocumentIsValid) {
    CliRunner run;
    const std::vector<std::pair<std::string, std::string>> documents{
        {"day", "today Istanbul --json"},
        {"day", "today Istanbul --json --ezani --explain --seconds"},
        {"day", "tomorrow 745044 --json"},
        {"day", "today Tromsø --date 2026-06-21 --json --explain --ezani"},
        {"day", "today -90,0,UTC --date 2026-12-21 --json --explain --ezani"},
        {"day", "today 90,0,UTC --date 2026-12-21 --json --explain --ezani"},
        {"day", "today 0,0,-11 --date 1583-01-01 --json --explain"},
        {"day", "today 0,179.9,+14 --date 9998-12-31 --json"},
        {"day", "today Amsterdam --date 1900-01-01 --json"},
        {"day", "today 52.37,4.89,Europe/Amsterdam --date 1900-01-01 --json"},
        {"table", "table Oslo --from 2026-06-01 --to 2026-06-30 --json"},
        {"sky", "sky London --json"},
        {"sky", "sky 90,0,UTC --at 2026-12-21T12:00Z --json"},
        {"sky", "sky 69.65,18.96,Europe/Oslo --at 2026-06-21T12:00 --json"},
        {"hijri", "hijri --json"},
        {"hijri", "hijri 1583-01-01 --json"},
        {"compass", "compass Jakarta --json"},
        {"compass", "compass 21.4225,39.8262,+3 --json"},
        {"search", "search konya --json"},
        {"widget", "widget Istanbul"},
        {"widget", "widget 90,0,UTC"},
        {"cities", "cities --json"},
        {"alarms", "alarms --json"},
        {"check", "alarms check --json"},
    };
    for (const auto& [definition, line] : documents) {
        const CliResult result = run(line);
        EXPECT_EQ(result.code, 0) << line << '\n' << result.err;
        SCOPED_TRACE(line);
        expectValid(definition, result.out);
    }
}

TEST(CliJson, AWholeCatalogueStreamIsOneDocumentPerLine) {
    CliRunner run;
    const CliResult result = run("table --all --on 2027-01-01 --count 20 --json");
    ASSERT_EQ(result.code, 0) << result.err;
    std::istringstream lines(result.out);
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        expectValid("place-day", line);
    }
    EXPECT_EQ(count, 20);
}

TEST(CliJson, TimesAreTheSameInstantsInTextAndJson) {
    CliRunner run;
    const Json day = Json::parse(run("today Istanbul --json").out);
    const std::string text = run("today Istanbul --short").out;
    const Json& times = day["times"];
    for (const auto& [name, time] : times.items()) {
        EXPECT_NE(text.find(time.get<std::string>().substr(11, 5)), std::string::npos) << name;
    }
    EXPECT_EQ(day["next"]["at"], day["times"]["dhuhr"]);
}

} // namespace
} // namespace zorel::test
