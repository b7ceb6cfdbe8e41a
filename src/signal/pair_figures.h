// pair_figures.h - figures on the basis of a receiver pair's curve: its range, its longest wavelengths, the
// share of the response in use, and the coherence.
//
// Callers: the summary at the end of an unattended run and its doubts. Owned state: none.
#pragma once

#include <string>
#include <vector>

#include "records/measdb.h"

namespace sondera {

struct PairFigures {
  std::string measID;
  std::string label;             ///< "H21[1:2]", channels from 1
  int refChan = 0, dspChan = 0;  ///< from 0
  double unit = 1.0;             ///< metres per unit of length
  int points = 0;
  double freqFrom = 0.0, freqTo = 0.0;  ///< Hz
  double longest = 0.0;                 ///< longest wavelength
  double spacing = 0.0;                 ///< distance of the receivers
  double srcToR1 = 0.0;                 ///< distance from the source to the nearer receiver
  double windowShare = -1.0;  ///< energy of the filtered over that of the whole impulse response; -1: no
                              ///< window is in use (original phase), or there is no response
  double lowCoherence =
      -1.0;       ///< share of the lines of the curve with a coherence below kDoubtLimits.coherence; -1:
                  ///< not known (no auto spectra, or a single blow, where it is 1 by definition)
  int noted = 0;  ///< points with wavelengths beyond kDoubtLimits.noteSpacings
  int far = 0;    ///< points with wavelengths beyond either far limit
};

/// Figures of the included pairs of known measurements that have points, in the order of the list of pairs.
std::vector<PairFigures> FiguresOfIncludedPairs();

}  // namespace sondera
