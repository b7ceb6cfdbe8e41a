// process_driver.h - a board served by another program, over the board protocol (docs/board-protocol.md).
//
// For boards whose driver cannot be part of this program: a small adaptor links the vendor's library and
// answers requests on its standard input and output. A program that ends, hangs or gives a wrong answer is
// killed; every request is then refused with the reason, and the next task starts it again.
#pragma once

#include <string>
#include <string_view>

#include "acquisition/daq_driver.h"

namespace sondera {

extern const DaqDriver daqProcess;

/// Starts "PROGRAM ARGUMENTS", greets it and installs the driver. Returns "", or one sentence: then nothing
/// is installed, and the board program that was in use has ended.
std::string InstallProcessBoard(std::string_view command);

/// A line for the list of boards.
std::string ProcessBoardText();

}  // namespace sondera
