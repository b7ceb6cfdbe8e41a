// model_setup.h - layers and model parameters of a run, from the records.
//
// Callers: FS_GetStartMP. Fills the layer and model vectors of `run`; owns no state.
#pragma once

namespace sondera {

/// Layers as TheoDispInfo has them, completed: Vp from Poisson's ratio where Vp is 0 or all of Vp, Vs and the
/// ratio are given (iPoissonGiven 1), otherwise the ratio from the velocities; density from Vs where it is 0
/// (iDensityDerived 1). A layer with Vp and no Vs gets a ratio that is not a number, and no velocity.
/// @return 0; -1 after a message when TheoDispInfo has no such layers or values that no ground has
[[nodiscard]] int FS_ReadLayerProp();

/// In an inversion (iAnalysis above 0): bounds and uncertainty factors of InvParam, the numbering of the
/// model, the model vectors and Cm.
/// @return 0; -1 after a message when nothing is left to vary, a factor or bound is not a number, or
/// the lower bound of what is free is not above 0
[[nodiscard]] int FS_ReadModelParmF();

/// Layer state, starting profile (as given, or made from the observed curve by preliminaryProfileType 1 and
/// 2), and in an inversion the model state. @return 0, or -1 after a message
[[nodiscard]] int FS_PrelimAnal();

}  // namespace sondera
