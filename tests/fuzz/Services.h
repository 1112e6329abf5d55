// SPDX-License-Identifier: Apache-2.0
/// @file
/// The services object of the pane for a fuzz target: no bundle, no data folder.
#pragma once

#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"

namespace zorel::fuzz {

[[nodiscard]] inline const GlobalFuncs& services() {
    Locations::current() = {"/dev/null", "/dev/null", "/dev/null"};
    static const GlobalFuncs functions;
    return functions;
}

} // namespace zorel::fuzz
