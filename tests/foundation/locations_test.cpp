// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Locations.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace zorel {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;
using test::writeFile;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(Locations, AreThoseOfThePhoneUntilChanged) {
    const Locations fresh;
    EXPECT_EQ(fresh.bundle, "/System/Library/WeeAppPlugins/Zorel.bundle");
    EXPECT_EQ(fresh.data, "/var/mobile/Library/Zorel");
    EXPECT_EQ(fresh.ringtones, "/Library/Ringtones");
    const test::TemporaryLocations temporary;
    EXPECT_EQ(Locations::current().data, temporary.folder.path());
}

TEST(FileExists, IsTrueForAnythingThatIsThere) {
    const TemporaryFolder folder;
    writeFile(folder.path("file"), "");
    fs::create_symlink(folder.path("file"), folder.path("link"));
    fs::create_symlink(folder.path("nothing"), folder.path("broken"));
    EXPECT_TRUE(fileExistsAtPath(folder.path()));
    EXPECT_TRUE(fileExistsAtPath(folder.path("file")));
    EXPECT_TRUE(fileExistsAtPath(folder.path("link")));
    EXPECT_FALSE(fileExistsAtPath(folder.path("broken")));
    EXPECT_FALSE(fileExistsAtPath(folder.path("missing")));
    EXPECT_FALSE(fileExistsAtPath(folder.path("file/below")));
    EXPECT_FALSE(fileExistsAtPath(""));
    EXPECT_FALSE(fileExistsAtPath(std::string(100000, 'x')));
}

TEST(CreateDirectory, MakesParentsForTheOwnerOnly) {
    const TemporaryFolder folder;
    const std::string path = folder.path("a/b/c");
    EXPECT_TRUE(createDirectoryAtPath(path));
    EXPECT_TRUE(createDirectoryAtPath(path));
    EXPECT_TRUE(createDirectoryAtPath(folder.path("d/e//")));
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST(CreateDirectory, FailsWhereAFileStands) {
    const TemporaryFolder folder;
    writeFile(folder.path("file"), "kept");
    EXPECT_FALSE(createDirectoryAtPath(folder.path("file")));
    EXPECT_FALSE(createDirectoryAtPath(folder.path("file/below")));
    EXPECT_FALSE(createDirectoryAtPath(""));
    EXPECT_FALSE(createDirectoryAtPath("/proc/no/such/place"));
    EXPECT_EQ(test::readFile(folder.path("file")), "kept");
}

TEST(EntriesBelow, ListsEverythingRelativeToTheFolder) {
    const TemporaryFolder folder;
    writeFile(folder.path("Tones/Bell.m4r"), "");
    writeFile(folder.path("Tones/Old/Chime One.m4r"), "");
    fs::create_directory_symlink(folder.path("Tones"), folder.path("Tones/Old/loop"));
    EXPECT_THAT(entriesBelowPath(folder.path("Tones")),
                UnorderedElementsAre("Bell.m4r", "Old", "Old/Chime One.m4r", "Old/loop"));
    EXPECT_THAT(entriesBelowPath(folder.path("Tones/")),
                UnorderedElementsAre("Bell.m4r", "Old", "Old/Chime One.m4r", "Old/loop"));
}

TEST(EntriesBelow, AreNoneOfWhatIsNoFolder) {
    const TemporaryFolder folder;
    writeFile(folder.path("file"), "");
    EXPECT_THAT(entriesBelowPath(folder.path("missing")), IsEmpty());
    EXPECT_THAT(entriesBelowPath(folder.path("file")), IsEmpty());
    EXPECT_THAT(entriesBelowPath(""), IsEmpty());
}

TEST(PathWithoutExtension, TakesTheLastExtensionOfTheLastComponent) {
    EXPECT_EQ(pathWithoutExtension("a/Morning Call.m4r"), "a/Morning Call");
    EXPECT_EQ(pathWithoutExtension("Bell"), "Bell");
    EXPECT_EQ(pathWithoutExtension("a.b/c"), "a.b/c");
    EXPECT_EQ(pathWithoutExtension("x.tar.gz"), "x.tar");
    EXPECT_EQ(pathWithoutExtension(".hidden"), ".hidden");
    EXPECT_EQ(pathWithoutExtension("Old.d/"), "Old");
    EXPECT_EQ(pathWithoutExtension(""), "");
    EXPECT_EQ(pathWithoutExtension("/"), "/");
    EXPECT_EQ(pathWithoutExtension("a/.."), "a/..");
}

} // namespace
} // namespace zorel
