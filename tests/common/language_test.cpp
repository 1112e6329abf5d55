// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/foundation/Locale.h"
#include "platform/foundation/Locations.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

class Language : public testing::Test {
protected:
    [[nodiscard]] std::string log() const {
        return test::readFile(locations_.folder.path("SettingsLog.txt"));
    }

    test::TemporaryLocations locations_;
};

TEST_F(Language, IsTurkishWhereTheDayPeriodsAreTurkish) {
    const LocaleOverride locale("tr_TR");
    const GlobalFuncs functions;
    EXPECT_EQ(functions.amSym, "öö");
    EXPECT_EQ(functions.pmSym, "ös");
    EXPECT_EQ(functions.languageId, 0);
    EXPECT_EQ(functions.GetTextPrayLabels(200), "İmsak");
}

TEST_F(Language, IsEnglishEverywhereElse) {
    for (const char* name : {"en_US", "en_US_POSIX", "fr_FR", "de_DE", "az_AZ", "ar_SA", "ja_JP"}) {
        const LocaleOverride locale(name);
        const GlobalFuncs functions;
        EXPECT_EQ(functions.languageId, 1) << name;
        EXPECT_EQ(functions.GetTextPrayLabels(201), "Sunrise") << name;
    }
    EXPECT_EQ(log(), "");
}

TEST_F(Language, IsChangedByItsNumberAndALoad) {
    GlobalFuncs functions;
    const std::pair<std::int32_t, const char*> names[] = {
        {2, "Chourouk"}, {3, "Sonnenaufgang"}, {0, "Güneş"}, {1, "Sunrise"}};
    for (const auto& [language, sunrise] : names) {
        functions.languageId = language;
        functions.loadLanguageFile();
        EXPECT_EQ(functions.GetTextPrayLabels(201), sunrise);
    }
}

TEST_F(Language, StaysWhenTheNextOneIsMissing) {
    const LocaleOverride locale("en_US");
    GlobalFuncs functions;
    functions.appBundlePath = "/no/such/bundle";
    functions.languageId = 3;
    functions.loadLanguageFile();
    EXPECT_THAT(log(), EndsWith("] Language file not found : /no/such/bundle/Languages/ge.plist\n"));
    EXPECT_EQ(functions.GetTextPrayLabels(200), "Fajr");
}

TEST_F(Language, OutsideTheFourHasNoFile) {
    const LocaleOverride locale("en_US");
    GlobalFuncs functions;
    for (const std::int32_t language : {-1, 4, 2147483647}) {
        functions.languageId = language;
        functions.loadLanguageFile();
    }
    EXPECT_THAT(log(), HasSubstr("] Language file not found : (null)\n"));
    EXPECT_EQ(functions.GetTextPrayLabels(200), "Fajr");
}

TEST_F(Language, StaysWhenTheNextOneIsBroken) {
    const LocaleOverride locale("en_US");
    GlobalFuncs functions;
    const std::string bundle = locations_.folder.path("bundle");
    for (const char* content : {"", "no property list", "<plist><string>a</string></plist>"}) {
        test::writeFile(bundle + "/Languages/fr.plist", content);
        functions.appBundlePath = bundle;
        functions.languageId = 2;
        functions.loadLanguageFile();
        EXPECT_THAT(log(), EndsWith("] Language file not readable : " + bundle + "/Languages/fr.plist\n"));
        EXPECT_EQ(functions.GetTextPrayLabels(200), "Fajr");
    }
}

TEST_F(Language, MissingFromTheStartLeavesEveryTextEmpty) {
    const LocaleOverride locale("tr_TR");
    Locations::current().bundle = "/no/such/bundle";
    const GlobalFuncs functions;
    EXPECT_EQ(functions.appBundlePath, "/no/such/bundle");
    EXPECT_EQ(functions.GetKeyValue(1024), std::nullopt);
    EXPECT_EQ(functions.GetTextPrayLabels(200), std::nullopt);
    EXPECT_THAT(log(), EndsWith("] Language file not found : /no/such/bundle/tr.lproj/tr.plist\n"));
}

TEST_F(Language, AnswersNothingForAKeyThatIsMissingOrNoText) {
    const LocaleOverride locale("en_US");
    const std::string bundle = locations_.folder.path("bundle");
    test::writeFile(
        bundle + "/en.lproj/en.plist",
        "<plist version=\"1.0\"><dict><key>COMMON</key><dict><key>1</key><integer>5</integer>"
        "<key>2</key><string></string></dict><key>PRAYERS</key><string>none</string></dict></plist>");
    Locations::current().bundle = bundle;
    const GlobalFuncs functions;
    EXPECT_EQ(functions.GetKeyValue(1), std::nullopt);
    EXPECT_EQ(functions.GetKeyValue(2), "");
    EXPECT_EQ(functions.GetKeyValue(-2147483647 - 1), std::nullopt);
    EXPECT_EQ(functions.GetTextPrayLabels(200), std::nullopt);
}

TEST_F(Language, NamesTheNinePrayersById) {
    const LocaleOverride locale("tr_TR");
    const GlobalFuncs functions;
    const char* names[] = {"İmsak", "Güneş", "Öğle",       "İkindi",        "Akşam",
                           "Yatsı", "İşrak", "Asr-ı sânî", "İsfirâr-ı şems"};
    std::int32_t prayerId = 200;
    for (const char* name : names) {
        EXPECT_EQ(functions.GetTextPrayLabels(prayerId++), name);
    }
    for (const std::int32_t none : {199, 209, 0, -1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(functions.GetTextPrayLabels(none), std::nullopt) << none;
    }
}

TEST_F(Language, FillsPickersRowByRow) {
    const GlobalFuncs functions;
    std::vector<UIComboboxItem> items;
    functions.addComboItem(items, "5 seconds", "", 0);
    functions.addComboItem(items, "Bell", "Bell.m4r", 7);
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].displayText, "5 seconds");
    EXPECT_EQ(items[1].itemID, 7);
    EXPECT_EQ(items[1].displayText, "Bell");
    EXPECT_EQ(items[1].originalText, "Bell.m4r");
}

TEST_F(Language, KeepsTheDebugState) {
    GlobalFuncs functions;
    EXPECT_EQ(functions.getDebugState(), 0);
    functions.setDebugState(3);
    EXPECT_EQ(functions.getDebugState(), 3);
}

} // namespace
} // namespace zorel
