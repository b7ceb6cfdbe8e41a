// run_sizes.cpp - see run_sizes.h.
#include "run/run_sizes.h"

#include <algorithm>
#include <cstddef>

#include "forward/point_load.h"
#include "records/kinds.h"
#include "records/run_limits.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// Numbers ModelMap for a run without constrained layers.
void NumberModelMap(Parameters& parameters, int nLayers, int modelParm) {
  int number = 0;
  for (int l = 1; l <= nLayers; ++l) {
    if (VariesH(modelParm) && l < nLayers) parameters.MapEntry(kQuantityH, l) = ++number;
    if (VariesVs(modelParm)) parameters.MapEntry(kQuantityVs, l) = ++number;
  }
}

/// Parameters, with ModelMap still 0.
Parameters SizedParameters(const RunSizes& size) {
  Parameters p;
  const int n = size.nLayersCur;
  p.uncH = p.uncVp = p.uncVs = p.uncRho = OffsetVector<double>(1, n);
  p.corrLength = OffsetVector<double>(1, kQuantities * n);
  p.ModelMap = OffsetVector<int>(1, kQuantities * n);
  p.modelMapStride = n;
  p.nModelParm = size.nModel;
  p.rModel = p.rModelPrior = p.UFModel = OffsetVector<double>(1, size.nModel);
  return p;
}

/// Largest number of rows of array curves: without data every point of every curve may become one.
double ArrayRows(const RunSizes& size) {
  return std::max<double>(size.nObs, static_cast<double>(size.nPoints) * (size.recMax2 - kBuiltInSetups));
}

/// Largest number of observation rows of a run, over all receiver types of a point.
double ObservationRows(const RunSizes& size) {
  return std::max<double>(size.nDispG, ArrayRows(size)) * std::max(size.recMax1, 1);
}

Observations SizedObservations(const RunSizes& size) {
  Observations v;
  for (auto column : {&Observations::globalVel, &Observations::globalFreq, &Observations::globalLambda,
                      &Observations::globalDev})
    v.*column = OffsetVector<double>(1, size.nDispG);
  v.globalRecCount = OffsetVector<int>(1, size.nDispG);
  v.globalRecType = OffsetVector<int>(1, size.nDispG * std::max(size.recMax1, 1));
  const int arrayRows = static_cast<int>(ArrayRows(size));
  for (auto column : {&Observations::arrayVel, &Observations::arrayFreq, &Observations::arrayDev,
                      &Observations::arrayAmp, &Observations::arrayAmpDev})
    v.*column = OffsetVector<double>(1, arrayRows);
  v.iArrayIndex = OffsetMatrix<int>(1, size.recMax2 - kBuiltInSetups, 1, size.nPoints);
  const int rows = static_cast<int>(ObservationRows(size));
  for (auto column : {&Observations::runVel, &Observations::runAmp, &Observations::runFreq,
                      &Observations::runLambda, &Observations::runLambda2})
    v.*column = OffsetVector<double>(1, rows);
  v.iNoVelocity = OffsetVector<int>(1, rows);
  return v;
}

Receivers SizedReceivers(const RunSizes& size) {
  Receivers v;
  v.nRecCfgPerPoint = v.recCfgOfPoint = OffsetVector<int>(1, static_cast<int>(ObservationRows(size)));
  const int setups = std::max({size.recMax1, size.recMax2, kBuiltInSetups});
  v.rec1Loc = v.rec2Loc = OffsetVector<double>(1, setups);
  v.recSetupList = OffsetVector<int>(1, setups);
  v.stackRecX = OffsetVector<double>(1, 2 * setups);
  return v;
}

/// Doubles of a run with all its matrices, rounded up.
double DoublesOf(const RunSizes& size) {
  const double rows = ObservationRows(size), m = size.nModel;
  const double active = std::min(rows, m);  // the data-space form has fewer rows than parameters
  return 30.0 * size.nLayersCur + 12.0 * rows + 4.0 * m * m + 3.0 * m * rows + 2.0 * active * active;
}

}  // namespace

RunSizes FS_InitVars(const ModelRecord& m, int modelParm, Course& course) {
  RunSizes size;
  size.nLayersCur = m.nLayers;
  size.recMax1 =
      m.GlobalRecType == kReceiversByWavelength || m.GlobalRecType == kFixedReceivers ? m.GlobalRecType : 0;
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
  if (VariesH(modelParm)) size.nModel += m.nLayers - 1;
  if (VariesVs(modelParm)) size.nModel += m.nLayers;
  course.iPriorIter = 0;
  course.ampScale = 1.0;
  return size;
}

Refusal SizeRun(Run& run, const ModelRecord& settings, int modelParm) {
  const std::string complaint = CheckRunSettings(settings);
  if (!complaint.empty()) return complaint;
  const RunSizes size = FS_InitVars(settings, modelParm, run.course);
  if (DoublesOf(size) > kMaxRunDoubles)
    return FormatText(
        "A run with %d layers, %d points of the global curve and %d points of %d array curves is too "
        "large.",
        size.nLayersCur, size.nDispG, size.nPoints, size.recMax2 - kBuiltInSetups);
  // Whole parts are replaced, after the memory for all of them was allocated.
  LayeredGround ground(size.nLayersCur);
  Parameters parameters = SizedParameters(size);
  NumberModelMap(parameters, size.nLayersCur, modelParm);
  Observations observations = SizedObservations(size);
  Receivers receivers = SizedReceivers(size);
  Update update;
  update.deltaModel = OffsetVector<double>(1, size.nModel);
  run.ground = std::move(ground);
  run.parameters = std::move(parameters);
  run.observations = std::move(observations);
  run.receivers = std::move(receivers);
  run.update = std::move(update);
  return {};
}

// The blocks own the storage: these functions mark points in the life of a run and have nothing to do.
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

void FS_AllocateModelInfo(Parameters& parameters, int which, int n) {
  if (which == 1) parameters.modelMapStride = std::clamp(n, 0, parameters.ModelMap.size() / kQuantities);
  if (which == 2) parameters.nModelParm = std::clamp(n, 0, parameters.rModel.size());
}

void FS_AllocateRecSetup(Receivers& receivers, int n) {
  receivers.nRecSetups =
      std::clamp(n + kBuiltInSetups, kBuiltInSetups, std::max(receivers.rec1Loc.size(), kBuiltInSetups));
}

void FS_AllocateStrataPropLayer(StrataTables& s, int n) {
  s.nStrata = std::clamp(n, 0, kMaxRunLayers);
  s.top = s.H = s.Vs = s.Vp = s.G = s.E = s.rho = s.nu = s.damp = OffsetVector<double>(1, s.nStrata);
  s.iPoissonGiven = s.iDensityDerived = OffsetVector<int>(1, s.nStrata);
}

void FS_DeAllocateStrataPropLayer(StrataTables& s) {
  s.nStrata = 0;
  s.top = s.H = s.Vs = s.G = s.E = s.rho = s.nu = s.damp = {};
  s.iPoissonGiven = s.iDensityDerived = {};
}

void FS_AllocateStrataModelInfo(StrataTables& strata, int n) {
  strata.modelMap = OffsetVector<int>(1, kQuantities * std::clamp(n, 0, kMaxRunLayers));
}

void FS_DeAllocateStrataModelInfo(StrataTables& strata) {
  strata.modelMap = {};
}

}  // namespace sondera
