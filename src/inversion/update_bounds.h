// update_bounds.h - the step of an update, limited by the bounds of the model.
//
// Callers: the update of an inversion. Owns no state besides run.course.iTrapCount.
#pragma once

#include "run/system_state.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

enum class Move {
  kMoved,
  kNotFinite,  ///< the correction or the step is not finite: the model is unchanged
  kViolated,   ///< bounds were crossed in a truncated solve (run.switches.iUseSVD 1): the model is unchanged
  kTrapped,    ///< set to a bound three times in a row: the layers stay
};

struct MoveResult {
  Move move = Move::kMoved;
  Refusal refusal;     ///< why a model is not finite or trapped
  int violations = 0;  ///< parameters outside their bounds at the full step
};

/// Whether every element of run.update.deltaModel is finite.
bool CorrectionIsFinite(const Run& run);

/// Writes rModel to the layers. Then Vp follows from Poisson's ratio or the ratio from the velocities; a
/// ratio that is not physical (0.5 and above) is replaced, and Vs changed to match. Kept: the model vector
/// keeps the old Vs.
void LayersFromModel(const Parameters& parameters, LayeredGround& ground);

/// Subtracts run.update.deltaModel from the model and writes it to the layers. A parameter that would cross
/// its bound shortens the step of all parameters by the same factor, so that they move along one line. If a
/// parameter is already at its bound and its step goes outward, the other parameters get their full step and
/// those outside are set to their bound. The layers follow by LayersFromModel.
/// A start outside its bounds may give any factor, also a negative one; a factor that makes the model
/// infinite is refused.
MoveResult MoveModel(Run& run, Listener& listener);

}  // namespace sondera
