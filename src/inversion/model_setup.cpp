// model_setup.cpp - see model_setup.h.
#include "inversion/model_setup.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "forward/layer_table.h"
#include "forward/model_records.h"
#include "forward/run_limits.h"
#include "forward/system_model.h"
#include "inversion/covariances.h"
#include "inversion/inv_records.h"
#include "inversion/model_numbers.h"
#include "inversion/preliminary_profile.h"
#include "project/session.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

void CompleteLayer(int l) {
  double& Vp = run.layerVp[l];
  double& nu = run.layerNu[l];
  const double Vs = run.layerVs[l];
  const bool ratioGiven = Vp == 0.0 || (Vp != 0.0 && Vs != 0.0 && nu != 0.0);
  run.iPoissonGiven[l] = ratioGiven ? 1 : 0;
  if (ratioGiven) {
    Vp = VpFromPoisson(Vs, nu);
  } else {
    nu = PoissonFromVelocities(Vp, Vs);
  }
  run.iDensityDerived[l] = run.layerRho[l] == 0.0 ? 1 : 0;
  if (run.iDensityDerived[l] == 1) run.layerRho[l] = DensityFromVs(Vs);
}

/// Sizes of what hangs on the number of parameters.
void SizeModel(int m) {
  run.rModel = run.rModelPrior = run.UFModel = run.deltaModel = OffsetVector<double>(1, m);
  run.Cm = run.Hessian = run.InvH = run.InvCm = ColumnMatrix(m, m);
}

/// Complaint about the first factor or bound that nothing can be computed with.
std::string CheckInvSettings(const InvRecord& r) {
  const std::pair<const char*, double> values[] = {{"The uncertainty factor of H", r.ufH},
                                                   {"The uncertainty factor of Vs", r.ufVs},
                                                   {"The lower bound of H", r.minH},
                                                   {"The upper bound of H", r.maxH},
                                                   {"The lower bound of Vs", r.minVs},
                                                   {"The upper bound of Vs", r.maxVs},
                                                   {"The uncertainty factor of velocities", run.ufVph}};
  for (const auto& [what, value] : values) {
    if (!std::isfinite(value)) return FormatText("%s is %g. It must be a finite number.", what, value);
  }
  const bool freeH = r.MODELPARM == 2 || r.MODELPARM == 3, freeVs = r.MODELPARM == 1 || r.MODELPARM == 3;
  if (freeH && !(r.minH > 0.0)) return FormatText("The lower bound of H is %g. It must be above 0.", r.minH);
  if (freeVs && !(r.minVs > 0.0))
    return FormatText("The lower bound of Vs is %g. It must be above 0.", r.minVs);
  return {};
}

}  // namespace

int FS_ReadLayerProp() {
  const ModelRecord& t = TheoDispInfo;
  if (t.nLayers != run.nLayersCur)
    return Refuse(FormatText("The run has %d layers, its model %d.", run.nLayersCur, t.nLayers));
  const std::string complaint = CheckRunLayers(t);
  if (!complaint.empty()) return Refuse(complaint);
  for (int l = 1; l <= run.nLayersCur; ++l) {
    const std::size_t i = static_cast<std::size_t>(l - 1);
    run.layerH[l] = t.thickness[i];
    run.layerVp[l] = t.Vp[i];
    run.layerVs[l] = t.Vs[i];
    run.layerRho[l] = t.density[i];
    run.layerNu[l] = t.nu[i];
    run.layerDamp[l] = t.damping[i];
    CompleteLayer(l);
  }
  run.lastLayerH = run.layerH[run.nLayersCur];
  return 0;
}

int FS_ReadModelParmF() {
  if (run.iAnalysis <= 0) return 0;
  const std::string complaint = CheckInvSettings(InvParam);
  if (!complaint.empty()) return Refuse(complaint);
  run.parmMin[kQuantityH] = InvParam.minH;
  run.parmMax[kQuantityH] = InvParam.maxH;
  run.parmMin[kQuantityVs] = InvParam.minVs;
  run.parmMax[kQuantityVs] = InvParam.maxVs;
  NumberModelParameters(InvParam.MODELPARM);
  if (run.nModelParm == 0) return Refuse("All layers are constrained: there is no model parameter to vary.");
  SizeModel(run.nModelParm);
  std::fill(run.corrLength.begin(), run.corrLength.end(), 0.0);
  std::fill(run.uncH.begin(), run.uncH.end(), InvParam.ufH);
  std::fill(run.uncVs.begin(), run.uncVs.end(), InvParam.ufVs);
  FS_SystemSetup();
  FS_Setup_Cm();
  return 0;
}

int FS_PrelimAnal() {
  FS_AllocatePropLayer(run.nLayersCur);
  if (FS_ReadLayerProp() < 0) return -1;
  const int type = run.preliminaryProfileType;
  if ((type == kEmpiricalProfile || type == kAnalyticProfile) &&
      (run.iProfileShape == kOnGivenLayers || run.iProfileShape == kAsFound)) {
    if (FS_SetUpObsData(1) < 0) return -1;
    if ((type == kEmpiricalProfile ? FS_EmpPrePrf() : FS_AnalPrePrf()) < 0) return -1;
  } else {
    // The depth that goes with a layer is one and a half times its thickness, wherever it lies.
    for (int l = 1; l <= run.nLayersCur; ++l)
      FS_PropLayer(1.5 * run.layerH[l], l, run.layerVs[l], RunLayerColumns());
  }
  if (run.iInvScheme <= 0) return 0;
  FS_AllocateModelInfo(1, run.nLayersCur);
  return FS_ReadModelParmF();
}

}  // namespace sondera
