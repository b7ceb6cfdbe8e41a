// sweep.h - theoretical dispersion: walks the points of a run, calls the solvers, shows progress, can be
// halted.
//
// Callers: the driver of forward runs; the inversion, for which FS_rWave3D is the forward function. Works on
// `run`, whose observation rows are set up. After each solver call events are polled; run.course.iHaltRequest, or an
// interrupt of the terminal, ends a sweep then. Owned state: none; what the solvers doubted goes to
// sweep_state.h.
#pragma once

#include "numeric/offset_array.h"
#include "run/sweep_state.h"

namespace sondera {

/// Sweep of a run without data: velocities at the points of run's grid, which get plane-wave velocities as
/// their observation (deviation 0.01 on array curves), and point-load ones as the result for analysis 3 and
/// 4. Wavelength domain: solved point by point. Frequency domain: the plane-wave curve is sampled at a
/// hundred wavelengths and interpolated by ten of them.
/// @param[out] vel, amp  velocity and amplitude ratio: global curve at (slot - 1) * run.observations.nDispPoints + point,
///                       array curves by row; 0 without a result. As long as run.observations.runVel.
/// @return 0; -1 when halted, or after a message when the frequencies make no range
int FS_rWave3D_F(OffsetVector<double>& vel, OffsetVector<double>& amp);

/// Sweep of a run with data: velocities at the observation rows, the observed values being the seeds of the
/// point-load solver. Plane waves: solved for observed velocity over observed frequency. A Poisson's ratio
/// from velocities outside the physical range is replaced first.
/// @param[out] vel, amp  as above
/// @return 0; -1 when halted
int FS_rWave3D(OffsetVector<double>& vel, OffsetVector<double>& amp);

}  // namespace sondera
