// run_history.h - the inversions of the session: fit and number of points of each iteration.
//
// Callers: the run of an inversion reports to it; the summary at the end of an unattended run and its doubts
// read it. Owns the list of histories, which belongs to the session (run_state.h).
#pragma once

#include <vector>

#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

/// An iteration that has an entry in InvParam and was evaluated completely.
struct IterationFit {
  int iteration = 0;  ///< 0: the starting model
  double rms = 0.0;   ///< velocity units; -1 without a computed velocity
  double chi = 0.0;   ///< weighted misfit; -1 without a row in use
  int rows = 0;       ///< points in the fit
};

struct InversionHistory {
  int rowsOfData = 0;  ///< points given to the run
  std::vector<IterationFit> iterations;
};

/// Reports an iteration of a run, with its computed curve by row. Iteration 0 begins a
/// history.
void NoteIteration(const Run& run, int iteration, const OffsetVector<double>& velocity, double rms);

/// Inversions since the session started, the present one last.
const std::vector<InversionHistory>& InversionHistories();
void ClearInversionHistories();

}  // namespace sondera
