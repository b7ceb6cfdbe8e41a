// sanitized.h - whether this is the instrumented build, which is slower and has memory of its own.
#pragma once

namespace sondera {

#ifdef SONDERA_CHECK_BOUNDS  // set by that build, for every compiler
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif

}  // namespace sondera
