// SPDX-License-Identifier: Apache-2.0
#include "ring/Lines.h"
#include "ring/Plan.h"

#include <gtest/gtest.h>

namespace zorel::ring {
namespace {

constexpr Instant kAt{std::chrono::seconds(1'800'000'000)};

Plan fullPlan() {
    Plan plan;
    plan.rings = {
        {"fajr", kAt, "Fajr 06:08", "İstanbul", "Fajr was at 06:08", "/a b.ogg", "/c.wav",
         std::chrono::seconds(30)},
        {"isha", kAt + std::chrono::hours(14), "Isha 19:20", "", "", "", "", std::chrono::seconds(5)}};
    plan.again = kAt + std::chrono::hours(1);
    plan.stop = "Sustur";
    plan.snooze = "5 dk ertele";
    plan.keeper = "gnome";
    plan.trouble = "the calendar is read-only";
    return plan;
}

TEST(Plan, IsReadAsItWasWritten) {
    EXPECT_EQ(planOfText(textOf(fullPlan())), fullPlan());
    EXPECT_EQ(planOfText(textOf(Plan())), Plan());
}

TEST(Plan, ThatBreaksOffIsNone) {
    const std::string text = textOf(fullPlan());
    for (std::size_t size = 0; size + 1 < text.size(); ++size) {
        EXPECT_EQ(planOfText(text.substr(0, size)), std::nullopt) << size;
    }
}

TEST(Plan, WithALineThatIsNotUnderstoodIsNone) {
    for (const char* line : {"what\tever\n", "ring\tfajr\n", "again\tsoon\n", "\n", "word\n",
                             "ring\tfajr\tx\ta\tb\tc\td\te\t30\n", "ring\tfajr\t1\ta\tb\tc\td\te\tx\n"}) {
        EXPECT_EQ(planOfText(std::string(line) + "end\n"), std::nullopt) << line;
    }
}

TEST(Plan, ControlCharactersBecomeSpaces) {
    Plan plan = fullPlan();
    plan.rings[0].body = "Istan\tbul\nring\x1b[2J\x7f";
    EXPECT_EQ(planOfText(textOf(plan))->rings[0].body, "Istan bul ring [2J ");
}

TEST(Lines, PartsAreOneMoreThanSeparators) {
    EXPECT_EQ(partsOf("", '\t'), (std::vector<std::string_view>{""}));
    EXPECT_EQ(partsOf("a\t\tb\t", '\t'), (std::vector<std::string_view>{"a", "", "b", ""}));
}

TEST(Lines, OnlyWholeNumbersAreInstants) {
    EXPECT_EQ(instantOf("1800000000"), kAt);
    EXPECT_EQ(instantOf("-5"), Instant(std::chrono::seconds(-5)));
    for (const char* text : {"", "x", "1.5", "12 ", " 12", "99999999999999999999"}) {
        EXPECT_EQ(instantOf(text), std::nullopt) << text;
    }
}

} // namespace
} // namespace zorel::ring
