// sensitivity.h - derivatives of the computed phase velocities by the free model parameters.
//
// Callers: the iteration of an inversion, once at its start. Owns no state. It takes nearly all of a run's
// time: two sweeps of the forward solver for each free parameter. Each perturbed layer changes every mesh, so
// no sweep can reuse results of another.
#pragma once

#include "forward/layered_ground.h"
#include "inversion/inversion_settings.h"
#include "run/run_listener.h"
#include "run/system_state.h"
#include "runtime/refusal.h"

namespace sondera {

/// Sets density and Poisson's ratio of every layer from its present Vs (RuleForVs) if UPDATERHONU is on.
void RenewDensityAndNu(const InversionSettings& settings, LayeredGround& ground);

/// Fills run.update.GMatrix(row, parameter), length/s per unit of the parameter, by central differences of
/// FS_rWave3D with the relative steps of the run, and with amplitudes also the rows after
/// run.observations.nObsRows. Before that, if UPDATERHONU is on, density and Poisson's ratio of every layer
/// follow its present Vs. Layer values are restored by adding the step back, exact up to rounding. A row
/// without a velocity in one of the sweeps is flagged in run.observations.iNoVelocity; its derivatives are
/// meaningless.
/// @return refused, without a reason, when halted: the value stays perturbed and the matrix incomplete
Refusal FS_Gmatrix(Run& run, const InversionSettings& settings, RunListener& listener);

}  // namespace sondera
