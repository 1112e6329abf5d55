// SPDX-License-Identifier: Apache-2.0
#include "engine/Processor.h"

#include <atomic>

namespace zorel {

namespace {

bool hasAvx2() {
#if defined(__x86_64__)
    __builtin_cpu_init(); // may be asked before the constructors of the compiler's library have run
    return __builtin_cpu_supports("avx2") != 0;
#else
    return false;
#endif
}

// Relaxed: the two versions of a function give the same results, it does not matter which one a thread runs.
std::atomic<bool>& avx2InUse() {
    static std::atomic<bool> inUse = hasAvx2();
    return inUse;
}

} // namespace

bool usesAvx2() {
    return avx2InUse().load(std::memory_order_relaxed);
}

void allowAvx2(bool allowed) {
    avx2InUse().store(allowed && hasAvx2(), std::memory_order_relaxed);
}

} // namespace zorel
