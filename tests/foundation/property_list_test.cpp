// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListGuard.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

namespace zorel {
namespace {

std::string xml(const std::string& body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body + "</plist>";
}

std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

/// Puts objects (each at most 255 bytes, at most 255 of them) into the form of a binary property list.
std::string binary(const std::vector<std::string>& objects, unsigned top = 0) {
    std::string bytes = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += static_cast<char>(bytes.size() >> 8);
        table += static_cast<char>(bytes.size() & 0xFF);
        bytes += object;
    }
    const auto number = [](std::size_t value) {
        return std::string(6, '\0') + static_cast<char>(value >> 8) + static_cast<char>(value & 0xFF);
    };
    const std::string trailer =
        std::string(6, '\0') + "\x02\x01" + number(objects.size()) + number(top) + number(bytes.size());
    return bytes + table + trailer;
}

TEST(PropertyList, ReadsEveryKindOfNode) {
    const auto list =
        PropertyList::parse(xml("<dict><key>text</key><string>İmsak &amp; Öğle</string>"
                                "<key>whole</key><integer>-42</integer><key>real</key><real>1.5</real>"
                                "<key>yes</key><true/><key>no</key><false/>"
                                "<key>list</key><array><string>a</string><string>b</string></array>"
                                "<key>date</key><date>2024-01-01T00:00:00Z</date></dict>"));
    ASSERT_TRUE(list);
    EXPECT_EQ(*list->find("text")->text(), "İmsak & Öğle");
    EXPECT_EQ(std::get<std::int64_t>(list->find("whole")->value), -42);
    EXPECT_EQ(std::get<double>(list->find("real")->value), 1.5);
    EXPECT_TRUE(std::get<bool>(list->find("yes")->value));
    EXPECT_FALSE(std::get<bool>(list->find("no")->value));
    ASSERT_EQ(list->find("list")->array()->size(), 2U);
    EXPECT_EQ(*list->find("list")->array()->at(1).text(), "b");
    EXPECT_TRUE(std::holds_alternative<std::monostate>(list->find("date")->value));
}

TEST(PropertyList, AnswersNothingForTheWrongKind) {
    const auto list = PropertyList::parse(xml("<dict><key>a</key><string>b</string></dict>"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->find("missing"), nullptr);
    EXPECT_EQ(list->text(), nullptr);
    EXPECT_EQ(list->array(), nullptr);
    EXPECT_EQ(list->find("a")->find("b"), nullptr);
    EXPECT_EQ(list->find("a")->dictionary(), nullptr);
}

TEST(PropertyList, ReadsTheBinaryForm) {
    const auto list = PropertyList::parse(binary({"\xD1\x01\x02", "\x53key", "\x55value"}));
    ASSERT_TRUE(list);
    ASSERT_NE(list->find("key"), nullptr);
    EXPECT_EQ(*list->find("key")->text(), "value");
}

TEST(PropertyList, SharesTextsButNotListsInTheBinaryForm) {
    EXPECT_TRUE(PropertyList::parse(binary({"\xA2\x01\x01", "\x53key"})));
    EXPECT_FALSE(PropertyList::parse(binary({"\xA2\x01\x01", "\xA1\x02", "\x53key"})));
}

TEST(PropertyList, RefusesAListThatGrowsAsItIsCopied) {
    std::vector<std::string> objects;
    for (int level = 1; level <= 40; ++level) {
        objects.push_back(std::string("\xA2") + static_cast<char>(level) + static_cast<char>(level));
    }
    objects.emplace_back("\x51x");
    EXPECT_FALSE(PropertyList::parse(binary(objects)));
}

TEST(PropertyList, RefusesAListThatContainsItself) {
    EXPECT_FALSE(PropertyList::parse(binary({std::string("\xA1\x00", 2)})));
    EXPECT_FALSE(PropertyList::parse(binary({"\xA1\x01", std::string("\xA1\x00", 2)})));
}

TEST(PropertyList, RefusesTrailersThatPointOutside) {
    const std::string good = binary({"\xA1\x01", "\x51x"});
    ASSERT_TRUE(PropertyList::parse(good));
    for (std::size_t field = good.size() - 26; field < good.size(); ++field) {
        for (const int value : {0x7F, 0xFF}) {
            std::string bad = good;
            bad[field] = static_cast<char>(value);
            EXPECT_NO_THROW(static_cast<void>(PropertyList::parse(bad)));
        }
    }
}

TEST(PropertyList, RefusesTextsWithAZero) {
    using namespace std::string_literals;
    EXPECT_FALSE(PropertyList::parse(xml("<string>a\0b</string>"s)));
    EXPECT_FALSE(PropertyList::parse(xml("<dict><key>a\0b</key><true/></dict>"s)));
    EXPECT_FALSE(PropertyList::parse(binary({"\xA1\x01", "\x53"
                                                         "a\0b"s})));
    EXPECT_FALSE(PropertyList::parse(binary({"\xA1\x01", "\x62\0a\0\0"s})));
    EXPECT_TRUE(PropertyList::parse(binary({"\xA1\x01", "\x62\0a\0b"s})));
    for (const char* reference : {"&#0;", "&#x0;", "&#x00000;"}) {
        EXPECT_NO_THROW(static_cast<void>(PropertyList::parse(xml("<string>a"s + reference + "b</string>"))));
        EXPECT_NO_THROW(static_cast<void>(
            PropertyList::parse(xml("<dict><key>a"s + reference + "b</key><true/></dict>"))));
    }
}

TEST(PropertyList, NestsSixtyFourLevelsAndNoMore) {
    const auto nested = [](std::size_t levels) {
        return xml(repeated("<array>", levels) + repeated("</array>", levels));
    };
    EXPECT_TRUE(PropertyList::parse(nested(64)));
    EXPECT_FALSE(PropertyList::parse(nested(65)));
    EXPECT_FALSE(PropertyList::parse(nested(4000)));
    EXPECT_FALSE(PropertyList::parse(nested(15000)));
    EXPECT_FALSE(PropertyList::parse(xml(repeated("<array>", 30000))));
    EXPECT_FALSE(PropertyList::parse(xml(repeated("<dict><key>a</key>", 10000))));
}

TEST(PropertyList, RefusesWhatIsTooLarge) {
    const std::string large = xml("<string>" + std::string(kLargestPropertyList, 'x') + "</string>");
    EXPECT_FALSE(PropertyList::parse(large));
    const std::string fitting = xml("<string>" + std::string(200000, 'x') + "</string>");
    ASSERT_TRUE(PropertyList::parse(fitting));
    EXPECT_EQ(PropertyList::parse(fitting)->text()->size(), 200000U);
}

TEST(PropertyList, RefusesWhatIsNone) {
    for (const std::string_view bytes : {"", " ", "bplist00", "bplist", "hello", "<plist>", "<plist></plist>",
                                         "{}", "<!DOCTYPE html><html></html>", "<?xml version=\"1.0\"?>"}) {
        EXPECT_FALSE(PropertyList::parse(bytes)) << bytes;
    }
}

TEST(PropertyList, SurvivesEveryTruncationAndDamage) {
    const std::string files[] = {
        xml("<dict><key>a</key><array><string>b</string><real>1.5</real></array></dict>"),
        binary({"\xD1\x01\x02", "\x53key", "\xA2\x03\x01", "\x55value"})};
    std::mt19937 random(5);
    for (const std::string& file : files) {
        for (std::size_t length = 0; length < file.size(); ++length) {
            EXPECT_NO_THROW(static_cast<void>(PropertyList::parse(std::string_view(file).substr(0, length))));
        }
        for (int i = 0; i < 5000; ++i) {
            std::string damaged = file;
            damaged[random() % damaged.size()] = static_cast<char>(random());
            damaged[random() % damaged.size()] = static_cast<char>(random());
            EXPECT_NO_THROW(static_cast<void>(PropertyList::parse(damaged)));
        }
    }
}

/// Inputs on which the reader once ended the program; found by tests/fuzz.
TEST(PropertyList, SurvivesWhatWasFoundByFuzzing) {
    int files = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(ZOREL_SOURCE_DIR) + "/tests/data/property_lists")) {
        EXPECT_FALSE(PropertyList::read(entry.path().string())) << entry.path();
        ++files;
    }
    EXPECT_GE(files, 1);
}

TEST(PropertyList, ReadsFilesAndNothingElse) {
    const test::TemporaryFolder folder;
    test::writeFile(folder.path("good.plist"), xml("<string>text</string>"));
    test::writeFile(folder.path("empty.plist"), "");
    ASSERT_EQ(mkfifo(folder.path("pipe.plist").c_str(), 0600), 0);
    ASSERT_TRUE(PropertyList::read(folder.path("good.plist")));
    EXPECT_EQ(*PropertyList::read(folder.path("good.plist"))->text(), "text");
    for (const char* name : {"empty.plist", "missing.plist", "pipe.plist", "."}) {
        EXPECT_FALSE(PropertyList::read(folder.path(name))) << name;
    }
}

} // namespace
} // namespace zorel
