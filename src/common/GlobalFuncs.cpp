// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"

#include "common/SpokenLanguage.h"
#include "platform/foundation/Locale.h"
#include "platform/foundation/Locations.h"

#include <algorithm>
#include <array>

namespace zorel {
namespace {

/// The day-period symbols by which a Turkish locale is known.
constexpr std::string_view kTurkishAm = "öö";
constexpr std::string_view kTurkishPm = "ös";
/// The languages that have a number.
constexpr std::array<std::string_view, kLanguageWithoutNumber> kLanguageCodes = {"tr", "en", "fr", "de"};

} // namespace

GlobalFuncs::GlobalFuncs() : Bundle{Locations::current().bundle} {
    const DayPeriods periods = dayPeriods();
    amSym = lowerCase(periods.am);
    pmSym = lowerCase(periods.pm);
    if (amSym == kTurkishAm && pmSym == kTurkishPm) {
        languageId = 0;
    }
    if (!languageOfPane().empty()) {
        const auto* const known = std::ranges::find(kLanguageCodes, languageOfPane());
        languageId = static_cast<std::int32_t>(known - kLanguageCodes.begin());
    }
    loadLanguageFile();
}

bool GlobalFuncs::fileExists(const std::string& path) const {
    return fileExistsAtPath(path);
}

} // namespace zorel
