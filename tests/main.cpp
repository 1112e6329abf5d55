// SPDX-License-Identifier: Apache-2.0
// Every test program runs in the locale of its environment, as a desktop program does after it has made its
// application object: a number that is written with the locale's decimal comma fails here.
#include <clocale>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
