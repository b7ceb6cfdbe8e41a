// sweep_state.h - the doubts of the solvers in the last sweep.
//
// Callers: the sweeps write it, drivers of runs show it. Owned state: sweepState.
#pragma once

#include <string>
#include <vector>

#include "numeric/offset_array.h"

namespace sondera {

/// Points for which a sweep has no value, or only a starting value. Points of the global curve are named by
/// their number, those of array curves as (frequency,pair).
struct SweepState {
  std::vector<std::string> noResult;     ///< velocity 0
  std::vector<std::string> seedKept;     ///< modes incomplete: the seed is kept as the velocity
  std::vector<std::string> shallowMesh;  ///< the layer table ends above a depth of one wavelength
  std::string note;                      ///< note of the driver of the run; "" if none
  std::string refusal;                   ///< why the point-load solver refused settings or layers; "" if not
  OffsetVector<double> recAmp;  ///< with amplitudes in use: moduli at both receivers, nearer one of slot k
                                ///< and point i at (2 k - 2) * points + i, farther one a block behind
};
extern SweepState sweepState;

/// "" when there was no doubt; otherwise counts and names of such points, and the note, for the status line.
std::string SweepReport();

}  // namespace sondera
