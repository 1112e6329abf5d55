// SPDX-License-Identifier: Apache-2.0
#include "store/AlarmOwner.h"

#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel {
namespace {

namespace fs = std::filesystem;
using testing::ContainsRegex;
using testing::Ne;

class AlarmOwner : public testing::Test {
protected:
    [[nodiscard]] std::string database(const std::string& folderName = "data") const {
        fs::create_directories(folder.path(folderName));
        return folder.path(folderName + "/user.sqlite");
    }

    test::TemporaryFolder folder;
};

TEST_F(AlarmOwner, IsSixteenHexadecimalDigitsForLife) {
    const EventOwner owner = alarmOwner(database());
    EXPECT_THAT(owner.name, ContainsRegex("^[0-9a-f]{16}$"));
    EXPECT_THAT(owner.formerName, ContainsRegex("^[0-9a-f]{16}$"));
    EXPECT_THAT(owner.name, Ne(owner.formerName));
    EXPECT_EQ(alarmOwner(database()).name, owner.name);
    struct stat status {};
    ASSERT_EQ(stat((database() + ".owner").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

/// Two machines with the same identity and the same path: what differs is the random text.
TEST_F(AlarmOwner, TwoDatabasesOfOnePathAreTwoOwners) {
    const EventOwner first = alarmOwner(database());
    fs::rename(folder.path("data"), folder.path("elsewhere"));
    const EventOwner second = alarmOwner(database());
    EXPECT_EQ(second.formerName, first.formerName);
    EXPECT_THAT(second.name, Ne(first.name));
}

TEST_F(AlarmOwner, AFolderThatMovesKeepsItsOwner) {
    const EventOwner before = alarmOwner(database());
    fs::rename(folder.path("data"), folder.path("moved"));
    EXPECT_EQ(alarmOwner(folder.path("moved/user.sqlite")).name, before.name);
    EXPECT_THAT(alarmOwner(folder.path("moved/user.sqlite")).formerName, Ne(before.formerName));
}

TEST_F(AlarmOwner, TheFormerNameIsTheSameForEverySpellingOfAPath) {
    const std::string former = alarmOwner(database()).formerName;
    fs::create_directory_symlink(folder.path("data"), folder.path("link"));
    EXPECT_EQ(alarmOwner(folder.path("data/../data/./user.sqlite")).formerName, former);
    EXPECT_EQ(alarmOwner(folder.path("link/user.sqlite")).formerName, former);
    test::writeFile(database(), "now it exists");
    EXPECT_EQ(alarmOwner(database()).formerName, former);
    EXPECT_THAT(alarmOwner(folder.path("data/other.sqlite")).formerName, Ne(former));
}

/// A path that leads round in a circle has no canonical form; its text stands for it.
TEST_F(AlarmOwner, APathThatLeadsNowhereHasAnOwnerToo) {
    fs::create_directory_symlink(folder.path("circle"), folder.path("circle"));
    const EventOwner owner = alarmOwner(folder.path("circle/user.sqlite"));
    EXPECT_THAT(owner.name, ContainsRegex("^[0-9a-f]{16}$"));
    EXPECT_EQ(alarmOwner(folder.path("circle/user.sqlite")).name, owner.name);
    EXPECT_THAT(alarmOwner(folder.path("circle/other.sqlite")).name, Ne(owner.name));
}

/// While there is no identifier of its own, the former name keeps the alarms in one hand.
TEST_F(AlarmOwner, TheFormerNameStandsInWhereNothingCanBeKept) {
    const std::string former = alarmOwner(database()).formerName;
    for (const char* content :
         {"", "0123", "0123456789abcdef0123456789ABCDEF", "0123456789abcdef0123456789abcdef\n"}) {
        test::writeFile(database() + ".owner", content);
        EXPECT_EQ(alarmOwner(database()).name, former) << content;
        EXPECT_EQ(alarmOwner(database()).formerName, "");
        EXPECT_EQ(test::readFile(database() + ".owner"), content) << "never replaced";
    }
    fs::remove(database() + ".owner");
    ASSERT_EQ(mkfifo((database() + ".owner").c_str(), 0600), 0);
    EXPECT_EQ(alarmOwner(database()).name, former);
    EXPECT_EQ(alarmOwner(folder.path("missing/user.sqlite")).formerName, "");
}

TEST_F(AlarmOwner, ProgramsThatMakeItAtOnceAgree) {
    const std::string path = database();
    std::set<std::string> names;
    constexpr int kPrograms = 8;
    for (int i = 0; i < kPrograms; ++i) {
        if (fork() == 0) {
            test::writeFile(folder.path("name " + std::to_string(i)), alarmOwner(path).name);
            _exit(0);
        }
    }
    for (int i = 0; i < kPrograms; ++i) {
        wait(nullptr);
    }
    for (int i = 0; i < kPrograms; ++i) {
        names.insert(test::readFile(folder.path("name " + std::to_string(i))));
    }
    EXPECT_EQ(names, std::set<std::string>{alarmOwner(path).name});
}

} // namespace
} // namespace zorel
