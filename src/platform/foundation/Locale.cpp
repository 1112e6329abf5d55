// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Locale.h"

#include "platform/foundation/Utf16.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <unicode/udat.h>
#include <unicode/ustring.h>
#include <utility>

namespace zorel {
namespace {

std::string& overriddenLocale() {
    static std::string locale;
    return locale;
}

/// The first of the POSIX variables for messages that is set and not empty.
std::string localeOfEnvironment() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            return value;
        }
    }
    return "C";
}

/// "tr_TR.UTF-8@euro" -> "tr_TR"; the plain C locale is English without a country's habits.
std::string localeIdentifier(const std::string& posixName) {
    const std::string name = posixName.substr(0, posixName.find_first_of(".@"));
    return name == "C" || name == "POSIX" || name.empty() ? "en_US_POSIX" : name;
}

/// What ICU answers for the locales of most users, so that its library need not be loaded for them.
struct KnownPeriods {
    std::string_view locale;
    std::string_view am;
    std::string_view pm;
};
constexpr std::array kKnownPeriods{
    KnownPeriods{"en_US_POSIX", "AM", "PM"}, KnownPeriods{"en_US", "AM", "PM"},
    KnownPeriods{"en_GB", "am", "pm"},       KnownPeriods{"tr_TR", "ÖÖ", "ÖS"},
    KnownPeriods{"de_DE", "AM", "PM"},       KnownPeriods{"fr_FR", "AM", "PM"},
};

struct CloseFormat {
    void operator()(UDateFormat* format) const { udat_close(format); }
};

std::string dayPeriod(const UDateFormat& format, std::int32_t half) {
    constexpr std::size_t kUsualLength = 16;
    return utf8FromUtf16(
        filledText(kUsualLength, [&](char16_t* buffer, std::int32_t capacity, UErrorCode& status) {
            return udat_getSymbols(&format, UDAT_AM_PMS, half, buffer, capacity, &status);
        }));
}

/// A capital of ASCII or of the rest of Latin-1 (two bytes in UTF-8, C3 80 to C3 9E without the
/// multiplication sign) as its small letter, in Unicode's default mapping; nothing for other text.
std::optional<std::string> lowerLatin1(std::string_view text) {
    std::string lower(text);
    for (std::size_t at = 0; at < lower.size(); ++at) {
        const auto byte = static_cast<unsigned char>(lower[at]);
        if (byte < 0x80) {
            lower[at] = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20U) : lower[at];
            continue;
        }
        const auto next = static_cast<unsigned char>(at + 1 < lower.size() ? lower[at + 1] : 0);
        if (byte != 0xC3 || next < 0x80 || next > 0xBF) {
            return std::nullopt;
        }
        ++at;
        lower[at] = next <= 0x9E && next != 0x97 ? static_cast<char>(next | 0x20U) : lower[at];
    }
    return lower;
}

using CaseMapping = std::int32_t (*)(char16_t*, std::int32_t, const char16_t*, std::int32_t, const char*,
                                     UErrorCode*);

std::string mapped(std::string_view text, const std::string& locale, CaseMapping mapping) {
    const std::u16string wide = utf16FromUtf8(text);
    return utf8FromUtf16(
        filledText(wide.size(), [&](char16_t* buffer, std::int32_t capacity, UErrorCode& status) {
            return mapping(buffer, capacity, wide.data(), static_cast<std::int32_t>(wide.size()),
                           locale.c_str(), &status);
        }));
}

} // namespace

std::string currentLocale() {
    return overriddenLocale().empty() ? localeIdentifier(localeOfEnvironment()) : overriddenLocale();
}

DayPeriods dayPeriods(const std::string& locale) {
    const auto* const known = std::ranges::find(kKnownPeriods, locale, &KnownPeriods::locale);
    if (known != kKnownPeriods.end()) {
        return {std::string(known->am), std::string(known->pm)};
    }
    return dayPeriodsByIcu(locale);
}

DayPeriods dayPeriodsByIcu(const std::string& locale) {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UDateFormat, CloseFormat> format(
        udat_open(UDAT_PATTERN, UDAT_PATTERN, locale.c_str(), nullptr, 0, u"a", 1, &error));
    return U_SUCCESS(error) != 0 && format != nullptr
               ? DayPeriods{dayPeriod(*format, 0), dayPeriod(*format, 1)}
               : DayPeriods{};
}

std::string lowerCase(std::string_view text, const std::string& locale) {
    if (locale.empty()) {
        if (auto lower = lowerLatin1(text)) {
            return *std::move(lower);
        }
    }
    return mapped(text, locale, &u_strToLower);
}

std::string upperCase(std::string_view text, const std::string& locale) {
    return mapped(text, locale, &u_strToUpper);
}

LocaleOverride::LocaleOverride(std::string locale)
    : previous_(std::exchange(overriddenLocale(), std::move(locale))) {}

LocaleOverride::~LocaleOverride() {
    overriddenLocale() = std::move(previous_);
}

} // namespace zorel
