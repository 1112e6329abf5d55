// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace zorel {
namespace {

TEST(Utf8, MalformedBytesAreCharactersToo) {
    EXPECT_EQ(charactersOf("aé北").size(), 3U);
    EXPECT_EQ(charactersOf("\xFF\xC3").size(), 2U);
    EXPECT_TRUE(charactersOf("").empty());
}

TEST(Utf8, TheFirstCharacterTakesItsBytes) {
    EXPECT_EQ(firstCharacter("é!").code, U'é');
    EXPECT_EQ(firstCharacter("é!").bytes, 2U);
    EXPECT_EQ(firstCharacter("\xF0\x9F\x95\x8C!").code, U'\U0001F54C');
    EXPECT_EQ(firstCharacter("\xF0\x9F\x95\x8C!").bytes, 4U);
    EXPECT_TRUE(firstCharacter("é").wellFormed);
    for (const char* broken :
         {"\xC3", "\xC3(", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80"}) {
        EXPECT_FALSE(firstCharacter(broken).wellFormed) << broken;
        EXPECT_EQ(firstCharacter(broken).bytes, 1U) << broken;
        EXPECT_EQ(firstCharacter(broken).code, U'\uFFFD') << broken;
    }
}

TEST(CleanText, KeepsWhatPeopleWrite) {
    for (const char* text :
         {"", "Sinop", "İstanbul", "São Paulo", "Αθήνα", "東京", "القاهرة", "ירושלים", "मुंबई", "آب\u200Cپخش",
          "👨\u200D👩\u200D👧", "a/b c-d'e\"f`g\\h%i", "\uFFFD", "\u00A0\u00AD"}) {
        EXPECT_EQ(cleanText(text), text);
    }
}

TEST(CleanText, ReplacesControls) {
    EXPECT_EQ(cleanText("a\x1b[31mb"), "a?[31mb");
    EXPECT_EQ(cleanText("one\ntwo\r\tthree\x07\x7F"), "one?two??three??");
    EXPECT_EQ(cleanText(std::string("a\0b", 3)), "a?b");
    // CSI as one character of the upper controls, and as the byte that some terminals take for it.
    EXPECT_EQ(cleanText("\u009B31m\u0080\u009F"), "?31m??");
    EXPECT_EQ(cleanText("\x9B"
                        "31m"),
              "?31m");
}

TEST(CleanText, ReplacesWhatTurnsTheDirectionOrHidesText) {
    EXPECT_EQ(cleanText("evil\u202Egnp.wav"), "evil?gnp.wav");
    EXPECT_EQ(cleanText("\u061C\u200E\u200F\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069"),
              "????????????");
    EXPECT_EQ(cleanText("\u2028\u2029\uFEFF\U000E0041\U000E007F"), "?????");
}

TEST(CleanText, ReplacesMalformedBytes) {
    EXPECT_EQ(cleanText("a\xFFz\xC3"), "a?z?");
    EXPECT_EQ(cleanText("\xE2\x80"), "??");
}

TEST(CleanText, CleaningTwiceChangesNothing) {
    std::string bytes;
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; second += 5) {
            bytes += static_cast<char>(first);
            bytes += static_cast<char>(second);
        }
    }
    const std::string clean = cleanText(bytes);
    EXPECT_EQ(cleanText(clean), clean);
    for (const char32_t character : charactersOf(clean)) {
        ASSERT_FALSE(disturbsTerminal(character)) << static_cast<unsigned>(character);
    }
}

} // namespace
} // namespace zorel
