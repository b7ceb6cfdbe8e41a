// layered_ground.cpp - see layered_ground.h.
#include "forward/layered_ground.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "forward/plane_wave.h"

namespace sondera {

LayeredGround::LayeredGround(int n) : nLayersCur(n) {
  for (auto* column : {&layerH, &layerVs, &layerVp, &layerG, &layerE, &layerRho, &layerNu, &layerDamp})
    *column = OffsetVector<double>(1, n);
  iPoissonGiven = iDensityDerived = OffsetVector<int>(1, n);
}

double DensityFromVs(double Vs) {
  // Unit weight between 50 and 125 lb/ft^3, linear between the Vs of loose and of dense ground, both at a
  // pressure term of 20; 32.2 ft/s^2 converts a weight to a mass.
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

void CompleteGivenLayer(LayeredGround& ground, int l) {
  double& Vp = ground.layerVp[l];
  double& nu = ground.layerNu[l];
  const double Vs = ground.layerVs[l];
  const bool ratioGiven = Vp == 0.0 || (Vp != 0.0 && Vs != 0.0 && nu != 0.0);
  ground.iPoissonGiven[l] = ratioGiven ? 1 : 0;
  if (ratioGiven) {
    Vp = VpFromPoisson(Vs, nu);
  } else {
    nu = PoissonFromVelocities(Vp, Vs);
  }
  ground.iDensityDerived[l] = ground.layerRho[l] == 0.0 ? 1 : 0;
  if (ground.iDensityDerived[l] == 1) ground.layerRho[l] = DensityFromVs(Vs);
}

void TakeModelLayers(const ModelRecord& model, LayeredGround& ground) {
  for (int l = 1; l <= ground.nLayersCur; ++l) {
    const auto i = static_cast<std::size_t>(l - 1);
    ground.layerH[l] = model.thickness[i];
    ground.layerVp[l] = model.Vp[i];
    ground.layerVs[l] = model.Vs[i];
    ground.layerRho[l] = model.density[i];
    ground.layerNu[l] = model.nu[i];
    ground.layerDamp[l] = model.damping[i];
    CompleteGivenLayer(ground, l);
  }
}

void DeriveLayerProperties(LayeredGround& ground, bool guardPoisson) {
  ground.totalDepth = 0.0;
  for (int l = 1; l <= ground.nLayersCur; ++l) {
    double& Vs = ground.layerVs[l];
    double& nu = ground.layerNu[l];
    if (ground.iDensityDerived[l] == 1) ground.layerRho[l] = DensityFromVs(Vs);
    ground.layerG[l] = ground.layerRho[l] * Vs * Vs;
    if (ground.iPoissonGiven[l] == 1) {
      ground.layerVp[l] = VpFromPoisson(Vs, nu);
    } else {
      nu = PoissonFromVelocities(ground.layerVp[l], Vs);
      if (guardPoisson && PoissonIsUnphysical(nu)) {
        nu = kGuardedNu;
        Vs = GuardedVs(ground.layerVp[l]);
      }
    }
    ground.layerE[l] = 2.0 * ground.layerG[l] * (nu + 1.0);
    ground.totalDepth += ground.layerH[l];
  }
}

int FS_GetLayerID(const LayeredGround& ground, double depth) {
  double top = 0.0;
  for (int l = 1; l < ground.nLayersCur; ++l) {
    const double bottom = top + ground.layerH[l];
    if (top <= depth && depth < bottom) return l;
    top = bottom;
  }
  return ground.nLayersCur;
}

double SmallestVs(const LayeredGround& ground) {
  return ground.layerVs.empty() ? 0.0 : *std::min_element(ground.layerVs.begin(), ground.layerVs.end());
}

double LargestVs(const LayeredGround& ground) {
  return ground.layerVs.empty() ? 0.0 : *std::max_element(ground.layerVs.begin(), ground.layerVs.end());
}

double PlaneWaveVelocity(const LayeredGround& ground, double wavelength) {
  const int one = 1;
  const double L[2] = {0.0, wavelength};
  double c[2] = {0.0, 0.0};
  FS_SASW2D(&ground.nLayersCur, ground.layerH.shifted(), ground.layerVs.shifted(), ground.layerVp.shifted(),
            ground.layerG.shifted(), ground.layerRho.shifted(), ground.layerE.shifted(),
            ground.layerNu.shifted(), &one, L, c);
  return std::isfinite(c[1]) ? c[1] : 0.0;
}

GroundColumns ColumnsOf(const LayeredGround& ground) {
  return {ground.nLayersCur,         ground.layerH.shifted(),   ground.layerVs.shifted(),
          ground.layerG.shifted(),   ground.layerRho.shifted(), ground.layerNu.shifted(),
          ground.layerDamp.shifted()};
}

}  // namespace sondera
