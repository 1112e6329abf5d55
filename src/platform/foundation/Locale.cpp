// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Locale.h"

#include <cstdint>
#include <cstdlib>
#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>
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

std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

icu::UnicodeString wide(std::string_view text) {
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

icu::Locale mappingLocale(const std::string& locale) {
    return locale.empty() ? icu::Locale::getRoot() : icu::Locale(locale.c_str());
}

} // namespace

std::string currentLocale() {
    return overriddenLocale().empty() ? localeIdentifier(localeOfEnvironment()) : overriddenLocale();
}

DayPeriods dayPeriods(const std::string& locale) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(icu::Locale(locale.c_str()), error);
    std::int32_t count = 0;
    const icu::UnicodeString* texts = symbols.getAmPmStrings(count);
    return U_SUCCESS(error) != 0 && texts != nullptr && count >= 2
               ? DayPeriods{utf8(texts[0]), utf8(texts[1])}
               : DayPeriods{};
}

std::string lowerCase(std::string_view text, const std::string& locale) {
    return utf8(wide(text).toLower(mappingLocale(locale)));
}

std::string upperCase(std::string_view text, const std::string& locale) {
    return utf8(wide(text).toUpper(mappingLocale(locale)));
}

LocaleOverride::LocaleOverride(std::string locale)
    : previous_(std::exchange(overriddenLocale(), std::move(locale))) {}

LocaleOverride::~LocaleOverride() {
    overriddenLocale() = std::move(previous_);
}

} // namespace zorel
