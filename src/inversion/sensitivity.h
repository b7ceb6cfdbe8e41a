// sensitivity.h - derivatives of the computed phase velocities by the free model parameters.
//
// Callers: the iteration of an inversion, once at its start. Owns no state. Nearly all of a
// run's time is spent here: two sweeps of the forward solver for each free parameter. Each perturbed layer
// changes every mesh, so that nothing is carried over from one sweep to the next.
#pragma once

#include "forward/layered_ground.h"
#include "inversion/inversion_settings.h"
#include "run/run_listener.h"
#include "run/system_state.h"
#include "runtime/refusal.h"

namespace sondera {

/// Density and Poisson's ratio of every layer by its present Vs (RuleForVs), where UPDATERHONU is on.
void RenewDensityAndNu(const InversionSettings& settings, LayeredGround& ground);

/// Fills run.update.GMatrix(row, parameter), length/s per unit of the parameter, by central differences of
/// SweepWithData with the relative steps of the run, and with amplitudes the rows behind run.observations.nObsRows. Before
/// that, where UPDATERHONU is on, density and Poisson's ratio of every layer follow its present Vs. Layer
/// values are restored by adding the step back, so up to rounding. A row without a velocity in one of the
/// sweeps is flagged in run.observations.iNoVelocity by it; its derivatives mean nothing.
/// @return refused, without a reason, when halted: the perturbed value and the unfinished matrix stay as they stand
Refusal FS_Gmatrix(Run& run, const InversionSettings& settings, RunListener& listener);

}  // namespace sondera
