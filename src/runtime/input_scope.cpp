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
  if (!TheSessionWatcher().ends) return;
  const bool told = MessageCount() != messages_;
  TheSessionWatcher().ends(input_, refused_ ? InputEnd::Refused : told ? InputEnd::Told : InputEnd::Done);
}

}  // namespace sondera
