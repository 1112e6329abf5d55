// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the user's locale contributes: AM and PM symbols, case mapping (ICU).
#pragma once

#include <string>
#include <string_view>

namespace zorel {

/// The current locale's identifier ("tr_TR"), from LC_ALL, LC_MESSAGES or LANG, or from a LocaleOverride.
[[nodiscard]] std::string currentLocale();
/// What a locale writes for the halves of a day on a 12-hour clock ("AM", "PM"); empty if ICU has no data.
struct DayPeriods {
    std::string am;
    std::string pm;
};
[[nodiscard]] DayPeriods dayPeriods(const std::string& locale = currentLocale());
/// The same, asked of ICU also for the locales whose symbols are known beforehand.
[[nodiscard]] DayPeriods dayPeriodsByIcu(const std::string& locale);
/// Lower and upper case of UTF-8 text; `locale` "" is Unicode's default mapping, "tr" the Turkish one.
[[nodiscard]] std::string lowerCase(std::string_view text, const std::string& locale = "");
[[nodiscard]] std::string upperCase(std::string_view text, const std::string& locale = "");

/// While it lives, currentLocale() answers with the given identifier.
class LocaleOverride {
public:
    explicit LocaleOverride(std::string locale);
    LocaleOverride(const LocaleOverride&) = delete;
    LocaleOverride& operator=(const LocaleOverride&) = delete;
    ~LocaleOverride();

private:
    std::string previous_;
};

} // namespace zorel
