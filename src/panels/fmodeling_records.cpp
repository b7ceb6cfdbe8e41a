// fmodeling_records.cpp - see fmodeling_records.h.
#include "panels/fmodeling_records.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "panels/entry_lists.h"
#include "records/inv_records.h"
#include "records/kinds.h"
#include "records/model_records.h"
#include "records/run_limits.h"
#include "records/session.h"
#include "records/settings_capacity.h"
#include "run/run_state.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/dialogs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using namespace fmodeling;

constexpr int kReceiversAtReset = 8, kPointsAtReset = 50;
constexpr double kFirstReceiver = 0.5;

/// Entry of a vector that may be too short because of a damaged file.
template <class T>
T Entry(const std::vector<T>& v, std::size_t i) {
  return i < v.size() ? v[i] : T{};
}

// ---- layers -----------------------------------------------------------------------------------------

/// A zero anywhere makes the product of a column zero. The product itself is not computed: for many thin
/// layers, or densities in kg/cm3, it would underflow.
bool ProductIsZero(const std::vector<double>& column, int n) {
  return std::find(column.begin(), column.begin() + n, 0.0) != column.begin() + n;
}

bool HasVelocity(const ModelRecord& m, std::size_t i) {
  return (m.Vp[i] != 0.0) + (m.Vs[i] != 0.0) + (m.nu[i] != 0.0) >= 2;
}

// ---- curves -----------------------------------------------------------------------------------------

bool AnyVelocity(const std::vector<double>& v, std::size_t n) {
  n = std::min(n, v.size());
  return std::any_of(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(n),
                     [](double x) { return x != 0.0; });
}

/// Copies a table (point, curve) to another number of curves; new curves have no velocity.
void ChangeCurves(std::vector<double>& table, int points, int from, int to) {
  const std::vector<double> former = table;
  std::fill(table.begin(), table.end(), 0.0);
  for (int p = 0; p < points; ++p)
    for (int c = 0; c < std::min(from, to); ++c) {
      const std::size_t here =
          static_cast<std::size_t>(p) * static_cast<std::size_t>(to) + static_cast<std::size_t>(c);
      const std::size_t there =
          static_cast<std::size_t>(p) * static_cast<std::size_t>(from) + static_cast<std::size_t>(c);
      if (here < table.size()) table[here] = Entry(former, there);
    }
}

void TakeCounts(ModelRecord& m, int points, int curves, int receivers) {
  const int pointsBefore = std::min(m.nDispPoints, points), curvesBefore = m.nDispCurves;
  ReservePoints(m, points);
  ReservePairs(m, curves);
  ReserveReceivers(m, receivers);
  ReserveCurves(m, points, curves);
  if (curves != curvesBefore && curvesBefore > 0) {
    ChangeCurves(m.vel, pointsBefore, curvesBefore, curves);
    ChangeCurves(m.wlen, pointsBefore, curvesBefore, curves);
  }
  m.nDispPoints = points;
  m.nDispCurves = curves;
  m.nReceivers = receivers;
}

/// Where the tables have too few rows the record's own values stay.
void TakeReceivers(ModelRecord& m) {
  const int receivers = std::min(m.nReceivers, GetNumTableRows(RECEIVERLOC));
  for (int r = 1; r <= receivers; ++r)
    m.recLoc[static_cast<std::size_t>(r - 1)] = GetTableCellVal(RECEIVERLOC, r, 1);
}

void TakeReceiversAndPairs(ModelRecord& m) {
  TakeReceivers(m);
  const int pairs = std::min(m.nDispCurves, GetNumTableRows(DISPCURVINFO));
  for (int c = 1; c <= pairs; ++c) {
    const std::size_t i = static_cast<std::size_t>(c - 1);
    m.pairRec1[i] = ToInt(GetTableCellVal(DISPCURVINFO, c, 1));
    m.pairRec2[i] = ToInt(GetTableCellVal(DISPCURVINFO, c, 2));
    m.pairMin[i] = GetTableCellVal(DISPCURVINFO, c, 3);
    m.pairMax[i] = GetTableCellVal(DISPCURVINFO, c, 4);
  }
}

int GetArrayCurves(ModelRecord& m) {
  const int points = GetCtrlVal(NDISPPOINTS), curves = GetCtrlVal(NDISPCURVES);
  const int receivers = GetCtrlVal(NRECEIVERS);
  const std::string complaint = CheckArrayCounts(points, curves, receivers);
  if (!complaint.empty()) return Refuse(complaint);
  TakeCounts(m, points, curves, receivers);
  TakeReceiversAndPairs(m);
  const std::size_t cells = static_cast<std::size_t>(points) * static_cast<std::size_t>(curves);
  if (m.DispCurvInfo > 1 && !AnyVelocity(m.vel, cells))
    return Refuse("Array Rep. Disp. Curve is not available.");
  return 0;
}

int GetGlobalCurve(ModelRecord& m) {
  const int points = GetCtrlVal(NDISPPOINTS);
  if (points < 0 || points > kMaxRunPoints)
    return Refuse(FormatText("The number of points of the global curve is %d. It must be from 0 to %d.",
                             points, kMaxRunPoints));
  ReservePoints(m, points);
  m.nDispPointsG = points;
  m.GlobalRecType = GetCtrlVal(GLOBAL_REC_TYPE);
  if (m.GlobalRecType == kFixedReceivers) {
    m.GlobalRec1Loc = GetCtrlVal(R1_LOC);
    m.GlobalRec2Loc = GetCtrlVal(R2_LOC);
  }
  m.xDomainType = GetCtrlVal(XDOMAIN_TYPE);
  m.xMinGlobal = GetCtrlVal(XMIN);
  m.xMaxGlobal = GetCtrlVal(XMAX);
  if (m.DispCurvInfo > 1 && !AnyVelocity(m.globalVel, static_cast<std::size_t>(points)))
    return Refuse("Global Rep. Disp. Curve is not available.");
  return 0;
}

// ---- panel ------------------------------------------------------------------------------------------

void ShowCurveGroup(bool global) {
  for (const Control* c :
       std::initializer_list<const Control*>{&GLOBAL_REC_TYPE, &R1_LOC, &R2_LOC, &XDOMAIN_TYPE, &XMIN, &XMAX})
    SetVisible(*c, global);
  for (const Control* c :
       std::initializer_list<const Control*>{&NRECEIVERS, &RECEIVERLOC, &NDISPCURVES, &DISPCURVINFO})
    SetVisible(*c, !global);
}

/// Copies the scalars of a fresh record to one that keeps its vectors.
void TakeFirstScalars(ModelRecord& m) {
  ModelRecord first = FirstModel();
  for (auto column : kLayerColumns) first.*column = m.*column;
  for (auto column : kGlobalColumns) first.*column = m.*column;
  for (auto column : {&ModelRecord::recLoc, &ModelRecord::freq, &ModelRecord::vel, &ModelRecord::wlen,
                      &ModelRecord::pairMin, &ModelRecord::pairMax})
    first.*column = m.*column;
  first.pairRec1 = m.pairRec1;
  first.pairRec2 = m.pairRec2;
  m = first;
  ReserveLayers(m, m.capLayers);
  ReserveReceivers(m, m.capRec);
  ReservePairs(m, m.capPairs);
  ReservePoints(m, m.capPoints);
  ReserveCurves(m, m.capCurve, 1);
}

}  // namespace

int CheckLayerTable(const ModelRecord& m) {
  if (ProductIsZero(m.thickness, m.nLayers)) return Refuse("Invalid value of thickness !");
  for (std::size_t i = 0; i < static_cast<std::size_t>(m.nLayers); ++i)
    if (!HasVelocity(m, i)) return Refuse("Invalid value of Vp, Vs or Poisson's Ratio !");
  if (ProductIsZero(m.density, m.nLayers)) return Refuse("Invalid value of mass density !");
  return 0;
}

void GetAnalysisAndMesh() {
  ModelRecord& m = FModelParam;
  m.analysis = GetCtrlVal(ANALYSISTYPE);
  m.nSubLayers = GetCtrlVal(E3D_NSUBL);
  m.fDispBulb = GetCtrlVal(E3D_FDB);
  run.switches.fDispBulb = m.fDispBulb;
  run.switches.iDispSource = m.dispCurvType;
}

int GetFModelParam_AS() {
  GetAnalysisAndMesh();
  ModelRecord& m = FModelParam;
  const int rows = GetNumTableRows(SOILPROFILE);
  ReserveLayers(m, rows);
  m.nLayers = rows;
  for (int row = 1; row <= rows; ++row)
    for (std::size_t k = 0; k < kLayerColumns.size(); ++k)
      (m.*kLayerColumns[k])[static_cast<std::size_t>(row - 1)] =
          GetTableCellVal(SOILPROFILE, row, static_cast<int>(k) + 1);
  return CheckLayerTable(m);
}

int GetFModelParam_R() {
  ModelRecord& m = FModelParam;
  const int receivers = GetCtrlVal(NRECEIVERS);
  const std::string complaint = CheckArrayCounts(0, 0, receivers);
  if (!complaint.empty()) return Refuse(complaint);
  ReserveReceivers(m, receivers);
  m.nReceivers = receivers;
  TakeReceivers(m);
  return 0;
}

int GetFModelParam_RD() {
  ModelRecord& m = FModelParam;
  m.dispCurvType = GetCtrlVal(GLOBAL_ARRAY);
  m.incRatio = GetCtrlVal(INCRATIO);
  run.switches.iDispSource = m.dispCurvType;
  return m.dispCurvType == kArrayCurves ? GetArrayCurves(m) : GetGlobalCurve(m);
}

void SetFModelParam() {
  SetFModelParam_AS();
  SetFModelParam_R();
  SetFModelParam_D();
}

void SetFModelParam_AS() {
  const ModelRecord& m = FModelParam;
  SetCtrlVal(ANALYSISTYPE, m.analysis);
  SetCtrlVal(E3D_NSUBL, m.nSubLayers);
  SetCtrlVal(E3D_FDB, m.fDispBulb);
  SetCtrlVal(NLAYERS, m.nLayers);
  AdjustTableSize(SOILPROFILE, m.nLayers, "L");
  for (int row = 1; row <= GetNumTableRows(SOILPROFILE); ++row)
    for (std::size_t k = 0; k < kLayerColumns.size(); ++k)
      SetTableCellVal(SOILPROFILE, row, static_cast<int>(k) + 1,
                      Entry(m.*kLayerColumns[k], static_cast<std::size_t>(row - 1)));
}

void SetFModelParam_R() {
  const ModelRecord& m = FModelParam;
  SetCtrlVal(NRECEIVERS, m.nReceivers);
  AdjustTableSize(RECEIVERLOC, m.nReceivers, "R");
  for (int row = 1; row <= GetNumTableRows(RECEIVERLOC); ++row)
    SetTableCellVal(RECEIVERLOC, row, 1, Entry(m.recLoc, static_cast<std::size_t>(row - 1)));
}

void SetFModelParam_D() {
  const ModelRecord& m = FModelParam;
  SetCtrlVal(GLOBAL_ARRAY, m.dispCurvType);
  SetCtrlVal(INCRATIO, m.incRatio);
  SetCtrlVal(NDISPPOINTS, m.dispCurvType == kGlobalCurve ? m.nDispPointsG : m.nDispPoints);
  SetCtrlVal(GLOBAL_REC_TYPE, m.GlobalRecType);
  SetCtrlVal(R1_LOC, m.GlobalRec1Loc);
  SetCtrlVal(R2_LOC, m.GlobalRec2Loc);
  SetCtrlVal(XDOMAIN_TYPE, m.xDomainType);
  SetCtrlVal(XMIN, m.xMinGlobal);
  SetCtrlVal(XMAX, m.xMaxGlobal);
  ShowDomainLabels(m.xDomainType);
  SetCtrlVal(NDISPCURVES, m.nDispCurves);
  AdjustTableSize(DISPCURVINFO, m.nDispCurves, "D");
  ShowPairs();
  ShowCurveGroup(m.dispCurvType == kGlobalCurve);
}

void ShowPairs() {
  const ModelRecord& m = FModelParam;
  for (int row = 1; row <= GetNumTableRows(DISPCURVINFO); ++row) {
    const std::size_t i = static_cast<std::size_t>(row - 1);
    SetTableCellVal(DISPCURVINFO, row, 1, Entry(m.pairRec1, i));
    SetTableCellVal(DISPCURVINFO, row, 2, Entry(m.pairRec2, i));
    SetTableCellVal(DISPCURVINFO, row, 3, Entry(m.pairMin, i));
    SetTableCellVal(DISPCURVINFO, row, 4, Entry(m.pairMax, i));
  }
}

void AdjustTableSize(const TableControl& table, int n, std::string_view prefix) {
  SetNumTableRows(table, n);
  const std::string start(prefix);
  for (int row = 1; row <= GetNumTableRows(table); ++row)
    SetTableRowLabel(table, row, FormatText("%s%d", start.c_str(), row));
}

void SetDispCurveType() {
  FModelParam.dispCurvType = GetCtrlVal(GLOBAL_ARRAY);
  ShowCurveGroup(FModelParam.dispCurvType == kGlobalCurve);
}

void ShowDomainLabels(int xDomainType) {
  SetCtrlLabel(XMIN, xDomainType == 2 ? "Min. Freq. : " : "Min. WaveL : ");
  SetCtrlLabel(XMAX, xDomainType == 2 ? "Max. Freq. : " : "Max. WaveL : ");
}

void ResetFModel_D() {
  ModelRecord& m = FModelParam;
  if (m.nReceivers > 0) {
    InitializeFModel();
    ClearEntryLists();
    InitializeTheoDispInfo();
    InitializeInvAnal();
  } else {
    TakeFirstScalars(m);
  }
  m.nReceivers = kReceiversAtReset;
  ReserveReceivers(m, m.nReceivers);
  double location = kFirstReceiver;
  for (std::size_t i = 0; i < kReceiversAtReset; ++i, location *= 2.0) m.recLoc[i] = location;
  m.dispCurvType = kArrayCurves;
  m.DispCurvInfo = 0;
  m.nDispPoints = m.nDispPointsG = kPointsAtReset;
}

}  // namespace sondera
