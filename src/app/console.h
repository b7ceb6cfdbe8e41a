// console.h - the front end that is always there: a terminal, or the log of an unattended run.
//
// Messages go to stderr as "title: text". A question is printed with the answer that it got: No, or Cancel,
// unless assumeYes is set, since an unattended run never overwrites or discards by itself. The boxes
// STATUSMSG and PROCESSMSG are the progress: one line rewritten in place on a terminal, a plain line now and
// then elsewhere.
#pragma once

#include <string>

namespace sondera {

struct ConsoleOptions {
  bool assumeYes = false;
};

/// Installs the console as front end, its progress line and its Ctrl-C handling.
void InstallConsole(const ConsoleOptions& options);

/// Ends a progress line that stands unfinished on the terminal.
void FinishProgressLine();

}  // namespace sondera
