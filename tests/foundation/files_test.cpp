// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Files.h"
#include "platform/foundation/RandomText.h"
#include "tests/support/FaultPoints.h"
#include "tests/support/TemporaryFolder.h"

#include <cerrno>
#include <filesystem>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zorel {
namespace {

namespace fs = std::filesystem;

std::error_code systemError(int number) {
    return {number, std::generic_category()};
}

class Files : public testing::Test {
protected:
    [[nodiscard]] std::ptrdiff_t filesInFolder() const {
        return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
    }
    [[nodiscard]] std::string content(const std::string& of) const { return test::readFile(of); }

    test::TemporaryFolder folder;
    const std::string path = folder.path("file");
};

/// The two ways of writing a file: as a new one, and in the place of an old one.
struct Writing {
    const char* name;
    std::error_code (*write)(const std::string& path, std::string_view bytes);
    std::string before; ///< what stands there first; nothing for no file
};

class Writes : public Files, public testing::WithParamInterface<Writing> {
protected:
    Writes() { reset(); }

    void reset() const {
        fs::remove(path);
        if (!GetParam().before.empty()) {
            test::writeFile(path, GetParam().before);
        }
    }
    [[nodiscard]] std::error_code write(std::string_view bytes) const {
        return GetParam().write(path, bytes);
    }
};

INSTANTIATE_TEST_SUITE_P(Files, Writes,
                         testing::Values(Writing{"Create", createFile, ""},
                                         Writing{"ReplaceNone", replaceFile, ""},
                                         Writing{"ReplaceOld", replaceFile, "old"}),
                         [](const auto& each) { return each.param.name; });

TEST_P(Writes, AllBytesForTheOwnerOnly) {
    const std::string bytes = std::string(100000, 'x') + '\0' + "end";
    EXPECT_EQ(write(bytes), std::error_code());
    EXPECT_EQ(content(path), bytes);
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_P(Writes, NothingWhereAStepFails) {
    const std::ptrdiff_t before = filesInFolder();
    for (const int code : {ENOSPC, EIO, EROFS}) {
        for (int nth = 1; nth <= 4; ++nth) { // create, write, sync, rename
            faults::arm(faults::Effect::fail, nth, code);
            const std::error_code error = write("new");
            faults::disarm();
            EXPECT_EQ(error, systemError(code)) << nth;
            EXPECT_EQ(content(path), GetParam().before);
            EXPECT_EQ(filesInFolder(), before);
        }
    }
}

TEST_P(Writes, StandsWhenOnlyTheFolderIsNotSynced) {
    faults::arm(faults::Effect::fail, 5, EIO);
    EXPECT_EQ(write("new"), std::error_code());
    EXPECT_EQ(faults::disarm(), 5);
    EXPECT_EQ(content(path), "new");
}

TEST_P(Writes, GoesOnAfterAnInterruption) {
    faults::arm(faults::Effect::fail, 2, EINTR);
    EXPECT_EQ(write("new"), std::error_code());
    faults::disarm();
    EXPECT_EQ(content(path), "new");
}

TEST_P(Writes, TheOldFileOrTheNewOneAfterAKillAtAnyStep) {
    int deaths = 0;
    for (const auto effect : {faults::Effect::die, faults::Effect::tear}) {
        int status = faults::kDied;
        for (int nth = 1; status == faults::kDied; ++nth) {
            reset();
            status = faults::runInChild(effect, nth, [this] { static_cast<void>(write("new")); });
            const std::string found = content(path);
            EXPECT_TRUE(found == GetParam().before || found == "new") << found;
            sweepTemporaryFiles(folder.path());
            EXPECT_EQ(filesInFolder(), found.empty() ? 0 : 1);
            deaths += status == faults::kDied ? 1 : 0;
        }
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(deaths, 10);
}

TEST_P(Writes, FailsWhereThereIsNoFolder) {
    test::writeFile(folder.path("plain"), "");
    const auto writeTo = GetParam().write;
    EXPECT_EQ(writeTo(folder.path("missing/file"), "new"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(writeTo(folder.path("plain/file"), "new"), std::errc::not_a_directory);
    EXPECT_EQ(writeTo("", "new"), std::errc::no_such_file_or_directory);
}

TEST_F(Files, CreatingNeverReplaces) {
    test::writeFile(path, "old");
    EXPECT_EQ(createFile(path, "new"), std::errc::file_exists);
    EXPECT_EQ(content(path), "old");
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(Files, CreatingWhereFilesCannotBeMovedInOneStep) {
    for (const int unsupported : {EINVAL, ENOSYS}) {
        fs::remove(path);
        for (const auto expected : {std::error_code(), systemError(EEXIST)}) { // then the name is taken
            faults::arm(faults::Effect::fail, 4, unsupported);
            EXPECT_EQ(createFile(path, expected ? "new" : "bytes"), expected);
            faults::disarm();
            EXPECT_EQ(content(path), "bytes");
            EXPECT_EQ(filesInFolder(), 1);
        }
    }
}

TEST_F(Files, AFinishedFileTakesTheName) {
    const std::string finished = folder.path("finished");
    for (const char* bytes : {"one", "two"}) {
        test::writeFile(finished, bytes);
        EXPECT_EQ(replaceFileWith(path, finished), std::error_code());
        EXPECT_EQ(content(path), bytes);
        EXPECT_EQ(filesInFolder(), 1);
    }
}

TEST_F(Files, AFinishedFileThatCannotTakeTheNameStays) {
    const std::string finished = folder.path("finished");
    test::writeFile(path, "old");
    EXPECT_EQ(replaceFileWith(path, finished), std::errc::no_such_file_or_directory);
    test::writeFile(finished, "new");
    for (int nth = 1; nth <= 2; ++nth) { // sync, rename
        faults::arm(faults::Effect::fail, nth, EIO);
        const std::error_code error = replaceFileWith(path, finished);
        faults::disarm();
        EXPECT_EQ(error, systemError(EIO)) << nth;
        EXPECT_EQ(content(path), "old");
        EXPECT_EQ(content(finished), "new");
    }
}

TEST_F(Files, RemovingAFile) {
    test::writeFile(path, "old");
    faults::arm(faults::Effect::fail, 1, EACCES);
    EXPECT_EQ(removeFile(path), std::errc::permission_denied);
    faults::disarm();
    EXPECT_EQ(filesInFolder(), 1);
    EXPECT_EQ(removeFile(path), std::error_code());
    EXPECT_EQ(filesInFolder(), 0);
    EXPECT_EQ(removeFile(path), std::errc::no_such_file_or_directory);
}

TEST_F(Files, WithoutAFolderStandInThePresentOne) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_EQ(replaceFile("file", "bytes"), std::error_code());
    EXPECT_EQ(content(path), "bytes");
    EXPECT_EQ(removeFile("file"), std::error_code());
    fs::current_path(before);
    EXPECT_EQ(filesInFolder(), 0);
}

TEST_F(Files, OnlyRegularFilesUpToALimitAreRead) {
    test::writeFile(path, std::string("12\00045", 5));
    EXPECT_EQ(readSmallFile(path, 5), std::string("12\00045", 5));
    EXPECT_EQ(readSmallFile(path, 4), std::nullopt);
    EXPECT_EQ(readSmallFile(folder.path("missing"), 5), std::nullopt);
    EXPECT_EQ(readSmallFile(folder.path(), 1 << 20), std::nullopt);
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(readSmallFile(folder.path("pipe"), 5), std::nullopt);
}

TEST_F(Files, SweepingLeavesFilesOfLivingProcessesAndOfOtherPrograms) {
    const auto temporary = [this](const std::string& writer) {
        return folder.path(".zorel-" + writer + ".tmp");
    };
    const std::string living = temporary(fmt::format("{}-0123456789abcdef", getppid()));
    for (const std::string& kept : {living, folder.path(".other.tmp"), folder.path("zorel-a.ics"),
                                    folder.path(".zorel-1-0.tmp.kept"), folder.path(".zorel.lock")}) {
        test::writeFile(kept, "kept");
    }
    fs::create_directory(temporary("folder"));
    const std::ptrdiff_t kept = filesInFolder();
    test::writeFile(temporary(fmt::format("{}-0", getpid())), "of this process, which is writing none");
    for (const char* writer : {"0-0", "-7-0", "x", "", "1", "99999999999-0"}) {
        test::writeFile(temporary(writer), "of no process");
    }
    sweepTemporaryFiles(folder.path());
    EXPECT_EQ(filesInFolder(), kept);
    EXPECT_TRUE(fs::exists(living));
    sweepTemporaryFiles(folder.path("missing"));
}

TEST(RandomText, IsSixteenDigitsThatDiffer) {
    EXPECT_EQ(randomHexadecimal().size(), 16U);
    EXPECT_EQ(randomHexadecimal().find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_NE(randomHexadecimal(), randomHexadecimal());
}

} // namespace
} // namespace zorel
