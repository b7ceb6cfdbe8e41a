// result_capacity.cpp - see result_capacity.h.
#include "records/result_capacity.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "records/model_records.h"
#include "records/run_limits.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kMostBelieved = kMaxRunPoints * 512;

InvTableSizes SizesOf(const InvRecord& r) {
  return {r.rms.hi(), r.resolution.colHi(), r.freq.colHi(), r.vel.colHi()};
}

bool Holds(const InvTableSizes& has, const InvTableSizes& wanted) {
  return has.entries >= wanted.entries && has.layers >= wanted.layers && has.points >= wanted.points &&
         has.data >= wanted.data;
}

std::string TooLarge(const InvTableSizes& s) {
  return FormatText(
      "Results of %lld entries with %lld layers, %lld points and %lld values of a curve are too large.",
      static_cast<long long>(s.entries), static_cast<long long>(s.layers), static_cast<long long>(s.points),
      static_cast<long long>(s.data));
}

/// Copies all of a table into the beginning of a larger one.
void CopyInto(const OffsetMatrix<double>& from, OffsetMatrix<double>& to) {
  for (int i = from.rowLo(); i <= from.rowHi(); ++i)
    for (int j = from.colLo(); j <= from.colHi(); ++j) to(i, j) = from(i, j);
}

/// Larger tables with the contents of the former ones.
void GrowTables(InvRecord& r, const InvTableSizes& sizes) {
  const InvRecord former = r;
  AllocateInvRecord(r, sizes);
  for (auto table : kModelTables) CopyInto(former.*table, r.*table);
  for (auto table : {&InvRecord::resolution, &InvRecord::freq, &InvRecord::vel, &InvRecord::waveL})
    CopyInto(former.*table, r.*table);
  std::copy(former.rms.begin(), former.rms.end(), r.rms.begin());
}

/// Grows a vector, contents kept. A capacity that is impossible for a valid record is ignored.
template <class T>
void AtLeast(std::vector<T>& v, int n) {
  const std::size_t room = static_cast<std::size_t>(std::clamp(n, 0, kMostBelieved));
  if (v.size() < room) v.resize(room);
}

void Zero(std::vector<double>& v) {
  std::fill(v.begin(), v.end(), 0.0);
}

/// Copies the first n entries, up to the shorter length.
void CopyFirst(const std::vector<double>& from, std::vector<double>& to, double n) {
  const double most = std::min({n, static_cast<double>(from.size()), static_cast<double>(to.size())});
  std::copy_n(from.begin(), static_cast<std::ptrdiff_t>(std::max(most, 0.0)), to.begin());
}

void GrowArrayCurves(ModelRecord& t) {
  const int cells = std::max(t.nDispPoints, 0) * std::max(t.nDispCurves, 0);
  if (t.capCurve < cells) t.capCurve = cells + 1;
  if (t.capPoints < t.nDispPoints) t.capPoints = std::max(2 * t.capPoints, t.nDispPoints);
  for (auto* v : {&t.vel, &t.wlen}) {
    AtLeast(*v, std::min(t.capCurve, cells + 1));
    Zero(*v);
  }
  AtLeast(t.freq, t.capPoints);
  Zero(t.freq);
}

void GrowGlobalCurve(ModelRecord& t) {
  if (t.capPoints < t.nDispPointsG) t.capPoints = t.nDispPointsG + 1;
  for (auto column : kGlobalColumns) {
    AtLeast(t.*column, t.capPoints);
    Zero(t.*column);
  }
}

}  // namespace

// The four rules. The counters come from files: sums and products in double.
Refusal UpdateEntryTables(InvRecord& r) {
  const auto rise = [](double n) { return std::max(n, -1.0) + 1.0; };
  const double data = static_cast<double>(std::max(r.nPoints, 0)) * std::max(r.nCurves, 0);
  double maxEntries = r.maxEntries, maxData = r.maxData, maxLayers = r.maxLayers;
  if (maxEntries < r.nEntries) maxEntries = rise(r.nEntries);
  if (maxData < data) maxData = rise(data);
  if (maxLayers < r.nLayers) maxLayers = rise(r.nLayers);
  if (r.maxPoints < r.nPoints) maxLayers = rise(r.nPoints);
  if ((maxEntries + 1.0) * (maxLayers + maxData + r.nPoints + r.nLayers) > kMaxRunDoubles)
    return Refusal(
        FormatText("Results of %.0f entries with %d layers, %d points and %d curves are too large.",
                   maxEntries, r.nLayers, r.nPoints, r.nCurves));
  const bool rose = maxEntries > r.maxEntries || maxData > r.maxData || maxLayers > r.maxLayers;
  r.maxEntries = static_cast<int>(maxEntries);
  r.maxData = static_cast<int>(maxData);
  r.maxLayers = static_cast<int>(maxLayers);
  const InvTableSizes wanted = TableSizes(r);
  if (rose)
    AllocateInvRecord(r, wanted);
  else if (!Holds(SizesOf(r), wanted))
    GrowTables(r, wanted);
  return {};
}

Refusal FS_UpdateSMParray() {
  return UpdateEntryTables(SMPParam);
}

Refusal FS_UpdateINVarray() {
  return UpdateEntryTables(InvParam);
}

Refusal ReserveEntry(InvRecord& r, int entry, int layers, int points, int curves) {
  const InvTableSizes has = SizesOf(r);
  const std::int64_t data = std::int64_t{std::max(points, 0)} * std::max(curves, 0);
  const InvTableSizes wanted{
      std::max<std::int64_t>(has.entries, entry), std::max<std::int64_t>(has.layers, layers),
      std::max<std::int64_t>(has.points, points), std::max<std::int64_t>(has.data, data)};
  if (Holds(has, wanted)) return {};
  if (wanted.Doubles() > kMaxRunDoubles) return Refusal(TooLarge(wanted));
  GrowTables(r, wanted);
  r.maxEntries = std::max(r.maxEntries, static_cast<int>(wanted.entries));
  r.maxLayers = std::max(r.maxLayers, static_cast<int>(wanted.layers));
  r.maxPoints = std::max(r.maxPoints, static_cast<int>(wanted.points));
  r.maxData = std::max(r.maxData, static_cast<int>(wanted.data));
  return {};
}

Refusal UpdateTheoDispArray() {
  ModelRecord& t = TheoDispInfo;
  const ModelRecord& f = FModelParam;
  const auto beyond = [](int n, int limit) { return n > limit; };
  if (beyond(f.nLayers, kMaxRunLayers) || beyond(std::max(t.nDispPointsG, t.nDispPoints), kMaxRunPoints) ||
      beyond(std::max({t.nDispCurves, f.nDispCurves, f.nReceivers}), kMaxRunCurves) ||
      static_cast<double>(std::max(t.nDispPoints, 0)) * std::max(t.nDispCurves, 0) > kMaxRunDoubles / 8)
    return Refusal(
        FormatText("Theoretical curves for %d layers, %d points of the global curve and %d points of "
                   "%d array curves are too large.",
                   f.nLayers, t.nDispPointsG, t.nDispPoints, t.nDispCurves));
  if (t.dispCurvType == 2) {
    GrowArrayCurves(t);
  } else {
    GrowGlobalCurve(t);
  }
  if (t.capLayers < f.nLayers) {
    t.capLayers = f.nLayers + 1;
    for (auto column : kLayerColumns) (t.*column).assign(static_cast<std::size_t>(t.capLayers), 0.0);
  }
  // Not among the capacities that grow by rule, but copied from the settings right after.
  const int pairs = std::max(t.nDispCurves, f.nDispCurves);
  t.capPairs = std::max(t.capPairs, pairs);
  t.capRec = std::max(t.capRec, f.nReceivers);
  for (auto column : {&ModelRecord::pairRec1, &ModelRecord::pairRec2}) AtLeast(t.*column, t.capPairs);
  for (auto column : {&ModelRecord::pairMin, &ModelRecord::pairMax}) AtLeast(t.*column, t.capPairs);
  AtLeast(t.recLoc, t.capRec);
  AtLeast(t.freq, t.capPoints);
  for (auto column : kGlobalColumns) AtLeast(t.*column, t.capPoints);
  return {};
}

void CopyCurvesToTheoDispInfo() {
  const ModelRecord& f = FModelParam;
  ModelRecord& t = TheoDispInfo;
  for (auto column : kGlobalColumns) CopyFirst(f.*column, t.*column, t.nDispPointsG);
  CopyFirst(f.freq, t.freq, t.nDispPoints);
  const double cells = static_cast<double>(t.nDispPoints) * t.nDispCurves;
  CopyFirst(f.vel, t.vel, cells);
  CopyFirst(f.wlen, t.wlen, cells);
}

}  // namespace sondera
