// lock_holder.cpp - see lock_holder.h.
#include "support/lock_holder.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "runtime/lock_file.h"

namespace sondera::test {

LockHolder::LockHolder(const std::string& target) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  pid = ::fork();
  if (pid == 0) {
    WaitForLocks(nullptr);
    LockFile lock;
    const char answer = lock.Acquire(target) == LockResult::Taken ? 'y' : 'n';
    if (::write(ends[1], &answer, 1) != 1) ::_exit(1);
    for (;;) ::pause();
  }
  char answer = '?';
  EXPECT_EQ(::read(ends[0], &answer, 1), 1);
  ::close(ends[0]);
  ::close(ends[1]);
  holds = answer == 'y';
}

void LockHolder::Kill() {
  if (pid <= 0) return;
  ::kill(pid, SIGKILL);
  ::waitpid(pid, nullptr, 0);
  pid = 0;
}

}  // namespace sondera::test
