// signal_state.cpp - all mutable state of signal/.
#include "signal/signal_state.h"

namespace sondera {

SignalState signalState;

void ResetSignalState() {
  signalState = SignalState{};
}

}  // namespace sondera
