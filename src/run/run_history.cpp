// run_history.cpp - the session's list of inversions. Owns it.
#include "run/run_history.h"

#include "run/active_rows.h"

namespace sondera {
namespace {

std::vector<InversionHistory> histories;

}  // namespace

void NoteIteration(const Run& run, int iteration, const OffsetVector<double>& velocity, double rms) {
  if (iteration == 0 || histories.empty()) histories.push_back({run.observations.nObsRows, {}});
  histories.back().iterations.push_back(
      {iteration, rms, WeightedMisfit(run.observations, run.switches, velocity),
       static_cast<int>(ActiveRows(run.observations, run.switches).size())});
}

const std::vector<InversionHistory>& InversionHistories() {
  return histories;
}
void ClearInversionHistories() {
  histories.clear();
}

}  // namespace sondera
