// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace zorel::bits {

/// A hash of what the C library's functions of angles answer. They are not rounded correctly to the last bit,
/// and a library may have several of each: glibc takes others on a processor with fused multiply-add. Hashes
/// of the engine can be compared only where this one is the same.
[[nodiscard]] std::string cLibrary();

} // namespace zorel::bits
