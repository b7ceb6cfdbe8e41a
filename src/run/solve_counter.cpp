// solve_counter.cpp - see solve_counter.h.
#include "run/solve_counter.h"

#include "records/kinds.h"

namespace sondera {

long SolvesOfSweep(const Observations& observations, const Switches& switches) {
  if (IsPlaneWaves(switches.iAnalysis)) return observations.nDispPoints;
  if (switches.iDispSource != kGlobalCurve) return observations.nObsRows;
  long solves = 0;
  for (int i = 1; i <= observations.nDispPoints; ++i) solves += observations.globalRecCount[i];
  return solves;
}

bool SolveCounter::Poll() {
  if (solves_ > 0) listener_.Done(static_cast<double>(++done_) / static_cast<double>(solves_));
  return listener_.Poll();
}

}  // namespace sondera
