// SPDX-License-Identifier: Apache-2.0
// What is offered at the end of a line, and lengths of time as they are typed.
#include "CliRunner.h"
#include "grammar/Arguments.h"
#include "grammar/CompletionQuestion.h"
#include "grammar/Duration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace zorel::cli {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

/// The first words of the offered lines.
std::vector<std::string> choicesOf(const std::string& out) {
    std::vector<std::string> choices;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
        choices.push_back(line.substr(0, line.find('\t')));
    }
    return choices;
}

class CliCompletion : public testing::Test {
protected:
    std::string answer(const std::string& shell, const std::vector<std::string>& line) {
        std::vector<std::string> words{"complete",    shell,
                                       "--bundle",    test::builtBundle(),
                                       "--data-dir",  run.folder.path("data"),
                                       "--ringtones", run.folder.path("tones")};
        words.insert(words.end(), line.begin(), line.end());
        const test::CliResult result = run.plain(words);
        EXPECT_EQ(result.code, 0) << result.err;
        return result.out;
    }
    std::vector<std::string> offers(const std::vector<std::string>& line) {
        return choicesOf(answer("fish", line));
    }

    test::CliRunner run;
};

TEST_F(CliCompletion, OffersCommandsOptionsAndTheirValues) {
    EXPECT_THAT(offers({"wid"}), ElementsAre("widget"));
    EXPECT_THAT(offers({"to"}), ElementsAre("today", "tomorrow"));
    EXPECT_THAT(offers({"alarms", "r"}), ElementsAre("ringtone", "refresh"));
    EXPECT_THAT(offers({"--lang", "tr", "cities", ""}), ElementsAre("add", "home", "remove"));
    EXPECT_THAT(offers({"--color", "a"}), ElementsAre("auto", "always"));
    EXPECT_THAT(offers({"--color=a"}), ElementsAre("--color=auto", "--color=always"));
    EXPECT_THAT(offers({"--color", "=", "a"}), ElementsAre("auto", "always"));
    EXPECT_THAT(offers({"alarms", "on", "a"}), ElementsAre("asr", "all"));
    EXPECT_THAT(offers({"alarms", "duration", "a"}), ElementsAre("asr"));
    EXPECT_THAT(offers({"alarms", "duration", "asr", ""}), ElementsAre());
    EXPECT_THAT(offers({"table", "--i"}), ElementsAre("--ics"));
    EXPECT_THAT(offers({"today", "--date", "to"}), ElementsAre("today", "tomorrow"));
    EXPECT_THAT(offers({"hijri", "y"}), ElementsAre("yesterday"));
    EXPECT_THAT(offers({"completion", "z"}), ElementsAre("zsh"));
}

TEST_F(CliCompletion, OffersEachOptionOnce) {
    const auto all = offers({"today", "-"});
    for (const std::string& one : all) {
        EXPECT_EQ(std::ranges::count(all, one), 1) << one;
    }
    EXPECT_THAT(all, Contains("--help"));
    EXPECT_THAT(all, Contains("--explain"));
    EXPECT_THAT(offers({"today", "--json", "--js"}), ElementsAre());
    EXPECT_THAT(offers({"today", "--", "--js"}), ElementsAre());
}

TEST_F(CliCompletion, KnowsEveryCommandAndOption) {
    for (const CommandHelp& command : describeCommands()) {
        std::vector<std::string> words = test::splitWords(command.name);
        if (!words.empty()) {
            EXPECT_THAT(offers(words), Contains(words.back()));
        }
        for (const OptionHelp& option : command.options) {
            const bool common = option.names.back() == "--bundle" || option.names.back() == "--data-dir" ||
                                option.names.back() == "--ringtones"; // on the line already
            words.push_back(option.names.back());
            EXPECT_EQ(offers(words).empty(), common) << command.name << ' ' << words.back();
            words.pop_back();
        }
    }
}

TEST_F(CliCompletion, TellsWhatAChoiceIs) {
    EXPECT_EQ(answer("fish", {"tomo"}), "tomorrow\tPrayer times of tomorrow\n");
    EXPECT_EQ(answer("bash", {"tomo"}), "tomorrow\n");
    EXPECT_NE(answer("zsh", {"today", "Kuala Lum"}).find("Kuala Lumpur\t"), std::string::npos);
}

TEST_F(CliCompletion, LeavesFilesToTheShell) {
    EXPECT_EQ(answer("bash", {"--calendar", "/t"}), ":folders\n");
    EXPECT_EQ(answer("zsh", {"sheet", "--pdf", ""}), ":files\n");
}

TEST_F(CliCompletion, OffersPlacesTheLargestFirst) {
    EXPECT_EQ(offers({"today", "Berl"}).at(0), "Berlin");
    EXPECT_EQ(offers({"today", "berl"}).at(0), "Berlin");
    EXPECT_EQ(offers({"chart", "Istanbul", "--with", "Osl"}).at(0), "Oslo");
    EXPECT_EQ(offers({"cities", "add", "Lond"}).at(0), "London");
    // The typed spelling goes on where the place is called otherwise.
    EXPECT_THAT(offers({"today", "Cologn"}), Contains("Cologne"));
    EXPECT_THAT(offers({"today", "Моск"}), Contains("Москва"));
    EXPECT_LE(offers({"today", "a"}).size(), 24U);
    EXPECT_THAT(offers({"today", "Xyzzyx"}), ElementsAre());
    EXPECT_THAT(offers({"today", ""}), ElementsAre());
    EXPECT_THAT(offers({"today", "%"}), ElementsAre());
}

TEST_F(CliCompletion, EveryOfferedPlaceIsFound) {
    for (const std::string begun : {"Ist", "sao", "St. P", "Ñ", "N'D", "Kuala ", "al-"}) {
        const auto all = offers({"today", begun});
        EXPECT_FALSE(all.empty()) << begun;
        for (const std::string& one : all) {
            const auto searched =
                run.plain({"--bundle", test::builtBundle(), "--data-dir", run.folder.path("data"), "--now",
                           "2026-11-21T09:00Z", "next", one});
            EXPECT_EQ(searched.code, 0) << one << searched.err;
        }
    }
}

TEST_F(CliCompletion, GoesOnWithinANameOfSeveralWords) {
    EXPECT_THAT(offers({"today", "Kuala", "Lum"}), ElementsAre("Lumpur"));
    EXPECT_THAT(offers({"today", "New", "York", "C"}), Contains("City"));
    EXPECT_THAT(offers({"today", "--json", "Kuala", "Lum"}), ElementsAre("Lumpur"));
    EXPECT_THAT(offers({"today", "Paris, Tex"}), ElementsAre("Paris, Texas"));
}

TEST_F(CliCompletion, OwnCitiesComeFirst) {
    run("cities add Bergama");
    run("cities add \"Kuala Lumpur\"");
    EXPECT_THAT(offers({"today", ""}), ElementsAre("Bergama", "Kuala Lumpur"));
    EXPECT_EQ(offers({"today", "Ber"}).at(0), "Bergama");
    EXPECT_THAT(offers({"cities", "home", "B"}), ElementsAre("Bergama"));
    EXPECT_THAT(offers({"cities", "remove", "Lond"}), ElementsAre());
}

TEST_F(CliCompletion, OffersRingtones) {
    test::writeFile(run.folder.path("tones/Evening Flute.wav"), "x");
    test::writeFile(run.folder.path("tones/Gong.ogg"), "x");
    EXPECT_THAT(offers({"alarms", "ringtone", "fajr", ""}), ElementsAre("Evening Flute", "Gong"));
    EXPECT_THAT(offers({"alarms", "ringtone", "fajr", "evening", "fl"}), ElementsAre("Flute"));
    EXPECT_EQ(answer("bash", {"alarms", "ringtone", "fajr", "e"}), "Evening\\ Flute\n");
    EXPECT_EQ(answer("bash", {"alarms", "ringtone", "fajr", "\"e"}), "Evening Flute\n");
}

TEST_F(CliCompletion, SaysNothingWhereItCannotRead) {
    const auto result = run.plain({"complete", "fish", "--bundle", run.folder.path("none"), "today", "Ist"});
    EXPECT_EQ(result.code, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(run.plain({"complete", "fish"}).code, 2);
}

TEST(CliQuoting, IsTakenAwayAndPutBack) {
    EXPECT_EQ(unquoted("Kuala\\ Lum"), "Kuala Lum");
    EXPECT_EQ(unquoted("\"Kuala Lum"), "Kuala Lum");
    EXPECT_EQ(unquoted("'a\\b'c"), "a\\bc");
    EXPECT_EQ(unquoted("\\"), "\\");
    EXPECT_EQ(shellEscaped("N'Djamena (x)"), "N\\'Djamena\\ \\(x\\)");
    for (const std::string text : {"a b", "it's", "\"q\"", "$HOME `x` \\", "*?[a]{b}#~;&|<>"}) {
        EXPECT_EQ(unquoted(shellEscaped(text)), text);
    }
}

TEST(CliDuration, IsReadAsItIsTyped) {
    EXPECT_EQ(parseDuration("90", 1s), 90s);
    EXPECT_EQ(parseDuration("90", 1min), 90min);
    EXPECT_EQ(parseDuration("90s", 1min), 90s);
    EXPECT_EQ(parseDuration("1m30", 1s), 90s);
    EXPECT_EQ(parseDuration("1m30s", 1min), 90s);
    EXPECT_EQ(parseDuration("2min", 1s), 2min);
    EXPECT_EQ(parseDuration("1h", 1s), 1h);
    EXPECT_EQ(parseDuration("1h30", 1s), 90min);
    EXPECT_EQ(parseDuration("1h2m3", 1s), 1h + 2min + 3s);
    EXPECT_EQ(parseDuration("0", 1s), 0s);
    for (const char* bad : {"", "m", "-1", "+1", "1x", "1mi", "1m1m", "30s1m", "1.5m", "1 m", "1s30", "1mm",
                            "9999999", "h30"}) {
        EXPECT_FALSE(parseDuration(bad, 1s)) << bad;
    }
}

} // namespace
} // namespace zorel::cli
