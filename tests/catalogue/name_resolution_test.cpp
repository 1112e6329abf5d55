// SPDX-License-Identifier: Apache-2.0
// Names as people type them, and the places of the real catalogue that they mean.
#include "store/NameResolution.h"

#include "platform/foundation/FoldedName.h"
#include "store/CatalogueLookup.h"
#include "tests/catalogue/Fixture.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sqlite3.h>
#include <sstream>
#include <unordered_map>

namespace zorel {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// Data lines of a tab-separated file of tests/data/catalogue, its header aside.
std::vector<std::vector<std::string>> rowsOf(const std::string& file) {
    std::ifstream stream(std::string(ZOREL_SOURCE_DIR) + "/tests/data/catalogue/" + file);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(stream, line);
    while (std::getline(stream, line)) {
        std::istringstream fields(line);
        rows.emplace_back();
        for (std::string field; std::getline(fields, field, '\t');) {
            rows.back().push_back(field);
        }
    }
    return rows;
}

/// The folded spellings of every place by its id, each between two bars.
std::unordered_map<std::int32_t, std::string> allSpellings(const std::string& bundle) {
    std::unordered_map<std::int32_t, std::string> spellings;
    sqlite3* database = nullptr;
    sqlite3_open_v2((bundle + "/database/cities.sqlite").c_str(), &database, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_exec(
        database, "SELECT C.ID, S.FOLDED FROM SPELLING S, CITY C WHERE C.ROWID = S.CITY",
        [](void* all, int, char** values, char**) {
            auto& entry = (*static_cast<decltype(spellings)*>(all))[std::stoi(values[0])];
            entry += (entry.empty() ? "|" : "") + std::string(values[1]) + "|";
            return 0;
        },
        &spellings, nullptr);
    sqlite3_close(database);
    return spellings;
}

class Resolution : public testing::Test {
protected:
    NameResolution resolve(const std::string& text) {
        auto result = resolveName(real_.glbFuncs, text);
        EXPECT_TRUE(result);
        return result.value_or(NameResolution());
    }
    /// "İstanbul, Türkiye", or what failed.
    std::string place(const std::string& text) {
        const NameResolution result = resolve(text);
        if (!result.places.empty()) {
            return result.places[0].name + ", " + result.places[0].countryEn;
        }
        return result.elsewhere.empty() ? "no " + result.name
                                        : "no " + result.name + " in " + result.unmatched;
    }
    std::int32_t id(const std::string& text) {
        const NameResolution result = resolve(text);
        return result.places.empty() ? 0 : result.places[0].id;
    }
    std::vector<std::string> suggestions(const std::string& text) {
        std::vector<std::string> names;
        for (const NamedPlace& place : similarPlaces(real_.glbFuncs, text, 3)) {
            names.push_back(place.name);
        }
        return names;
    }
    test::RealCatalogue real_;
};

TEST_F(Resolution, AShownNameWinsOverEveryOtherSpelling) {
    EXPECT_EQ(place("Islamabad"), "Islamabad, Pakistan");
    EXPECT_EQ(place("San Francisco"), "San Francisco, United States");
    EXPECT_EQ(place("Van"), "Van, Türkiye");
    EXPECT_EQ(place("El Paso"), "El Paso, United States");
    EXPECT_EQ(place("York"), "York, United Kingdom");
    EXPECT_EQ(place("Porto"), "Porto, Portugal");
    EXPECT_EQ(place("Zaragoza"), "Zaragoza, Spain");
    EXPECT_EQ(resolve("Victoria").places[0].name, "Victoria");
}

TEST_F(Resolution, AmongEqualNamesTheLargestWins) {
    const NameResolution paris = resolve("Paris");
    ASSERT_GT(paris.places.size(), 5U);
    EXPECT_EQ(paris.places[0].countryEn, "France");
    EXPECT_EQ(paris.places[1].region, "Texas");
    EXPECT_FALSE(paris.largerFirst);
    for (std::size_t at = 2; at < paris.places.size(); ++at) {
        EXPECT_TRUE(paris.places[at].otherSpelling > paris.places[at - 1].otherSpelling ||
                    paris.places[at].population <= paris.places[at - 1].population);
    }
}

TEST_F(Resolution, AMuchLargerPlaceOfThatSpellingComesBeforeASmallOne) {
    for (const auto& [name, shown] : {std::pair{"Calcutta", "Kolkata"},
                                      {"Madras", "Chennai"},
                                      {"Roma", "Rome"},
                                      {"Mecca", "Makkah"},
                                      {"Medina", "Madinah"},
                                      {"Cologne", "Köln"}}) {
        const NameResolution result = resolve(name);
        ASSERT_GT(result.places.size(), 1U) << name;
        EXPECT_EQ(result.places[0].name, shown);
        EXPECT_TRUE(result.largerFirst) << name;
        EXPECT_EQ(result.places[1].name, name) << "the place of the shown name follows";
        EXPECT_EQ(result.passedOver, 1U) << name;
    }
}

TEST_F(Resolution, AMuchLargerPlaceIsPassedOverForALessExactSpelling) {
    const NameResolution kozan = resolve("Kozan");
    EXPECT_EQ(place("Kozan"), "Kozan, Türkiye") << "Kazan has a soft sign there";
    EXPECT_FALSE(kozan.largerFirst);
    ASSERT_NE(kozan.passedOver, 0U);
    EXPECT_EQ(kozan.places[kozan.passedOver].name, "Kazan");
    EXPECT_TRUE(kozan.places[kozan.passedOver].looseSpelling);
}

TEST_F(Resolution, ABrokenOffNameOfALargePlaceIsNoName) {
    EXPECT_EQ(place("Kemer"), "Kemer, Türkiye") << "not Kemerovo";
    EXPECT_EQ(place("Samar"), "Samar, Ukraine") << "not Samara";
    EXPECT_EQ(place("Sana"), "Sanaa, Yemen") << "its Turkish name";
}

TEST_F(Resolution, AnUncountedPlaceGivesWayToALargeCityOnly) {
    const NameResolution buca = resolve("Buca");
    EXPECT_EQ(place("Buca"), "Buca, Türkiye") << "not Bucha, of 42,000";
    EXPECT_EQ(buca.places[0].population, 0);
    EXPECT_EQ(buca.passedOver, 0U);
    const NameResolution habana = resolve("Habana");
    EXPECT_TRUE(habana.largerFirst);
    EXPECT_EQ(habana.places[0].name, "Havana");
    ASSERT_EQ(habana.passedOver, 1U);
    EXPECT_EQ(habana.places[1].population, 0);
}

TEST_F(Resolution, ALargeCityKeepsItsNameAndAMuchLargerOneIsPassedOver) {
    const NameResolution petersburg = resolve("St. Petersburg");
    EXPECT_EQ(place("St. Petersburg"), "St. Petersburg, United States");
    ASSERT_NE(petersburg.passedOver, 0U);
    EXPECT_EQ(petersburg.places[petersburg.passedOver].countryEn, "Russia");
    EXPECT_EQ(resolve("Paris").passedOver, 0U);
    EXPECT_EQ(resolve("Ankara").passedOver, 0U);
}

TEST_F(Resolution, AnOtherSpellingOfALargePlaceNeedsNoWord) {
    for (const auto& [name, shown] : {std::pair{"Bombay", "Mumbai"},
                                      {"New York", "New York City"},
                                      {"München", "Munich"},
                                      {"Kairo", "Cairo"},
                                      {"Sao Paolo", "São Paulo"}}) {
        EXPECT_EQ(resolve(name).places[0].name, shown);
        EXPECT_FALSE(resolve(name).largerFirst) << name;
    }
}

TEST_F(Resolution, LettersAreFolded) {
    for (const char* text :
         {"istanbul", "İSTANBUL", "ISTANBUL", "  Istanbul ", "إسطنبول", "اسطنبول", "استانبول"}) {
        EXPECT_EQ(id(text), 745044) << text;
    }
    EXPECT_EQ(place("Plzen"), "Pilsen, Czechia");
    EXPECT_EQ(place("kobenhavn"), "Copenhagen, Denmark");
    EXPECT_EQ(place("Tromso"), "Tromsø, Norway");
    EXPECT_EQ(place("lodz"), "Łódź, Poland");
    EXPECT_EQ(place("Ndjamena"), "N'Djamena, Chad");
    EXPECT_EQ(place("n’djaména"), "N'Djamena, Chad");
    EXPECT_EQ(place("Saint Denis, RE"), "Saint-Denis, Réunion");
    EXPECT_EQ(place("مكه"), "Makkah, Saudi Arabia");
}

TEST_F(Resolution, OtherScriptsAndTwoCharacters) {
    EXPECT_EQ(place("Αθήνα"), "Athens, Greece");
    EXPECT_EQ(place("ירושלים"), "Jerusalem, Israel");
    EXPECT_EQ(place("東京"), "Tokyo, Japan");
    EXPECT_EQ(place("北京"), "Beijing, China");
    EXPECT_EQ(place("서울"), "Seoul, South Korea");
    EXPECT_EQ(place("ঢাকা"), "Dhaka, Bangladesh");
    EXPECT_EQ(place("मुंबई"), "Mumbai, India");
    EXPECT_EQ(place("Москва"), "Moscow, Russia");
}

TEST_F(Resolution, ANameMayHaveASlashOfItsOwn) {
    EXPECT_EQ(place("Donostia / San Sebastián"), "Donostia / San Sebastián, Spain");
    EXPECT_EQ(place("donostia/san sebastian, Spain"), "Donostia / San Sebastián, Spain");
}

TEST_F(Resolution, RegionAndCountryNarrowAName) {
    for (const char* text : {"Paris, Texas", "Paris Texas", "paris tx", "Paris/TX/US", "Paris, Texas, USA",
                             "Paris / Texas / United States", "Paris, ABD", "Paris, US"}) {
        const NameResolution result = resolve(text);
        ASSERT_FALSE(result.places.empty()) << text;
        EXPECT_EQ(result.places[0].region, "Texas") << text;
        EXPECT_EQ(foldedName(result.name), "paris") << text;
    }
    EXPECT_EQ(place("Ankara, TR"), "Ankara, Türkiye");
    EXPECT_EQ(place("Istanbul, Turkey"), "İstanbul, Türkiye");
    EXPECT_EQ(place("Köln, Deutschland"), "Köln, Germany");
    EXPECT_EQ(place("London, UK"), "London, United Kingdom");
    EXPECT_EQ(resolve("London ON").places[0].region, "Ontario");
    EXPECT_EQ(resolve("Perth, WA").places[0].countryEn, "Australia");
    EXPECT_EQ(place("Roma, Texas"), "Roma, United States");
    EXPECT_EQ(place("Roma, Queensland"), "Roma, Australia");
    EXPECT_EQ(resolve("Hyderabad, Sindh").places[0].countryEn, "Pakistan");
    EXPECT_EQ(resolve("Marseille, Provence").places[0].countryEn, "France") << "whole words of the region";
    EXPECT_EQ(resolve("Santa Cruz, Bolivya").places[0].countryEn, "Bolivia");
}

TEST_F(Resolution, APartThatMatchesNothingIsSaid) {
    EXPECT_EQ(place("Paris, Atlantis"), "no Paris in Atlantis");
    EXPECT_EQ(place("Paris, Texas, FR"), "no Paris in Texas, FR");
    EXPECT_EQ(place("Ankara, US"), "no Ankara in US");
    const NameResolution result = resolve("London, Türkiye");
    ASSERT_FALSE(result.elsewhere.empty());
    EXPECT_EQ(result.elsewhere[0].countryEn, "United Kingdom");
    EXPECT_EQ(place("Ankra, TR"), "no Ankra");
    EXPECT_EQ(place("Paris, US, us"), "Paris, United States") << "said twice";
    EXPECT_EQ(place("Reading, us"), "Reading, United States");
    EXPECT_EQ(place("Paris, achusetts"), "no Paris in achusetts") << "no part of a word";
}

TEST_F(Resolution, NeitherABeginningNorAPartIsAName) {
    for (const char* text : {"Ist",
                             "Ankarr",
                             "Francisco Cal",
                             "ondon",
                             "Lon",
                             "Ank",
                             "",
                             " ",
                             ",",
                             ", ,",
                             "/",
                             "-",
                             ".",
                             "%%%",
                             "___",
                             "a%b",
                             "Londo_",
                             "*",
                             "?",
                             "x' OR 1=1 --",
                             "'",
                             "\xFF\xFE"}) {
        EXPECT_THAT(resolve(text).places, IsEmpty()) << text;
        EXPECT_THAT(resolve(text).elsewhere, IsEmpty()) << text;
    }
    EXPECT_THAT(resolve(std::string("Paris\0", 6)).places, IsEmpty());
    EXPECT_THAT(resolve(std::string(100'000, 'a')).places, IsEmpty());
    std::string words;
    for (int count = 0; count < 5'000; ++count) {
        words += "Paris ";
    }
    EXPECT_THAT(resolve(words).places, IsEmpty());
}

TEST_F(Resolution, SixtyMisspellingsResolveToNothingAndTheRightPlaceIsSuggested) {
    std::ifstream stream(std::string(ZOREL_SOURCE_DIR) + "/tests/data/catalogue/misspellings.txt");
    int count = 0;
    for (std::string line; std::getline(stream, line); ++count) {
        const std::string text = line.substr(0, line.find('\t'));
        const std::string meant = line.substr(line.find('\t') + 1);
        EXPECT_THAT(resolve(text).places, IsEmpty()) << text;
        EXPECT_THAT(suggestions(text), Contains(meant)) << text;
    }
    EXPECT_EQ(count, 60);
}

TEST_F(Resolution, TheCapitalsInEnglishTurkishAndTheirOwnSpelling) {
    const auto rows = rowsOf("capitals.tsv");
    EXPECT_EQ(rows.size(), 246U);
    for (const auto& row : rows) {
        const std::int32_t capital = std::stoi(row.at(1));
        for (const std::string& name : {row.at(2), row.at(3), row.at(4)}) {
            // Delhi has the name of New Delhi, and more people.
            const bool isNewDelhi = row[0] == "IN" && name == row[4];
            const auto places = resolve(name).places;
            EXPECT_THAT(places, Contains(testing::Field(&NamedPlace::id, capital))) << row[0] << " " << name;
            EXPECT_EQ(id(name + ", " + row[0]), isNewDelhi ? 1273294 : capital) << row[0] << " " << name;
        }
    }
}

TEST_F(Resolution, TheThirtyLargestCitiesInEightScripts) {
    const auto rows = rowsOf("largest_in_scripts.tsv");
    EXPECT_EQ(rows.size(), 223U) << "of 240; the data has no others";
    for (const auto& row : rows) {
        EXPECT_EQ(id(row.at(2)), std::stoi(row.at(0))) << row.at(1) << " " << row.at(2);
    }
}

TEST_F(Resolution, TheResultHasASpellingThatEqualsTheTextAfterFolding) {
    // Words of the catalogue put together, cut and changed at random: whatever resolves is called so.
    std::vector<std::string> names;
    forEachPlace(real_.glbFuncs, 1, [&](const CataloguePlace& place) {
        names.push_back(place.city.name);
        return names.size() < 20'000;
    });
    const auto spellings = allSpellings(real_.glbFuncs.appBundlePath);
    std::mt19937 random(20261122);
    int resolved = 0;
    for (int round = 0; round < 3'000; ++round) {
        std::string text = names[random() % names.size()];
        if (random() % 3 == 0) {
            text.erase(random() % text.size(), 1 + random() % 2);
        } else if (random() % 3 == 0) {
            text += " " + names[random() % names.size()];
        }
        const NameResolution result = resolve(text);
        if (!result.places.empty()) {
            ++resolved;
            const std::string& known = spellings.at(result.places[0].id);
            EXPECT_NE(known.find("|" + foldedName(result.name) + "|"), std::string::npos) << text;
        }
    }
    EXPECT_GT(resolved, 1'000);
    EXPECT_LT(resolved, 2'900);
}

TEST_F(Resolution, SuggestionsAreBeginningsPartsAndSlips) {
    EXPECT_EQ(suggestions("Ank").front(), "Ankara");
    EXPECT_EQ(suggestions("ist").front(), "İstanbul");
    EXPECT_EQ(suggestions("Berln").front(), "Berlin");
    EXPECT_THAT(suggestions("Francisc"), Contains("San Francisco"));
    EXPECT_EQ(suggestions("Islamabadd").front(), "Islamabad");
    EXPECT_EQ(suggestions("Mosckva").front(), "Moscow");
    EXPECT_EQ(suggestions("Москвы г").front(), "Moscow") << "without the last word";
    EXPECT_THAT(suggestions("xqzzyvw"), IsEmpty());
    EXPECT_THAT(suggestions(""), IsEmpty());
    EXPECT_THAT(suggestions("%%%"), IsEmpty());
    EXPECT_LE(suggestions("San").size(), 3U);
}

TEST_F(Resolution, ACatalogueThatCannotBeReadIsNotTheSameAsNoPlace) {
    const test::TemporaryFolder folder;
    const std::string whole = test::readFile(real_.glbFuncs.appBundlePath + "/database/cities.sqlite");
    real_.glbFuncs.appBundlePath = folder.path();
    EXPECT_FALSE(resolveName(real_.glbFuncs, "Ankara")) << "missing";
    std::filesystem::create_directories(folder.path("database"));
    for (const std::string& bytes :
         {std::string("not a database"), whole.substr(0, 5'000'001), std::string()}) {
        test::writeFile(folder.path("database/cities.sqlite"), bytes);
        EXPECT_FALSE(resolveName(real_.glbFuncs, "Ankara")) << bytes.size();
        EXPECT_THAT(similarPlaces(real_.glbFuncs, "Ankra", 3), IsEmpty());
    }
}

} // namespace
} // namespace zorel
