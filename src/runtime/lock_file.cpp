// lock_file.cpp - see lock_file.h. Owns the list of the locks that this process holds, and whether it waits.
#include "runtime/lock_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "runtime/events.h"
#include "runtime/file_driver.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::string_view kExtension = ".lock";
constexpr std::string_view kMark = "sondera ";  // a file without it belongs to somebody else
constexpr std::size_t kLongestName = 255;       // bytes of a file name, as the system allows
constexpr int kMostAttempts = 1000;  // lock files that others removed meanwhile, one after the other
constexpr std::chrono::milliseconds kPause{50};  // between two checks of a lock that is waited for

/// A lock file that is open and, once taken, locked.
struct Holder {
  std::string name;
  int fd = -1;
  bool taken = false;
  dev_t device = 0;
  ino_t node = 0;
  pid_t owner = ::getpid();  // a child process inherits the object, but not the lock

  Holder() = default;
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;
  /// First the name, then the lock: a process that gets the lock in between notices that its file has no name
  /// any more.
  ~Holder() {
    if (fd < 0) return;
    if (taken && owner == ::getpid()) RemoveFile(name);
    CloseFile(fd);
  }
};

std::vector<std::weak_ptr<Holder>> heldLocks;
std::function<void(const std::string&)> tellWait;

std::shared_ptr<Holder> HeldHere(dev_t device, ino_t node) {
  for (const auto& entry : heldLocks) {
    auto holder = entry.lock();
    if (holder && holder->owner == ::getpid() && holder->device == device && holder->node == node)
      return holder;
  }
  return nullptr;
}

/// Errors of a place that cannot hold a lock; the file's own writer reports whether it can be written.
bool MeansNoLocks(int error) {
  constexpr int kErrors[] = {EACCES, EPERM, EROFS, ENOENT, ENOTDIR, ENOLCK, ENOSYS, EOPNOTSUPP};
  return std::find(std::begin(kErrors), std::end(kErrors), error) != std::end(kErrors);
}

/// Result of one try, with the reason for Failed.
struct Attempt {
  LockResult result = LockResult::Failed;
  std::shared_ptr<Holder> holder;
  std::string text;  // Busy: the process that has it, if known; else the cause
  bool vanished = false;
};

Attempt Trouble(int error) {
  Attempt a;
  a.result = MeansNoLocks(error) ? LockResult::NotPossible : LockResult::Failed;
  a.text = std::generic_category().message(error);
  return a;
}

/// First line of the lock file; false when it cannot be read.
bool ReadMark(int fd, std::string& line) {
  char bytes[64];
  const ssize_t n = ReadFile(fd, bytes, sizeof bytes);
  if (n < 0) return false;
  line.assign(bytes, static_cast<std::size_t>(n));
  line.resize(std::min(line.size(), line.find('\n')));
  return true;
}

Attempt TryOnce(const std::string& name) {
  // Does not wait at a pipe, and creates nothing through a link of somebody else.
  constexpr int kFlags = O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW;
  const auto holder = std::make_shared<Holder>();  // closes the file again, except on success
  holder->name = name;
  bool mayWrite = true;
  holder->fd = OpenFile(name, O_RDWR | O_CREAT | kFlags, 0666);
  if (holder->fd < 0 && (errno == EACCES || errno == EROFS)) {  // that of another user can be locked too
    mayWrite = false;
    holder->fd = OpenFile(name, O_RDONLY | kFlags);
  }
  const int fd = holder->fd;
  struct stat opened {};
  if (fd < 0 || ::fstat(fd, &opened) != 0) return Trouble(errno);
  Attempt a;
  std::string line;
  const bool isFile = S_ISREG(opened.st_mode);
  if (isFile && opened.st_size > 0 && !ReadMark(fd, line)) return Trouble(errno);
  if (!isFile || (!line.empty() && !line.starts_with(kMark))) {
    a.text = "it is not a lock file of this program";
    return a;
  }
  if ((a.holder = HeldHere(opened.st_dev, opened.st_ino))) {
    a.result = LockResult::Taken;
    return a;
  }
  if (CurrentFileDriver().lock(fd) != 0) {
    if (errno != EWOULDBLOCK) return Trouble(errno);
    a.result = LockResult::Busy;
    if (line.size() > kMark.size()) a.text = line.substr(kMark.size());
    return a;
  }
  struct stat named {};
  if (::stat(name.c_str(), &named) != 0 || named.st_dev != opened.st_dev || named.st_ino != opened.st_ino) {
    a.vanished = true;  // its former holder has removed it meanwhile
    a.text = "it is removed again and again";
    return a;
  }
  holder->taken = true;
  holder->device = opened.st_dev;
  holder->node = opened.st_ino;
  if (mayWrite) {  // always the same length, so that it overwrites the mark of a killed process
    const std::string mark = FormatText("%s%-12ld\n", kMark.data(), static_cast<long>(::getpid()));
    if (::lseek(fd, 0, SEEK_SET) != 0 || !WriteFile(fd, mark.data(), mark.size())) return Trouble(errno);
  }
  std::erase_if(heldLocks, [](const auto& entry) { return entry.expired(); });
  heldLocks.push_back(holder);
  a.holder = holder;
  a.result = LockResult::Taken;
  return a;
}

/// Text of the process number in a mark, "" when there is none.
std::string BusySentence(const std::string& target, std::string process) {
  process.resize(std::min(process.size(), process.find(' ')));
  const bool number = !process.empty() && process.find_first_not_of("0123456789") == std::string::npos;
  return target + " is in use by " + (number ? "process " + process : std::string("another process"));
}

}  // namespace

std::string LockNameOf(const std::string& target) {
  const std::string name = FileNameOf(target);
  return DirectoryOf(target) + name.substr(0, kLongestName - kExtension.size()) + std::string(kExtension);
}

void WaitForLocks(std::function<void(const std::string&)> tell) {
  tellWait = std::move(tell);
}

void LockFile::Release() {
  held_.reset();
  target_.clear();
}

LockResult LockFile::Acquire(const std::string& target) {
  Release();
  reason_.clear();
  if (!CurrentFileDriver().lock) {
    reason_ = target + " lies where there are no locks";
    return LockResult::NotPossible;
  }
  std::string behindLinks;
  if (!FollowLinks(target, behindLinks)) {
    reason_ = "Cannot lock " + target + ": " + std::generic_category().message(errno);
    return LockResult::Failed;
  }
  const std::string name = LockNameOf(behindLinks);
  bool told = false;
  for (int vanished = 0;;) {
    Attempt a = TryOnce(name);
    if (a.vanished && ++vanished < kMostAttempts) continue;
    if (a.result == LockResult::Busy && tellWait && !InterruptRequested()) {
      if (!told) tellWait(BusySentence(target, a.text));
      told = true;
      std::this_thread::sleep_for(kPause);
      continue;
    }
    held_ = a.holder;
    if (held_) target_ = target;
    if (a.result == LockResult::Busy)
      reason_ = BusySentence(target, a.text);
    else if (a.result != LockResult::Taken)
      reason_ = FormatText("Cannot lock %s by %s: %s", target.c_str(), name.c_str(), a.text.c_str());
    return a.result;
  }
}

}  // namespace sondera
