// SPDX-License-Identifier: Apache-2.0
#include "tests/words/Catalogues.h"

#include "words/Tr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>

namespace zorel::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {
const std::string kOneForm = "nplurals=1; plural=0;";

std::string hello(const std::string& translation) {
    return "msgid \"Hello\"\nmsgstr \"" + translation + "\"\n";
}

void set(const char* name, const char* value) {
    setenv(name, value, 1);
}
} // namespace

TEST(Environment, TheFirstVariableThatIsSetCounts) {
    const Catalogues world;
    EXPECT_THAT(languagesOfEnvironment(), IsEmpty());
    set("LANG", "de_DE.UTF-8");
    EXPECT_THAT(languagesOfEnvironment(), ElementsAre("de_DE"));
    set("LC_MESSAGES", "ar_EG.UTF-8@variant");
    EXPECT_THAT(languagesOfEnvironment(), ElementsAre("ar_EG"));
    set("LC_ALL", "tr_TR");
    EXPECT_THAT(languagesOfEnvironment(), ElementsAre("tr_TR"));
    set("LC_ALL", "");
    EXPECT_THAT(languagesOfEnvironment(), ElementsAre("ar_EG"));
}

TEST(Environment, TheListOfLanguageStandsBeforeTheLocale) {
    const Catalogues world;
    set("LANG", "de_DE.UTF-8");
    set("LANGUAGE", "bs:hr::en_GB.UTF-8");
    EXPECT_THAT(languagesOfEnvironment(), ElementsAre("bs", "hr", "en_GB", "de_DE"));
}

TEST(Environment, TheListDoesNotCountInThePlainLocale) {
    const Catalogues world;
    set("LANGUAGE", "tr");
    EXPECT_THAT(languagesOfEnvironment(), IsEmpty()) << "no locale at all";
    for (const char* plain : {"C", "POSIX"}) {
        set("LC_ALL", plain);
        EXPECT_THAT(languagesOfEnvironment(), IsEmpty()) << plain;
    }
    set("LC_ALL", "C.UTF-8");
    EXPECT_THAT(languagesOfEnvironment(), ElementsAre("tr")) << "as the C library has it";
}

TEST(Language, EnglishIsThatOfTheSources) {
    const Catalogues world;
    world.use({});
    EXPECT_EQ(languageInUse(), "en");
    EXPECT_EQ(tr("Hello"), "Hello");
}

TEST(Language, TheFirstThatIsThereIsSpoken) {
    Catalogues world;
    world.add("tr", kOneForm, hello("Merhaba"));
    world.add("de", kOneForm, hello("Hallo"));
    world.use({"xx", "tr_TR", "de"});
    EXPECT_EQ(languageInUse(), "tr");
    EXPECT_EQ(tr("Hello"), "Merhaba");
    world.use({"en_GB", "tr"});
    EXPECT_EQ(languageInUse(), "en") << "English is always there";
    EXPECT_EQ(tr("Hello"), "Hello");
    world.use({"xx"});
    EXPECT_EQ(languageInUse(), "en");
}

TEST(Language, ACountryMayHaveItsOwn) {
    Catalogues world;
    world.add("pt", kOneForm, hello("Olá"));
    world.add("pt_BR", kOneForm, hello("Oi"));
    world.use({"pt_BR"});
    EXPECT_EQ(languageInUse(), "pt_BR");
    EXPECT_EQ(tr("Hello"), "Oi");
    world.use({"pt_AO"});
    EXPECT_EQ(languageInUse(), "pt");
    EXPECT_EQ(tr("Hello"), "Olá");
}

TEST(Language, ChangesWhileTheProgramRuns) {
    Catalogues world;
    world.add("tr", kOneForm, hello("Merhaba"));
    world.add("ar", kOneForm, hello("مرحبا"));
    for (int round = 0; round < 3; ++round) {
        world.use({"tr"});
        EXPECT_EQ(tr("Hello"), "Merhaba");
        world.use({"ar"});
        EXPECT_EQ(tr("Hello"), "مرحبا");
        world.use({});
        EXPECT_EQ(tr("Hello"), "Hello");
    }
}

TEST(Language, NeedsNoLocaleOfItsOwnOnTheMachine) {
    Catalogues world;
    world.add("ar", kOneForm, hello("مرحبا"));
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    set("LANG", "ar_EG.UTF-8");
    world.use(languagesOfEnvironment());
    EXPECT_EQ(tr("Hello"), "مرحبا");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C") << "numbers stay as programs read them";
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(Language, ANameThatIsAPathIsNone) {
    Catalogues world;
    world.add("tr", kOneForm, hello("Merhaba"));
    world.use({"../" + world.folder.path("tr")});
    EXPECT_EQ(languageInUse(), "en");
    world.use({""});
    EXPECT_EQ(languageInUse(), "en");
}

TEST(Language, ABrokenCatalogueLeavesTheEnglishTexts) {
    Catalogues world;
    world.add("tr", kOneForm, hello("Merhaba"));
    std::ofstream(world.folder.path("tr/LC_MESSAGES/zorel.mo")) << "this is no catalogue";
    world.use({"tr"});
    EXPECT_EQ(tr("Hello"), "Hello");
}

TEST(Language, ScriptsFromRightToLeft) {
    for (const char* language : {"ar", "ar_EG", "fa", "ur", "ur_PK", "he"}) {
        EXPECT_TRUE(isRightToLeft(language)) << language;
    }
    for (const char* language : {"en", "tr", "bn", "ms", "ru", "arn", ""}) {
        EXPECT_FALSE(isRightToLeft(language)) << language;
    }
}

TEST(Language, TheCataloguesOfTheProgramLieBesideItsBundle) {
    EXPECT_EQ(catalogueFolder(), std::string(ZOREL_BINARY_DIR) + "/share/locale");
    useLanguages({"tr"});
    EXPECT_EQ(languageInUse(), "tr");
    EXPECT_EQ(tr("less than a minute"), "bir dakikadan az");
    useLanguages({});
}

} // namespace zorel::test
