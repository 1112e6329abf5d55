// SPDX-License-Identifier: Apache-2.0
#include "store/TimeZoneNames.h"

#include "platform/foundation/Utf16.h"

#include <unicode/ucal.h>

namespace zorel {

std::string canonicalTimeZone(const std::string& name) {
    constexpr std::size_t kUsualLength = 64;
    const std::u16string wide = utf16FromUtf8(name);
    return utf8FromUtf16(
        filledText(kUsualLength, [&](char16_t* buffer, std::int32_t capacity, UErrorCode& status) {
            UBool isSystem = 0;
            return ucal_getCanonicalTimeZoneID(wide.data(), static_cast<std::int32_t>(wide.size()), buffer,
                                               capacity, &isSystem, &status);
        }));
}

} // namespace zorel
