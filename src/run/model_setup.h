// model_setup.h - layers and model parameters of a run, from the records.
//
// Callers: FS_GetStartMP. Owned state: none.
#pragma once

#include "run/model_numbers.h"
#include "run/system_state.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

/// Layers of TheoDispInfo, completed: Vp from Poisson's ratio where Vp is 0 or all of Vp, Vs and the ratio
/// are given (iPoissonGiven 1), otherwise the ratio from the velocities; density from Vs where it is 0
/// (iDensityDerived 1). A layer with Vp and no Vs gets a ratio of NaN and no result. Refuses a TheoDispInfo
/// without layers or with values that are physically impossible.
Refusal FS_ReadLayerProp(LayeredGround& ground);

/// In an inversion (iAnalysis above 0): bounds and uncertainty factors of InvParam, the numbering of the
/// model, the model vectors and Cm.
/// Refuses when no parameter is free, a factor or bound is not a number, or a lower bound of a free parameter
/// is not above 0.
/// @param fixed  layers without a free Vs or H
Refusal FS_ReadModelParmF(Run& run, const ConstrainedLayers& fixed, Listener& listener);

/// Layer state, starting profile (as given, or computed from the observed curve for preliminaryProfileType 1
/// and 2), and in an inversion the model state. A halt of the analytic profile is a refusal without a reason.
Refusal FS_PrelimAnal(Run& run, const ConstrainedLayers& fixed, Listener& listener);

}  // namespace sondera
