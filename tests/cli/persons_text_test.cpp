// SPDX-License-Identifier: Apache-2.0
// Lines for people who read from right to left, and digits of their script.
#include "terminal/PersonsText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zorel::cli {
namespace {

constexpr Writing kArabic{true, U'0'};
constexpr Writing kArabicDigits{true, 0x660};
constexpr Writing kBengali{false, 0x9E6};

/// U+2066 as "<" and U+2069 as ">".
std::string seen(std::string text) {
    for (const auto& [mark, letter] : {std::pair("\xE2\x81\xA6", "<"), std::pair("\xE2\x81\xA9", ">")}) {
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos;) {
            text.replace(at, 3, letter);
        }
    }
    return text;
}

std::string arabic(const std::string& line) {
    return seen(written(line, kArabic));
}

TEST(CliWriting, FiguresWithSignsKeepTheirOrder) {
    EXPECT_EQ(arabic("الفجر 05:50 +1"), "الفجر <05:50 +1>");
    EXPECT_EQ(arabic("من 2026-11-21 إلى 2026-12-20"), "من <2026-11-21> إلى <2026-12-20>");
    EXPECT_EQ(arabic("القبلة 151.6° من الشمال"), "القبلة <151.6°> من الشمال");
    EXPECT_EQ(arabic("الساعة UTC+03:00."), "الساعة <UTC+03:00>.");
}

TEST(CliWriting, PlainNumbersAndArabicTextStayAsTheyAre) {
    EXPECT_EQ(arabic("بعد 5 دقائق"), "بعد 5 دقائق");
    EXPECT_EQ(arabic("لا يوجد"), "لا يوجد");
    EXPECT_EQ(arabic(""), "");
    EXPECT_EQ(arabic("  | — ✓\n"), "  | — ✓\n");
}

TEST(CliWriting, LatinWordsAreHeldTogetherAndTheSentencesMarksAreNot) {
    EXPECT_EQ(arabic("اكتب: zorel cities add NAME."), "اكتب: <zorel cities add NAME>.");
    EXPECT_EQ(arabic("الخيار \"--jsn\" غير معروف"), "الخيار \"<--jsn>\" غير معروف");
    EXPECT_EQ(arabic("İstanbul (Fatih) هنا"), "<İstanbul (Fatih)> هنا");
    EXPECT_EQ(arabic("(zorel today)"), "(<zorel today>)");
}

TEST(CliWriting, ColumnsStayApart) {
    EXPECT_EQ(arabic("05:50  07:34"), "<05:50>  <07:34>");
    EXPECT_EQ(arabic("Fajr   05:50"), "<Fajr>   <05:50>");
}

TEST(CliWriting, ColoursAreNoText) {
    EXPECT_EQ(arabic("\x1b[1;32mالظهر 12:46\x1b[0m"), "\x1b[1;32mالظهر <12:46>\x1b[0m");
    EXPECT_EQ(arabic("\x1b["), "\x1b[");
}

TEST(CliWriting, DigitsOfTheScriptWhereNoLatinStands) {
    EXPECT_EQ(seen(written("الفجر 05:50", kArabicDigits)), "الفجر <٠٥:٥٠>");
    EXPECT_EQ(seen(written("UTC+03:00", kArabicDigits)), "<UTC+03:00>");
    EXPECT_EQ(written("ফজর 05:50", kBengali), "ফজর ০৫:৫০");
    EXPECT_EQ(written("\x1b[1m12\x1b[0m", kBengali), "\x1b[1m১২\x1b[0m");
}

TEST(CliWriting, WhatIsNotUtf8StaysAndEnds) {
    EXPECT_EQ(written("\xFF\xC3", kArabic), "\xFF\xC3");
    EXPECT_EQ(seen(written("a\xFF", kArabic)), "<a>\xFF");
}

TEST(CliWriting, LanguagesHaveTheirOwnDigits) {
    EXPECT_EQ(nativeZero("ar"), char32_t{0x660});
    EXPECT_EQ(nativeZero("ar_EG"), char32_t{0x660});
    EXPECT_EQ(nativeZero("fa"), char32_t{0x6F0});
    EXPECT_EQ(nativeZero("tr"), U'0');
    EXPECT_EQ(nativeZero(""), U'0');
}

TEST(CliWriting, AStreamWritesLineByLine) {
    std::ostringstream target;
    {
        PersonsStream stream(target, kArabic);
        stream << "الفجر " << 5 << ":50";
        EXPECT_EQ(target.str(), "");
        stream << "\nب";
        EXPECT_EQ(seen(target.str()), "الفجر <5:50>\n");
        stream.flush();
        EXPECT_EQ(seen(target.str()), "الفجر <5:50>\nب");
        stream << "1+1";
    }
    EXPECT_EQ(seen(target.str()), "الفجر <5:50>\nب<1+1>");
}

TEST(CliWriting, AStreamTellsThatItsTargetFails) {
    std::ostringstream target;
    target.setstate(std::ios::badbit);
    PersonsStream stream(target, kArabic);
    stream << "a\n" << std::flush;
    EXPECT_FALSE(stream.good());
}

} // namespace
} // namespace zorel::cli
