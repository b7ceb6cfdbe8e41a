// input_scope.cpp - see input_scope.h.
#include "runtime/input_scope.h"

#include "runtime/dialogs.h"
#include "runtime/session_watch.h"

namespace sondera {

InputScope::InputScope(Input input) : input_(std::move(input)), messages_(MessageCount()) {
  if (TheSessionWatcher().begins) TheSessionWatcher().begins(input_);
}

void InputScope::entered() {
  if (TheSessionWatcher().entered) TheSessionWatcher().entered(input_);
}

InputScope::~InputScope() {
  if (TheSessionWatcher().ends) TheSessionWatcher().ends(input_, refused_ || MessageCount() != messages_);
}

}  // namespace sondera
