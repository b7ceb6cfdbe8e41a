// fault.h - what stops a line of a script: a reason in one sentence.
#pragma once

#include <string>
#include <utility>

namespace sondera::script {

/// Thrown by the reading and the running of a line, caught by whoever goes through the lines.
struct Fault {
  explicit Fault(std::string text) : reason(std::move(text)) {}
  std::string reason;
};

}  // namespace sondera::script
