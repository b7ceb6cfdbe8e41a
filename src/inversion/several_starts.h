// several_starts.h - the same inversion from other starting models: shows how far the result depends on the
// start.
//
// The other starts are uniform ground of 0.8, 1 and 1.3 times the site's velocity: 160, 200 and 260 m/s if
// that is 200. The site's velocity is the mean measured one over 0.93, the ratio of Rayleigh to shear waves
// in ground of a Poisson's ratio of 1/3. Callers: the run of an inversion, after its own iterations, and the
// tables of results. The spread of the last run is kept until the next one (inversion_state.h).
#pragma once

#include <string>

#include "inversion/inversion_state.h"
#include "inversion/model_state.h"
#include "inversion/model_step.h"

namespace sondera {

inline constexpr double kStartRatios[] = {0.8, 1.0, 1.3};

/// Vs of the site from the observation rows, 0 without a measured velocity.
double SiteVelocity(const Observations& observations);

/// Iterates from each uniform start and restores the run. Nothing is written to files or entries. A start
/// that fails reports why and is left out. Layers with a fixed Vs keep it; if no Vs is free nothing is done.
/// @param given  starting model of the run
/// @param end    curve at its end
/// @return refused, without a reason, when halted: no spread then
Refusal TryOtherStarts(Run& run, const ModelState& given, const Evaluation& end, int iterations,
                       const InversionSettings& settings, RunListener& listener);

void ClearStartSpread();

/// Table of the spread for an entry of InvParam: the starts with their chi, then lowest and highest Vs by
/// layer. "" for an entry of another run.
std::string StartSpreadTable(int entry);

}  // namespace sondera
