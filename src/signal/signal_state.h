// signal_state.h - the state that signal/ keeps between calls: work vectors of the transforms.
#pragma once

#include <vector>

namespace sondera {

struct SignalState {
  /// Parts of two transforms (reference and channel); grow with the longest record and never shrink.
  std::vector<double> refRe, refIm, workRe, workIm;
  std::vector<double> window;  ///< time window of the impulse response filter
};
extern SignalState signalState;

/// State of a fresh start; gives the work vectors up.
void ResetSignalState();

}  // namespace sondera
