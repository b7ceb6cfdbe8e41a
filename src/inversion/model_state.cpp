// model_state.cpp - see model_state.h.
#include "inversion/model_state.h"

#include "inversion/update_bounds.h"
#include "run/system_state.h"

namespace sondera {

ModelState PresentModel() {
  return {run.parameters.rModel, run.ground.layerH,   run.ground.layerVs,
          run.ground.layerVp,    run.ground.layerRho, run.ground.layerNu};
}

void PutModelBack(const ModelState& state) {
  run.parameters.rModel = state.model;
  run.ground.layerH = state.layerH;
  run.ground.layerVs = state.layerVs;
  run.ground.layerVp = state.layerVp;
  run.ground.layerRho = state.rho;
  run.ground.layerNu = state.nu;
}

void PutModelBetween(const ModelState& from, const ModelState& to, double part) {
  PutModelBack(to);
  for (int p = 1; p <= run.parameters.nModelParm; ++p)
    run.parameters.rModel[p] = from.model[p] + part * (to.model[p] - from.model[p]);
  LayersFromModel();
}

}  // namespace sondera
