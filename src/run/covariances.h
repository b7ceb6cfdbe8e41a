// covariances.h - observation rows of a run with their covariance, covariance of the model, and the misfit.
//
// Callers: drivers of forward runs and inversions, the update of an inversion (FS_Setup_Cm at each
// iteration). Owned state: none. Source of the method: linearised maximum likelihood inversion
// (Tarantola and Valette, 1982) with Gaussian, uncorrelated data.
#pragma once

#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

/// Fills the observation rows, and in an inversion (iAnalysis above 0) the deviations and the diagonal of Cd;
/// makes GMatrix for the rows.
/// @param kind  1 points of the global curve, 2 points of the array curves. Plane-wave analysis always uses
///              the global curve.
/// A deviation that is computed here is stored with its point for the next pass. Kept: on the global curve
/// cdMode -1 or update formula 4 always replace a deviation by 1.0, on array curves only where it is neither
/// 0 nor replaced by cdMode 1.
/// @return 0; -1 when there are more rows than the run was sized for (nothing changed)
int FS_SetUpObsData(Run& run, int kind);

/// Fills Cm from UFModel and the present model: a factor below 1 is a ratio of the parameter's value, one of
/// 1 or more a deviation in the parameter's unit; parameters of one quantity are correlated over depth where
/// a correlation length is set. All zero when the first factor is negative or for update formula 4.
void FS_Setup_Cm(Run& run);

/// Misfit of a computed curve against the observation rows, over the rows with a computed velocity.
/// @param[in]  velocity, amplitude  computed values by row
/// @param[out] rmsVel  root mean square of the difference, length/s (not a ratio); -1 without any such row
/// @param[out] rmsAmp  the same of amplitudes over the amplitude scale; 0 without amplitudes, -1 as above
void FS_RMSerror(const Run& run, const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude,
                 double& rmsVel, double& rmsAmp);

}  // namespace sondera
