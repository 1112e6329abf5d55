// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the processor at hand can do beyond what every one of its kind can. Loops that gain by it are
/// compiled twice from the same source, once for every processor and once with ZOREL_TARGET_AVX2, and the
/// caller asks usesAvx2() which of the two to run. Elementwise arithmetic gives the same bits in vectors of
/// any width, and fused multiply-add, which would not, is enabled in neither.
#pragma once

/// Before a function: it may use AVX2, vectors of four numbers. On other than 64-bit x86 it is as any other.
#if defined(__x86_64__)
#define ZOREL_TARGET_AVX2 [[gnu::target("avx2")]]
#else
#define ZOREL_TARGET_AVX2
#endif

namespace zorel {

/// Whether functions with ZOREL_TARGET_AVX2 are to be called: the processor and the system have AVX2, and it
/// was not turned off.
[[nodiscard]] bool usesAvx2();

/// For comparisons of the two: whether AVX2 is used where it is there, in the whole process (at first it is).
void allowAvx2(bool allowed);

} // namespace zorel
