// SPDX-License-Identifier: Apache-2.0
// The bar of a day: its light, its marks, the rows of names, every width; and text that fits the terminal.
#include "CliRunner.h"
#include "draw/DayBar.h"
#include "draw/LabelRows.h"
#include "terminal/Wrap.h"
#include "tests/almanac/Days.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zorel::cli {
namespace {

using namespace std::chrono_literals;
using almanac::Prayer;

DayLight lightOf(const almanac::Place& place, almanac::Date date) {
    almanac::Memory memory;
    return dayLight(almanac::Almanac(place), memory, date);
}

TEST(CliLight, TheToldTimesPartTheDay) {
    const almanac::Place place = almanac::tests::placeIn(41.01, 28.97, "Europe/Istanbul");
    const almanac::Day day = almanac::Almanac(place).day(2026y / 11 / 21);
    const DayLight light = lightOf(place, 2026y / 11 / 21);
    ASSERT_EQ(light.times.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(light.times[i].shown, day[almanac::kSixPrayers[i]].shown);
    }
    const auto at = [&](Prayer prayer) { return lightAt(light, day[prayer].shown); };
    EXPECT_EQ(lightAt(light, light.civil.begin), Light::night);
    EXPECT_EQ(at(Prayer::fajr), Light::dawn);
    EXPECT_EQ(lightAt(light, day[Prayer::fajr].shown - 1s), Light::night);
    EXPECT_EQ(at(Prayer::sunrise), Light::day);
    EXPECT_EQ(at(Prayer::maghrib), Light::dusk);
    EXPECT_EQ(at(Prayer::isha), Light::night);
}

TEST(CliLight, ATimeOfTheEveStandsInTheDateThatItFallsOn) {
    // Oslo in June: nightfall comes after midnight, so the date holds that of the day before.
    const almanac::Place place = almanac::tests::placeIn(59.91, 10.75, "Europe/Oslo");
    const DayLight light = lightOf(place, 2026y / 6 / 21);
    ASSERT_FALSE(light.times.empty());
    EXPECT_EQ(light.times.front().prayer, Prayer::isha);
    EXPECT_EQ(lightAt(light, light.civil.begin), Light::dusk);
    EXPECT_EQ(lightAt(light, light.civil.end - 1s), Light::dusk);
}

TEST(CliLight, WithoutASunsetThereIsNoBar) {
    EXPECT_TRUE(lightOf(almanac::tests::placeIn(41.01, 28.97, "Europe/Istanbul"), 2026y / 11 / 21).known);
    EXPECT_FALSE(lightOf(almanac::tests::placeIn(-90.0, 0.0, "UTC"), 2026y / 12 / 21).known);
    test::CliRunner run;
    EXPECT_EQ(run("today -90,0,UTC --date 2026-12-21 --ascii").out.find("..."), std::string::npos);
}

TEST(CliLabels, NamesNeverTouch) {
    LabelRows rows(20);
    rows.add(0, "one");
    rows.add(3, "two");
    rows.add(5, "three");
    rows.add(18, "four");
    EXPECT_EQ(rows.text("> "), "> one  three      four\n>    two\n");
    EXPECT_EQ(LabelRows(9).text(""), "");
    LabelRows narrow(3);
    narrow.add(1, "longer");
    EXPECT_EQ(narrow.text(""), "longer\n");
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(CliBar, FitsEveryWidth) {
    test::CliRunner run;
    for (int width = 40; width <= 200; width += 7) {
        const std::string line = "today Istanbul --explain --width " + std::to_string(width);
        for (const std::string& shown : linesOf(run(line).out)) {
            EXPECT_LE(displayWidth(shown), static_cast<std::size_t>(width)) << shown;
        }
    }
    EXPECT_EQ(run("today Istanbul --width 39").code, 2);
    EXPECT_EQ(run("today Istanbul --width 501").code, 2);
}

std::string barOf(const std::string& text) {
    for (const std::string& line : linesOf(text)) {
        if (line.find("...|") != std::string::npos || line.find("#|") != std::string::npos) {
            return line.substr(2);
        }
    }
    return {};
}

TEST(CliBar, HasAMarkForEachTimeAtItsPlace) {
    test::CliRunner run;
    const std::string bar = barOf(run("today Istanbul --ascii --width 76").out);
    ASSERT_EQ(bar.size(), 72U); // twenty minutes a column
    EXPECT_EQ(std::ranges::count(bar, '|'), 6);
    EXPECT_EQ(bar[18], '|'); // 06:07
    EXPECT_EQ(bar[17], '.');
    EXPECT_EQ(bar[20], ':');
    EXPECT_EQ(bar[23], '|'); // 07:53
    EXPECT_EQ(bar[30], '#');
    EXPECT_EQ(bar[39], '|'); // 13:00
    EXPECT_EQ(bar[55], ':'); // after 17:49
    EXPECT_EQ(bar[71], '.');
}

TEST(CliBar, PlainAsciiWhenAsked) {
    test::CliRunner run;
    const auto lines = linesOf(run("today 41.01,28.97,+3 --ascii --width 80").out);
    ASSERT_GT(lines.size(), 6U);
    for (std::size_t i = 3; i < 8; ++i) {
        EXPECT_TRUE(std::ranges::all_of(lines[i], [](char c) { return c >= ' ' && c <= '~'; })) << lines[i];
    }
}

TEST(CliBar, NowOnlyOnThePlacesToday) {
    test::CliRunner run;
    EXPECT_NE(run("today Istanbul").out.find("▼ now"), std::string::npos);
    EXPECT_EQ(run("tomorrow Istanbul").out.find("▼"), std::string::npos);
    EXPECT_EQ(run("today Istanbul --short").out.find("▼"), std::string::npos);
    run.common = "--lang en --now 2026-11-21T23:58:00+03:00";
    EXPECT_NE(run("today Istanbul").out.find("now ▼\n"), std::string::npos);
}

TEST(CliBar, ColoursPaintTheGround) {
    test::CliRunner run;
    const std::string text = run("today Istanbul --color always").out;
    EXPECT_NE(text.find("\x1b[48;5;17;38;5;255m"), std::string::npos);
    EXPECT_EQ(text.find("░"), std::string::npos);
}

TEST(CliBar, ADateOfAnotherLengthIsDrawnSo) {
    test::CliRunner run;
    const auto lines = linesOf(run("today Berlin --date 2027-03-28 --width 73 --ascii").out);
    const auto hours = std::ranges::find_if(lines, [](const auto& line) { return line.starts_with("  0 "); });
    ASSERT_NE(hours, lines.end());
    EXPECT_EQ(hours->find(" 6 "), 2U + 15 - 1); // 5 of 23 hours on 69 columns
    // Samoa left 30 December 2011 out.
    EXPECT_EQ(run("today Apia --date 2011-12-30 --ascii").out.find("|..."), std::string::npos);
}

TEST(CliWrap, LinesBreakAtWords) {
    EXPECT_EQ(wrapped("", 10), std::vector<std::string>{""});
    EXPECT_EQ(wrapped("one two three", 7), (std::vector<std::string>{"one two", "three"}));
    EXPECT_EQ(wrapped("İĞÜ ş", 5), std::vector<std::string>{"İĞÜ ş"});
    EXPECT_EQ(wrapped("a unbreakable b", 4), (std::vector<std::string>{"a", "unbreakable", "b"}));
    EXPECT_EQ(paragraph("one two three", "- ", "  ", 9), "- one two\n  three\n");
    EXPECT_FALSE(terminalColumns(-1));
}

} // namespace
} // namespace zorel::cli
