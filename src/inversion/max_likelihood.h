// max_likelihood.h - the model update that an inversion repeats.
//
// Callers: the step of an inversion. Owns no state. Method: linearised maximum likelihood (Tarantola and
// Valette, 1982; Menke, 1984). Related files: update_bounds.h, truncated_solve.h, update_dump.h.
#pragma once

#include "numeric/offset_array.h"
#include "run/system_state.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

/// One update of run.parameters.rModel and of the layers from computed curves, by row; GMatrix is that of this model.
/// Leaves the compact matrices of the rows in use, InvH (posterior covariance; with fewer rows than
/// parameters InvHData instead), Weight and deltaModel in `run`.
/// A row without velocity or with deviation 0 is flagged in run.observations.iNoVelocity and not used for the
/// rest of the run.
/// Kept: the residuals are assigned to the rows in use in the order of the computed velocities that are not
/// 0, without regard to the flags. So the velocity must be 0 in each row that is not in use: see
/// CurveOfActiveRows.
/// Refused: no row left, a correction that is not finite (the model stays), or trapped at a bound (nObsRows and
/// ldObs stay at the numbers of rows in use).
Refusal FS_MaxLiklihood(Run& run, const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude,
                        Listener& listener);

}  // namespace sondera
