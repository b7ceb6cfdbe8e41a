// console.h - the front end that is always there: a terminal, or the log of an unattended run.
//
// Messages go to stderr as "title: text". A question is printed with the answer that it got: No, or Cancel,
// unless assumeYes is set, since an unattended run never overwrites or discards by itself. The boxes
// STATUSMSG and PROCESSMSG are the progress: one line rewritten in place on a terminal, a plain line now and
// then elsewhere.
#pragma once

#include <functional>
#include <string>

namespace sondera {

/// Makes windows the front end in place of the console; false where no display is there. Empty: built without them.
using WindowsDoor = std::function<bool()>;

struct ConsoleOptions {
  bool assumeYes = false;
  /// What was wrong with the command line, and the text of --help: told where a session would now wait for a
  /// person, since the console has none. Empty: nothing of it.
  std::string complaint, usage;
  bool batch = false;             ///< windows are not wanted
  bool builtWithWindows = false;  ///< then it is the display that is missing
  WindowsDoor windows;            ///< opens where a script has stopped early; empty: never
};

/// Installs the console as front end, its progress line and its Ctrl-C handling. Its event loop ends at once
/// with 1 and says why, unless windows open in its place.
void InstallConsole(const ConsoleOptions& options);

/// Ends a progress line that stands unfinished on the terminal.
void FinishProgressLine();

}  // namespace sondera
