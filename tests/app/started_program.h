// started_program.h - the built program as a process of its own, silent, for tests that kill it or wait for it.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace sondera::testing {

inline const std::string kProgram = std::filesystem::absolute(SONDERA_PROGRAM).string();

/// @param arguments  the program first @return the process
inline pid_t StartProgram(const std::vector<std::string>& arguments) {
  std::vector<char*> words;
  for (const std::string& word : arguments) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const pid_t child = ::fork();
  if (child != 0) return child;
  if (!std::freopen("/dev/null", "w", stderr) || !std::freopen("/dev/null", "w", stdout)) ::_exit(126);
  ::execv(kProgram.c_str(), words.data());
  ::_exit(127);
}

}  // namespace sondera::testing
