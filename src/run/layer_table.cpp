// layer_table.cpp - see layer_table.h.
#include "run/layer_table.h"

namespace sondera {

void FS_SystemSetup(const LayeredGround& ground, Parameters& parameters) {
  const OffsetVector<double>* value[] = {nullptr, &ground.layerH, &ground.layerVs, &ground.layerVp,
                                         &ground.layerRho};
  const OffsetVector<double>* factor[] = {nullptr, &parameters.uncH, &parameters.uncVs, &parameters.uncVp,
                                          &parameters.uncRho};
  for (int q = 1; q <= kQuantities; ++q) {
    for (int l = 1; l <= ground.nLayersCur; ++l) {
      const int p = parameters.MapEntry(q, l);
      if (p <= 0 || p > parameters.rModel.hi()) continue;
      parameters.rModel[p] = parameters.rModelPrior[p] = (*value[q])[l];
      parameters.UFModel[p] = (*factor[q])[l];
    }
  }
}

int FS_GetStrataID(const StrataTables& strata, double depth) {
  for (int i = 1; i < strata.nStrata; ++i) {
    if (strata.top[i] <= depth && depth < strata.top[i + 1]) return i;
  }
  return strata.nStrata;
}

}  // namespace sondera
