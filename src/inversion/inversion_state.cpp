// inversion_state.cpp - all mutable state of inversion/.
#include "inversion/inversion_state.h"

namespace sondera {

InversionState inversionState;

void ResetInversionState() {
  inversionState = InversionState{};
}

}  // namespace sondera
