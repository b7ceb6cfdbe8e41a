// limited_memory.h - work in a child process that may take little more memory than it has.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <new>

namespace sondera::test {

/// What `work` returned (0 to 99) in a child of this process that may take `bytes` more than it has. 101:
/// std::bad_alloc came out; 102: the limit could not be set; -1: the child was killed. Not under the sanitizers, which
/// reserve memory of their own.
template <class Work>
int InLittleMemory(std::int64_t bytes, Work work) {
  const pid_t child = fork();
  if (child == 0) {
    std::FILE* statm = std::fopen("/proc/self/statm", "r");
    long pages = 0;
    if (!statm || std::fscanf(statm, "%ld", &pages) != 1) _exit(102);
    const rlim_t most =
        static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + static_cast<rlim_t>(bytes);
    const struct rlimit limit { most, most };
    if (setrlimit(RLIMIT_AS, &limit) != 0) _exit(102);
    try {
      _exit(work());
    } catch (const std::bad_alloc&) {
      _exit(101);
    }
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace sondera::test
