// SPDX-License-Identifier: Apache-2.0
#include "store/TimeZoneNames.h"

#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace zorel {

std::string canonicalTimeZone(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString canonical;
    icu::TimeZone::getCanonicalID(icu::UnicodeString::fromUTF8(name), canonical, status);
    std::string text;
    return U_SUCCESS(status) ? canonical.toUTF8String(text) : text;
}

} // namespace zorel
