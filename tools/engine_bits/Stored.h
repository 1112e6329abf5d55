// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>
#include <utility>

namespace zorel::bits {

/// Hashes by size ("quick", "full") and name of the workload.
using StoredHashes = std::map<std::pair<std::string, std::string>, std::string>;

/// The hashes of a file for one C library; empty when it has none. Lines: C library, size, workload, number
/// of values, hash, with tabs between; # begins a comment. Throws std::runtime_error for a file that cannot
/// be read or is not of that form.
[[nodiscard]] StoredHashes readStored(const std::string& file, const std::string& library);

/// The hash of a workload. Throws std::runtime_error when there are hashes, but not this one.
[[nodiscard]] std::string hashOf(const StoredHashes& stored, const std::string& size,
                                 const std::string& workload);

} // namespace zorel::bits
