// process_end.h - ends the process from inside a routine that cannot continue.
//
// Callers: the few kernels that cannot report an error in another way. The program installs a first step, the
// offer to save the project; a library or a test without it just ends. Owned state: that step.
#pragma once

#include <functional>

namespace sondera {

/// Runs the installed step, then ends the process with this status. If the step itself asks for the end, the
/// process ends at once; exceptions of the step are dropped.
[[noreturn]] void EndProcess(int status);

/// Installs the step before the end (null: none) and returns the previous one.
std::function<void()> InstallLastStep(std::function<void()> step);

}  // namespace sondera
