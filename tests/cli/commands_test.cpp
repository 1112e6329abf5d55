// SPDX-License-Identifier: Apache-2.0
// What the commands say about each other: tables against days, parts against the whole, calendars read by
// others.
#include "CliRunner.h"
#include "tests/support/Programs.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zorel::test {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(CliTable, AYearHasADayForEveryDate) {
    CliRunner run;
    const auto lines = linesOf(run("table Istanbul --from 2028-01-01 --to 2028-12-31 --csv").out);
    ASSERT_EQ(lines.size(), 367U);
    EXPECT_TRUE(lines[1].starts_with("2028-01-01,+03:00,"));
    EXPECT_TRUE(lines[60].starts_with("2028-02-29,"));
    EXPECT_TRUE(lines[366].starts_with("2028-12-31,"));
}

TEST(CliTable, ATableSaysTheSameAsTheDays) {
    CliRunner run;
    const std::string table = run("table Istanbul --from 2026-11-21 --to 2026-11-21").out;
    const std::string day = run("today Istanbul --short").out;
    const auto lines = linesOf(table);
    std::istringstream cells(lines[2]);
    std::string cell;
    cells >> cell;
    int found = 0; // weekday, three words of the Hijri date, six times
    while (cells >> cell) {
        EXPECT_NE(day.find(cell), std::string::npos) << cell;
        ++found;
    }
    EXPECT_EQ(found, 10);
}

TEST(CliTable, TheWholeCatalogueComesInParts) {
    CliRunner run;
    const auto whole = linesOf(run("table --all --on 2027-01-01 --count 1500").out);
    ASSERT_EQ(whole.size(), 1501U);
    std::vector<std::string> parts{whole[0]};
    std::string from = "0";
    for (int part = 0; part < 3; ++part) {
        const auto lines = linesOf(run("table --all --on 2027-01-01 --count 500 --from-id " + from).out);
        ASSERT_EQ(lines.size(), 501U);
        parts.insert(parts.end(), lines.begin() + 1, lines.end());
        from = std::to_string(std::stoi(lines.back()) + 1);
    }
    EXPECT_EQ(parts, whole);
}

TEST(CliTable, AllPlacesAgreeWithOnePlace) {
    CliRunner run;
    const auto all = linesOf(run("table --all --on 2027-01-01 --from-id 745044 --count 1").out);
    const auto one = linesOf(run("table 745044 --from 2027-01-01 --to 2027-01-01 --csv").out);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_TRUE(all[1].starts_with("745044,İstanbul,"));
    EXPECT_TRUE(all[1].ends_with(one[1])) << all[1] << '\n' << one[1];
}

std::string unfolded(const std::string& ics) {
    std::string text = ics;
    for (std::size_t at = 0; (at = text.find("\r\n ", at)) != std::string::npos;) {
        text.erase(at, 3);
    }
    return text;
}

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) {
        ++count;
    }
    return count;
}

TEST(CliIcs, CalendarHeadAndEvents) {
    CliRunner run;
    const std::string raw = run("table Istanbul --from 2026-11-21 --to 2026-11-22 --ics").out;
    const std::string ics = unfolded(raw);
    EXPECT_TRUE(ics.starts_with("BEGIN:VCALENDAR\r\n"));
    EXPECT_NE(ics.find("X-WR-CALNAME:İstanbul / Türkiye\r\n"), std::string::npos);
    EXPECT_NE(ics.find("REFRESH-INTERVAL;VALUE=DURATION:P1D\r\n"), std::string::npos);
    EXPECT_NE(ics.find("UID:745044-2026-11-21-fajr@zorel\r\n"), std::string::npos);
    EXPECT_EQ(countOf(ics, "BEGIN:VEVENT"), 12U);
    EXPECT_EQ(countOf(ics, "DTSTAMP:20261121T060000Z"), 12U);
    for (const std::string& line : linesOf(ics)) {
        EXPECT_TRUE(!line.starts_with("DTSTART") || line.ends_with("Z\r")) << line;
    }
    for (const std::string& line : linesOf(raw)) {
        EXPECT_EQ(line.back(), '\r');
        EXPECT_LE(line.size(), 76U) << line;
    }
}

TEST(CliIcs, IdentifiersStayWhenTheCalendarIsMadeAgain) {
    CliRunner run;
    const std::string first = run("table Istanbul --from 2026-11-21 --to 2026-11-22 --ics").out;
    run.common = "--lang tr --now 2026-11-22T09:00:00+03:00";
    const std::string second = run("table Istanbul --from 2026-11-21 --to 2026-11-22 --ics").out;
    const auto identifiers = [](const std::string& text) {
        auto lines = linesOf(unfolded(text));
        std::erase_if(lines, [](const std::string& line) { return !line.starts_with("UID:"); });
        return lines;
    };
    EXPECT_EQ(identifiers(first), identifiers(second));
    EXPECT_EQ(identifiers(first).size(), 12U);
}

TEST(CliIcs, KhalReadsItAndShowsTheLocalTimes) {
    if (!hasProgram("khal")) {
        GTEST_SKIP() << "khal is not installed";
    }
    CliRunner run;
    const TemporaryFolder& folder = run.folder;
    writeFile(folder.path("times.ics"), run("table Istanbul --from 2026-11-21 --to 2026-11-22 --ics").out);
    std::filesystem::create_directories(folder.path("calendar"));
    writeFile(folder.path("khal.conf"),
              "[calendars]\n[[c]]\npath = " + folder.path("calendar") +
                  "\n[locale]\ntimeformat = %H:%M\ndateformat = %Y-%m-%d\n"
                  "longdateformat = %Y-%m-%d\ndatetimeformat = %Y-%m-%d %H:%M\n"
                  "longdatetimeformat = %Y-%m-%d %H:%M\nlocal_timezone = Europe/Istanbul\n"
                  "default_timezone = Europe/Istanbul\n[default]\n"
                  "[sqlite]\npath = " +
                  folder.path("khal.db") + "\n");
    const std::string khal = "HOME=" + folder.path() + " LC_ALL=C.UTF-8 khal -c " + folder.path("khal.conf");
    const std::string imported =
        outputOf(khal + " import --batch -a c " + folder.path("times.ics") + " 2>&1");
    const std::string shown =
        outputOf(khal + " list --format '{start-time} {title}' --day-format '' 2026-11-21 1d 2>&1");
    const auto lines = linesOf(shown);
    EXPECT_EQ(lines.size(), 6U) << imported << shown;
    const std::string day = run("today Istanbul --short").out;
    for (const std::string& line : lines) {
        ASSERT_GT(line.size(), 6U) << shown;
        EXPECT_NE(day.find(line.substr(0, 5)), std::string::npos) << line << '\n' << day;
        EXPECT_NE(day.find(line.substr(6)), std::string::npos) << line;
    }
}

TEST(CliPlaces, NamesAreFoundInEverySpelling) {
    CliRunner run;
    for (const char* name : {"Istanbul", "istanbul", "İSTANBUL", "Köln", "Koln", "München", "مكة", "Москва",
                             "Sao Paulo", "são paulo"}) {
        const CliResult result = run("today \"" + std::string(name) + "\" --short");
        EXPECT_EQ(result.code, 0) << name << result.err;
    }
    EXPECT_TRUE(run("today Koln --short").out.starts_with("Köln")) << run("today Koln --short").out;
    EXPECT_TRUE(run("today N'Djamena --short").out.starts_with("N'Djamena"));
}

TEST(CliPlaces, RegionsAndCountriesAreFoundWithoutTheirAccents) {
    CliRunner run;
    EXPECT_TRUE(run("today \"Istanbul, Turkiye\" --short").out.starts_with("İstanbul / Türkiye"));
    EXPECT_TRUE(run("today \"Paris, ile-de-france\" --short").out.starts_with("Paris / Île-de-France"));
}

TEST(CliPlaces, ANameNeverLeadsToAnotherCity) {
    CliRunner run;
    for (const auto& [name, place] :
         {std::pair{"Islamabad", "Islamabad / Pakistan"},
          {"\"San Francisco\"", "San Francisco / California / United States"},
          {"Van", "Van / Türkiye"},
          {"\"El Paso\"", "El Paso / Texas / United States"},
          {"York", "York / England / United Kingdom"},
          {"Porto", "Porto / Portugal"},
          {"Zaragoza", "Zaragoza / Aragon / Spain"},
          {"\"Ankara, TR\"", "Ankara / Türkiye"},
          {"\"Paris, US\"", "Paris / Texas / United States"},
          {"Paris Texas", "Paris / Texas / United States"},
          {"\"Donostia / San Sebastián\"", "Donostia / San Sebastián / Basque Country / Spain"},
          {"東京", "Tokyo / Japan"},
          {"Αθήνα", "Athens / Attica / Greece"}}) {
        const CliResult result = run("today " + std::string(name) + " --short");
        EXPECT_EQ(result.out.substr(0, result.out.find('\n')), place) << result.err;
    }
}

TEST(CliPlaces, TheChoiceAmongNamesakesIsSaidOnce) {
    CliRunner run;
    const std::string note = "note: this is Paris / Île-de-France / France, the largest of ";
    EXPECT_EQ(run("today Paris --json --short").err, "") << "never with --json";
    const CliResult first = run("today Paris --short");
    EXPECT_TRUE(first.err.starts_with(note)) << first.err;
    EXPECT_TRUE(first.err.ends_with("; zorel search Paris lists them\n")) << first.err;
    EXPECT_LT(first.err.size(), 160U);
    EXPECT_EQ(run("today Paris --short").err, "");
    EXPECT_EQ(run("sky Paris").err, "");
    EXPECT_TRUE(run("today London --short").err.starts_with("note: this is London / England"))
        << "another name";
    EXPECT_EQ(run("today Istanbul --short").err, "") << "there is one only";
}

TEST(CliPlaces, AMuchLargerPlaceOfThatSpellingIsSaid) {
    CliRunner run;
    for (const auto& [name, place] : {std::pair{"Calcutta", "Kolkata / West Bengal / India"},
                                      {"Madras", "Chennai / Tamil Nadu / India"},
                                      {"Roma", "Rome / Lazio / Italy"}}) {
        const CliResult result = run("today " + std::string(name) + " --short");
        EXPECT_TRUE(result.out.starts_with(place)) << result.out;
        EXPECT_TRUE(
            result.err.starts_with(std::string("note: ") + name + " is taken for " + place + ", not for "))
            << result.err;
        EXPECT_EQ(run("today " + std::string(name) + " --short").err, "");
    }
}

TEST(CliPlaces, AMuchLargerPlaceThatIsPassedOverIsSaid) {
    CliRunner run;
    EXPECT_EQ(run("today Kozan --short").err,
              "note: Kozan is taken for Kozan / Adana / Türkiye, not for Kazan / "
              "Tatarstan Republic / Russia; zorel search Kozan lists them\n");
    EXPECT_TRUE(run("today \"St. Petersburg\" --short")
                    .err.starts_with("note: St. Petersburg is taken for St. Petersburg / Florida / United "
                                     "States, not for Saint Petersburg / "));
    EXPECT_EQ(run("today Kozan --json").err, "");
    EXPECT_EQ(run("today Kozan --short").err, "") << "once";
}

TEST(CliPlaces, WhatHasBeenToldIsForgottenInTheEnd) {
    CliRunner run;
    static_cast<void>(run("today Paris --short"));
    const std::string file = run.folder.path("data/ToldNames.txt");
    ASSERT_NE(readFile(file).find("Paris\n"), std::string::npos);
    std::string lines = readFile(file);
    for (int line = 0; line < 100; ++line) {
        lines += std::to_string(line) + " A\n";
    }
    writeFile(file, lines);
    EXPECT_NE(run("today London --short").err, "");
    EXPECT_EQ(readFile(file).find("Paris"), std::string::npos);
    EXPECT_LE(readFile(file).size(), 1'000U);
    EXPECT_NE(run("today Paris --short").err, "") << "said again";
}

TEST(CliPlaces, ANoteThatCannotBeKeptIsSaidAgain) {
    CliRunner run;
    writeFile(run.folder.path("data"), "no folder");
    EXPECT_NE(run("today Paris --short").err, "");
    EXPECT_NE(run("today Paris --short").err, "");
    EXPECT_EQ(run("today Paris --short").code, 0);
}

TEST(CliCities, TheChoiceForGoodIsAlwaysSaid) {
    CliRunner run;
    static_cast<void>(run("today Roma --short"));
    EXPECT_NE(run("cities add Roma").err.find("Roma is taken for Rome / Lazio / Italy"), std::string::npos);
}

TEST(CliCities, AListedCityIsMeantByAnyOfItsSpellings) {
    CliRunner run;
    static_cast<void>(run("cities add \"Paris, Texas\""));
    static_cast<void>(run("cities add Cologne"));
    EXPECT_EQ(run("cities home Paris").code, 0) << "the only Paris of the list";
    EXPECT_EQ(run("cities home koln").code, 0);
    EXPECT_EQ(run("cities remove Par").code, 1) << "a part of a name";
    EXPECT_EQ(run("cities remove Berlin").code, 1);
    static_cast<void>(run("cities add 2988507"));
    const CliResult both = run("cities remove Paris");
    EXPECT_EQ(both.code, 2);
    EXPECT_NE(both.err.find("several of your cities are called Paris"), std::string::npos) << both.err;
    EXPECT_EQ(run("cities remove Paris TX").code, 0);
    EXPECT_EQ(run("cities remove Paris").code, 0);
}

TEST(CliSearch, SaysWhichSpellingWasFoundAndHowManyLiveThere) {
    CliRunner run;
    EXPECT_TRUE(run("search Cologne --limit 1")
                    .out.starts_with("2886242  Köln — Cologne / North Rhine-Westphalia / Germany  963,395\n"))
        << run("search Cologne --limit 1").out;
    EXPECT_TRUE(run("search köln --limit 1").out.starts_with("2886242  Köln / North"));
    EXPECT_TRUE(run("search Koln --limit 1").out.starts_with("2886242  Köln / North")) << "the same letters";
    const std::string paris = run("search Paris --limit 3").out;
    EXPECT_TRUE(paris.starts_with("2988507  Paris / Île-de-France / France")) << paris;
    EXPECT_NE(paris.find("2,138,551"), std::string::npos);
    EXPECT_NE(paris.find("4717560  Paris / Texas / United States"), std::string::npos);
    EXPECT_NE(run("search 東京").out.find("Tokyo — 東京 / Japan"), std::string::npos);
    EXPECT_EQ(run("search \"Paris, Texas\"").out, "4717560  Paris / Texas / United States  24,782\n");
    EXPECT_TRUE(run("search N'Djamena").out.starts_with("2427123  N'Djamena"));
}

TEST(CliPlaces, AZoneNamedByItsFileIsUnderstood) {
    CliRunner run("/usr/share/zoneinfo/Asia/Tokyo");
    EXPECT_TRUE(run("today --short").out.starts_with("Tokyo / Japan"));
}

TEST(CliPlaces, AttemptsAtInjectionFindNothing) {
    CliRunner run;
    for (const char* text :
         {"' OR 1=1 --", "%' UNION SELECT 1,2,3,4,5,6 --", "'; DROP TABLE CITY; --", "%%%", "___"}) {
        const CliResult result = run("search \"" + std::string(text) + "\" --limit 3");
        EXPECT_EQ(result.code, 1) << text << result.err;
    }
    EXPECT_EQ(run("today Istanbul --short").code, 0);
}

TEST(CliPlaces, WithoutAPlaceTheLargestOfTheZoneIsTaken) {
    CliRunner run("Asia/Kolkata");
    const CliResult result = run("today --short");
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_NE(result.out.find("India"), std::string::npos) << result.out;
    EXPECT_NE(result.err.find("Asia/Kolkata"), std::string::npos) << result.err;
    EXPECT_FALSE(std::filesystem::exists(run.folder.path("data"))) << "a question must not make folders";
}

TEST(CliPlaces, TemkinOfAPointCanBeChosen) {
    CliRunner run;
    const std::string low = run("today 41.0,29.0,+3 --seconds --short").out;
    const std::string high = run("today 41.0,29.0,+3 --seconds --short --temkin 500").out;
    EXPECT_NE(low, high);
    EXPECT_EQ(low, run("today 41.0,29.0,+3 --seconds --short --temkin 250").out);
}

TEST(CliOutput, ColoursOnlyWhenAskedFor) {
    CliRunner run;
    EXPECT_EQ(run("today Istanbul").out.find('\x1b'), std::string::npos);
    const std::string coloured = run("today Istanbul --color always").out;
    EXPECT_NE(coloured.find("\x1b[1;32m"), std::string::npos);
    EXPECT_EQ(run("today Istanbul --json --color always").out.find('\x1b'), std::string::npos);
}

TEST(CliOutput, LanguagesOfTheNames) {
    CliRunner run;
    run.common = "--now 2026-11-21T09:00:00+03:00";
    std::vector<std::string> outputs;
    for (const char* language : {"tr", "en", "fr", "de"}) {
        outputs.push_back(run("--lang " + std::string(language) + " today Istanbul --short").out);
    }
    std::sort(outputs.begin(), outputs.end());
    EXPECT_EQ(std::unique(outputs.begin(), outputs.end()), outputs.end());
}

} // namespace
} // namespace zorel::test
