// SPDX-License-Identifier: Apache-2.0
#include "tests/words/Catalogues.h"

#include "words/Tr.h"

#include <gtest/gtest.h>

namespace zorel::test {

namespace {
/// A language with an order of its own, three plural forms, and some texts.
constexpr const char* kEntries = R"(
msgid "{0} of {1}"
msgstr "{1}: {0}"

msgid "no command {}"
msgstr "{} yok"

msgid "typed {name} as it stands"
msgstr "{name} olduğu gibi"

msgid "{:.1f}° east"
msgstr "doğu {:.1f}°"

msgid "broken {}"
msgstr "bozuk {3}"

msgctxt "Rumi month"
msgid "October"
msgstr "Teşrin-i Evvel"

msgctxt "date"
msgid "{0} {1}"
msgstr "{1} {0}"

msgid "October"
msgstr "Ekim"

msgid "{} day"
msgid_plural "{} days"
msgstr[0] "{} день"
msgstr[1] "{} дня"
msgstr[2] "{} дней"

msgid "{0} result for {1}"
msgid_plural "{0} results for {1}"
msgstr[0] "{1}: {0} a"
msgstr[1] "{1}: {0} b"
msgstr[2] "{1}: {0} c"
)";
constexpr const char* kSlavic =
    "nplurals=3; plural=(n%10==1 && n%100!=11 ? 0 : n%10>=2 && n%10<=4 && (n%100<12 || n%100>14) ? 1 : 2);";

class Tr : public ::testing::Test {
protected:
    Tr() { world_.add("xx", kSlavic, kEntries); }
    void speak() { world_.use({"xx"}); }

    Catalogues world_;
};
} // namespace

TEST_F(Tr, PlaceholdersAreFilledInTheOrderOfTheLanguage) {
    EXPECT_EQ(tr("{0} of {1}", 3, "x"), "3 of x");
    speak();
    EXPECT_EQ(tr("{0} of {1}", 3, "x"), "x: 3");
    EXPECT_EQ(tr("no command {}", "abc"), "abc yok");
    EXPECT_EQ(tr("{:.1f}° east", 1.25), "doğu 1.2°");
}

TEST_F(Tr, WithoutArgumentsBracesAreText) {
    EXPECT_EQ(tr("typed {name} as it stands"), "typed {name} as it stands");
    speak();
    EXPECT_EQ(tr("typed {name} as it stands"), "{name} olduğu gibi");
}

TEST_F(Tr, WhatTheCatalogueLacksIsSaidInEnglish) {
    speak();
    EXPECT_EQ(tr("not there: {}", 1), "not there: 1");
    EXPECT_EQ(trIn("nobody", "October"), "October");
    EXPECT_EQ(trPlural("{} mile", "{} miles", 2), "2 miles");
    EXPECT_EQ(tr(""), "") << "the header of the catalogue is no text";
}

TEST_F(Tr, ATranslationThatCannotBeFilledGivesWayToEnglish) {
    speak();
    EXPECT_EQ(tr("broken {}", 1), "broken 1");
}

TEST_F(Tr, AContextTellsTextsApart) {
    EXPECT_EQ(trIn("Rumi month", "October"), "October");
    EXPECT_EQ(trIn("date", "{0} {1}", 21, "May"), "21 May");
    speak();
    EXPECT_EQ(trIn("Rumi month", "October"), "Teşrin-i Evvel");
    EXPECT_EQ(tr("October"), "Ekim");
    EXPECT_EQ(trIn("date", "{0} {1}", 21, "May"), "May 21");
}

TEST_F(Tr, NumbersChooseTheForm) {
    EXPECT_EQ(trPlural("{} day", "{} days", 1), "1 day");
    EXPECT_EQ(trPlural("{} day", "{} days", 0), "0 days");
    EXPECT_EQ(trPlural("{0} result for {1}", "{0} results for {1}", 2, "x"), "2 results for x");
    speak();
    EXPECT_EQ(trPlural("{} day", "{} days", 1), "1 день");
    EXPECT_EQ(trPlural("{} day", "{} days", 22), "22 дня");
    EXPECT_EQ(trPlural("{} day", "{} days", 11), "11 дней");
    EXPECT_EQ(trPlural("{0} result for {1}", "{0} results for {1}", 21, "y"), "y: 21 a");
    EXPECT_EQ(trPlural("{0} result for {1}", "{0} results for {1}", 5, "y"), "y: 5 c");
}

TEST_F(Tr, MarkedTextsAreSaidLater) {
    constexpr const char* kLater = trLaterIn("Rumi month", "October");
    constexpr const char* kPlain = trLater("October");
    speak();
    EXPECT_EQ(trIn("Rumi month", kLater), "Teşrin-i Evvel");
    EXPECT_EQ(tr(kPlain), "Ekim");
}

} // namespace zorel::test
