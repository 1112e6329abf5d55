// SPDX-License-Identifier: Apache-2.0
// engine_bits as a program: a hash that differs, one that is missing, files that cannot be used. That the
// stored hashes still hold is a test of its own (engine_bits).
#include "tests/engine/Command.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <string>

namespace zorel {
namespace {

const std::string kStored = ZOREL_SOURCE_DIR "/tests/data/golden/bits.tsv";

testing::Outcome engineBits(const std::string& arguments) {
    return testing::outcomeOf(std::string(ZOREL_ENGINE_BITS) + " " + arguments);
}

class EngineBits : public ::testing::Test {
protected:
    std::string fileOf(const std::string& content) {
        test::writeFile(folder_.path("bits.tsv"), content);
        return folder_.path("bits.tsv");
    }
    test::TemporaryFolder folder_;
};

TEST_F(EngineBits, AHashThatDiffersIsTold) {
    std::string content = test::readFile(kStored);
    // Every stored hash of the quick positions becomes another one.
    const std::string before = "quick\tpositions\t202000\t";
    std::size_t changed = 0;
    for (std::size_t at = 0; (at = content.find(before, at)) != std::string::npos; ++changed) {
        at += before.size();
        content[at] = content[at] == '0' ? '1' : '0';
    }
    ASSERT_GE(changed, 2U);
    const testing::Outcome outcome = engineBits("quick " + fileOf(content));
    if (outcome.text.find("no stored hashes") != std::string::npos) {
        GTEST_SKIP() << "another C library: nothing stored to compare with";
    }
    EXPECT_EQ(outcome.code, 1) << outcome.text;
    EXPECT_NE(outcome.text.find("differs from the stored"), std::string::npos) << outcome.text;
    EXPECT_NE(outcome.text.find("DIFFERENT BITS"), std::string::npos) << outcome.text;
}

TEST_F(EngineBits, WithoutStoredHashesThePathsAreStillCompared) {
    const testing::Outcome outcome = engineBits("quick " + fileOf("# nothing\n"));
    EXPECT_EQ(outcome.code, 0) << outcome.text;
    EXPECT_NE(outcome.text.find("no stored hashes"), std::string::npos) << outcome.text;
    EXPECT_NE(outcome.text.find("the same bits on every path"), std::string::npos) << outcome.text;
}

TEST_F(EngineBits, AWorkloadWithoutItsHashIsAnError) {
    const std::string content = test::readFile(kStored);
    std::string rest; // only the full ones stay
    for (std::size_t at = 0; at < content.size();) {
        const std::size_t end = content.find('\n', at) + 1;
        const std::string line = content.substr(at, end - at);
        rest += line.find("\tquick\t") == std::string::npos ? line : "";
        at = end;
    }
    const testing::Outcome outcome = engineBits("quick " + fileOf(rest));
    if (outcome.text.find("no stored hashes") != std::string::npos) {
        GTEST_SKIP() << "another C library: nothing stored to compare with";
    }
    EXPECT_EQ(outcome.code, 2) << outcome.text;
    EXPECT_NE(outcome.text.find("no stored hash of"), std::string::npos) << outcome.text;
}

TEST_F(EngineBits, OneWorkloadAlone) {
    const testing::Outcome outcome = engineBits("quick " + kStored + " positions");
    EXPECT_EQ(outcome.code, 0) << outcome.text;
    EXPECT_NE(outcome.text.find("quick\tpositions\t"), std::string::npos) << outcome.text;
    EXPECT_EQ(outcome.text.find("random days"), std::string::npos) << outcome.text;
    EXPECT_EQ(engineBits("quick " + kStored + " nothing").code, 2);
}

TEST_F(EngineBits, BrokenFilesAndArgumentsAreRefused) {
    EXPECT_EQ(engineBits("quick /nowhere/at/all.tsv").code, 2);
    EXPECT_EQ(engineBits("quick " + fileOf("one\ttwo\n")).code, 2);
    for (const char* arguments : {"", "some", "quick a b c"}) {
        const testing::Outcome outcome = engineBits(arguments);
        EXPECT_EQ(outcome.code, 2) << arguments;
        EXPECT_NE(outcome.text.find("usage: engine_bits"), std::string::npos) << arguments;
    }
}

} // namespace
} // namespace zorel
