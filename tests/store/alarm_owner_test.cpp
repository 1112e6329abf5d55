// SPDX-License-Identifier: Apache-2.0
#include "store/AlarmOwner.h"

#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using testing::ContainsRegex;
using testing::Ne;

TEST(AlarmOwner, IsSixteenHexadecimalDigits) {
    EXPECT_THAT(alarmOwner("/home/somebody/user.sqlite"), ContainsRegex("^[0-9a-f]{16}$"));
    EXPECT_THAT(alarmOwner(""), ContainsRegex("^[0-9a-f]{16}$"));
}

TEST(AlarmOwner, IsTheSameForEverySpellingOfAPath) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.path("data"));
    std::filesystem::create_directory_symlink(folder.path("data"), folder.path("link"));
    const std::string owner = alarmOwner(folder.path("data/user.sqlite"));
    EXPECT_EQ(alarmOwner(folder.path("data/../data/./user.sqlite")), owner);
    EXPECT_EQ(alarmOwner(folder.path("link/user.sqlite")), owner);
    test::writeFile(folder.path("data/user.sqlite"), "now it exists");
    EXPECT_EQ(alarmOwner(folder.path("data/user.sqlite")), owner);
    EXPECT_THAT(alarmOwner(folder.path("data/other.sqlite")), Ne(owner));
}

/// A path that leads round in a circle has no canonical form; its text stands for it.
TEST(AlarmOwner, APathThatLeadsNowhereHasAnOwnerToo) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directory_symlink(folder.path("circle"), folder.path("circle"));
    const std::string owner = alarmOwner(folder.path("circle/user.sqlite"));
    EXPECT_EQ(alarmOwner(folder.path("circle/user.sqlite")), owner);
    EXPECT_THAT(alarmOwner(folder.path("circle/other.sqlite")), Ne(owner));
}

} // namespace
} // namespace zorel
