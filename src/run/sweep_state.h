// sweep_state.h - what the solvers doubted in the sweep that ran last.
//
// Callers: the sweeps write it, drivers of runs show it. Owned state: sweepState.
#pragma once

#include <string>
#include <vector>

#include "numeric/offset_array.h"

namespace sondera {

/// Points that a sweep has no value, or only a starting value, for. Points of the global curve are named by
/// their number, those of array curves as (frequency,pair).
struct SweepState {
  std::vector<std::string> noResult;     ///< velocity 0
  std::vector<std::string> seedKept;     ///< modes incomplete: the seed stands as the velocity
  std::vector<std::string> shallowMesh;  ///< the layer table ends less than a wavelength down
  std::string note;             ///< what the driver of the run has to say beside the points; "" if nothing
  std::string refusal;          ///< why the point-load solver refused settings or layers; "" if not
  OffsetVector<double> recAmp;  ///< with amplitudes in use: moduli at both receivers, nearer one of slot k
                                ///< and point i at (2 k - 2) * points + i, farther one a block behind
};
extern SweepState sweepState;

/// "" when there was no doubt; otherwise counts and names of such points, and the note, for the status line.
std::string SweepReport();

}  // namespace sondera
