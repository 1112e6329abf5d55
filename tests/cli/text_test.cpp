// SPDX-License-Identifier: Apache-2.0
// Reading what is typed, and writing what is shown: dates, places, offsets, columns, colours, words.
#include "grammar/DateArgument.h"
#include "grammar/Dates.h"
#include "grammar/PlaceQuery.h"
#include "print/Csv.h"
#include "print/ExplainText.h"
#include "terminal/CliError.h"
#include "terminal/Style.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

namespace zorel::cli {
namespace {

using namespace std::chrono_literals;
constexpr almanac::Date kToday = 2026y / 11 / 21;

TEST(CliDates, WhatIsNoDayEndsTheCommand) {
    EXPECT_EQ(requireDate("+10", kToday, "--date"), 2026y / 12 / 1);
    for (const char* text : {"31.12.2026", "", "2026-02-29"}) {
        EXPECT_THROW((void)requireDate(text, kToday, "--date"), CliError) << text;
    }
}

almanac::Instant instantOfText(const char* text) {
    return instantOf(*almanac::parseMoment(text), *almanac::PlaceClock::ofZone("Europe/Berlin"), kToday);
}

TEST(CliDates, MomentsByTheirOwnOffsetOrThePlacesClock) {
    const auto midnight = std::chrono::sys_days(2026y / 11 / 21);
    EXPECT_EQ(instantOfText("2026-11-21T15:04:05+03:00"), midnight + 12h + 4min + 5s);
    EXPECT_EQ(instantOfText("2026-11-21T15:04"), midnight + 14h + 4min);
    EXPECT_EQ(instantOfText("15:04"), midnight + 14h + 4min);
    EXPECT_EQ(instantOfText("15:04Z"), midnight + 15h + 4min);
    // The clock skips 2:30 on this day.
    EXPECT_EQ(instantOfText("2027-03-28T02:30"), std::chrono::sys_days(2027y / 3 / 28) + 1h + 30min);
}

PlaceByCoordinates point(std::string_view text) {
    return std::get<PlaceByCoordinates>(parsePlaceQuery(text));
}

TEST(CliPlaceQuery, Points) {
    EXPECT_DOUBLE_EQ(point("41.01,28.97").latitude, 41.01);
    EXPECT_DOUBLE_EQ(point("41.01,28.97").longitude, 28.97);
    EXPECT_DOUBLE_EQ(point("-33.87, +151.2").latitude, -33.87);
    EXPECT_DOUBLE_EQ(point("33.87S,70.5W").latitude, -33.87);
    EXPECT_DOUBLE_EQ(point("33.87S,70.5W").longitude, -70.5);
    EXPECT_DOUBLE_EQ(point("-90,-180").latitude, -90.0);
    EXPECT_DOUBLE_EQ(point("90 N,180 E").longitude, 180.0);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(point("1,2").zone));
    EXPECT_EQ(std::get<std::string>(point("1,2,Europe/Oslo").zone), "Europe/Oslo");
    EXPECT_EQ(std::get<std::chrono::seconds>(point("1,2,+5:45").zone), 5h + 45min);
}

TEST(CliPlaceQuery, NamesAndIds) {
    EXPECT_EQ(std::get<PlaceById>(parsePlaceQuery(" 745044 ")).id, 745044);
    const auto paris = std::get<PlaceByName>(parsePlaceQuery("Paris, Texas / United States"));
    EXPECT_TRUE(paris.text.starts_with("Paris"));
    EXPECT_EQ(std::get<PlaceByName>(parsePlaceQuery("  São Paulo ")).text, "São Paulo");
}

TEST(CliPlaceQuery, WhatIsNoPlace) {
    const std::string tooLong(201, 'a');
    for (const std::string& text :
         {std::string(), std::string("   "), std::string(",,"), std::string("91,0"), std::string("0,181"),
          std::string("1,2,3,4"), std::string("1,x"), std::string("1e999,2"), std::string("-nan,1"),
          std::string("99999999999"), tooLong}) {
        EXPECT_THROW((void)parsePlaceQuery(text), CliError) << text;
    }
}

TEST(CliPlaceQuery, Offsets) {
    EXPECT_EQ(parseOffset("+3"), 3h);
    EXPECT_EQ(parseOffset("3"), 3h);
    EXPECT_EQ(parseOffset("-03:30"), -(3h + 30min));
    EXPECT_EQ(parseOffset("+0545"), 5h + 45min);
    EXPECT_EQ(parseOffset("5.75"), 5h + 45min);
    EXPECT_EQ(parseOffset("UTC-2"), -2h);
    EXPECT_EQ(parseOffset("Z"), 0h);
    EXPECT_EQ(parseOffset("+14"), 14h);
    for (const char* text : {"", "+", "+15", "-14:01", "+3:60", "+0360", "+3:5", "3h", "UTC+", "Etc/GMT-3",
                             "nan", "inf", "1e1x"}) {
        EXPECT_FALSE(parseOffset(text)) << text;
    }
}

TEST(CliErrors, WhatGoesBackToTheTerminalIsHarmless) {
    EXPECT_EQ(quote("abc"), "\"abc\"");
    EXPECT_EQ(quote("a\x1b[31mb\n"), "\"a?[31mb?\"");
    const std::string longText = std::string(59, 'a') + "ğğ";
    EXPECT_EQ(quote(longText), '"' + std::string(59, 'a') + "...\"");
}

TEST(CliStyle, WidthsOfCharacters) {
    EXPECT_EQ(displayWidth("abc"), 3U);
    EXPECT_EQ(displayWidth("İğüş"), 4U);
    EXPECT_EQ(displayWidth("e\xCC\x81"), 1U);
    EXPECT_EQ(displayWidth("東京"), 4U);
    EXPECT_EQ(displayWidth("\xFF\xC3"), 2U);
}

TEST(CliStyle, ColumnsAlignAndLinesHaveNoTrailingBlanks) {
    TextTable table("lr");
    table.add({"Öğle", "9:05"});
    table.add({"Ikindi", "12:05"});
    table.add({"x"});
    EXPECT_EQ(table.text(Style(false), "> "), "> Öğle     9:05\n> Ikindi  12:05\n> x\n");
}

TEST(CliStyle, TheLocaleSaysWhetherThereIsMoreThanAscii) {
    const char* all = getenv("LC_ALL");
    const std::string before = all == nullptr ? "" : all;
    for (const char* locale : {"C.UTF-8", "tr_TR.UTF-8", "en_GB.utf8"}) {
        setenv("LC_ALL", locale, 1);
        EXPECT_TRUE(localeIsUtf8()) << locale;
    }
    for (const char* locale : {"C", "POSIX", "tr_TR.ISO-8859-9"}) {
        setenv("LC_ALL", locale, 1);
        EXPECT_FALSE(localeIsUtf8()) << locale;
    }
    setenv("LC_ALL", before.c_str(), 1);
}

TEST(CliStyle, ColoursOnlyWhereTheyAreWanted) {
    EXPECT_EQ(Style(true).bold("x"), "\x1b[1mx\x1b[0m");
    EXPECT_EQ(Style(false).bold("x"), "x");
    unsetenv("NO_COLOR");
    setenv("TERM", "xterm", 1);
    EXPECT_TRUE(coloursWanted("auto", true));
    EXPECT_FALSE(coloursWanted("auto", false));
    EXPECT_TRUE(coloursWanted("always", false));
    EXPECT_FALSE(coloursWanted("never", true));
    setenv("NO_COLOR", "1", 1);
    EXPECT_FALSE(coloursWanted("auto", true));
    EXPECT_TRUE(coloursWanted("always", true));
    setenv("NO_COLOR", "", 1);
    EXPECT_TRUE(coloursWanted("auto", true));
    setenv("TERM", "dumb", 1);
    EXPECT_FALSE(coloursWanted("auto", true));
    unsetenv("NO_COLOR");
}

TEST(CliDates, EveryNameIsThere) {
    for (const char* language : {"en", "tr"}) {
        useLanguages({language});
        std::set<std::string> names;
        for (int month = 1; month <= 12; ++month) {
            names.insert(monthName(static_cast<unsigned>(month)));
            names.insert("Hijri " + hijriMonthName(month));
            names.insert("Rumi " + rumiMonthName(month));
        }
        for (int day = 0; day < 7; ++day) {
            names.insert(weekdayName(day));
        }
        EXPECT_EQ(names.size(), 43U) << language;
    }
    useLanguages({});
    EXPECT_TRUE(hijriMonthName(13).empty());
    EXPECT_TRUE(monthName(0).empty());
    EXPECT_TRUE(weekdayName(-1).empty());
}

TEST(CliDates, DatesAndDurations) {
    EXPECT_EQ(longDate(kToday), "21 November 2026, Saturday");
    EXPECT_EQ(dayAndMonth(kToday), "21 November");
    EXPECT_EQ(monthAndYear(kToday.year() / kToday.month()), "November 2026");
    EXPECT_EQ(hijriMonthAndYear(9, 1448), "Ramadan 1448");
    EXPECT_EQ(durationText(59s), "less than a minute");
    EXPECT_EQ(durationText(61s), "1 min");
    EXPECT_EQ(durationText(2h), "2 h");
    EXPECT_EQ(durationText(2h + 5min + 59s), "2 h 5 min");
    EXPECT_EQ(clockChangeText(-1h), "clock -1 h");
    EXPECT_TRUE(hijriText(AllCalendarRecord{.hijriYear = -1}).empty());
    EXPECT_TRUE(hijriDayAndMonth(AllCalendarRecord{.hijriYear = 0}).empty());
}

TEST(CliExplain, EveryCorrectionHasAReasonOfItsOwn) {
    std::set<std::string> reasons;
    for (const char* language : {"en", "tr"}) {
        useLanguages({language});
        for (std::size_t i = 0; i < almanac::kCorrections; ++i) {
            reasons.insert(correctionText(static_cast<almanac::Correction>(i)));
        }
    }
    useLanguages({});
    EXPECT_EQ(reasons.size(), 2 * almanac::kCorrections);
    EXPECT_EQ(correctionText(almanac::Correction::beforeMidnight).substr(0, 15), "before midnight");
    EXPECT_EQ(correctionText(almanac::Correction::trueQibla), "towards the Kaaba itself");
}

TEST(CliDates, InTheOrderAndTheWordsOfTheLanguage) {
    useLanguages({"tr"});
    EXPECT_EQ(longDate(kToday), "21 Kasım 2026, Cumartesi");
    EXPECT_EQ(shortMonthName(11), "Kas");
    EXPECT_EQ(rumiMonthName(8), "Teşrin-i Evvel") << "not the October of the civil calendar";
    EXPECT_EQ(durationText(2h + 5min + 59s), "2 sa 5 dk");
    useLanguages({});
}

TEST(CliCsv, FieldsAreQuotedWhenTheyMust) {
    const auto field = [](std::string_view text) {
        std::string line = "x";
        appendCsvField(line, text);
        return line;
    };
    EXPECT_EQ(field("Ankara"), "x,Ankara");
    EXPECT_EQ(field(""), "x,");
    EXPECT_EQ(field("a,b"), "x,\"a,b\"");
    EXPECT_EQ(field("say \"x\""), "x,\"say \"\"x\"\"\"");
    EXPECT_EQ(field("a\nb"), "x,a?b");
}

TEST(CliCsv, NumbersAreRoundedAsPrintfDoes) {
    const auto number = [](double value, int decimals) {
        std::string line = "x";
        appendCsvNumber(line, value, decimals);
        return line;
    };
    EXPECT_EQ(number(41.01, 5), "x,41.01000");
    EXPECT_EQ(number(-0.000004, 5), "x,-0.00000");
    EXPECT_EQ(number(28.978355, 5), "x,28.97836"); // a little more than the half, in binary
    EXPECT_EQ(number(0.125, 2), "x,0.12");         // the half exactly: to the even one
    EXPECT_EQ(number(1e308, 4).size(), 2U + 309U + 5U);
}

} // namespace
} // namespace zorel::cli
