// SPDX-License-Identifier: Apache-2.0
/// @file
/// Tags and texts that the two sources of AlarmView share.
#pragma once

#include <cstdint>

namespace zorel::alarm_view {

inline constexpr std::int32_t kTableTag = 2000;
inline constexpr std::int32_t kTimePickerTag = 2001;
inline constexpr std::int32_t kMelodyPickerTag = 2002;
inline constexpr std::int32_t kMelodyTimePickerTag = 2003;
inline constexpr std::int32_t kSwitchTag = 2004;

inline constexpr std::int32_t kLargestOffset = 59; ///< [min] before and after the prayer time
inline constexpr std::int32_t kFirstHeaderKey = 1036;
inline constexpr std::int32_t kAlarmKey = 1039;

/// Language key of the header above a picker.
[[nodiscard]] constexpr std::int32_t headerKeyOfPicker(std::int32_t tag) {
    return kFirstHeaderKey + (tag - kTimePickerTag);
}

} // namespace zorel::alarm_view
