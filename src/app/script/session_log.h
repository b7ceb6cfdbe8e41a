// session_log.h - the log of a session: every act of a person or a script as a line of the second dialect, so that the
// file runs again and leaves the same project, byte for byte.
//
// Acts of a person come through runtime/session_watch.h; those of a script are told here, line by line. A line is
// written when its act has ended, with all that belongs to it in one write: the answers that were given, a halt, and
// `onerror continue` around an act that was refused. So the whole lines of a log are a script at any moment.
#pragma once

#include <string>

#include "app/script/words.h"
#include "runtime/control.h"

namespace sondera::script {

/// Begins a log. A file that exists is replaced only when it is a log, and not when it is the script to be run.
/// Empty, or why there is no log.
std::string BeginLog(const std::string& path, const std::string& script = {});
/// Ends it. Empty, or why the log is not whole.
std::string EndLog();

/// One act of a script or of the command line, from before it begins to its end. Does nothing without a log.
class LoggedAct {
 public:
  enum class Answers {
    InScript,  ///< the script has lines for them (LogSteering)
    AreAsked,  ///< they are taken down as the boxes are answered
  };
  explicit LoggedAct(Answers answers);
  ~LoggedAct();
  LoggedAct(const LoggedAct&) = delete;
  LoggedAct& operator=(const LoggedAct&) = delete;

  /// What to write. refused: a replay will be refused as well. replaces: a control without a callback whose value the
  /// line sets; a later line of that kind takes its place as long as nothing else has happened.
  void is(std::string line, bool refused, ControlId replaces = nullptr);
  /// Ends the act before the scope does.
  void end();

 private:
  bool open_ = false;
  std::string line_;
  bool refused_ = false;
  ControlId replaces_ = nullptr;
};

/// A line for the act that follows: an answer, a halt.
void LogSteering(const std::string& line);

}  // namespace sondera::script
