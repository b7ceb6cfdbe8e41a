// layer_stack.cpp - see layer_stack.h.
#include "inversion/layer_stack.h"

#include <algorithm>
#include <cstddef>

#include "forward/layer_table.h"
#include "forward/model_records.h"
#include "forward/run_limits.h"
#include "forward/system_model.h"
#include "project/session.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// A column of the run in n entries, the first ones from `from` (all zero without).
void Resize(OffsetVector<double>& column, int n, const OffsetVector<double>* from = nullptr) {
  OffsetVector<double> made(1, n);
  if (from) std::copy_n(from->begin(), n, made.begin());
  column = std::move(made);
}

void CopyToTheoDispInfo() {
  ModelRecord& t = TheoDispInfo;
  const std::size_t n = static_cast<std::size_t>(run.nLayersCur);
  const OffsetVector<double>* from[] = {&run.layerH,   &run.layerVp, &run.layerVs,
                                        &run.layerRho, &run.layerNu, &run.layerDamp};
  t.nLayers = run.nLayersCur;
  t.capLayers = std::max(t.capLayers, t.nLayers);
  for (std::size_t k = 0; k < kLayerColumns.size(); ++k) {
    std::vector<double>& column = t.*kLayerColumns[k];
    if (column.size() < n) column.resize(static_cast<std::size_t>(t.capLayers), 0.0);
    std::copy_n(from[k]->begin(), run.nLayersCur, column.begin());
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

void KeepGivenLayersAsStrata() {
  const int n = run.nLayersCur;
  FS_AllocateStrataPropLayer(n);
  StrataTables& s = run.strata;
  double top = 0.0;
  for (int l = 1; l <= n; ++l) {
    s.top[l] = top;
    s.H[l] = run.layerH[l];
    s.Vs[l] = run.layerVs[l];
    s.Vp[l] = run.layerVp[l];
    s.G[l] = run.layerG[l];
    s.E[l] = run.layerE[l];
    s.rho[l] = run.layerRho[l];
    s.nu[l] = run.layerNu[l];
    s.damp[l] = run.layerDamp[l];
    s.iPoissonGiven[l] = run.iPoissonGiven[l];
    s.iDensityDerived[l] = run.iDensityDerived[l];
    top += run.layerH[l];
  }
}

int ReplaceRunLayers(const LayerStack& stack) {
  const int n = stack.n;
  if (n < 1 || n > kMaxRunLayers)
    return Refuse(FormatText("The starting profile has %d layers. It must have 1 to %d.", n, kMaxRunLayers));
  Resize(run.layerH, n, &stack.H);
  Resize(run.layerVs, n, &stack.Vs);
  Resize(run.layerVp, n, &stack.Vp);
  Resize(run.layerG, n, &stack.G);
  Resize(run.layerE, n, &stack.E);
  Resize(run.layerRho, n, &stack.rho);
  Resize(run.layerNu, n, &stack.nu);
  Resize(run.layerDamp, n, &stack.damp);
  for (auto* column : {&run.uncH, &run.uncVp, &run.uncVs, &run.uncRho}) Resize(*column, n);
  Resize(run.corrLength, 4 * n);
  run.iPoissonGiven = run.iDensityDerived = OffsetVector<int>(1, n);
  double top = 0.0;
  for (int l = 1; l <= n; ++l) {
    const int j = FS_GetStrataID(top + 0.5 * stack.H[l]);
    run.iPoissonGiven[l] = run.strata.iPoissonGiven[j];
    run.iDensityDerived[l] = run.strata.iDensityDerived[j];
    top += stack.H[l];
  }
  run.nLayersCur = n;
  run.lastLayerH = stack.H[n];
  CopyToTheoDispInfo();
  return 0;
}

}  // namespace sondera
