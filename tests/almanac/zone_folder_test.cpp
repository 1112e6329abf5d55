// SPDX-License-Identifier: Apache-2.0
// Editions of time zone data: what a folder says of itself, and which of two came first.
#include "almanac/ZoneData.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace zorel::almanac {
namespace {

TEST(ZoneEdition, OrderOfEditions) {
    EXPECT_TRUE(isOlderEdition("2025b", "2026f"));
    EXPECT_TRUE(isOlderEdition("2026a", "2026f"));
    EXPECT_TRUE(isOlderEdition("2026", "2026a"));
    EXPECT_TRUE(isOlderEdition("2026z", "2026za"));
    EXPECT_TRUE(isOlderEdition("1999z", "2000a"));
    EXPECT_FALSE(isOlderEdition("2026f", "2026f"));
    EXPECT_FALSE(isOlderEdition("2026g", "2026f"));
    EXPECT_FALSE(isOlderEdition("2027a", "2026f"));
    EXPECT_FALSE(isOlderEdition("2026za", "2026z"));
}

TEST(ZoneEdition, UnknownIsNeverOlder) {
    for (const char* text : {"", "unknown", "26f", "2026F", "2026-rc1", "2026abc", "x2026f", "2025b "}) {
        EXPECT_FALSE(isOlderEdition(text, "2099a")) << text;
        EXPECT_FALSE(isOlderEdition("1990a", text)) << text;
    }
}

TEST(ZoneEdition, FolderThatSays) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(zoneEditionOf(folder.path()), "");
    test::writeFile(folder.path("+VERSION"), "2024a\n");
    EXPECT_EQ(zoneEditionOf(folder.path()), "2024a");
    test::writeFile(folder.path("tzdata.zi"),
                    "# version 2025b\n# This zic input file is in the public domain.\n");
    EXPECT_EQ(zoneEditionOf(folder.path()), "2025b");
    test::writeFile(folder.path("tzdata.zi"), "# redo posix_only\n");
    EXPECT_EQ(zoneEditionOf(folder.path()), "2024a");
}

TEST(ZoneEdition, FolderThatIsOfNoUse) {
    EXPECT_EQ(zoneEditionOf("/no/such/folder"), "");
    EXPECT_EQ(zoneEditionOf("/etc/passwd"), "");
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.path("tzdata.zi"));
    test::writeFile(folder.path("+VERSION"), "");
    EXPECT_EQ(zoneEditionOf(folder.path()), "");
    test::writeFile(folder.path("+VERSION"), std::string(1'000'000, 'x'));
    EXPECT_LT(zoneEditionOf(folder.path()).size(), 100u);
}

TEST(ZoneName, PlainOnes) {
    for (const char* name : {"UTC", "Europe/Berlin", "Etc/GMT+3", "America/Port-au-Prince", "A/B_c/D"}) {
        EXPECT_TRUE(isPlainZoneName(name)) << name;
    }
    for (const char* name :
         {"", "/", "/a", "a/", "a//b", "..", "a/../b", "a.b", "a b", "a:b", "a\n", "é", "localtime"}) {
        EXPECT_FALSE(isPlainZoneName(name)) << name;
    }
}

} // namespace
} // namespace zorel::almanac
