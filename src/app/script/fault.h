// fault.h - the reason that stops a line of a script, in one sentence.
#pragma once

#include <string>
#include <utility>

namespace sondera::script {

/// Thrown while a line is read or run, caught by the loop over the lines.
struct Fault {
  explicit Fault(std::string text) : reason(std::move(text)) {}
  std::string reason;
};

}  // namespace sondera::script
