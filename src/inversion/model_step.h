// model_step.h - one step of an inversion: sensitivities, update, and the curve of the new model.
//
// Callers: the run of an inversion and its further starts. Owns no state.
#pragma once

#include "inversion/evaluation.h"
#include "inversion/inversion_settings.h"

namespace sondera {

enum class Advance {
  kMoved,   ///< a new model with its curve, which may be that of a halted sweep
  kKept,    ///< by step control: no part of the step was good, the former model and its curve remain
  kFailed,  ///< no update; the listener got the message
  kHalted,  ///< in the sensitivities
};

/// Sensitivities, update, and the curve of the new model.
/// @param[in,out] e  curve of the present model, then of the new one
Advance AdvanceModel(Run& run, Evaluation& e, const InversionSettings& settings, RunListener& listener);

}  // namespace sondera
