// model_records.cpp - see model_records.h.
#include "records/model_records.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "records/mesh_depth.h"

namespace sondera {

ModelRecord FModelParam;
ModelRecord TheoDispInfo;

namespace {

std::size_t Entries(std::int64_t capacity, std::int64_t used = 0) {
  return static_cast<std::size_t>(std::max<std::int64_t>({capacity, used, 0}));
}

}  // namespace

ModelRecord FirstModel() {
  ModelRecord m;
  m.capLayers = 50;
  m.capPairs = 20;
  m.capRec = 16;
  m.capPoints = 200;
  m.capCurve = 4000;
  m.analysis = 3;
  m.nSubLayers = 16;
  m.fDispBulb = kFirstMeshDepth;
  m.nLayers = 10;
  m.dispCurvType = 2;
  m.DispCurvInfo = 1;
  m.incRatio = 1.07;
  m.nDispPointsG = 50;
  m.GlobalRecType = 3;
  m.GlobalRec1Loc = 1.0;
  m.GlobalRec2Loc = 2.0;
  m.xDomainType = 1;
  m.xMinGlobal = 1.0;
  m.xMaxGlobal = 100.0;
  m.nReceivers = 8;
  m.nDispPoints = 50;
  m.nDispCurves = 7;
  m.closingWord1 = 2;
  m.closingWord2 = 12;
  AllocateModelRecord(m);
  double location = 0.5;
  for (double& r : m.recLoc) {
    r = location;
    location *= 2.0;
  }
  for (int i = 0; i < m.capPairs; ++i) {
    m.pairRec1[static_cast<std::size_t>(i)] = i + 1;
    m.pairRec2[static_cast<std::size_t>(i)] = i + 2;
  }
  return m;
}

void AllocateModelRecord(ModelRecord& m) {
  for (auto column : kLayerColumns) (m.*column).assign(Entries(m.capLayers, m.nLayers), 0.0);
  for (auto column : kGlobalColumns) (m.*column).assign(Entries(m.capPoints, m.nDispPointsG), 0.0);
  m.recLoc.assign(Entries(m.capRec, m.nReceivers), 0.0);
  m.freq.assign(Entries(m.capPoints, m.nDispPoints), 0.0);
  const std::int64_t cells = std::int64_t{m.nDispPoints} * m.nDispCurves;
  m.vel.assign(Entries(m.capCurve, cells), 0.0);
  m.wlen.assign(Entries(m.capCurve, cells), 0.0);
  m.pairRec1.assign(Entries(m.capPairs, m.nDispCurves), 0);
  m.pairRec2.assign(Entries(m.capPairs, m.nDispCurves), 0);
  m.pairMin.assign(Entries(m.capPairs, m.nDispCurves), 0.0);
  m.pairMax.assign(Entries(m.capPairs, m.nDispCurves), 0.0);
}

void InitializeFModel() {
  FModelParam = FirstModel();
}

void InitializeTheoDispInfo() {
  TheoDispInfo = FirstModel();
  TheoDispInfo.dispCurvType = 1;
  TheoDispInfo.closingWord1 = 0;
  TheoDispInfo.closingWord2 = 11;
}

void FinalizeFModel() {
  FModelParam = ModelRecord{};
}
void FinalizeTheoDispInfo() {
  TheoDispInfo = ModelRecord{};
}

}  // namespace sondera
