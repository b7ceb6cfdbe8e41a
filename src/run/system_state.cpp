// system_state.cpp - see system_state.h.
#include "run/system_state.h"

namespace sondera {

Run run;

}  // namespace sondera
