// preliminary_profile.cpp - see preliminary_profile.h.
#include "run/preliminary_profile.h"

#include <algorithm>
#include <cmath>

#include "run/layer_table.h"
#include "run/system_state.h"

namespace sondera {
namespace {

constexpr double kMostContrast = 1e4;  // between velocities of one curve

/// Properties that a completed layer copies.
struct Source {
  bool densityDerived, poissonGiven;
  double rho, nu, Vp, damp;
};

Source LayerAsSource(const LayeredGround& ground, int j) {
  return {ground.iDensityDerived[j] == 1,
          ground.iPoissonGiven[j] == 1,
          ground.layerRho[j],
          ground.layerNu[j],
          ground.layerVp[j],
          ground.layerDamp[j]};
}

Source StratumAsSource(const StrataTables& s, int j) {
  return {s.iDensityDerived[j] == 1, s.iPoissonGiven[j] == 1, s.rho[j], s.nu[j], s.Vp[j], s.damp[j]};
}

Source SourceOf(const Run& run, double depth, int i) {
  const bool replaces =
      run.switches.preliminaryProfileType != 0 && run.switches.iProfileShape != kOnGivenLayers;
  if (replaces && run.strata.nStrata > 0)
    return StratumAsSource(run.strata, FS_GetStrataID(run.strata, depth));
  if (run.switches.preliminaryProfileType == kAnalyticProfile)
    return LayerAsSource(run.ground, FS_GetLayerID(run.ground, depth));
  return LayerAsSource(run.ground, std::min(i, run.ground.nLayersCur));
}

bool IsAbove0(double x) {
  return x > 0.0 && std::isfinite(x);
}

}  // namespace

LayerColumns RunLayerColumns(LayeredGround& ground) {
  return {ground.layerVs.shifted(),  ground.layerVp.shifted(),  ground.layerG.shifted(),
          ground.layerE.shifted(),   ground.layerRho.shifted(), ground.layerNu.shifted(),
          ground.layerDamp.shifted()};
}

void FS_PropLayer(const Run& run, double depth, int i, double Vs, const LayerColumns& out) {
  const Source from = SourceOf(run, depth, i);
  out.Vs[i] = Vs;
  out.rho[i] = from.densityDerived ? DensityFromVs(Vs) : from.rho;
  if (from.poissonGiven) {
    out.nu[i] = from.nu;
    out.Vp[i] = VpFromPoisson(Vs, out.nu[i]);
  } else {
    out.Vp[i] = from.Vp;
    out.nu[i] = PoissonFromVelocities(out.Vp[i], Vs);
    if (PoissonIsUnphysical(out.nu[i])) {
      out.nu[i] = kGuardedNu;
      out.Vs[i] = GuardedVs(out.Vp[i]);
    }
  }
  out.damp[i] = from.damp;
  out.G[i] = out.rho[i] * out.Vs[i] * out.Vs[i];
  out.E[i] = 2.0 * out.G[i] * (1.0 + out.nu[i]);
}

std::vector<CurvePoint> ObservedCurve(const Observations& observations) {
  std::vector<CurvePoint> curve;
  for (int p = 1; p <= observations.nObsRows; ++p) {
    const CurvePoint point{observations.runVel[p], observations.runFreq[p], observations.runLambda[p]};
    if (IsAbove0(point.c) && IsAbove0(point.f) && IsAbove0(point.w)) curve.push_back(point);
  }
  std::stable_sort(curve.begin(), curve.end(),
                   [](const CurvePoint& a, const CurvePoint& b) { return a.w < b.w; });
  return curve;
}

bool IsOneGround(const std::vector<CurvePoint>& curve) {
  const auto [low, high] = std::minmax_element(
      curve.begin(), curve.end(), [](const CurvePoint& a, const CurvePoint& b) { return a.c < b.c; });
  return low == curve.end() || high->c <= kMostContrast * low->c;
}

}  // namespace sondera
