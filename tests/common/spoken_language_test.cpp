// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "common/SpokenLanguage.h"
#include "platform/foundation/Locale.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zorel {
namespace {

class SpokenLanguage : public ::testing::Test {
protected:
    ~SpokenLanguage() override { speakInPane(""); }

    test::TemporaryLocations locations_;
    LocaleOverride locale_{"en_US"};
};

TEST_F(SpokenLanguage, OutranksTheLocale) {
    speakInPane("tr");
    const GlobalFuncs functions;
    EXPECT_EQ(functions.languageId, 0);
    EXPECT_EQ(functions.GetTextPrayLabels(200), "İmsak");
    const LocaleOverride turkish("tr_TR");
    speakInPane("en");
    EXPECT_EQ(GlobalFuncs().languageId, 1);
}

TEST_F(SpokenLanguage, NobodySpeaksAndTheLocaleChooses) {
    EXPECT_EQ(GlobalFuncs().languageId, 1);
    const LocaleOverride turkish("tr_TR");
    EXPECT_EQ(GlobalFuncs().languageId, 0);
}

TEST_F(SpokenLanguage, ALanguageWithoutANumberHasAFileOfItsName) {
    const std::string bundle = locations_.folder.path("bundle");
    std::filesystem::create_directories(bundle + "/Languages");
    std::ofstream(bundle + "/Languages/xx.plist")
        << "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict><key>PRAYERS</key><dict>"
           "<key>FAJR</key><string>Morgen</string></dict></dict></plist>";
    Locations::current().bundle = bundle;
    speakInPane("xx");
    const GlobalFuncs functions;
    EXPECT_EQ(functions.languageId, kLanguageWithoutNumber);
    EXPECT_EQ(functions.GetTextPrayLabels(200), "Morgen");
}

} // namespace
} // namespace zorel
