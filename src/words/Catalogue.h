// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the sources of this folder share.
#pragma once

namespace zorel::words {

/// Name of the catalogues: "zorel.mo".
inline constexpr const char* kDomain = "zorel";

/// Whether texts are said as they stand in the sources.
[[nodiscard]] bool speaksEnglish();

} // namespace zorel::words
