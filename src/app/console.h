// console.h - the front end that is always available: a terminal, or the log of an unattended run.
//
// Messages go to stderr as "title: text". A question is printed with its answer: No, or Cancel, unless
// assumeYes is set, since an unattended run never overwrites or discards by itself. The boxes STATUSMSG and
// PROCESSMSG are the progress: on a terminal one line that is overwritten in place, elsewhere a plain line at
// intervals.
#pragma once

#include <functional>
#include <string>

namespace sondera {

/// Replaces the console by windows and returns "", or why it cannot. Empty: built without them.
using WindowsOpener = std::function<std::string()>;

struct ConsoleOptions {
  bool assumeYes = false;
  /// Fault of the command line, and the text of --help: printed where a session would now wait for a person,
  /// since the console has none. Empty: neither.
  std::string complaint, usage;
  bool batch = false;     ///< windows are not wanted
  std::string noWindows;  ///< with `windows` empty: why none open, as part of a sentence
  WindowsOpener windows;  ///< opens windows when a script has stopped early; empty: never
};

/// Installs the console as front end, its progress line and its Ctrl-C handling. Its event loop ends at once
/// with 1 and a message, unless windows open instead.
void InstallConsole(const ConsoleOptions& options);

/// Ends an incomplete progress line on the terminal.
void FinishProgressLine();

}  // namespace sondera
