// evaluation.cpp - see evaluation.h.
#include "inversion/evaluation.h"

#include "forward/sweep.h"
#include "inversion/active_rows.h"
#include "inversion/covariances.h"

namespace sondera {

void Evaluation::Sweep() {
  halted = FS_rWave3D(vel, amp) < 0;
  doubts = sweepState;
}

void Evaluation::Judge() {
  FS_RMSerror(vel, amp, rmsVel, rmsAmp);
  chi = WeightedMisfit(vel);
}

}  // namespace sondera
