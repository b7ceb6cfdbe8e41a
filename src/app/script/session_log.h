// session_log.h - the log of a session: every action of a person or a script as a line of the second dialect,
// so that the file can be run again and gives the same project, byte for byte.
//
// A person's actions come through runtime/session_watch.h; those of a script are reported here, line by line.
// A line is written when its action has ended, together with all its related lines: the answers, a halt, and
// `onerror continue` around an action that was refused. So the complete lines of a log are always a valid
// script.
#pragma once

#include <string>

#include "app/script/words.h"
#include "runtime/control.h"

namespace sondera::script {

/// Begins a log. An existing file is replaced only when it is a log, and not when it is the script to be run.
/// Empty, or why there is no log.
std::string BeginLog(const std::string& path, const std::string& script = {});
/// The same in the middle of a session: the log begins with the saved project.
/// @param project  its file; empty: it has none
std::string BeginLogOn(const std::string& path, const std::string& project);
/// Whether a log is being written.
bool IsLogging();
/// Ends it. Empty, or why the log is incomplete.
std::string EndLog();

/// One action of a script or of the command line, from before its start to its end. Does nothing without a
/// log.
class LoggedAct {
 public:
  enum class Answers {
    InScript,  ///< the script has lines for them (LogSteering)
    AreAsked,  ///< they are recorded when the boxes are answered
  };
  explicit LoggedAct(Answers answers);
  ~LoggedAct();
  LoggedAct(const LoggedAct&) = delete;
  LoggedAct& operator=(const LoggedAct&) = delete;

  /// What to write. refused: a replay will be refused as well. replaces: a control without a callback whose
  /// value the line sets; a later line of that kind replaces it as long as nothing else has happened.
  void is(std::string line, bool refused, ControlId replaces = nullptr);
  /// Ends the action before the scope does.
  void end();

 private:
  bool open_ = false;
  std::string line_;
  bool refused_ = false;
  ControlId replaces_ = nullptr;
};

/// A line for the next action: an answer, a halt.
void LogSteering(const std::string& line);

}  // namespace sondera::script
