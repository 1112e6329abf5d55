// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/SpellingIndex.h"

#include "tests/catalogue/Fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace zorel::catalogue {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// "folded place", "folded place other" or "folded place loose".
std::vector<std::string> texts(const std::vector<Spelling>& spellings) {
    std::vector<std::string> lines;
    for (const Spelling& spelling : spellings) {
        lines.push_back(spelling.folded + " " + std::to_string(spelling.place) +
                        std::array{"", " other", " loose"}.at(static_cast<std::size_t>(spelling.kind)));
    }
    return lines;
}

PlacedPlace placeOf(std::string_view name, std::string_view alternates, std::int64_t population) {
    PlacedPlace entry;
    entry.place.name = name;
    entry.place.alternates = alternates;
    entry.place.population = population;
    return entry;
}

TEST(SpellingIndex, EverySpellingStandsOnceInTheOrderOfBytes) {
    EXPECT_THAT(texts(spellingsOf({placeOf("Köln", "Cologne,Koln,KÖLN,Keulen", 900'000)})),
                ElementsAre("cologne 0 other", "keulen 0 other", "koln 0"));
}

TEST(SpellingIndex, PlacesOfOneSpellingStandInTheirOrder) {
    EXPECT_THAT(texts(spellingsOf({placeOf("Rome", "Roma", 2'000'000), placeOf("Roma", "", 9'000)})),
                ElementsAre("roma 0 other", "roma 1", "rome 0"));
}

TEST(SpellingIndex, AShortOtherSpellingOfASmallPlaceIsNoName) {
    EXPECT_THAT(texts(spellingsOf({placeOf("Inak", "`Ank,Anek,عنك", 20'000)})),
                ElementsAre("anek 0 other", "inak 0", "عنك 0 other"));
    EXPECT_THAT(texts(spellingsOf({placeOf("Rio de Janeiro", "Rio", 6'000'000)})), Contains("rio 0 other"));
    EXPECT_THAT(texts(spellingsOf({placeOf("Van", "", 20)})), ElementsAre("van 0")) << "a shown name is one";
}

TEST(SpellingIndex, AnApostropheStandsForALetter) {
    EXPECT_THAT(texts(spellingsOf({placeOf("Kazan", "Kozan',Qazan", 1'200'000)})),
                ElementsAre("kazan 0", "kozan 0 loose", "qazan 0 other"));
    EXPECT_THAT(texts(spellingsOf({placeOf("Kazan", "Kozan',Kozan", 1'200'000)})),
                ElementsAre("kazan 0", "kozan 0 other"))
        << "known without it too";
    EXPECT_THAT(texts(spellingsOf({placeOf("Xi'an", "Xi’an,Sian", 8'000'000)})),
                ElementsAre("sian 0 other", "xian 0"));
    for (const char* name : {"Ko`zan", "Ko\u00B4zan", "Ko\u02B9zan", "Ko\u02BBzan", "Ko\u02BCzan",
                             "Ko\u02BEzan", "Ko\u02BFzan", "Ko\u2018zan", "Ko\u2019zan"}) {
        EXPECT_THAT(texts(spellingsOf({placeOf("Kazan", name, 1'200'000)})), Contains("kozan 0 loose"))
            << name;
    }
}

TEST(SpellingIndex, WhatFoldsToNothingIsLeftOut) {
    EXPECT_THAT(texts(spellingsOf({placeOf("-", "',.,,", 900'000)})), IsEmpty());
}

TEST(SpellingIndex, TakesAllThreeLists) {
    PlacedPlace entry = placeOf("A", "Bcde", 900'000);
    entry.place.asciiName = "Ascii";
    entry.exactSpellings = "Cdef";
    entry.moreSpellings = "Defg,北京";
    EXPECT_THAT(texts(spellingsOf({entry})), ElementsAre("a 0", "ascii 0 other", "bcde 0 other",
                                                         "cdef 0 other", "defg 0 other", "北京 0 other"));
}

TEST(SpellingIndex, ACountryHasItsCodes) {
    EXPECT_THAT(texts(spellingsOf({Country{"TR", "Türkiye", "Türkiye", "Turkey,Türkei"}})),
                ElementsAre("tr 0 other", "tur 0 other", "turkei 0 other", "turkey 0 other", "turkiye 0"));
}

TEST(SpellingIndex, SourcesHandOverTheFurtherSpellings) {
    const test::SourceFolder folder;
    Problems problems;
    const Sources sources = Sources::read(folder.path(), problems);
    EXPECT_THAT(problems.lines(), IsEmpty());
    const auto spellings = texts(spellingsOf(sources.places));
    EXPECT_THAT(spellings, Contains("стамбул 0 other"));
    EXPECT_THAT(spellings, Contains("turicum 1 other"));
    EXPECT_THAT(spellings, Contains("苏黎世 1 other"));
    EXPECT_THAT(spellings, Not(Contains("turicum 0 other")));
    EXPECT_THAT(texts(spellingsOf(sources.countries)), Contains("schweiz 0 other"));
    EXPECT_EQ(sources.regions[sources.places[1].region].code, "ZH");
    EXPECT_EQ(sources.regions[sources.places[0].region].code, "");
}

} // namespace
} // namespace zorel::catalogue
