// session_watch.h - one listener to all input of a session: a person's actions at a front end
// (input_scope.h), the answers to boxes, the polls of long runs, and the files that are read. The log of a
// session uses it.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace sondera {

struct Input;
struct FileChoice;

/// How an action ended.
enum class InputEnd {
  Done,
  Told,     ///< done, and the program showed a message
  Refused,  ///< the action, or a part of it
};

struct SessionWatcher {
  std::function<void(const Input&)> begins;
  /// For Value and Cells: the value is in the store, no callback has run yet.
  std::function<void(const Input&)> entered;
  std::function<void(const Input&, InputEnd end)> ends;
  std::function<void(bool yes)> confirmed;
  /// Empty: cancelled.
  std::function<void(const std::optional<std::string>& text)> prompted;
  std::function<void(const FileChoice& choice)> fileChosen;
  std::function<void()> polled;
  std::function<void(const std::string& path)> readsFile;
};

/// Installs the listener, which stays in a new session, and returns the previous one.
SessionWatcher WatchSession(SessionWatcher watcher);
/// The installed listener, for code that reports to it.
const SessionWatcher& TheSessionWatcher();

}  // namespace sondera
