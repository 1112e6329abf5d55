// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/SearchName.h"

#include <gtest/gtest.h>

namespace zorel::catalogue {
namespace {

TEST(SearchName, AnAsciiNameStandsAlone) {
    EXPECT_EQ(searchableName({"Konya", "", {}}), "Konya");
}

TEST(SearchName, AnAccentedNameHasItsPlainAndItsCasedForms) {
    EXPECT_EQ(searchableName({"Øster", "", {}}), "Øster|Oster|øster");
    EXPECT_EQ(searchableName({"Köln", "Koeln", {}}), "Köln|Koeln|Koln|KÖLN");
}

TEST(SearchName, AlternatesFollowTheNameWithTheirPlainForms) {
    EXPECT_EQ(searchableName({"Munich", "", {"München,Minga"}}), "Munich|München|Munchen|Minga|MÜNCHEN");
}

TEST(SearchName, ASpellingContainedInAnEarlierOneIsLeftOut) {
    EXPECT_EQ(searchableName({"New London", "", {"london,LOND,Londra"}}), "New London|Londra");
}

TEST(SearchName, ContainmentFoldsAsciiLettersOnly) {
    EXPECT_EQ(searchableName({"Ufa", "", {"Уфа"}}), "Ufa|Уфа|уфа|УФА");
}

TEST(SearchName, TurkishFormsOfLatinNames) {
    EXPECT_EQ(searchableName({"Izmir", "", {}, true, false}), "Izmir|IZMİR");
    EXPECT_EQ(searchableName({"Iğdır", "Igdir", {}, true, true}), "Iğdır|Igdir|IĞDIR|ığdır|IGDİR|ıgdir");
}

TEST(SearchName, TurkishFormsSkipOtherScripts) {
    EXPECT_EQ(searchableName({"Oran", "", {"وهران"}, true, true}), "Oran|وهران");
}

TEST(SearchName, EmptyAlternatesAreNothing) {
    EXPECT_EQ(searchableName({"Oran", "", {",,"}}), "Oran");
}

TEST(WithoutLatinAccents, StripsAccents) {
    EXPECT_EQ(withoutLatinAccents("São Paulo"), "Sao Paulo");
    EXPECT_EQ(withoutLatinAccents("İstanbul"), "Istanbul");
    EXPECT_EQ(withoutLatinAccents("Şanlıurfa"), "Sanliurfa");
    EXPECT_EQ(withoutLatinAccents("Biên Hòa Ấp"), "Bien Hoa Ap");
    EXPECT_EQ(withoutLatinAccents("e\u0301"), "e") << "an accent of its own";
}

TEST(WithoutLatinAccents, ReplacesStrokesAndLigatures) {
    EXPECT_EQ(withoutLatinAccents("Tromsø Łódź Đà Straße"), "Tromso Lodz Da Strasse");
    EXPECT_EQ(withoutLatinAccents("Æœ Ð Þorn Bəkə"), "AEoe D THorn Beke");
    EXPECT_EQ(withoutLatinAccents("Ǿ"), "O") << "a stroke and an accent";
}

TEST(WithoutLatinAccents, LeavesOtherScriptsAlone) {
    for (const char* text : {"Москвай ё", "القاهرة", "Αθήνα", "東京", "кё́"}) {
        EXPECT_EQ(withoutLatinAccents(text), text);
    }
}

} // namespace
} // namespace zorel::catalogue
