// system_state.cpp - see system_state.h.
#include "forward/system_state.h"

namespace sondera {

RunState run;

void ResetRunState() {
  run = RunState{};
}

}  // namespace sondera
