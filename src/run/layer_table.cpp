// layer_table.cpp - see layer_table.h.
#include "run/layer_table.h"

#include <algorithm>
#include <cmath>

#include "run/system_state.h"

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
  run.ground.totalDepth = 0.0;
  for (int l = 1; l <= run.ground.nLayersCur; ++l) {
    double& Vs = run.ground.layerVs[l];
    double& nu = run.ground.layerNu[l];
    if (run.ground.iDensityDerived[l] == 1) run.ground.layerRho[l] = DensityFromVs(Vs);
    run.ground.layerG[l] = run.ground.layerRho[l] * Vs * Vs;
    if (run.ground.iPoissonGiven[l] == 1) {
      run.ground.layerVp[l] = VpFromPoisson(Vs, nu);
    } else {
      nu = PoissonFromVelocities(run.ground.layerVp[l], Vs);
      if (guardPoisson && PoissonIsUnphysical(nu)) {
        nu = kGuardedNu;
        Vs = GuardedVs(run.ground.layerVp[l]);
      }
    }
    run.ground.layerE[l] = 2.0 * run.ground.layerG[l] * (nu + 1.0);
    run.ground.totalDepth += run.ground.layerH[l];
  }
}

void FS_SystemSetup() {
  const OffsetVector<double>* value[] = {nullptr, &run.ground.layerH, &run.ground.layerVs,
                                         &run.ground.layerVp, &run.ground.layerRho};
  const OffsetVector<double>* factor[] = {nullptr, &run.parameters.uncH, &run.parameters.uncVs,
                                          &run.parameters.uncVp, &run.parameters.uncRho};
  for (int q = 1; q <= kQuantities; ++q) {
    for (int l = 1; l <= run.ground.nLayersCur; ++l) {
      const int p = run.parameters.MapEntry(q, l);
      if (p <= 0 || p > run.parameters.rModel.hi()) continue;
      run.parameters.rModel[p] = run.parameters.rModelPrior[p] = (*value[q])[l];
      run.parameters.UFModel[p] = (*factor[q])[l];
    }
  }
}

int FS_GetLayerID(double depth) {
  double top = 0.0;
  for (int l = 1; l < run.ground.nLayersCur; ++l) {
    const double bottom = top + run.ground.layerH[l];
    if (top <= depth && depth < bottom) return l;
    top = bottom;
  }
  return run.ground.nLayersCur;
}

int FS_GetStrataID(double depth) {
  const StrataTables& s = run.strata;
  for (int i = 1; i < s.nStrata; ++i) {
    if (s.top[i] <= depth && depth < s.top[i + 1]) return i;
  }
  return s.nStrata;
}

}  // namespace sondera
