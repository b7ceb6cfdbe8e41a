// control_lock.cpp - see control_lock.h. Owns the present locks, the outermost first.
#include "runtime/control_lock.h"

#include <algorithm>
#include <string>
#include <vector>

#include "runtime/changes.h"

namespace sondera {
namespace {

struct HeldLock {
  const ControlLock* owner;
  std::vector<ControlId> allowed;
  std::string title, refusal;
};
std::vector<HeldLock> locks;

bool Names(const HeldLock& lock, const Control& c) {
  return std::find(lock.allowed.begin(), lock.allowed.end(), &c) != lock.allowed.end();
}

void Tell() {
  NoteChange({.kind = ChangeKind::Lock});
}

}  // namespace

ControlLock::ControlLock(std::initializer_list<ControlId> allowed, std::string_view title,
                         std::string_view refusal) {
  locks.push_back({this, allowed, std::string(title), std::string(refusal)});
  Tell();
}

ControlLock::~ControlLock() {
  std::erase_if(locks, [this](const HeldLock& lock) { return lock.owner == this; });
  Tell();
}

bool IsLocked() {
  return !locks.empty();
}

bool Answers(const Control& c) {
  return std::all_of(locks.begin(), locks.end(), [&](const HeldLock& lock) { return Names(lock, c); });
}

ControlId EndingControl() {
  return locks.empty() || locks.back().allowed.empty() ? nullptr : locks.back().allowed.front();
}

LockRefusal RefusalOf(const Control& c) {
  const auto refusing =
      std::find_if(locks.rbegin(), locks.rend(), [&](const HeldLock& lock) { return !Names(lock, c); });
  return refusing == locks.rend() ? LockRefusal{} : LockRefusal{refusing->title, refusing->refusal};
}

}  // namespace sondera
