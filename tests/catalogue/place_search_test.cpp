// SPDX-License-Identifier: Apache-2.0
// The search of the command line: the order of what is found, and why it was found.
#include "store/CitySearch.h"
#include "store/MatchedSpelling.h"
#include "tests/catalogue/Fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace zorel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class PlaceSearch : public testing::Test {
protected:
    std::vector<FoundCity> search(const std::string& text) {
        auto cities = searchPlaces(real_.glbFuncs, text);
        EXPECT_TRUE(cities);
        return cities.value_or(std::vector<FoundCity>());
    }
    std::vector<std::string> first(const std::string& text, std::size_t most) {
        std::vector<std::string> names;
        for (const FoundCity& city : search(text)) {
            names.push_back(city.name + ", " + city.nameParent);
            if (names.size() == most) {
                break;
            }
        }
        return names;
    }
    test::RealCatalogue real_;
};

TEST_F(PlaceSearch, PlacesThatAreCalledSoComeFirstThenBeginningsThenTheRest) {
    EXPECT_THAT(first("Colombo", 4),
                ElementsAre("Colombo, Western Province", "Colombo, Paraná", "Monte Colombo, Emilia-Romagna"));
    EXPECT_THAT(first("Ankar", 4), ElementsAre("Ankara, Ankara", "Ankaran, Municipality of Ankaran",
                                               "Ankarsrum, Kalmar", "Srinagar, Jammu and Kashmir"))
        << "another spelling of Ankara, two beginnings, a part of another spelling";
    EXPECT_THAT(first("stock", 4), ElementsAre("Stock, England", "Stockholm, Stockholm",
                                               "Stockton, California", "Stockport, England"));
    EXPECT_THAT(first("Koln", 2), ElementsAre("Köln, North Rhine-Westphalia", "Kolno, Podlasie"));
}

TEST_F(PlaceSearch, TheOrderBehindTheFirstIsThatOfPopulation) {
    const auto cities = search("San Miguel");
    ASSERT_GT(cities.size(), 100U);
    const auto details = detailsOfFound(real_.glbFuncs, cities, "San Miguel");
    std::size_t at = 1;
    // Places of that name, then other spellings of it, then beginnings, then the rest: each larger first.
    int falls = 0;
    for (; at < cities.size(); ++at) {
        falls += details[at].population > details[at - 1].population ? 1 : 0;
    }
    EXPECT_LE(falls, 3);
    EXPECT_EQ(cities[0].name, "San Miguel");
    EXPECT_EQ(cities[1].name, "San Miguel");
}

TEST_F(PlaceSearch, NoPlaceIsThereTwice) {
    for (const char* text : {"Roma", "Medina", "Stock", "San", "東京"}) {
        std::set<std::string> ids;
        const auto cities = search(text);
        for (const FoundCity& city : cities) {
            EXPECT_TRUE(ids.insert(city.cityId).second) << city.name;
        }
        EXPECT_FALSE(ids.empty());
    }
}

TEST_F(PlaceSearch, EverythingThatTheWindowFindsIsFound) {
    for (const char* text : {"Roma", "ist", "London", "ova"}) {
        std::set<std::string> ids;
        for (const FoundCity& city : search(text)) {
            ids.insert(city.cityId);
        }
        for (const FoundCity& city : searchCities(real_.glbFuncs, text)) {
            EXPECT_TRUE(ids.contains(city.cityId)) << text << " " << city.name;
        }
    }
}

TEST_F(PlaceSearch, AnAnswerIsAsFullAsTheWindows) {
    const FoundCity city = search("Zürich").at(0);
    EXPECT_EQ(city.cityId, "2657896");
    EXPECT_EQ(city.nameParent, "Zurich");
    EXPECT_EQ(city.countryNameEn, "Switzerland");
    EXPECT_EQ(city.countryNameTr, "İsviçre");
}

TEST_F(PlaceSearch, RegionOrCountryLeaveOnlyThePlacesThere) {
    EXPECT_THAT(first("Paris, Texas", 9), ElementsAre("Paris, Texas"));
    EXPECT_THAT(first("Paris Texas", 9), ElementsAre("Paris, Texas"));
    EXPECT_THAT(first("Paris, Atlantis", 9), IsEmpty());
}

TEST_F(PlaceSearch, QuotesAndWildcardsAreLetters) {
    EXPECT_THAT(first("N'Djamena", 1), ElementsAre("N'Djamena, N’Djaména"));
    for (const char* text : {"x' OR 1=1 --", "zzz'", "'", "'''", "%%%", "___", "a%b"}) {
        EXPECT_THAT(search(text), IsEmpty()) << text;
    }
}

TEST_F(PlaceSearch, OneOrTwoCharactersFindOnlyWhatIsCalledSo) {
    EXPECT_EQ(first("東京", 1), std::vector<std::string>{"Tokyo, Tokyo"});
    EXPECT_THAT(search("Is"), testing::Each(testing::Field(&FoundCity::name, testing::StartsWith("I"))));
    EXPECT_THAT(search("qx"), IsEmpty());
}

TEST_F(PlaceSearch, TellsWhichSpellingWasFound) {
    const auto spelling = [&](const std::string& text) {
        const auto cities = search(text);
        return detailsOfFound(real_.glbFuncs, std::span(cities).first(1), text).at(0).spelling;
    };
    EXPECT_EQ(spelling("Cologne"), "Cologne");
    EXPECT_EQ(spelling("cologne"), "Cologne");
    EXPECT_EQ(spelling("Köln"), "");
    EXPECT_EQ(spelling("koln"), "");
    EXPECT_EQ(spelling("Kudüs"), "Kudüs");
    EXPECT_EQ(spelling("Москва"), "Москва");
}

TEST(MatchedSpelling, PrefersTheEqualOneThenABeginning) {
    EXPECT_EQ(matchedSpelling("Köln", "Köln|Lungsod ng Cologne|Cologne|Colognem", "cologne"), "Cologne");
    EXPECT_EQ(matchedSpelling("Köln", "Köln|Lungsod ng Cologne|Colognem", "cologne"), "Colognem");
    EXPECT_EQ(matchedSpelling("Köln", "Köln|Lungsod ng Cologne", "cologne"), "Lungsod ng Cologne");
    EXPECT_EQ(matchedSpelling("Köln", "Köln|Keulen", "cologne"), "");
}

TEST(MatchedSpelling, NothingIsSaidWhenTheNameItselfWasFound) {
    EXPECT_EQ(matchedSpelling("São Paulo", "São Paulo|Sao Paulo", "paulo"), "");
    EXPECT_EQ(matchedSpelling("São Paulo", "São Paulo|Sao Paulo", "sao"), "");
    EXPECT_EQ(matchedSpelling("A", "", ""), "");
}

TEST_F(PlaceSearch, DetailsOfNoCitiesAndOfUnknownOnes) {
    EXPECT_THAT(detailsOfFound(real_.glbFuncs, {}, "x"), IsEmpty());
    std::vector<FoundCity> unknown(1);
    unknown[0].cityId = "1";
    EXPECT_EQ(detailsOfFound(real_.glbFuncs, unknown, "x").at(0).population, 0);
    real_.glbFuncs.appBundlePath = "/nowhere";
    EXPECT_THAT(detailsOfFound(real_.glbFuncs, unknown, "x"), SizeIs(1));
    EXPECT_FALSE(searchPlaces(real_.glbFuncs, "London"));
}

} // namespace
} // namespace zorel
