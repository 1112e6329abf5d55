// SPDX-License-Identifier: Apache-2.0
// build-catalogue as a program: its words and its exit status.
#include "tests/catalogue/Fixture.h"

#include <array>
#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace zorel::catalogue {
namespace {

using testing::HasSubstr;
using testing::Not;

struct Outcome {
    int status = -1;
    std::string output; ///< standard output and standard error
};

Outcome runProgram(const std::string& arguments) {
    Outcome run;
    FILE* const pipe = popen((std::string(ZOREL_BUILD_CATALOGUE) + " " + arguments + " 2>&1").c_str(), "r");
    std::array<char, 4096> buffer{};
    for (std::size_t count = 0; (count = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
        run.output.append(buffer.data(), count);
    }
    const int status = pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

TEST(Program, HelpSaysHowToUseIt) {
    for (const char* option : {"--help", "-h"}) {
        const Outcome run = runProgram(option);
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.output, HasSubstr("Usage: build-catalogue [--quiet] SOURCE_DIR OUTPUT.sqlite"));
    }
}

TEST(Program, WrongUsageIsStatusTwo) {
    for (const char* arguments : {"", "one", "one two three", "--wrong one two"}) {
        EXPECT_EQ(runProgram(arguments).status, 2) << arguments;
    }
}

TEST(Program, BuildsAndTellsInLinesWhatItDoes) {
    const test::SourceFolder sources;
    const test::TemporaryFolder folder;
    const std::string output = folder.path("cities.sqlite");
    const Outcome run = runProgram(sources.path() + " " + output);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Reading and checking the places\nWriting the catalogue\n" + output +
                              ": 4 places in 2 countries\n");
    EXPECT_EQ(runProgram("--quiet " + sources.path() + " " + output).output, "");
}

TEST(Program, FaultyDataIsStatusOneWithFileAndLine) {
    const test::SourceFolder sources;
    const test::TemporaryFolder folder;
    sources.addPlace("9\tA\t\t\tTR\t34\t195\t29\t\tEurope/Istanbul\t0");
    const Outcome run = runProgram("-q " + sources.path() + " " + folder.path("cities.sqlite"));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("places.tsv:6: latitude 195 is outside -90 to 90"));
    EXPECT_THAT(run.output, HasSubstr("nothing written, 1 fault(s)"));
    EXPECT_FALSE(std::filesystem::exists(folder.path("cities.sqlite")));
}

TEST(Program, ManyFaultsAreCounted) {
    const test::SourceFolder sources;
    std::string lines;
    for (int line = 0; line < 30; ++line) {
        lines += "bad\n";
    }
    sources.addPlace(lines);
    const Outcome run = runProgram("-q " + sources.path() + " /nowhere/cities.sqlite");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("... and 11 more"));
}

TEST(Program, AMissingSourceIsStatusOne) {
    const Outcome run = runProgram("-q /nowhere /nowhere/cities.sqlite");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("/nowhere/places.tsv: cannot be read"));
}

TEST(Program, AnUnwritableOutputIsStatusThree) {
    const test::SourceFolder sources;
    const Outcome run = runProgram("-q " + sources.path() + " /nowhere/cities.sqlite");
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.output, HasSubstr("/nowhere/cities.sqlite: "));
    EXPECT_THAT(run.output, Not(HasSubstr("fault")));
}

} // namespace
} // namespace zorel::catalogue
