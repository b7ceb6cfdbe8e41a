// max_likelihood.h - one inversion, and the model update that it repeats.
//
// Callers: the session driver of the inversion. Works on `run` and the records; owns no state. Method:
// linearised maximum likelihood (Tarantola and Valette, 1982; Menke, 1984). What belongs to it stands beside
// it: update_bounds.h, truncated_solve.h, update_dump.h.
#pragma once

#include "numeric/offset_array.h"

namespace sondera {

/// A whole inversion on TheoDispInfo, FModelParam and InvParam as they stand and on the vectors of
/// FS_AllocMemoryBlocks: the starting model as entry 0, then up to NITER iterations, each with its entry, its
/// blocks in the result files and its item in the lists. It ends by the count, by an RMS at or below
/// run.switches.epsConverge after an update, by a halt, or where no update can be made. A worse step is kept.
/// Kept: the sweep after an update is not asked whether it was halted, so that the iteration is stored with
/// the points that it has; the message of the halt says how far they go.
/// @return 0; -1 after a message, among them that of a halt. Finished iterations are kept in any case.
int FS_RunIAnal();

/// One update of run.parameters.rModel and of the layers from computed curves, by row; GMatrix is that of this model.
/// Leaves the compact matrices of the rows in use, InvH (posterior covariance; with fewer rows than
/// parameters InvHData instead), Weight and deltaModel in `run`.
/// A row without velocity or with deviation 0 is flagged in run.observations.iNoVelocity and out for the rest of the run.
/// Kept: the residuals go to the rows in use in the order of the computed velocities that are not 0, whatever
/// the flags say. So the velocities have to be 0 where a row is out: see CurveOfActiveRows.
/// @return 0; -1 after a message: no row left, a correction that is not finite (the model stays), or trapped
/// at a bound (nObsRows and ldObs stay at the numbers of rows in use)
int FS_MaxLiklihood(const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude);

}  // namespace sondera
