// process_end.h - the end of the process from inside a routine that cannot go on.
//
// Callers: the few kernels that have no other way out. The program installs what comes first, the offer to
// save the project; a library or a test without it just ends. Owned state: that step.
#pragma once

#include <functional>

namespace sondera {

/// Takes the installed step, then ends the process with this status. An end that is called for inside the
/// step is the end; what the step throws is dropped.
[[noreturn]] void EndProcess(int status);

/// Installs what is done before the end (null: nothing) and returns what stood there.
std::function<void()> InstallLastStep(std::function<void()> step);

}  // namespace sondera
