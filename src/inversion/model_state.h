// model_state.h - the layers and parameters of a run at one moment, to go back to.
//
// Callers: what tries steps and starts of an inversion. Works on `run`; owns no state.
#pragma once

#include "numeric/offset_array.h"

namespace sondera {

/// Which rows are out (run.observations.iNoVelocity) is no part of it.
struct ModelState {
  OffsetVector<double> model;                              ///< run.parameters.rModel
  OffsetVector<double> layerH, layerVs, layerVp, rho, nu;  ///< by layer, from 1
};

ModelState PresentModel();
void PutModelBack(const ModelState& state);

/// The model at a part of the way between two: 0 `from`, 1 `to`. The layers follow from the parameters; what
/// is no parameter is that of `to`.
void PutModelBetween(const ModelState& from, const ModelState& to, double part);

}  // namespace sondera
