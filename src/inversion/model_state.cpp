// model_state.cpp - see model_state.h.
#include "inversion/model_state.h"

#include "inversion/update_bounds.h"

namespace sondera {

ModelState PresentModel(const LayeredGround& ground, const Parameters& parameters) {
  return {parameters.rModel, ground.layerH, ground.layerVs, ground.layerVp, ground.layerRho, ground.layerNu};
}

void PutModelBack(const ModelState& state, LayeredGround& ground, Parameters& parameters) {
  parameters.rModel = state.model;
  ground.layerH = state.layerH;
  ground.layerVs = state.layerVs;
  ground.layerVp = state.layerVp;
  ground.layerRho = state.rho;
  ground.layerNu = state.nu;
}

void PutModelBetween(const ModelState& from, const ModelState& to, double part, LayeredGround& ground,
                     Parameters& parameters) {
  PutModelBack(to, ground, parameters);
  for (int p = 1; p <= parameters.nModelParm; ++p)
    parameters.rModel[p] = from.model[p] + part * (to.model[p] - from.model[p]);
  LayersFromModel(parameters, ground);
}

}  // namespace sondera
