// evaluation.cpp - see evaluation.h.
#include "inversion/evaluation.h"

#include "run/active_rows.h"
#include "run/covariances.h"
#include "run/sweep.h"

namespace sondera {

void Evaluation::Sweep(Run& run, RunListener& listener) {
  halted = static_cast<bool>(FS_rWave3D(PartsOfSweep(run), listener, vel, amp));
  doubts = sweepState;
}

void Evaluation::Judge(const Run& run) {
  FS_RMSerror(run, vel, amp, rmsVel, rmsAmp);
  chi = WeightedMisfit(run.observations, run.switches, vel);
}

}  // namespace sondera
