// SPDX-License-Identifier: Apache-2.0
/// @file
/// Runs the cases of one operation of a golden file and sums up how far the results lie from the expected
/// ones.
#pragma once

#include "Registry.h"

namespace zorel::golden {

struct Report {
    std::string name;
    int cases = 0;
    int failures = 0;
    double largest = 0.0;  ///< largest difference of any number
    double fraction = 0.0; ///< largest difference as a part of its tolerance
    std::string worst;     ///< the "in" of the case with that fraction
    std::string field;     ///< the result it is in
};

/// @param entry the operation's object of the file. Throws MalformedFile when it does not have the format.
Report runOperation(const std::string& name, const Json& entry, const Operation& operation);
/// The "args" of an operation's object; empty when it has none.
std::vector<std::string> argumentNames(const Json& entry);

} // namespace zorel::golden
