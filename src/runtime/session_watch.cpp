// session_watch.cpp - see session_watch.h. Owns the listener.
#include "runtime/session_watch.h"

#include <utility>

namespace sondera {
namespace {

SessionWatcher watcher;

}  // namespace

SessionWatcher WatchSession(SessionWatcher next) {
  return std::exchange(watcher, std::move(next));
}

const SessionWatcher& TheSessionWatcher() {
  return watcher;
}

}  // namespace sondera
