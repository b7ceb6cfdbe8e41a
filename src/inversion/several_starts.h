// several_starts.h - the same inversion from other starting models: what depends on the start is not known.
//
// Beside the given model, uniform ground of 0.8, 1 and 1.3 times the site's velocity: 160, 200 and 260 m/s
// where that is 200. The site's velocity is the mean measured one over 0.93, the ratio of Rayleigh to shear
// waves in ground of a Poisson's ratio of 1/3. Callers: the run of an inversion, behind its own iterations,
// and the tables of results. The spread of the last run is kept until the next one (inversion_state.h).
#pragma once

#include <string>

#include "inversion/inversion_state.h"
#include "inversion/model_state.h"
#include "inversion/model_step.h"

namespace sondera {

inline constexpr double kStartRatios[] = {0.8, 1.0, 1.3};

/// Vs of the site from the observation rows, 0 without a measured velocity.
double SiteVelocity(const Observations& observations);

/// Iterates from each uniform start and leaves the run as it was. Nothing goes to files or entries. A start
/// that fails has said why and is left out. Layers with a fixed Vs keep it; where no Vs is free nothing is
/// done.
/// @param given  starting model of the run
/// @param end    curve at its end
/// @return refused, without a reason, when halted: no spread then
Refusal TryOtherStarts(Run& run, const ModelState& given, const Evaluation& end, int iterations,
                       const InversionSettings& settings, RunListener& listener);

void ClearStartSpread();

/// Table of the spread for an entry of InvParam: the starts with their chi, then lowest and highest Vs by
/// layer.
/// "" for an entry that it does not belong to.
std::string StartSpreadTable(int entry);

}  // namespace sondera
