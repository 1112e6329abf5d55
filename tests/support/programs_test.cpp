// SPDX-License-Identifier: Apache-2.0
#include "tests/support/Programs.h"

#include <gtest/gtest.h>

namespace zorel::test {
namespace {

TEST(Programs, OneThatIsThereAndOneThatIsNot) {
    EXPECT_TRUE(hasProgram("cat"));
    EXPECT_FALSE(hasProgram("no-program-of-this-name"));
}

TEST(Programs, OutputAndFailure) {
    EXPECT_EQ(outputOf("echo good"), "good\n");
    EXPECT_EQ(outputOf("echo bad; exit 3"), "bad\n(failed)");
    EXPECT_EQ(outputOf("true"), "");
}

} // namespace
} // namespace zorel::test
