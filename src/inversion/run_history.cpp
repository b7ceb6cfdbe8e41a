// run_history.cpp - the session's list of inversions. Owns it.
#include "inversion/run_history.h"

#include "forward/system_state.h"
#include "inversion/active_rows.h"

namespace sondera {
namespace {

std::vector<InversionHistory> histories;

}  // namespace

void NoteIteration(int iteration, const OffsetVector<double>& velocity, double rms) {
  if (iteration == 0 || histories.empty()) histories.push_back({run.nObsRows, {}});
  histories.back().iterations.push_back(
      {iteration, rms, WeightedMisfit(velocity), static_cast<int>(ActiveRows().size())});
}

const std::vector<InversionHistory>& InversionHistories() {
  return histories;
}
void ClearInversionHistories() {
  histories.clear();
}

}  // namespace sondera
