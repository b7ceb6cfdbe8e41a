// sweep.h - theoretical dispersion: loops over the points of a run, calls the solvers, shows progress, and
// can be halted.
//
// Callers: the driver of forward runs; the inversion, for which FS_rWave3D is the forward function. The
// observation rows must be set up. After each solver call the listener is polled once; its answer can end the
// sweep. Owned state: none.
#pragma once

#include "numeric/offset_array.h"
#include "records/model_records.h"
#include "run/sweep_state.h"
#include "run/system_state.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

/// The parts of a run that a sweep works on.
struct SweepParts {
  LayeredGround& ground;  ///< completed at the start
  Observations& observations;
  Receivers& receivers;
  const Switches& switches;
  SweepState& doubts;  ///< started anew
};
SweepParts PartsOfSweep(Run& run);

/// Sweep of a run without data: velocities at the points of the run's grid. Plane-wave velocities become the
/// observations of the points (deviation 0.01 on array curves), and point-load velocities the result for
/// analysis 3 and 4. Wavelength domain: solved point by point. Frequency domain: the plane-wave curve is
/// sampled at a hundred wavelengths and interpolated from ten of them.
/// @param settings       contain the wanted frequencies
/// @param[out] vel, amp  velocity and amplitude ratio: global curve at (slot - 1) * nDispPoints + point,
///                       array curves by row; 0 without a result. As long as runVel.
/// @return refused without a reason when halted, with one when the frequencies form no range
Refusal FS_rWave3D_F(const SweepParts& parts, const ModelRecord& settings, Listener& listener,
                     OffsetVector<double>& vel, OffsetVector<double>& amp);

/// Sweep of a run with data: velocities at the observation rows; the observed values are the seeds of the
/// point-load solver. Plane waves: solved for observed velocity over observed frequency. A Poisson's ratio
/// from velocities outside the physical range is replaced first.
/// @param[out] vel, amp  as above
/// @return refused without a reason when halted
Refusal FS_rWave3D(const SweepParts& parts, Listener& listener, OffsetVector<double>& vel,
                   OffsetVector<double>& amp);

}  // namespace sondera
