// update_bounds.h - the step of an update, held inside the bounds of the model.
//
// Callers: the update of an inversion. Owns no state besides run.course.iTrapCount.
#pragma once

#include "run/system_state.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

enum class Move {
  kMoved,
  kNotFinite,  ///< the correction or the step is not finite: nothing moved
  kViolated,   ///< bounds were crossed in a truncated solve (run.switches.iUseSVD 1): nothing moved
  kTrapped,    ///< held at a bound three times in a row: the layers stay
};

struct MoveResult {
  Move move = Move::kMoved;
  Refusal refusal;     ///< why a model is not finite or trapped
  int violations = 0;  ///< parameters outside their bounds at the full step
};

/// Whether every element of run.update.deltaModel is finite.
bool CorrectionIsFinite(const Run& run);

/// Writes rModel to the layers. Then Vp follows from Poisson's ratio or the ratio from the velocities;
/// one that is not physical (0.5 and above) is replaced, and Vs raised to it. Kept: the model vector does not
/// take that over.
void LayersFromModel(const Parameters& parameters, LayeredGround& ground);

/// Subtracts run.update.deltaModel from the model and writes it to the layers. A parameter that would leave its
/// bounds shortens the step of all parameters alike, so that they move along one line; where a parameter
/// already sits on its bound and wants past it, the others take their full step and those outside are held
/// at their bound. The layers follow by LayersFromModel.
/// A start outside its bounds gives whatever the factor comes to, a negative one among others; one that
/// takes the model beyond all numbers is refused.
MoveResult MoveModel(Run& run, Listener& listener);

}  // namespace sondera
