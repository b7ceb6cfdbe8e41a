// sweep.h - theoretical dispersion: walks the points of a run, calls the solvers, shows progress, can be
// halted.
//
// Callers: the driver of forward runs; the inversion, for which SweepWithData is the forward function. The
// observation rows are set up. After each solver call the listener is polled, once; what it answers can end the
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
  SweepState& doubts;  ///< begun afresh
};
SweepParts PartsOfSweep(Run& run);

/// Sweep of a run without data: velocities at the points of the run's grid, which get plane-wave velocities as
/// their observation (deviation 0.01 on array curves), and point-load ones as the result for analysis 3 and
/// 4. Wavelength domain: solved point by point. Frequency domain: the plane-wave curve is sampled at a
/// hundred wavelengths and interpolated by ten of them.
/// @param settings       where the wanted frequencies stand
/// @param[out] vel, amp  velocity and amplitude ratio: global curve at (slot - 1) * nDispPoints + point,
///                       array curves by row; 0 without a result. As long as runVel.
/// @return refused without a reason when halted, with one when the frequencies make no range
Refusal SweepWithoutData(const SweepParts& parts, const ModelRecord& settings, Listener& listener,
                         OffsetVector<double>& vel, OffsetVector<double>& amp);

/// Sweep of a run with data: velocities at the observation rows, the observed values being the seeds of the
/// point-load solver. Plane waves: solved for observed velocity over observed frequency. A Poisson's ratio
/// from velocities outside the physical range is replaced first.
/// @param[out] vel, amp  as above
/// @return refused without a reason when halted
Refusal SweepWithData(const SweepParts& parts, Listener& listener, OffsetVector<double>& vel,
                      OffsetVector<double>& amp);

}  // namespace sondera
