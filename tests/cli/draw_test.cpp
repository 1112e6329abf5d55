// SPDX-License-Identifier: Apache-2.0
// What pictures and pages are made of: curves, the year's marks, feasts, dots, XML.
#include "CliRunner.h"
#include "draw/Braille.h"
#include "draw/Curve.h"
#include "draw/Feasts.h"
#include "draw/Sheet.h"
#include "draw/Svg.h"
#include "draw/YearOfPlace.h"
#include "tests/almanac/Days.h"

#include <gtest/gtest.h>

namespace zorel::cli {
namespace {

using namespace std::chrono_literals;
using almanac::Prayer;

TEST(CliYear, HasEveryDayAndItsMarks) {
    const YearOfPlace year = yearOfPlace(almanac::tests::placeIn(59.91, 10.75, "Europe/Oslo"), 2026);
    ASSERT_EQ(year.size(), 365U);
    EXPECT_EQ(year[0].date, 2026y / 1 / 1);
    EXPECT_EQ(year[364].date, 2026y / 12 / 31);
    EXPECT_EQ(year.indexOf(2026y / 3 / 1), 59U);
    ASSERT_EQ(year.clockChanges.size(), 2U);
    EXPECT_EQ(year.clockChanges[0].date, 2026y / 3 / 29);
    EXPECT_EQ(year.clockChanges[0].by, 1h);
    EXPECT_EQ(year.clockChanges[1].date, 2026y / 10 / 25);
    EXPECT_EQ(year.clockChanges[1].by, -1h);
    ASSERT_EQ(year.ramadans.size(), 1U);
    EXPECT_EQ(year.ramadans[0].hijriYear, 1447);
    EXPECT_EQ(almanac::daysBetween(year.ramadans[0].first, year.ramadans[0].last), 29);
    EXPECT_EQ(yearOfPlace(almanac::tests::placeIn(0.0, 0.0, "UTC"), 2028).size(), 366U);
    // Thirty-three years later there are two in one year.
    EXPECT_EQ(yearOfPlace(almanac::tests::placeIn(0.0, 0.0, "UTC"), 2030).ramadans.size(), 2U);
}

TEST(CliYear, HijriMonthsBeginWhereTheCalendarSays) {
    const almanac::Almanac almanac(almanac::tests::placeIn(41.01, 28.97, "Europe/Istanbul"));
    EXPECT_EQ(firstOfHijriMonth(almanac, 1448, 9), 2027y / 2 / 8);
    for (int year = 1000; year <= 9600; year += 430) {
        for (int month = 1; month <= 12; ++month) {
            const auto first = firstOfHijriMonth(almanac, year, month);
            ASSERT_TRUE(first) << year << '/' << month;
            const AllCalendarRecord calendars = almanac.calendars(*first);
            EXPECT_EQ(calendars.hijriDay, 1);
            EXPECT_EQ(calendars.hijriMonth, month);
            EXPECT_EQ(calendars.hijriYear, year);
        }
    }
    EXPECT_FALSE(firstOfHijriMonth(almanac, 900, 1));
}

TEST(CliCurve, HasEveryToldMinuteOnItsDate) {
    const YearOfPlace year = yearOfPlace(almanac::tests::placeIn(41.01, 28.97, "Europe/Istanbul"), 2026);
    const auto pieces = curveOf(year, Prayer::asr);
    ASSERT_EQ(pieces.size(), 1U);
    ASSERT_EQ(pieces[0].size(), 365U);
    for (std::size_t i = 0; i < 365; ++i) {
        const auto told = year[i][Prayer::asr].local.timeOfDay;
        EXPECT_EQ(pieces[0][i].day, i);
        EXPECT_DOUBLE_EQ(pieces[0][i].hour, static_cast<double>(told.count()) / 3600.0);
    }
}

TEST(CliCurve, BreaksAtMidnight) {
    const YearOfPlace year = yearOfPlace(almanac::tests::placeIn(59.91, 10.75, "Europe/Oslo"), 2026);
    std::size_t points = 0;
    const auto pieces = curveOf(year, Prayer::isha);
    EXPECT_GE(pieces.size(), 3U);
    for (const CurvePiece& piece : pieces) {
        points += piece.size();
        for (std::size_t i = 1; i < piece.size(); ++i) {
            EXPECT_EQ(piece[i].day, piece[i - 1].day + 1);
            EXPECT_LT(std::abs(piece[i].hour - piece[i - 1].hour), 2.0);
        }
    }
    EXPECT_EQ(points, 365U);
}

TEST(CliCurve, WhatDoesNotExistIsNotDrawn) {
    const YearOfPlace year = yearOfPlace(almanac::tests::placeIn(-90.0, 0.0, "UTC"), 2026);
    for (const CurvePiece& piece : curveOf(year, Prayer::maghrib)) {
        EXPECT_FALSE(piece.empty());
    }
}

AllCalendarRecord hijri(int month, int day) {
    AllCalendarRecord calendars;
    calendars.hijriYear = 1448;
    calendars.hijriMonth = month;
    calendars.hijriDay = day;
    return calendars;
}

TEST(CliFeasts, AreOnTheirDays) {
    EXPECT_EQ(feastOf(hijri(10, 1)), "Eid al-Fitr");
    EXPECT_EQ(feastOf(hijri(10, 3)), "Eid al-Fitr");
    EXPECT_EQ(feastOf(hijri(10, 4)), "");
    EXPECT_EQ(feastOf(hijri(12, 9)), "Arafah");
    EXPECT_TRUE(isHoliday(hijri(12, 10)));
    EXPECT_TRUE(isHoliday(hijri(12, 13)));
    EXPECT_FALSE(isHoliday(hijri(12, 14)));
    EXPECT_FALSE(isHoliday(hijri(12, 9)));
    EXPECT_EQ(feastOf(hijri(9, 27)), "Night of Power");
    EXPECT_EQ(feastOf(AllCalendarRecord{}), "");
}

TEST(CliDots, EightMakeACharacter) {
    DotGround ground(2, 1);
    EXPECT_EQ(ground.width(), 4U);
    EXPECT_EQ(ground.height(), 4U);
    for (long y = 0; y < 4; ++y) {
        ground.dot(0, y, 'x');
        ground.dot(1, y, 'x');
    }
    ground.dot(2, 3, 'y');
    ground.dot(-1, 0, 'z');
    ground.dot(4, 0, 'z');
    ground.dot(0, 4, 'z');
    EXPECT_EQ(ground.row(0, Style(false), false), "⣿⡀");
    EXPECT_EQ(ground.row(0, Style(false), true), "xy");
    ground.character(1, 0, "N", "31");
    EXPECT_EQ(ground.row(0, Style(true), false), "⣿\x1b[31mN\x1b[0m");
}

TEST(CliSvg, TextIsEscapedAndCoordinatesAreShort) {
    EXPECT_EQ(xmlText("a<b>&\"c\"\n\x1b"), "a&lt;b&gt;&amp;&quot;c&quot;??");
    EXPECT_EQ(coordinate(1.0), "1");
    EXPECT_EQ(coordinate(-0.01), "0");
    EXPECT_EQ(coordinate(2.25), "2.2");
    EXPECT_EQ(svgLine(0, 1, 2, 3.5, "x"), "<line x1=\"0\" y1=\"1\" x2=\"2\" y2=\"3.5\" class=\"x\"/>\n");
}

TEST(CliChart, MarksOnlyItsOwnYear) {
    test::CliRunner run;
    EXPECT_NE(run("chart Istanbul").out.find("today, 21 November"), std::string::npos);
    EXPECT_EQ(run("chart Istanbul --year 2027").out.find("today, 21 November"), std::string::npos);
    const std::string two = run("chart Istanbul --with Oslo --svg").out;
    EXPECT_NE(two.find("dashed: Oslo / Norway; each by its own clock"), std::string::npos);
    EXPECT_EQ(two.find("by the clock of Europe/Istanbul"), std::string::npos);
    EXPECT_EQ(run("chart Istanbul --year 1500").code, 2);
    EXPECT_EQ(run("chart Istanbul --with Nosuchtown").code, 1);
}

TEST(CliSheet, AMonthAYearOrARamadan) {
    test::CliRunner run;
    const auto rows = [&](const std::string& line) {
        const std::string html = run("sheet Istanbul " + line).out;
        std::size_t count = 0;
        for (std::size_t at = html.find("<tr class"); at != std::string::npos;
             at = html.find("<tr class", at + 1)) {
            ++count;
        }
        return count;
    };
    EXPECT_EQ(rows(""), 30U);
    EXPECT_EQ(rows("--month 2028-02"), 29U);
    EXPECT_EQ(rows("--year 2027"), 365U);
    EXPECT_EQ(rows("--ramadan 1448"), 29U);
    EXPECT_EQ(run("sheet Istanbul --month 2026-13").code, 2);
    EXPECT_EQ(run("sheet Istanbul --month 2026-12 --year 2027").code, 2);
    EXPECT_EQ(run("sheet Istanbul --ramadan 1448 --year 2027").code, 2);
}

TEST(CliSheet, APdfThatCannotBeMadeIsTold) {
    test::CliRunner run;
    const std::string path = getenv("PATH");
    setenv("PATH", "/nowhere", 1);
    const test::CliResult result = run("sheet Istanbul --pdf " + run.folder.path("x.pdf"));
    setenv("PATH", path.c_str(), 1);
    EXPECT_EQ(result.code, 3);
    EXPECT_NE(result.err.find("apt install weasyprint"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(run.folder.path("x.pdf")));
}

std::size_t occurrences(const std::string& text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST(CliTable, RemindersGoWithEveryEvent) {
    test::CliRunner run;
    const std::string plain = run("table Istanbul --to +1 --ics").out;
    EXPECT_EQ(occurrences(plain, "BEGIN:VEVENT"), 12U);
    EXPECT_EQ(occurrences(plain, "BEGIN:VALARM"), 0U);
    const std::string reminding =
        run("table Istanbul --to +1 --ics --reminder 15 --reminder 0 --name Mine").out;
    EXPECT_EQ(occurrences(reminding, "BEGIN:VALARM"), 24U);
    EXPECT_EQ(occurrences(reminding, "TRIGGER:-PT15M\r\n"), 12U);
    EXPECT_EQ(occurrences(reminding, "\r\nNAME:Mine\r\n"), 1U);
    EXPECT_EQ(occurrences(run("table Istanbul --to today --ics --others").out, "BEGIN:VEVENT"), 14U);
    EXPECT_EQ(run("table Istanbul --reminder 15").code, 2);
    EXPECT_EQ(run("table Istanbul --ics --reminder 721").code, 2);
}

TEST(CliTable, HasTheOtherTimesInEveryForm) {
    test::CliRunner run;
    const auto ended = [](const std::string& text, const std::string& end) { return text.ends_with(end); };
    const std::string plain = run("table Istanbul --to today --csv").out;
    const std::string csv = run("table Istanbul --to today --csv --others").out;
    const std::string head = csv.substr(0, csv.find('\n'));
    EXPECT_TRUE(head.starts_with(plain.substr(0, plain.find('\n')) + ",last_sixth_of_night,")) << head;
    EXPECT_TRUE(ended(head, ",middle_of_night")) << head;
    EXPECT_EQ(occurrences(head, ","), occurrences(csv, ",") - occurrences(head, ","));
    EXPECT_EQ(run("table Istanbul --to today --json").out.find("other_times"), std::string::npos);
    const std::string json = run("table Istanbul --to today --json --others").out;
    EXPECT_NE(json.find("\"asr_second\": \"2026-11-21T16:"), std::string::npos) << json;
    const std::string all = run("table --all --on 2026-11-21 --from-id 745044 --count 1 --csv --others").out;
    EXPECT_NE(all.find(",middle_of_night\n745044,"), std::string::npos) << all;
    EXPECT_TRUE(ended(all, csv.substr(csv.find("+03:00")))) << all << csv;
    EXPECT_NE(run("table --all --from-id 745044 --count 1 --json --others").out.find("\"other_times\""),
              std::string::npos);
}

TEST(CliTable, SaysTheWeekdayAndTheHijriDay) {
    test::CliRunner run;
    EXPECT_NE(run("table Istanbul --to today").out.find("2026-11-21  Saturday  12 Jumada II  06:07"),
              std::string::npos);
    EXPECT_NE(run("table Istanbul --to today --others").out.find("Ishraq"), std::string::npos);
}

} // namespace
} // namespace zorel::cli
