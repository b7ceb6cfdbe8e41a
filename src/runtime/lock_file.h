// lock_file.h - one process at a time on a project or on a set of result files.
//
// The lock of `site.da` is the file `site.da.lock` beside it (for symbolic links: beside the target), with
// one line "sondera <process>". Only the system's lock on that file counts, not its existence: when a process
// ends, even by a kill, the lock is free, so a file left over blocks nobody. The file is removed when the
// lock is released, where that is possible.
//
// Callers: opening and saving of projects hold the lock of the project while it is open; a run holds the lock
// of its result files, whose target is the common base name (run.switches.baseName, lock `<base>.lock`), from
// before the first of them is opened until the last is closed:
//
//   LockFile lock;
//   if (!lock.MayGoOn(lock.Acquire(run.switches.baseName))) return Refuse(lock.Reason() + ".");
//   ... write the files; the end of `lock` releases it
//
// Within one process a lock can be taken several times; the last release frees it. Not to be called from two
// threads.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace sondera {

enum class LockResult {
  Taken,        ///< this process has it
  Busy,         ///< another process has it; Reason() names the file and, where known, the process
  NotPossible,  ///< the folder or its file system takes no lock (read-only, missing): work goes on without
                ///< one
  Failed,       ///< another error; Reason()
};

/// A lock, held for the object's lifetime.
class LockFile {
 public:
  /// Releases the lock that it held, then takes the lock of `target`, which need not exist itself. Waits for
  /// another process only after WaitForLocks, and no longer than until an interrupt.
  LockResult Acquire(const std::string& target);
  /// Releases the lock, as the end of the object does.
  void Release();
  bool Held() const { return held_ != nullptr; }
  /// The argument of Acquire; "" when nothing is held.
  const std::string& Target() const { return target_; }
  /// Sentence without its full stop for Busy, NotPossible and Failed; else empty.
  const std::string& Reason() const { return reason_; }

  /// Whether work can begin: taken, or a place without locks.
  static bool MayGoOn(LockResult result) {
    return result == LockResult::Taken || result == LockResult::NotPossible;
  }

 private:
  std::shared_ptr<void> held_;
  std::string target_;
  std::string reason_;
};

/// Name of the lock of a target that is not a symbolic link.
std::string LockNameOf(const std::string& target);

/// From now on Acquire waits for a lock that another process has; `tell` gets one sentence, without its full
/// stop, when a wait begins. Null: does not wait, as at the start.
void WaitForLocks(std::function<void(const std::string&)> tell);

}  // namespace sondera
