// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Values.h"
#include "tests/engine/Places.h"

#include <span>

namespace zorel::bits {

/// What one engine computes one after the other, the same at every run.
struct Workload {
    const char* name;
    int quickSteps;
    int fullSteps;
    void (*step)(FastAstro& engine, testing::Random& random, int count, Hash& hash);
};

[[nodiscard]] std::span<const Workload> workloads();

} // namespace zorel::bits
