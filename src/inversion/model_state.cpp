// model_state.cpp - see model_state.h.
#include "inversion/model_state.h"

#include "forward/system_state.h"
#include "inversion/update_bounds.h"

namespace sondera {

ModelState PresentModel() {
  return {run.rModel, run.layerH, run.layerVs, run.layerVp, run.layerRho, run.layerNu};
}

void PutModelBack(const ModelState& state) {
  run.rModel = state.model;
  run.layerH = state.layerH;
  run.layerVs = state.layerVs;
  run.layerVp = state.layerVp;
  run.layerRho = state.rho;
  run.layerNu = state.nu;
}

void PutModelBetween(const ModelState& from, const ModelState& to, double part) {
  PutModelBack(to);
  for (int p = 1; p <= run.nModelParm; ++p)
    run.rModel[p] = from.model[p] + part * (to.model[p] - from.model[p]);
  LayersFromModel();
}

}  // namespace sondera
