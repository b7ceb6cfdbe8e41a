// session_watch.h - one listener to what comes into a session from outside: a person's acts at the door of a front end
// (input_scope.h), the answers to boxes, the polls of long runs, and the files that are read. The log of a session is
// written from it.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace sondera {

struct Input;
struct FileChoice;

struct SessionWatcher {
  std::function<void(const Input&)> begins;
  /// Of Value and Cells: the value stands in the store, no callback has seen it yet.
  std::function<void(const Input&)> entered;
  /// refused: the act, or a part of it, was.
  std::function<void(const Input&, bool refused)> ends;
  std::function<void(bool yes)> confirmed;
  /// Empty: cancelled.
  std::function<void(const std::optional<std::string>& text)> prompted;
  std::function<void(const FileChoice& choice)> fileChosen;
  std::function<void()> polled;
  std::function<void(const std::string& path)> readsFile;
};

/// Installs the listener, which stays over a new session, and returns the one that stood before.
SessionWatcher WatchSession(SessionWatcher watcher);
/// The listener in force, for whoever tells it.
const SessionWatcher& TheSessionWatcher();

}  // namespace sondera
