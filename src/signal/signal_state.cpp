// signal_state.cpp - all mutable state of signal/.
#include "signal/signal_state.h"

namespace sondera {

SignalState signalState;
CDispSettings CDispParam;

void ResetSignalState() {
  signalState = SignalState{};
  CDispParam = CDispSettings{};
}

}  // namespace sondera
