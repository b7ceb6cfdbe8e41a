// theo_disp_info.cpp - see theo_disp_info.h.
#include "run/theo_disp_info.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "records/kinds.h"
#include "records/model_records.h"
#include "records/result_capacity.h"

namespace sondera {
namespace {

/// Copies the elements that both vectors have.
template <class T>
void CopyCommon(const std::vector<T>& from, std::vector<T>& to) {
  std::copy_n(from.begin(), std::min(from.size(), to.size()), to.begin());
}

/// Copies a column of a table, which grows where it is too short.
template <class T>
void CopyColumn(const std::vector<T>& from, std::vector<T>& to) {
  if (to.size() < from.size()) to.resize(from.size());
  CopyCommon(from, to);
}

}  // namespace

Refusal MakeTheoDispInfoReady(const ModelRecord& f) {
  ModelRecord& t = TheoDispInfo;
  t.dispCurvType = f.dispCurvType;
  if (f.dispCurvType == kArrayCurves) {
    t.nDispPoints = f.nDispPoints;
    t.nDispCurves = f.nDispCurves;
    t.nDispPointsG = 0;
  } else {
    t.nDispPointsG = f.nDispPointsG;
    t.nDispPoints = 0;
    t.nDispCurves = 1;
  }
  if (Refusal refusal = UpdateTheoDispArray()) return refusal;
  UpdateTheoDispInfo(f);
  return {};
}

void UpdateTheoDispInfo(const ModelRecord& f) {
  ModelRecord& t = TheoDispInfo;
  t.analysis = f.analysis;
  t.nSubLayers = f.nSubLayers;
  t.fDispBulb = f.fDispBulb;
  t.nLayers = f.nLayers;
  t.dispCurvType = f.dispCurvType;
  t.DispCurvInfo = f.DispCurvInfo;
  t.incRatio = f.incRatio;
  t.GlobalRecType = f.GlobalRecType;
  t.GlobalRec1Loc = f.GlobalRec1Loc;
  t.GlobalRec2Loc = f.GlobalRec2Loc;
  t.xDomainType = f.xDomainType;
  t.xMinGlobal = f.xMinGlobal;
  t.xMaxGlobal = f.xMaxGlobal;
  t.nReceivers = f.nReceivers;
  for (auto column : kLayerColumns) CopyColumn(f.*column, t.*column);
  CopyColumn(f.recLoc, t.recLoc);
  for (auto column : {&ModelRecord::pairRec1, &ModelRecord::pairRec2}) CopyColumn(f.*column, t.*column);
  for (auto column : {&ModelRecord::pairMin, &ModelRecord::pairMax}) CopyColumn(f.*column, t.*column);
}

}  // namespace sondera
