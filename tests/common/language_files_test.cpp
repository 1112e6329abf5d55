// SPDX-License-Identifier: Apache-2.0
// The four language files say the same things: the same keys, the same placeholders, nothing empty or left
// over.
#include "platform/foundation/PropertyList.h"

#include <array>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>

namespace zorel {
namespace {

constexpr std::array<const char*, 4> kFiles = {"tr.lproj/tr.plist", "en.lproj/en.plist", "Languages/fr.plist",
                                               "Languages/ge.plist"};
using Texts = std::map<std::string, std::string>;

Texts textsOf(const std::string& file, const std::string& section) {
    Texts texts;
    const auto list = PropertyList::read(std::string(ZOREL_SOURCE_DIR) + "/resources/Zorel.bundle/" + file);
    const PropertyList* entries = list ? list->find(section) : nullptr;
    if (entries != nullptr && entries->dictionary() != nullptr) {
        for (const auto& [key, entry] : *entries->dictionary()) {
            texts[key] = entry.text() != nullptr ? *entry.text() : "";
        }
    }
    return texts;
}

std::set<std::string> keysOf(const Texts& texts) {
    std::set<std::string> keys;
    for (const auto& [key, text] : texts) {
        keys.insert(key);
    }
    return keys;
}

std::vector<std::string> placeholdersIn(const std::string& text) {
    static const std::regex placeholder("%[^ ]?");
    return {std::sregex_token_iterator(text.begin(), text.end(), placeholder), std::sregex_token_iterator()};
}

/// Length of a ringing duration, by its number and whether its unit is minutes.
int secondsIn(const std::string& text) {
    const std::size_t blank = text.find(' ');
    const bool minutes = text[blank + 1] == 'm' || text[blank + 1] == 'M' || text[blank + 1] == 'd';
    return std::stoi(text) * (minutes ? 60 : 1);
}

TEST(LanguageFiles, HaveEveryKeyThatThePaneUses) {
    const std::set<std::string> common = {
        "1005", "1006", "1007", "1008", "1009", "1010", "1011", "1012", "1020", "1022",
        "1023", "1024", "1025", "1028", "1029", "1030", "1033", "1034", "1035", "1036",
        "1037", "1038", "1039", "1040", "1041", "1042", "1043", "1044", "1045", "1046",
        "1047", "1048", "1049", "1050", "1051", "1052", "1053", "1054", "1055", "1056",
        "1057", "1058", "1059", "1060", "1061", "1062", "1063", "1064", "1065", "1066"};
    const std::set<std::string> prayers = {"FAJR", "TULU",   "DHUHR",    "ASR",    "MAGHRIB",
                                           "ISHA", "ISHRAQ", "ASRTHANI", "I-SHAMS"};
    for (const char* file : kFiles) {
        EXPECT_EQ(keysOf(textsOf(file, "COMMON")), common) << file;
        EXPECT_EQ(keysOf(textsOf(file, "PRAYERS")), prayers) << file;
    }
}

TEST(LanguageFiles, HaveTheSamePlaceholders) {
    const Texts turkish = textsOf(kFiles[0], "COMMON");
    ASSERT_EQ(placeholdersIn(turkish.at("1033")), std::vector<std::string>{"%d"});
    ASSERT_EQ(placeholdersIn(turkish.at("1034")), std::vector<std::string>{"%d"});
    for (const char* file : kFiles) {
        for (const auto& [key, text] : textsOf(file, "COMMON")) {
            EXPECT_EQ(placeholdersIn(text), placeholdersIn(turkish.at(key))) << file << ' ' << key;
        }
    }
}

TEST(LanguageFiles, HaveNoEmptyAndNoUntrimmedText) {
    for (const char* file : kFiles) {
        for (const char* section : {"COMMON", "PRAYERS"}) {
            for (const auto& [key, text] : textsOf(file, section)) {
                ASSERT_FALSE(text.empty()) << file << ' ' << key;
                EXPECT_NE(text.front(), ' ') << file << ' ' << key;
                EXPECT_NE(text.back(), ' ') << file << ' ' << key;
            }
        }
    }
}

TEST(LanguageFiles, TellNoTwoPrayersByOneName) {
    for (const char* file : kFiles) {
        std::set<std::string> names;
        for (const auto& [key, text] : textsOf(file, "PRAYERS")) {
            EXPECT_TRUE(names.insert(text).second) << file << ' ' << text;
        }
    }
}

TEST(LanguageFiles, ListTheSameDurationsFromShortToLong) {
    const Texts english = textsOf(kFiles[1], "COMMON");
    for (const char* file : kFiles) {
        const Texts texts = textsOf(file, "COMMON");
        int previous = 0;
        for (int key = 1005; key <= 1012; ++key) {
            const int seconds = secondsIn(texts.at(std::to_string(key)));
            EXPECT_GT(seconds, previous) << file << ' ' << key;
            EXPECT_EQ(seconds, secondsIn(english.at(std::to_string(key)))) << file << ' ' << key;
            previous = seconds;
        }
        EXPECT_EQ(previous, 300) << file;
    }
}

} // namespace
} // namespace zorel
