// step_control.cpp - see step_control.h.
#include "inversion/step_control.h"

#include <cmath>
#include <utility>

#include "inversion/huber_weights.h"
#include "run/system_state.h"

namespace sondera {

bool StepIsGood(const Observations& observations, const OffsetVector<double>& before,
                const OffsetVector<double>& after, const OffsetVector<int>& out, bool huber) {
  int inUse = 0, found = 0;
  double sumBefore = 0.0, sumAfter = 0.0;
  for (int i = 1; i <= observations.nObsRows; ++i) {
    if (out[i] != 0 || !(observations.Cd.diag(i) > 0.0)) continue;
    ++inUse;
    if (after[i] == 0.0) continue;
    ++found;
    const double deviation = std::sqrt(observations.Cd.diag(i));
    const auto term = [&](double velocity) {
      const double z = (velocity - observations.runVel[i]) / deviation;
      return huber ? HuberTerm(z) : z * z;
    };
    sumBefore += term(before[i]);
    sumAfter += term(after[i]);
  }
  return found > 0 && inUse - found <= kMostLostRows * inUse && sumAfter <= sumBefore;
}

bool EvaluateControlled(Run& run, const ModelState& from, Evaluation& e, bool huber, RunListener& listener) {
  const OffsetVector<int> out = run.observations.iNoVelocity;
  const ModelState full = PresentModel(run.ground, run.parameters);
  double part = 1.0;
  for (int halvings = 0; halvings <= kMostHalvings; ++halvings, part *= 0.5) {
    if (halvings > 0) PutModelBetween(from, full, part, run.ground, run.parameters);
    Evaluation trial;
    trial.Sweep(run, listener);
    if (trial.halted || StepIsGood(run.observations, e.vel, trial.vel, out, huber)) {
      e = std::move(trial);
      return true;
    }
    run.observations.iNoVelocity = out;
  }
  PutModelBack(from, run.ground, run.parameters);
  return false;
}

}  // namespace sondera
