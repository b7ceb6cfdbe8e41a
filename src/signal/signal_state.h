// signal_state.h - the state that signal/ keeps between calls: work vectors of the transforms, and what the
// phase check boxes showed before they were clicked.
#pragma once

#include <vector>

namespace sondera {

/// The three check boxes of the phase curves, as the masking page starts with them.
struct PhaseBoxes {
  int original = 0, enhanced = 1, backbone = 0;
};

struct SignalState {
  /// Parts of two transforms (reference and channel); grow with the longest record and never shrink.
  std::vector<double> refRe, refIm, workRe, workIm;
  std::vector<double> window;  ///< time window of the impulse response filter
  PhaseBoxes boxesBefore;      ///< PhaseOptionCallback: states at the last click
};
extern SignalState signalState;

/// State of a fresh start; gives the work vectors up.
void ResetSignalState();

}  // namespace sondera
