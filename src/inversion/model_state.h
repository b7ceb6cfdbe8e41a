// model_state.h - a copy of the layers and parameters of a run, to restore them later.
//
// Callers: code that tries steps and starts of an inversion. Owns no state.
#pragma once

#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

/// The flags of rows without a velocity (Observations::iNoVelocity) are not part of it.
struct ModelState {
  OffsetVector<double> model;                              ///< Parameters::rModel
  OffsetVector<double> layerH, layerVs, layerVp, rho, nu;  ///< by layer, from 1
};

ModelState PresentModel(const LayeredGround& ground, const Parameters& parameters);
void PutModelBack(const ModelState& state, LayeredGround& ground, Parameters& parameters);

/// The model between two: 0 gives `from`, 1 gives `to`. The layers follow from the parameters; all other
/// values are those of `to`.
void PutModelBetween(const ModelState& from, const ModelState& to, double part, LayeredGround& ground,
                     Parameters& parameters);

}  // namespace sondera
