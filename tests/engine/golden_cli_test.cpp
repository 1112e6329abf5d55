// SPDX-License-Identifier: Apache-2.0
// golden_check as a program: exit codes and messages for good, wrong and broken files.
#include "tests/engine/Command.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace zorel {
namespace {

using testing::Outcome;

class GoldenCheck : public ::testing::Test {
protected:
    void SetUp() override {
        folder_ = std::filesystem::temp_directory_path() / ("golden_" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    Outcome run(const std::string& arguments) {
        return testing::outcomeOf(std::string(ZOREL_GOLDEN_CHECK) + " " + arguments);
    }

    Outcome check(const std::string& content) {
        const std::filesystem::path path = folder_ / "golden.json";
        std::ofstream(path) << content;
        return run(path.string());
    }

    std::filesystem::path folder_;
};

std::string frac(const std::string& in, const std::string& out, const std::string& more = "") {
    return R"({"frac": {"args": ["x"], "result": ["fraction"], "tolerance": 1e-15, "cases": [{"in": )" + in +
           R"(, "out": )" + out + more + "}]}}";
}

TEST_F(GoldenCheck, ItsOwnFilePasses) {
    const Outcome outcome = run(ZOREL_SOURCE_DIR "/tests/data/golden/solar.json");
    EXPECT_EQ(outcome.code, 0) << outcome.text;
    EXPECT_NE(outcome.text.find("cases 1285, failures 0, unknown operations 0"), std::string::npos);
}

TEST_F(GoldenCheck, RightAndWrongValues) {
    EXPECT_EQ(check(frac("[2.5]", "[0.5]")).code, 0);
    const Outcome wrong = check(frac("[2.5]", "[0.25]"));
    EXPECT_EQ(wrong.code, 1);
    EXPECT_NE(wrong.text.find("failures   1"), std::string::npos) << wrong.text;
    EXPECT_NE(wrong.text.find("in [2.5]"), std::string::npos) << wrong.text;
}

TEST_F(GoldenCheck, SkipNullAndLength) {
    EXPECT_EQ(check(frac("[2.5]", "[7]", R"(, "skip": [0])")).code, 0);
    EXPECT_EQ(check(frac("[2.5]", "[null]")).code, 1) << "a number where none is expected";
    EXPECT_EQ(check(frac(R"(["nan"])", "[null]")).code, 0);
    EXPECT_EQ(check(frac("[2.5]", "[0.5, 1]")).code, 1);
}

TEST_F(GoldenCheck, AnglesWrap) {
    const std::string file = R"({"SunL": {"args": ["T"], "result": ["degrees"], "tolerance": 1e-6,
        "cases": [{"in": [0], "out": [-79.5335388183594]}]}})";
    EXPECT_EQ(check(file).code, 0);
}

TEST_F(GoldenCheck, UnknownOperationsCount) {
    const Outcome outcome = check(R"({"Nonsense": {"tolerance": 0, "cases": []}})");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.text.find("unknown operation"), std::string::npos);
}

TEST_F(GoldenCheck, DaysBackAreChecked) {
    const auto file = [](const std::string& back) {
        return R"({"CalculatePrayTimes": {"args": [], "result": [], "tolerance": 100, "cases": [{"in":
            [41.0, 29.0, 2.0, 0, 0, 0, 0, 0, 0, 0, 2024, 4, 17], "out": [0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],
            "skip": [21, 24, 25], "back": )" +
               back + "}]}}";
    };
    EXPECT_EQ(check(file("[0, 0, 0]")).code, 0);
    EXPECT_EQ(check(file("[0, 1, 0]")).code, 1);
}

TEST_F(GoldenCheck, BrokenFilesAreRefusedWithAReason) {
    for (const std::string content :
         {"", "not json", "[]", "{}", "3", R"({"frac": 3})", R"({"frac": {"cases": []}})",
          R"({"frac": {"tolerance": "x", "cases": []}})", R"({"frac": {"tolerance": 0}})",
          R"({"frac": {"tolerance": 0, "cases": {}}})",
          R"({"frac": {"tolerance": 0, "cases": [{"in": [1]}]}})",
          R"({"frac": {"tolerance": 0, "cases": [{"in": [], "out": [0]}]}})",
          R"({"frac": {"tolerance": 0, "cases": [{"in": ["x"], "out": [0]}]}})",
          R"({"frac": {"tolerance": 0, "cases": [{"in": 5, "out": [0]}]}})",
          R"({"frac": {"tolerance": 0, "cases": [{"in": [1], "out": ["x"]}]}})",
          R"({"DayOfWeek": {"tolerance": 0, "cases": [{"in": [1e300, 1, 1], "out": [0]}]}})"}) {
        const Outcome outcome = check(content);
        EXPECT_EQ(outcome.code, 2) << content << '\n' << outcome.text;
        EXPECT_NE(outcome.text.find("golden_check: "), std::string::npos) << content;
    }
    EXPECT_EQ(run("/nowhere/at/all.json").code, 2);
    EXPECT_EQ(run("").code, 2);
    EXPECT_EQ(run("--help").code, 0);
}

TEST_F(GoldenCheck, DigestIsTheSameTwice) {
    const Outcome first = run("--digest");
    EXPECT_EQ(first.code, 0);
    EXPECT_EQ(first.text, run("--digest").text);
    EXPECT_NE(first.text.find("prayer times"), std::string::npos);
}

} // namespace
} // namespace zorel
