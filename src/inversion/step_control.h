// step_control.h - ensures that no step of an inversion makes the fit worse.
//
// The curve is not linear in the model, and the even mesh of the point-load solver changes in jumps with the
// wavelength: a full step may give a worse fit. Callers: the step of an inversion. Owns no state.
#pragma once

#include "inversion/evaluation.h"
#include "inversion/model_state.h"

namespace sondera {

inline constexpr int kMostHalvings = 4;
inline constexpr double kMostLostRows = 0.05;  ///< fraction of the rows that a step may lose

/// Whether a curve is at least as good as the one before, over the rows in use with a result in both; a curve
/// that loses more than kMostLostRows of the rows in use is not.
/// @param out    flags of the rows before the step (iNoVelocity then)
/// @param huber  residuals count by HuberTerm, otherwise by their square
bool StepIsGood(const Observations& observations, const OffsetVector<double>& before,
                const OffsetVector<double>& after, const OffsetVector<int>& out, bool huber);

/// Evaluates the model after an update. A step that is not good is halved, four times at most, and the flags
/// of a refused trial are restored. A halt ends it with an incomplete curve.
/// @param from  model before the sensitivities, with the curve `e`
/// @param[in,out] e  then the curve of the accepted model
/// @return false when no part of the step was good: the model is `from` again
bool EvaluateControlled(Run& run, const ModelState& from, Evaluation& e, bool huber, RunListener& listener);

}  // namespace sondera
