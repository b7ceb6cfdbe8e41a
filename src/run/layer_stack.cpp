// layer_stack.cpp - see layer_stack.h.
#include "run/layer_stack.h"

#include <algorithm>
#include <cstddef>

#include "records/model_records.h"
#include "records/run_limits.h"
#include "run/layer_table.h"
#include "run/run_sizes.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// A column of the run in n entries, the first ones from `from` (all zero without).
void Resize(OffsetVector<double>& column, int n, const OffsetVector<double>* from = nullptr) {
  OffsetVector<double> made(1, n);
  if (from) std::copy_n(from->begin(), n, made.begin());
  column = std::move(made);
}

void CopyToTheoDispInfo(const LayeredGround& ground) {
  ModelRecord& t = TheoDispInfo;
  const std::size_t n = static_cast<std::size_t>(ground.nLayersCur);
  const OffsetVector<double>* from[] = {&ground.layerH,   &ground.layerVp, &ground.layerVs,
                                        &ground.layerRho, &ground.layerNu, &ground.layerDamp};
  t.nLayers = ground.nLayersCur;
  t.capLayers = std::max(t.capLayers, t.nLayers);
  for (std::size_t k = 0; k < kLayerColumns.size(); ++k) {
    std::vector<double>& column = t.*kLayerColumns[k];
    if (column.size() < n) column.resize(static_cast<std::size_t>(t.capLayers), 0.0);
    std::copy_n(from[k]->begin(), ground.nLayersCur, column.begin());
  }
}

}  // namespace

LayerStack::LayerStack(int room) {
  for (auto* column : {&H, &Vs, &Vp, &G, &E, &rho, &nu, &damp}) *column = OffsetVector<double>(1, room);
}

LayerColumns LayerStack::columns() {
  return {Vs.shifted(), Vp.shifted(), G.shifted(), E.shifted(), rho.shifted(), nu.shifted(), damp.shifted()};
}

double LayerStack::Depth(int upTo) const {
  double depth = 0.0;
  for (int l = 1; l <= upTo; ++l) depth += H[l];
  return depth;
}

void KeepGivenLayersAsStrata(const LayeredGround& ground, StrataTables& s) {
  const int n = ground.nLayersCur;
  FS_AllocateStrataPropLayer(s, n);
  double top = 0.0;
  for (int l = 1; l <= n; ++l) {
    s.top[l] = top;
    s.H[l] = ground.layerH[l];
    s.Vs[l] = ground.layerVs[l];
    s.Vp[l] = ground.layerVp[l];
    s.G[l] = ground.layerG[l];
    s.E[l] = ground.layerE[l];
    s.rho[l] = ground.layerRho[l];
    s.nu[l] = ground.layerNu[l];
    s.damp[l] = ground.layerDamp[l];
    s.iPoissonGiven[l] = ground.iPoissonGiven[l];
    s.iDensityDerived[l] = ground.iDensityDerived[l];
    top += ground.layerH[l];
  }
}

Refusal ReplaceRunLayers(Run& run, const LayerStack& stack) {
  const int n = stack.n;
  if (n < 1 || n > kMaxRunLayers)
    return FormatText("The starting profile has %d layers. It must have 1 to %d.", n, kMaxRunLayers);
  Resize(run.ground.layerH, n, &stack.H);
  Resize(run.ground.layerVs, n, &stack.Vs);
  Resize(run.ground.layerVp, n, &stack.Vp);
  Resize(run.ground.layerG, n, &stack.G);
  Resize(run.ground.layerE, n, &stack.E);
  Resize(run.ground.layerRho, n, &stack.rho);
  Resize(run.ground.layerNu, n, &stack.nu);
  Resize(run.ground.layerDamp, n, &stack.damp);
  for (auto* column :
       {&run.parameters.uncH, &run.parameters.uncVp, &run.parameters.uncVs, &run.parameters.uncRho})
    Resize(*column, n);
  Resize(run.parameters.corrLength, 4 * n);
  run.ground.iPoissonGiven = run.ground.iDensityDerived = OffsetVector<int>(1, n);
  double top = 0.0;
  for (int l = 1; l <= n; ++l) {
    const int j = FS_GetStrataID(run.strata, top + 0.5 * stack.H[l]);
    run.ground.iPoissonGiven[l] = run.strata.iPoissonGiven[j];
    run.ground.iDensityDerived[l] = run.strata.iDensityDerived[j];
    top += stack.H[l];
  }
  run.ground.nLayersCur = n;
  run.ground.lastLayerH = stack.H[n];
  CopyToTheoDispInfo(run.ground);
  return {};
}

}  // namespace sondera
