// process_end.cpp - see process_end.h. Owns the installed step.
#include "numeric/process_end.h"

#include <cstdlib>
#include <utility>

namespace sondera {
namespace {

std::function<void()> lastStep;

}  // namespace

void EndProcess(int status) {
  const std::function<void()> step = std::exchange(lastStep, nullptr);
  try {
    if (step) step();
  } catch (...) {  // the process ends in any case
  }
  std::exit(status);
}

std::function<void()> InstallLastStep(std::function<void()> step) {
  return std::exchange(lastStep, std::move(step));
}

}  // namespace sondera
