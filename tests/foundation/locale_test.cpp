// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/CodePage1254.h"
#include "platform/foundation/Locale.h"
#include "platform/foundation/Utf16.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <optional>

namespace zorel {
namespace {

/// Sets the three locale variables and puts them back.
class LocaleVariables {
public:
    LocaleVariables(const char* all, const char* messages, const char* lang) {
        set("LC_ALL", all);
        set("LC_MESSAGES", messages);
        set("LANG", lang);
    }
    LocaleVariables(const LocaleVariables&) = delete;
    LocaleVariables& operator=(const LocaleVariables&) = delete;
    ~LocaleVariables() {
        for (const auto& [name, value] : previous_) {
            change(name, value ? value->c_str() : nullptr);
        }
    }

private:
    static void change(const char* name, const char* value) {
        if (value != nullptr) {
            setenv(name, value, 1);
        } else {
            unsetenv(name);
        }
    }
    void set(const char* name, const char* value) {
        const char* previous = std::getenv(name);
        previous_[name] = previous != nullptr ? std::optional<std::string>(previous) : std::nullopt;
        change(name, value);
    }
    std::map<const char*, std::optional<std::string>> previous_;
};

TEST(CurrentLocale, FollowsTheVariablesInOrder) {
    EXPECT_EQ((LocaleVariables("tr_TR.UTF-8", "de_DE", "fr_FR"), currentLocale()), "tr_TR");
    EXPECT_EQ((LocaleVariables(nullptr, "de_DE@euro", "fr_FR"), currentLocale()), "de_DE");
    EXPECT_EQ((LocaleVariables("", "", "fr_FR.UTF-8"), currentLocale()), "fr_FR");
}

TEST(CurrentLocale, IsPlainEnglishWithoutALanguage) {
    for (const char* name : {"C", "POSIX", "C.UTF-8", ".UTF-8", ""}) {
        const LocaleVariables variables(nullptr, nullptr, name);
        EXPECT_EQ(currentLocale(), "en_US_POSIX") << name;
    }
    const LocaleVariables none(nullptr, nullptr, nullptr);
    EXPECT_EQ(currentLocale(), "en_US_POSIX");
}

TEST(DayPeriods, OfKnownLocalesAreThoseOfIcu) {
    for (const char* locale : {"en_US_POSIX", "en_US", "en_GB", "tr_TR", "de_DE", "fr_FR"}) {
        const DayPeriods known = dayPeriods(locale);
        const DayPeriods asked = dayPeriodsByIcu(locale);
        EXPECT_EQ(known.am, asked.am) << locale;
        EXPECT_EQ(known.pm, asked.pm) << locale;
        EXPECT_FALSE(asked.am.empty()) << locale;
    }
    EXPECT_EQ(dayPeriods("ja_JP").am, "午前");
}

TEST(LowerCase, OfLatinLettersIsThatOfIcu) {
    for (std::uint32_t letter = 1; letter < 0x250; ++letter) {
        std::string text = "x";
        if (letter >= 0x80) {
            text += static_cast<char>(0xC0U | (letter >> 6U));
            text += static_cast<char>(0x80U | (letter & 0x3FU));
        } else {
            text += static_cast<char>(letter);
        }
        EXPECT_EQ(lowerCase(text), lowerCase(text, "root")) << letter;
    }
    for (const char* broken : {"\xC3", "A\xC3", "\xC3(", "\x80", "\xFF"}) {
        EXPECT_EQ(lowerCase(broken), lowerCase(broken, "root"));
    }
    EXPECT_EQ(lowerCase("ÖÖ"), "öö");
}

TEST(Utf16, GoesBothWays) {
    for (const char* text : {"", "Istanbul", "İstanbul", "東京", "\U0001F54C"}) {
        EXPECT_EQ(utf8FromUtf16(utf16FromUtf8(text)), text);
    }
    EXPECT_EQ(utf16FromUtf8("\U0001F54C").size(), 2U);
    EXPECT_EQ(utf8FromUtf16(utf16FromUtf8("a\xFF"
                                          "b")),
              "a\uFFFDb");
    EXPECT_EQ(utf8FromUtf16(std::u16string(1, static_cast<char16_t>(0xD800))), "\uFFFD");
}

TEST(FilledText, AsksAgainWhenTheBufferIsTooSmall) {
    int asked = 0;
    const auto fill = [&](char16_t* buffer, std::int32_t capacity, UErrorCode& status) {
        ++asked;
        for (std::int32_t i = 0; i < std::min(capacity, 3); ++i) {
            buffer[i] = u'x';
        }
        status = capacity < 3 ? U_BUFFER_OVERFLOW_ERROR : U_ZERO_ERROR;
        return 3;
    };
    EXPECT_EQ(filledText(1, fill), u"xxx");
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(filledText(9, fill), u"xxx");
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(filledText(9,
                         [](char16_t*, std::int32_t, UErrorCode& status) {
                             status = U_ILLEGAL_ARGUMENT_ERROR;
                             return 5;
                         }),
              u"");
}

TEST(CurrentLocale, CanBeOverridden) {
    const std::string outside = currentLocale();
    {
        const LocaleOverride outer("fr_CA");
        {
            const LocaleOverride inner("tr");
            EXPECT_EQ(currentLocale(), "tr");
        }
        EXPECT_EQ(currentLocale(), "fr_CA");
    }
    EXPECT_EQ(currentLocale(), outside);
}

TEST(DayPeriodSymbols, AreThoseOfTheLocale) {
    EXPECT_EQ(dayPeriods("tr_TR").am, "ÖÖ");
    EXPECT_EQ(dayPeriods("tr_TR").pm, "ÖS");
    EXPECT_EQ(dayPeriods("en_US").am, "AM");
    EXPECT_EQ(dayPeriods("en_US_POSIX").pm, "PM");
    EXPECT_EQ(dayPeriods("ar_EG").am, "ص");
}

TEST(DayPeriodSymbols, FallBackForALocaleThatThereIsNot) {
    for (const char* locale : {"xx_YY", "", "....", "tr_TR_TR_TR_TR_TR"}) {
        EXPECT_FALSE(dayPeriods(locale).am.empty()) << locale;
    }
    EXPECT_FALSE(dayPeriods(std::string(10000, 'x')).pm.empty());
}

TEST(CaseMapping, DependsOnTheLanguageOnlyWhenAsked) {
    EXPECT_EQ(lowerCase("ÖÖ ÖS"), "öö ös");
    EXPECT_EQ(lowerCase("Istanbul", "tr"), "ıstanbul");
    EXPECT_EQ(lowerCase("Istanbul"), "istanbul");
    EXPECT_EQ(upperCase("izmir", "tr"), "İZMİR");
    EXPECT_EQ(upperCase("izmir"), "IZMIR");
    EXPECT_EQ(upperCase("straße"), "STRASSE");
    EXPECT_EQ(lowerCase(""), "");
}

TEST(CaseMapping, SurvivesBytesThatAreNoText) {
    EXPECT_EQ(lowerCase("A\xFF"
                        "B"),
              "a\uFFFD"
              "b");
}

TEST(CodePage1254, ReadsTurkishLetters) {
    EXPECT_EQ(utf8FromCodePage1254("\xDD\xFD\xDE\xFE\xD0\xF0"), "İıŞşĞğ");
    EXPECT_EQ(utf8FromCodePage1254("\xC7\xE7\xD6\xF6\xDC\xFC\x80"), "ÇçÖöÜü€");
    EXPECT_EQ(utf8FromCodePage1254("41;30;36"), "41;30;36");
    EXPECT_EQ(utf8FromCodePage1254(""), "");
}

TEST(CodePage1254, ComesBackByteForByte) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        const std::string text = utf8FromCodePage1254(bytes);
        EXPECT_FALSE(text.empty()) << byte;
        EXPECT_EQ(codePage1254FromUtf8(text), bytes) << byte;
    }
}

TEST(CodePage1254, HasNoPlaceForOtherLetters) {
    EXPECT_EQ(codePage1254FromUtf8("Şanlıurfa"), "\xDE"
                                                 "anl\xFDurfa");
    EXPECT_EQ(codePage1254FromUtf8("東京"), std::nullopt);
    EXPECT_EQ(codePage1254FromUtf8(""), "");
}

} // namespace
} // namespace zorel
