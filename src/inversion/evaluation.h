// evaluation.h - the computed curves of a model of an inversion, with their misfit.
//
// Callers: the run of an inversion and its further starts. Owns no state.
#pragma once

#include "numeric/offset_array.h"
#include "run/run_listener.h"
#include "run/sweep_state.h"
#include "run/system_state.h"

namespace sondera {

/// Computed curves of the present model, by observation row, 0 without a result.
struct Evaluation {
  OffsetVector<double> vel, amp;
  double rmsVel = 0.0, rmsAmp = 0.0;  ///< see FS_RMSerror
  double chi = 0.0;                   ///< see WeightedMisfit
  bool halted = false;                ///< the curves are incomplete

  SweepState doubts;  ///< of the sweep for these curves

  /// The curves of the present model; rows without a result are flagged.
  void Sweep(Run& run, RunListener& listener);
  /// The misfits, from the curves and the rows in use.
  void Judge(const Run& run);
};

}  // namespace sondera
