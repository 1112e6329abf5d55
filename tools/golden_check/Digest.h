// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace zorel::golden {

/// Prints one line for each group of results: its name and a hash of all their bits. Two builds of the engine
/// that compute the same print the same.
void printDigest();

} // namespace zorel::golden
