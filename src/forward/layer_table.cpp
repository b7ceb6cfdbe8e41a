// layer_table.cpp - see layer_table.h.
#include "forward/layer_table.h"

#include <algorithm>
#include <cmath>

#include "forward/system_state.h"

namespace sondera {

double DensityFromVs(double Vs) {
  // Unit weight between 50 and 125 lb/ft^3 on the line from the Vs of loose to that of dense ground, both at
  // a pressure term of 20; 32.2 ft/s^2 turns a weight into a mass.
  const double loose = 87.6 * std::pow(20.0, 0.35);
  const double dense = 549.3 * std::pow(20.0, 0.2);
  const double density = (50.0 + 75.0 * (Vs - loose) / (dense - loose)) / 32.2;
  constexpr double kCap = 3.881987577639751;  // 125 / 32.2
  return density > kCap ? kCap : density;
}

double VpFromPoisson(double Vs, double nu) {
  return Vs * std::sqrt(2.0 * (1.0 - nu) / (1.0 - 2.0 * nu));
}

double PoissonFromVelocities(double Vp, double Vs) {
  const double r = Vp / Vs, r2 = r * r;
  return (r2 - 2.0) / (r2 - 1.0) / 2.0;
}

double GuardedVs(double Vp) {
  return Vp * std::sqrt(kGuardedVsOverVpSquared);
}

void DeriveLayerProperties(bool guardPoisson) {
  run.totalDepth = 0.0;
  for (int l = 1; l <= run.nLayersCur; ++l) {
    double& Vs = run.layerVs[l];
    double& nu = run.layerNu[l];
    if (run.iDensityDerived[l] == 1) run.layerRho[l] = DensityFromVs(Vs);
    run.layerG[l] = run.layerRho[l] * Vs * Vs;
    if (run.iPoissonGiven[l] == 1) {
      run.layerVp[l] = VpFromPoisson(Vs, nu);
    } else {
      nu = PoissonFromVelocities(run.layerVp[l], Vs);
      if (guardPoisson && PoissonIsUnphysical(nu)) {
        nu = kGuardedNu;
        Vs = GuardedVs(run.layerVp[l]);
      }
    }
    run.layerE[l] = 2.0 * run.layerG[l] * (nu + 1.0);
    run.totalDepth += run.layerH[l];
  }
}

void FS_SystemSetup() {
  const OffsetVector<double>* value[] = {nullptr, &run.layerH, &run.layerVs, &run.layerVp, &run.layerRho};
  const OffsetVector<double>* factor[] = {nullptr, &run.uncH, &run.uncVs, &run.uncVp, &run.uncRho};
  for (int q = 1; q <= kQuantities; ++q) {
    for (int l = 1; l <= run.nLayersCur; ++l) {
      const int p = run.MapEntry(q, l);
      if (p <= 0 || p > run.rModel.hi()) continue;
      run.rModel[p] = run.rModelPrior[p] = (*value[q])[l];
      run.UFModel[p] = (*factor[q])[l];
    }
  }
}

int FS_GetLayerID(double depth) {
  double top = 0.0;
  for (int l = 1; l < run.nLayersCur; ++l) {
    const double bottom = top + run.layerH[l];
    if (top <= depth && depth < bottom) return l;
    top = bottom;
  }
  return run.nLayersCur;
}

int FS_GetStrataID(double depth) {
  const StrataTables& s = run.strata;
  for (int i = 1; i < s.nStrata; ++i) {
    if (s.top[i] <= depth && depth < s.top[i + 1]) return i;
  }
  return s.nStrata;
}

}  // namespace sondera
