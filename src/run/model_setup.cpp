// model_setup.cpp - see model_setup.h.
#include "run/model_setup.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/run_limits.h"
#include "records/session.h"
#include "run/covariances.h"
#include "run/layer_table.h"
#include "run/model_numbers.h"
#include "run/preliminary_profile.h"
#include "run/run_sizes.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// Sizes that depend on the number of parameters.
void SizeModel(Parameters& parameters, Update& update, int m) {
  parameters.rModel = parameters.rModelPrior = parameters.UFModel = update.deltaModel =
      OffsetVector<double>(1, m);
  parameters.Cm = update.Hessian = update.InvH = update.InvCm = ColumnMatrix(m, m);
}

/// Message for the first factor or bound that cannot be used in a computation.
std::string CheckInvSettings(const InvRecord& r, double ufVph) {
  const std::pair<const char*, double> values[] = {{"The uncertainty factor of H", r.ufH},
                                                   {"The uncertainty factor of Vs", r.ufVs},
                                                   {"The lower bound of H", r.minH},
                                                   {"The upper bound of H", r.maxH},
                                                   {"The lower bound of Vs", r.minVs},
                                                   {"The upper bound of Vs", r.maxVs},
                                                   {"The uncertainty factor of velocities", ufVph}};
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

Refusal FS_ReadLayerProp(LayeredGround& ground) {
  const ModelRecord& t = TheoDispInfo;
  if (t.nLayers != ground.nLayersCur)
    return FormatText("The run has %d layers, its model %d.", ground.nLayersCur, t.nLayers);
  const std::string complaint = CheckRunLayers(t);
  if (!complaint.empty()) return complaint;
  TakeModelLayers(t, ground);
  ground.lastLayerH = ground.layerH[ground.nLayersCur];
  return {};
}

Refusal FS_ReadModelParmF(Run& run, const ConstrainedLayers& fixed, Listener& listener) {
  if (run.switches.iAnalysis <= 0) return {};
  const std::string complaint = CheckInvSettings(InvParam, run.switches.ufVph);
  if (!complaint.empty()) return complaint;
  run.parameters.parmMin[kQuantityH] = InvParam.minH;
  run.parameters.parmMax[kQuantityH] = InvParam.maxH;
  run.parameters.parmMin[kQuantityVs] = InvParam.minVs;
  run.parameters.parmMax[kQuantityVs] = InvParam.maxVs;
  NumberModelParameters(run.ground.nLayersCur, run.parameters, InvParam.MODELPARM, fixed, listener);
  if (run.parameters.nModelParm == 0)
    return "All layers are constrained: there is no model parameter to vary.";
  SizeModel(run.parameters, run.update, run.parameters.nModelParm);
  std::fill(run.parameters.corrLength.begin(), run.parameters.corrLength.end(), 0.0);
  std::fill(run.parameters.uncH.begin(), run.parameters.uncH.end(), InvParam.ufH);
  std::fill(run.parameters.uncVs.begin(), run.parameters.uncVs.end(), InvParam.ufVs);
  FS_SystemSetup(run.ground, run.parameters);
  FS_Setup_Cm(run);
  return {};
}

Refusal FS_PrelimAnal(Run& run, const ConstrainedLayers& fixed, Listener& listener) {
  FS_AllocatePropLayer(run.ground.nLayersCur);
  if (Refusal refusal = FS_ReadLayerProp(run.ground)) return refusal;
  const int type = run.switches.preliminaryProfileType;
  if ((type == kEmpiricalProfile || type == kAnalyticProfile) &&
      (run.switches.iProfileShape == kOnGivenLayers || run.switches.iProfileShape == kAsFound)) {
    if (FS_SetUpObsData(run, 1) < 0) return Refusal::WithoutReason();
    if (Refusal refusal = type == kEmpiricalProfile ? FS_EmpPrePrf(run) : FS_AnalPrePrf(run, listener))
      return refusal;
  } else {
    // The depth of a layer here is one and a half times its thickness, wherever the layer lies.
    for (int l = 1; l <= run.ground.nLayersCur; ++l)
      FS_PropLayer(run, 1.5 * run.ground.layerH[l], l, run.ground.layerVs[l], RunLayerColumns(run.ground));
  }
  if (run.switches.iInvScheme <= 0) return {};
  FS_AllocateModelInfo(run.parameters, 1, run.ground.nLayersCur);
  return FS_ReadModelParmF(run, fixed, listener);
}

}  // namespace sondera
