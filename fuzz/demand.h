// demand.h - what must hold for every input. A demand that fails is named on the standard output, because the fuzzer
// closes the standard error of the library that it tests.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace sondera::fuzz {

inline void Demand(bool holds, const std::string& what = {}, const char* file = __builtin_FILE(),
                   int line = __builtin_LINE()) {
  if (holds) return;
  std::printf("%s:%d: a demand failed. %s\n", file, line, what.c_str());
  std::fflush(stdout);
  std::abort();
}

}  // namespace sondera::fuzz
