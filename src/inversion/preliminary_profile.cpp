// preliminary_profile.cpp - see preliminary_profile.h.
#include "inversion/preliminary_profile.h"

#include <algorithm>

#include "forward/layer_table.h"
#include "forward/system_state.h"
#include "project/session.h"
#include "runtime/dialogs.h"

namespace sondera {
namespace {

constexpr int kAnalytic = 2;  // preliminaryProfileType

int NotMadeYet() {
  MessagePopup(session.appTitle, "A starting profile from the dispersion curve cannot be made yet.");
  return -1;
}

}  // namespace

LayerColumns RunLayerColumns() {
  return {run.layerVs.shifted(),  run.layerVp.shifted(), run.layerG.shifted(),   run.layerE.shifted(),
          run.layerRho.shifted(), run.layerNu.shifted(), run.layerDamp.shifted()};
}

void FS_PropLayer(double depth, int i, double Vs, const LayerColumns& out) {
  const int j = run.preliminaryProfileType == kAnalytic ? FS_GetLayerID(depth) : std::min(i, run.nLayersCur);
  out.Vs[i] = Vs;
  out.rho[i] = run.iDensityDerived[j] == 1 ? DensityFromVs(Vs) : run.layerRho[j];
  if (run.iPoissonGiven[j] == 1) {
    out.nu[i] = run.layerNu[j];
    out.Vp[i] = VpFromPoisson(Vs, out.nu[i]);
  } else {
    out.Vp[i] = run.layerVp[j];
    out.nu[i] = PoissonFromVelocities(out.Vp[i], Vs);
    if (PoissonIsUnphysical(out.nu[i])) {
      out.nu[i] = kGuardedNu;
      out.Vs[i] = GuardedVs(out.Vp[i]);
    }
  }
  out.damp[i] = run.layerDamp[j];
  out.G[i] = out.rho[i] * out.Vs[i] * out.Vs[i];
  out.E[i] = 2.0 * out.G[i] * (1.0 + out.nu[i]);
}

int FS_EmpPrePrf() {
  return NotMadeYet();
}

int FS_AnalPrePrf() {
  return NotMadeYet();
}

}  // namespace sondera
