// step_control.h - no step of an inversion makes the fit worse.
//
// The curve is not linear in the model, and the even mesh of the point-load solver jumps with the wavelength:
// a full step may end above where it began. Callers: the step of an inversion. Owns no state.
#pragma once

#include "inversion/evaluation.h"
#include "inversion/model_state.h"

namespace sondera {

inline constexpr int kMostHalvings = 4;
inline constexpr double kMostLostRows = 0.05;  ///< part of the rows that a step may lose

/// Whether a curve is at least as good as the one before, over the rows that are in use and found in both; a
/// curve that loses more than kMostLostRows of the rows in use is not.
/// @param out    rows that were out before the step (iNoVelocity then)
/// @param huber  residuals count by HuberTerm, otherwise by their square
bool StepIsGood(const Observations& observations, const OffsetVector<double>& before,
                const OffsetVector<double>& after, const OffsetVector<int>& out, bool huber);

/// Evaluates the model that an update has led to. A step that is not good is halved, four times at most, and
/// the flags of a refused trial are taken back. A halt ends it with the curve as far as it goes.
/// @param from  model before the sensitivities, whose curve `e` holds
/// @param[in,out] e  then the curve of the model that stands
/// @return false when no part of the step was good: the model is `from` again
bool EvaluateControlled(Run& run, const ModelState& from, Evaluation& e, bool huber, RunListener& listener);

}  // namespace sondera
