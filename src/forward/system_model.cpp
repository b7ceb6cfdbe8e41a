// system_model.cpp - see system_model.h.
#include "forward/system_model.h"

#include <algorithm>
#include <cstddef>

#include "forward/model_records.h"
#include "forward/run_limits.h"
#include "inversion/inv_records.h"
#include "project/session.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kBuiltInSetups = 3;
constexpr int kFixedPairType = 4;  // GlobalRecType: one explicit pair

/// Vs is varied; thickness is varied.
bool VariesVs(int modelParm) {
  return modelParm == 1 || modelParm == 3;
}
bool VariesH(int modelParm) {
  return modelParm == 2 || modelParm == 3;
}

/// Numbers ModelMap for a run without constrained layers.
void NumberModelMap(int nLayers, int modelParm) {
  int number = 0;
  for (int l = 1; l <= nLayers; ++l) {
    if (VariesH(modelParm) && l < nLayers) run.MapEntry(kQuantityH, l) = ++number;
    if (VariesVs(modelParm)) run.MapEntry(kQuantityVs, l) = ++number;
  }
}

void SizeLayers(RunVectors& v, const RunSizes& size) {
  const int n = v.nLayersCur = size.nLayersCur;
  for (auto column :
       {&RunVectors::layerH, &RunVectors::layerVs, &RunVectors::layerVp, &RunVectors::layerG,
        &RunVectors::layerE, &RunVectors::layerRho, &RunVectors::layerNu, &RunVectors::layerDamp,
        &RunVectors::uncH, &RunVectors::uncVp, &RunVectors::uncVs, &RunVectors::uncRho})
    v.*column = OffsetVector<double>(1, n);
  v.iPoissonGiven = v.iDensityDerived = OffsetVector<int>(1, n);
  v.corrLength = OffsetVector<double>(1, kQuantities * n);
  v.ModelMap = OffsetVector<int>(1, kQuantities * n);
  v.modelMapStride = n;
  v.nModelParm = size.nModel;
  v.rModel = v.rModelPrior = v.UFModel = v.deltaModel = OffsetVector<double>(1, size.nModel);
}

/// Rows that array curves may have: without data every point of every curve may become one.
double ArrayRows(const RunSizes& size) {
  return std::max<double>(size.nObs, static_cast<double>(size.nPoints) * (size.recMax2 - kBuiltInSetups));
}

/// Observation rows that a run may have, over all receiver types of a point.
double ObservationRows(const RunSizes& size) {
  return std::max<double>(size.nDispG, ArrayRows(size)) * std::max(size.recMax1, 1);
}

void SizePoints(RunVectors& v, const RunSizes& size) {
  for (auto column :
       {&RunVectors::globalVel, &RunVectors::globalFreq, &RunVectors::globalLambda, &RunVectors::globalDev})
    v.*column = OffsetVector<double>(1, size.nDispG);
  v.globalRecCount = OffsetVector<int>(1, size.nDispG);
  v.globalRecType = OffsetVector<int>(1, size.nDispG * std::max(size.recMax1, 1));
  const int arrayRows = static_cast<int>(ArrayRows(size));
  for (auto column : {&RunVectors::arrayVel, &RunVectors::arrayFreq, &RunVectors::arrayDev,
                      &RunVectors::arrayAmp, &RunVectors::arrayAmpDev})
    v.*column = OffsetVector<double>(1, arrayRows);
  v.iArrayIndex = OffsetMatrix<int>(1, size.recMax2 - kBuiltInSetups, 1, size.nPoints);
  const int rows = static_cast<int>(ObservationRows(size));
  for (auto column : {&RunVectors::runVel, &RunVectors::runAmp, &RunVectors::runFreq, &RunVectors::runLambda,
                      &RunVectors::runLambda2})
    v.*column = OffsetVector<double>(1, rows);
  v.iNoVelocity = v.nRecCfgPerPoint = v.recCfgOfPoint = OffsetVector<int>(1, rows);
}

void SizeSetups(RunVectors& v, const RunSizes& size) {
  const int setups = std::max({size.recMax1, size.recMax2, kBuiltInSetups});
  v.rec1Loc = v.rec2Loc = OffsetVector<double>(1, setups);
  v.recSetupList = OffsetVector<int>(1, setups);
  v.stackRecX = OffsetVector<double>(1, 2 * setups);
}

/// Doubles of a run with all its matrices, on the large side.
double DoublesOf(const RunSizes& size) {
  const double rows = ObservationRows(size), m = size.nModel;
  const double active = std::min(rows, m);  // the data-space form has fewer rows than parameters
  return 30.0 * size.nLayersCur + 12.0 * rows + 4.0 * m * m + 3.0 * m * rows + 2.0 * active * active;
}

}  // namespace

RunSizes FS_InitVars() {
  const ModelRecord& m = FModelParam;
  RunSizes size;
  size.nLayersCur = m.nLayers;
  size.recMax1 = m.GlobalRecType == kBuiltInSetups || m.GlobalRecType == kFixedPairType ? m.GlobalRecType : 0;
  size.recMax2 = m.nDispCurves + kBuiltInSetups;
  size.nDispG = m.nDispPointsG;
  size.nPoints = m.nDispPoints;
  size.nFiles = 1;
  size.nRecLoc = m.nReceivers;
  const std::size_t cells = static_cast<std::size_t>(std::max(m.nDispPoints, 0)) *
                            static_cast<std::size_t>(std::max(m.nDispCurves, 0));
  const auto end = m.vel.begin() + static_cast<std::ptrdiff_t>(std::min(cells, m.vel.size()));
  size.nObs =
      m.nDispPoints + static_cast<int>(std::count_if(m.vel.begin(), end, [](double v) { return v != 0.0; }));
  if (VariesH(InvParam.MODELPARM)) size.nModel += m.nLayers - 1;
  if (VariesVs(InvParam.MODELPARM)) size.nModel += m.nLayers;
  run.iPriorIter = 0;
  run.ampScale = 1.0;
  return size;
}

int FS_AllocMemoryBlocks() {
  const std::string complaint = CheckRunSettings(FModelParam);
  if (!complaint.empty()) return Refuse(complaint);
  const RunSizes size = FS_InitVars();
  if (DoublesOf(size) > kMaxRunDoubles)
    return Refuse(
        FormatText("A run with %d layers, %d points of the global curve and %d points of %d array "
                   "curves is too large.",
                   size.nLayersCur, size.nDispG, size.nPoints, size.recMax2 - kBuiltInSetups));
  RunVectors fresh;
  SizeLayers(fresh, size);
  SizePoints(fresh, size);
  SizeSetups(fresh, size);
  static_cast<RunVectors&>(run) = std::move(fresh);
  NumberModelMap(size.nLayersCur, InvParam.MODELPARM);
  return 0;
}

// The blocks own the storage: these mark points in the life of a run and have nothing to do.
void FS_AllocateObsData(int) {}
void FS_AllocatePropLayer(int) {}
void FS_DeAllocatePropLayer() {}
void FS_DeAllocateObsData() {}
void FS_DeAllocateRecSetup() {}
void FS_DeAllocateModelInfo() {}
void DeAllocatePropLayer() {}
void DeAllocateModelInfo() {}
void DeAllocateObsData() {}
void DeAllocateRecSetup() {}

void FS_AllocateModelInfo(int which, int n) {
  if (which == 1) run.modelMapStride = std::clamp(n, 0, run.ModelMap.size() / kQuantities);
  if (which == 2) run.nModelParm = std::clamp(n, 0, run.rModel.size());
}

void FS_AllocateRecSetup(int n) {
  run.nRecSetups =
      std::clamp(n + kBuiltInSetups, kBuiltInSetups, std::max(run.rec1Loc.size(), kBuiltInSetups));
}

void FS_AllocateStrataPropLayer(int n) {
  StrataTables& s = run.strata;
  s.nStrata = std::clamp(n, 0, kMaxRunLayers);
  s.top = s.H = s.Vs = s.Vp = s.G = s.E = s.rho = s.nu = s.damp = OffsetVector<double>(1, s.nStrata);
  s.iPoissonGiven = s.iDensityDerived = OffsetVector<int>(1, s.nStrata);
}

void FS_DeAllocateStrataPropLayer() {
  StrataTables& s = run.strata;
  s.nStrata = 0;
  s.top = s.H = s.Vs = s.G = s.E = s.rho = s.nu = s.damp = {};
  s.iPoissonGiven = s.iDensityDerived = {};
}

void FS_AllocateStrataModelInfo(int n) {
  run.strata.modelMap = OffsetVector<int>(1, kQuantities * std::clamp(n, 0, kMaxRunLayers));
}

void FS_DeAllocateStrataModelInfo() {
  run.strata.modelMap = {};
}

}  // namespace sondera
