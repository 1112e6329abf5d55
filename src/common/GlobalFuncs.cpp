// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"

#include "platform/foundation/Locale.h"
#include "platform/foundation/Locations.h"

namespace zorel {
namespace {

/// The day-period symbols by which a Turkish locale is known.
constexpr std::string_view kTurkishAm = "öö";
constexpr std::string_view kTurkishPm = "ös";

} // namespace

GlobalFuncs::GlobalFuncs() : Bundle{Locations::current().bundle} {
    const DayPeriods periods = dayPeriods();
    amSym = lowerCase(periods.am);
    pmSym = lowerCase(periods.pm);
    if (amSym == kTurkishAm && pmSym == kTurkishPm) {
        languageId = 0;
    }
    loadLanguageFile();
}

bool GlobalFuncs::fileExists(const std::string& path) const {
    return fileExistsAtPath(path);
}

} // namespace zorel
