// lanes.h - several real numbers side by side in the processor's vector registers: the instruction sets, and
// how a file compiles its vector code once for each of them.
//
// The type itself, Real with its Mask, is in lanes.inc, which a file includes in a namespace of its own for each
// set, between SONDERA_LANES_AVX2 (or SONDERA_LANES_AVX512) and SONDERA_LANES_END:
//
//     namespace portable {
//     #define SONDERA_LANES 8   // lanes of a Real
//     #define SONDERA_NATIVE 2  // doubles of a register
//     #include "numeric/lanes.inc"
//     #include "the code that uses Real"
//     }
//     #ifdef SONDERA_WIDE_LANES
//     SONDERA_LANES_AVX2
//     namespace avx2 { ... SONDERA_NATIVE 4 ... }
//     SONDERA_LANES_END
//     #endif
//
// It is text and not a template, because operations on a wide register need a function that is compiled for a
// processor that has it. No instruction set uses fused multiply-add: all give the same bits.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#define SONDERA_WIDE_LANES
#define SONDERA_LANES_PRAGMA(text) _Pragma(#text)
#if defined(__clang__)
#define SONDERA_LANES_AVX2 \
  SONDERA_LANES_PRAGMA(clang attribute push(__attribute__((target("avx2"))), apply_to = function))
#define SONDERA_LANES_AVX512 \
  SONDERA_LANES_PRAGMA(clang attribute push(__attribute__((target("avx512f,avx512dq"))), apply_to = function))
#define SONDERA_LANES_END SONDERA_LANES_PRAGMA(clang attribute pop)
#else
#define SONDERA_LANES_AVX2 SONDERA_LANES_PRAGMA(GCC push_options) SONDERA_LANES_PRAGMA(GCC target("avx2"))
#define SONDERA_LANES_AVX512             \
  SONDERA_LANES_PRAGMA(GCC push_options) \
  SONDERA_LANES_PRAGMA(GCC target("avx512f,avx512dq,prefer-vector-width=512"))
#define SONDERA_LANES_END SONDERA_LANES_PRAGMA(GCC pop_options)
#endif
#endif

#define SONDERA_INLINE [[gnu::always_inline]] inline

// Vectors are never passed to a call: every function that takes one is inlined, so the calling convention
// does not matter.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wpsabi"
#else
#pragma GCC diagnostic ignored "-Wpsabi"
#endif

namespace sondera {

/// Whether this processor has these instructions.
inline bool HasAvx2() {
#if defined(__x86_64__)
  return __builtin_cpu_supports("avx2");
#else
  return false;
#endif
}
inline bool HasAvx512() {
#if defined(__x86_64__)
  return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq");
#else
  return false;
#endif
}

/// The sign bit of a double as an integer.
inline constexpr std::int64_t kSignBit = INT64_MIN;

}  // namespace sondera
