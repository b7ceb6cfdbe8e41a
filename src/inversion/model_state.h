// model_state.h - the layers and parameters of a run at one moment, to go back to.
//
// Callers: what tries steps and starts of an inversion. Owns no state.
#pragma once

#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

/// Which rows are out (Observations::iNoVelocity) is no part of it.
struct ModelState {
  OffsetVector<double> model;                              ///< Parameters::rModel
  OffsetVector<double> layerH, layerVs, layerVp, rho, nu;  ///< by layer, from 1
};

ModelState PresentModel(const LayeredGround& ground, const Parameters& parameters);
void PutModelBack(const ModelState& state, LayeredGround& ground, Parameters& parameters);

/// The model at a part of the way between two: 0 `from`, 1 `to`. The layers follow from the parameters; what
/// is no parameter is that of `to`.
void PutModelBetween(const ModelState& from, const ModelState& to, double part, LayeredGround& ground,
                     Parameters& parameters);

}  // namespace sondera
