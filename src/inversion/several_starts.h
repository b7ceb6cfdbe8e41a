// several_starts.h - the same inversion from other starting models: what depends on the start is not known.
//
// Beside the given model, uniform ground of 0.8, 1 and 1.3 times the site's velocity: 160, 200 and 260 m/s
// where that is 200. The site's velocity is the mean measured one over 0.93, the ratio of Rayleigh to shear
// waves in ground of a Poisson's ratio of 1/3. Callers: the run of an inversion, behind its own iterations,
// and the tables of results. Owned state: the spread of the last run, until the next one.
#pragma once

#include <string>
#include <vector>

#include "inversion/model_state.h"
#include "inversion/model_step.h"

namespace sondera {

/// An inversion from one start.
struct StartResult {
  double start = 0.0;      ///< Vs of the uniform ground; 0: the given model
  double chi = 0.0;        ///< at its end
  std::vector<double> Vs;  ///< profile at its end, surface layer first
};

/// How far the profiles lie apart, for each layer, with the given model's among them.
struct StartSpread {
  int iteration = 0;  ///< entry of InvParam that it belongs to
  std::vector<StartResult> results;
  std::vector<double> lowest, highest;
};

inline constexpr double kStartRatios[] = {0.8, 1.0, 1.3};

/// Vs of the site from the observation rows, 0 without a measured velocity.
double SiteVelocity();

/// Iterates from each uniform start and leaves the run as it was. Nothing goes to files or entries. A start
/// that fails has said why and is left out. Layers with a fixed Vs keep it; where no Vs is free nothing is
/// done.
/// @param given  starting model of the run
/// @param end    curve at its end
/// @return 0; -1 when halted: no spread then
int TryOtherStarts(const ModelState& given, const Evaluation& end, int iterations,
                   const InversionOptions& options);

void ClearStartSpread();

/// Table of the spread for an entry of InvParam: the starts with their chi, then lowest and highest Vs by
/// layer.
/// "" for an entry that it does not belong to.
std::string StartSpreadTable(int entry);

}  // namespace sondera
