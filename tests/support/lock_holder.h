// lock_holder.h - another process that holds a lock.
#pragma once

#include <sys/types.h>

#include <string>

namespace sondera::test {

/// Takes the lock of `target` in a process of its own and holds it until it is killed.
class LockHolder {
 public:
  explicit LockHolder(const std::string& target);
  ~LockHolder() { Kill(); }
  LockHolder(const LockHolder&) = delete;
  LockHolder& operator=(const LockHolder&) = delete;

  void Kill();
  /// False when the lock was not to be had.
  bool holds = false;
  pid_t pid = 0;
};

}  // namespace sondera::test
