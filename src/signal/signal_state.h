// signal_state.h - the state that signal/ keeps between calls: work vectors of the transforms, and the settings
// of the representative curves.
#pragma once

#include <vector>

namespace sondera {

/// Settings of the session; those of the array curves follow the global ones from the first use of the panel.
struct CDispSettings {
  int avgDomain = 1;  ///< abscissa of the global fit: 1 frequency, 0 wavelength
  int nPointsG = 50, nPointsA = 30;
  int nSpanG = 40, nSpanA = 40;               ///< the fitted window is the whole range divided by this
  double incRatioG = 1.07, incRatioA = 1.13;  ///< 1 linear, -1 logarithmic, else geometric ratio
  int globalPolyOrder = 4;                    ///< terms of the polynomial
  int arrayPolyOrder = 5;                     ///< terms for a pair that has no number of its own
};
extern CDispSettings CDispParam;

struct SignalState {
  /// Parts of two transforms (reference and channel); grow with the longest record and never shrink.
  std::vector<double> refRe, refIm, workRe, workIm;
  std::vector<double> window;  ///< time window of the impulse response filter
};
extern SignalState signalState;

/// State of a fresh start; releases the work vectors and sets the defaults.
void ResetSignalState();

}  // namespace sondera
