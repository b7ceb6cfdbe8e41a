// theo_disp_info.cpp - see theo_disp_info.h.
#include "run/theo_disp_info.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "records/model_records.h"
#include "records/result_room.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/dialogs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kArrayCurves = 2;

/// Copies what both vectors hold.
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

/// Items of the curve lists: the fixed ones, then one for each pair of array curves, named by its receivers.
void FillCurveLists() {
  const ModelRecord& t = TheoDispInfo;
  ClearListCtrl(exdthd::THDTYPE);
  for (const ListItem& item : exdthd::kTheoretical)
    InsertListItem(exdthd::THDTYPE, -1, item.label, item.value);
  ClearListCtrl(exdthd::ARRAYDISPID);
  for (const ListItem& item : exdthd::kArrayCurves)
    InsertListItem(exdthd::ARRAYDISPID, -1, item.label, item.value);
  if (t.dispCurvType != kArrayCurves) return;
  for (int c = 0; c < t.nDispCurves && static_cast<std::size_t>(c) < t.pairRec1.size(); ++c) {
    const int first = t.pairRec1[static_cast<std::size_t>(c)],
              second = t.pairRec2[static_cast<std::size_t>(c)];
    InsertListItem(exdthd::THDTYPE, -1, FormatText("Theoretical [%d:%d]", first, second), c);
    InsertListItem(exdthd::ARRAYDISPID, -1, FormatText("Array R. [%d:%d]", first, second), c);
  }
}

}  // namespace

int ResetTheoDispInfo() {
  const ModelRecord& f = FModelParam;
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
  if (ShowRefusal(UpdateTheoDispArray()) < 0) return -1;
  UpdateTheoDispInfo();
  FillCurveLists();
  return 0;
}

void UpdateTheoDispInfo() {
  const ModelRecord& f = FModelParam;
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
