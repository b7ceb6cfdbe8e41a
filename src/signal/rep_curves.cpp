// rep_curves.cpp - global and array representative curves out of the included pair curves. Owns no state.
#include "signal/rep_curves.h"

#include <algorithm>
#include <cmath>

#include "numeric/sort.h"
#include "records/curve_labels.h"
#include "records/measurement_rules.h"
#include "records/session.h"
#include "runtime/text_format.h"
#include "signal/rep_curve_fit.h"

namespace sondera {
namespace {

/// Rows of a new curve: abscissa, value, deviation.
struct Rows {
  explicit Rows(int n) : x(1, n), value(1, n), deviation(1, n) {}
  OffsetVector<double> x, value, deviation;
};

/// Points of curves, counting from 1.
struct GatheredPoints {
  explicit GatheredPoints(int capacity) : x(1, capacity), value(1, capacity) {}
  /// Copies the first n of both; missing values count as 0.
  void append(const std::vector<double>& xs, const std::vector<double>& values, int n) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i) {
      ++count;
      x[count] = xs[i];
      value[count] = i < values.size() ? values[i] : 0.0;
    }
  }
  int count = 0;
  OffsetVector<double> x, value;
};

struct CurveTotals {
  int curves = 0, points = 0, largest = 0;
};

CurveTotals CountCurves() {
  CurveTotals totals;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    const int n = IncludedPoints(pair);
    if (n == 0) continue;
    ++totals.curves;
    totals.points += n;
    totals.largest = std::max(totals.largest, n);
  }
  return totals;
}

bool From1To(int value, int most) {
  return value >= 1 && value <= most;
}

std::string TermsFault(const std::string& whose) {
  return FormatText("The number of polynomial terms of %s must be from 1 to %d.", whose.c_str(),
                    kMaxPolyTerms);
}

/// Fault in the settings of the global fit, "" for none.
std::string GlobalFault() {
  const CDispSettings& p = CDispParam;
  if (!From1To(p.nPointsG, kMaxRepPoints))
    return FormatText("The number of points of the representative curve must be from 1 to %d.",
                      kMaxRepPoints);
  if (p.nSpanG < 1) return "The number of windows in the range must be 1 or more.";
  if (!From1To(p.globalPolyOrder, kMaxPolyTerms)) return TermsFault("the global curve");
  const bool named = p.incRatioG == kLinearSpacing || p.incRatioG == kLogSpacing;
  if (!named && !(p.incRatioG > 0.0 && std::isfinite(std::pow(p.incRatioG, p.nPointsG))))
    return "The ratio of the spacing is not above 0, or too large for so many points.";
  return "";
}

/// The same for the fits of the pairs.
std::string ArrayFault() {
  const CDispSettings& p = CDispParam;
  if (!From1To(p.nPointsA, kMaxRepPoints))
    return FormatText("The number of points of an array curve must be from 1 to %d.", kMaxRepPoints);
  if (p.nSpanA < 1) return "The number of windows in the range must be 1 or more.";
  if (!From1To(p.arrayPolyOrder, kMaxPolyTerms)) return TermsFault("the array curves");
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (IncludedPoints(pair) > 0 && pair.polyOrderA > kMaxPolyTerms)
      return TermsFault(RepCurveLabel(pair.key, pair.refChan, pair.dspChan, 1));
  return "";
}

/// Fit, or plain copy, of all included curves over the abscissa of avgDomain.
Rows CondenseAll(double xMin, double xMax, int takeAll, int points) {
  const CDispSettings& p = CDispParam;
  const bool overFrequency = p.avgDomain == 1;
  GatheredPoints in(points);
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    in.append(overFrequency ? pair.dispFreq : pair.dispWlen, pair.dispVel, IncludedPoints(pair));

  Rows rows(std::max(p.nPointsG, 0));
  if (takeAll == 1) {
    rows.x = std::move(in.x);
    rows.value = std::move(in.value);
  } else if (overFrequency) {
    CompactDsp_f(rows.x.shifted(), rows.value.shifted(), rows.deviation.shifted(), xMin, xMax, p.nPointsG,
                 p.nSpanG, p.globalPolyOrder, in.count, in.x.shifted(), in.value.shifted(), kCellsBySpacing,
                 p.incRatioG, nullptr);
  } else {
    CompactDsp_w(rows.x.shifted(), rows.value.shifted(), rows.deviation.shifted(), xMin, xMax, p.nPointsG,
                 p.nSpanG, p.globalPolyOrder, in.count, in.x.shifted(), in.value.shifted(), kCellsBySpacing,
                 p.incRatioG);
  }
  return rows;
}

/// Fit of one quantity of a pair at the frequencies of the grid.
Rows CondensePair(const PMeasInfo& pair, const std::vector<double>& quantity, int points, int n, double fMin,
                  double fMax, const OffsetVector<double>& grid) {
  const CDispSettings& p = CDispParam;
  GatheredPoints in(points);
  in.append(pair.dispFreq, quantity, points);
  Rows rows(n);
  // A pair that was added while the panel was open has no number of its own yet.
  const int terms = pair.polyOrderA > 0 ? pair.polyOrderA : p.arrayPolyOrder;
  CompactDsp_f(rows.x.shifted(), rows.value.shifted(), rows.deviation.shifted(), fMin, fMax, n, p.nSpanA,
               terms, in.count, in.x.shifted(), in.value.shifted(), kCellsByGrid, p.incRatioA,
               grid.shifted());
  return rows;
}

Rows CopyPair(const PMeasInfo& pair, const std::vector<double>& quantity, int points) {
  GatheredPoints in(points);
  in.append(pair.dispFreq, quantity, points);
  Rows rows(points);
  rows.x = std::move(in.x);
  rows.value = std::move(in.value);
  return rows;
}

void StoreArrayCurve(DispInfo& ad, const Rows& velocity, const Rows& amplitude) {
  SetupDispArrays(ad, velocity.x.size());
  int kept = 0;
  for (int i = 1; i <= velocity.x.size(); ++i) {
    if (!(velocity.value[i] >= 0.0)) continue;
    ++kept;
    ad.freq[kept] = velocity.x[i];
    ad.vel[kept] = velocity.value[i];
    ad.wlen[kept] = velocity.value[i] / velocity.x[i];
    ad.stat1[kept] = amplitude.value[i];
    ad.stat2[kept] = velocity.deviation[i];
    ad.stat3[kept] = amplitude.deviation[i];
  }
  ad.nPoints = kept;
}

/// Setup of a pair's measurement when the key is known and both channels have a location, else null.
const MeasSetup* LocationsOf(const PMeasInfo& pair) {
  MeasRecords records;
  if (GetInfoFromKey(pair.key, records) == -1 || records.measPos < 0) return nullptr;
  const int channels = static_cast<int>(records.measSetup->recLoc.size());
  const bool known =
      pair.refChan >= 0 && pair.dspChan >= 0 && pair.refChan < channels && pair.dspChan < channels;
  return known ? records.measSetup : nullptr;
}

double LocationOf(const MeasSetup& setup, int channel) {
  return setup.recLoc[static_cast<std::size_t>(channel)];
}

bool HasKnownKey(const PMeasInfo& pair) {
  return pair.key != -1 && MeasDB.idList.findKey(pair.key) > 0;
}

}  // namespace

// ---- settings ---------------------------------------------------------------------------------------

void SetupCDispParameter() {
  CDispParam = CDispSettings{};
}

// ---- averaging --------------------------------------------------------------------------------------

Refusal AverageCurves(int takeAllG, int takeAllA, Listener& listener) {
  std::string fault = takeAllG == 1 ? "" : GlobalFault();
  if (fault.empty() && takeAllA != 1) fault = ArrayFault();
  if (!fault.empty()) return fault;
  listener.Busy(true);
  double fMin = 0.0, fMax = 0.0, wMin = 0.0, wMax = 0.0;
  GetMinMaxDisp(fMin, fMax, wMin, wMax);
  OffsetVector<double> grid;
  const bool overFrequency = CDispParam.avgDomain == 1;
  const int n =
      overFrequency ? AverageDispG(fMin, fMax, takeAllG, grid) : AverageDispG(wMin, wMax, takeAllG, grid);
  if (n != 0) AverageDisp(n, fMin, fMax, takeAllA, grid, listener);
  listener.Busy(false);
  return {};
}

void GetMinMaxDisp(double& fMin, double& fMax, double& wMin, double& wMax) {
  fMin = wMin = 1e10;
  fMax = wMax = -1.0;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    const int n = IncludedPoints(pair);
    for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i) {
      if (!(pair.dispVel[i] > 0.0)) continue;
      fMin = std::min(fMin, pair.dispFreq[i]);
      fMax = std::max(fMax, pair.dispFreq[i]);
      wMin = std::min(wMin, pair.dispWlen[i]);
      wMax = std::max(wMax, pair.dispWlen[i]);
    }
  }
}

int AverageDispG(double xMin, double xMax, int takeAll, OffsetVector<double>& grid) {
  // 1., 2. Available curves.
  const CurveTotals totals = CountCurves();
  if (totals.curves == 0) return 0;
  if (takeAll == 1) CDispParam.nPointsG = totals.points;

  // 3., 4., 5. A new record, and its rows.
  DispInfo* gd = nullptr;
  InitGlobalCDisp(gd);
  const Rows rows = CondenseAll(xMin, xMax, takeAll, totals.points);

  // 6. Drop cells without a value.
  int kept = 0;
  for (int i = 1; i <= rows.x.size(); ++i) {
    const double v = rows.value[i];
    if (!(v > 0.0)) continue;
    ++kept;
    gd->vel[kept] = v;
    gd->stat2[kept] = rows.deviation[i];
    const double x = rows.x[i];
    gd->freq[kept] = CDispParam.avgDomain == 1 ? x : v / x;
    gd->wlen[kept] = CDispParam.avgDomain == 1 ? v / x : x;
  }
  gd->nPoints = kept;

  // 7. Frequencies of the array curves; then the order of the stored curve.
  sort3(kept, gd->freq.shifted(), gd->wlen.shifted(), gd->vel.shifted(), gd->stat2.shifted(), 1);
  grid = OffsetVector<double>(1, kept);
  for (int i = 1; i <= kept; ++i) grid[i] = gd->freq[i];
  sort3(kept, gd->wlen.shifted(), gd->freq.shifted(), gd->vel.shifted(), gd->stat2.shifted(), 1);
  return kept;
}

void AverageDisp(int n, double fMin, double fMax, int takeAll, const OffsetVector<double>& grid,
                 Listener& listener) {
  // 1., 2. Available curves, in the order of the spacing.
  const CurveTotals totals = CountCurves();
  if (totals.curves == 0) return;
  OffsetVector<int> index, chan1, chan2;
  OffsetVector<double> spacing;
  const int nPairs = SearchChannels(index, chan1, chan2, spacing);
  if (takeAll == 1) CDispParam.nPointsA = totals.largest;
  n = std::min(n, grid.hi());

  for (int i = 1; i <= nPairs; ++i) {
    listener.LetEventsIn();
    const PMeasInfo& pair = *MeasDB.pMeasList.at(index[i]);
    const int points = IncludedPoints(pair);
    if (points == 0) continue;
    // 3. The record.
    DispInfo* ad = nullptr;
    InitArrayCDisp(ad, pair.refChan, pair.dspChan, pair.key);
    // 4. to 7. Velocity, amplitude, and the rows of both.
    if (takeAll == 1)
      StoreArrayCurve(*ad, CopyPair(pair, pair.dispVel, points), CopyPair(pair, pair.enAmp, points));
    else
      StoreArrayCurve(*ad, CondensePair(pair, pair.dispVel, points, n, fMin, fMax, grid),
                      CondensePair(pair, pair.enAmp, points, n, fMin, fMax, grid));
  }
}

// ---- records ----------------------------------------------------------------------------------------

int IncludedPoints(const PMeasInfo& pair) {
  if (pair.included != 1 || !HasUsableCurve(pair)) return 0;
  const std::size_t there = std::min({pair.dispVel.size(), pair.dispFreq.size(), pair.dispWlen.size()});
  return std::clamp(pair.nDispPoints, 0, static_cast<int>(there));
}

int SearchChannels(OffsetVector<int>& index, OffsetVector<int>& chan1, OffsetVector<int>& chan2,
                   OffsetVector<double>& spacing) {
  const int capacity = MeasDB.pMeasList.count();
  OffsetVector<double> distance(1, capacity), position(1, capacity);
  int n = 0;
  for (int i = 1; i <= capacity; ++i) {
    const PMeasInfo& pair = *MeasDB.pMeasList.at(i);
    if (IncludedPoints(pair) == 0 || !HasKnownKey(pair)) continue;
    ++n;
    position[n] = i;
    if (const MeasSetup* setup = LocationsOf(pair))
      distance[n] = std::fabs(LocationOf(*setup, pair.dspChan) - LocationOf(*setup, pair.refChan));
  }
  sort3(n, distance.shifted(), position.shifted(), nullptr, nullptr, 1);

  index = chan1 = chan2 = OffsetVector<int>(1, n);
  spacing = OffsetVector<double>(1, n);
  for (int i = 1; i <= n; ++i) {
    index[i] = static_cast<int>(position[i]);
    chan1[i] = MeasDB.pMeasList.at(index[i])->refChan;
    chan2[i] = MeasDB.pMeasList.at(index[i])->dspChan;
    spacing[i] = distance[i];
  }
  return n;
}

void InitArrayCDisp(DispInfo*& ad, int refChan, int dspChan, int key) {
  if (GetADispFromKey(key, refChan, dspChan, ad) < 0) {
    ad = MeasDB.aDispList.append();
    AllocateADispArray(*ad);
  }
  ad->key = key;
  ad->refChan = refChan;
  ad->dspChan = dspChan;
  ad->valid = 1;
  ad->label = RepCurveLabel(key, refChan, dspChan, 1);
}

void InitGlobalCDisp(DispInfo*& gd) {
  FreeDispList(MeasDB.gDispList);
  gd = MeasDB.gDispList.append();
  AllocateGDispArray(*gd);
  gd->refChan = gd->dspChan = 1;
  gd->valid = 1;
  gd->label = session.curProjID;
}

int GetADispFromKey(int key, int refChan, int dspChan, DispInfo*& ad) {
  for (int i = 1; i <= MeasDB.aDispList.count(); ++i) {
    DispInfo* d = MeasDB.aDispList.at(i);
    if (d->key != key || d->refChan != refChan || d->dspChan != dspChan) continue;
    ad = d;
    return i;
  }
  return -1;
}

void AllocateADispArray(DispInfo& ad) {
  SetupDispArrays(ad, CDispParam.nPointsA);
}
void AllocateGDispArray(DispInfo& gd) {
  SetupDispArrays(gd, CDispParam.nPointsG);
}
void ReAllocateADispArray(DispInfo& ad) {
  SetupDispArrays(ad, CDispParam.nPointsA);
}
void ReAllocateGDispArray(DispInfo& gd) {
  SetupDispArrays(gd, CDispParam.nPointsG);
}
void FreeGDispSetupArrays(DispInfo& d) {
  SetupDispArrays(d, 0);
}

// ---- receiver distances -----------------------------------------------------------------------------

std::string ReceiverLinesFault() {
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    if (IncludedPoints(pair) == 0 || !HasKnownKey(pair)) continue;
    const MeasSetup* setup = LocationsOf(pair);
    if (!setup) continue;
    const double d1 = LocationOf(*setup, pair.refChan) - setup->srcLoc;
    const double d2 = LocationOf(*setup, pair.dspChan) - setup->srcLoc;
    if ((d1 < 0.0 && d2 > 0.0) || (d1 > 0.0 && d2 < 0.0))
      return FormatText(
          "The source of %s is between its receivers, so the wave does not travel from one to the other: "
          "leave this pair out.",
          RepCurveLabel(pair.key, pair.refChan, pair.dspChan, 1).c_str());
  }
  return "";
}

void GetReceiverArrays(std::string& line1, std::string& line2) {
  // 1. Distances of both receivers of each pair from the source. The source may be at either end of a line.
  std::vector<std::pair<double, double>> distances;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    if (IncludedPoints(pair) == 0 || !HasKnownKey(pair)) continue;
    const MeasSetup* setup = LocationsOf(pair);
    if (setup)
      distances.emplace_back(std::fabs(LocationOf(*setup, pair.refChan) - setup->srcLoc),
                             std::fabs(LocationOf(*setup, pair.dspChan) - setup->srcLoc));
    else
      distances.emplace_back(0.0, 0.0);
  }

  // 2. The distinct ones.
  const int m = static_cast<int>(distances.size());
  OffsetVector<double> table(1, 2 * m);
  for (const auto& [first, second] : distances) {
    InsertRecLocInArray(table, first);
    InsertRecLocInArray(table, second);
  }

  // 3. Unused slots, which hold 0, come before the first distance above 0.
  if (m > 0) sort1(2 * m, table.shifted());
  int first = 1;
  while (first <= 2 * m && !(table[first] > 0.0)) ++first;

  // 4., 5. The lines.
  line1 = FormatText("%d\t", 2 * m - first + 1);
  for (int i = first; i <= 2 * m; ++i) line1 += FormatText("%lf\t", table[i]);
  line2 = FormatText("%d\t", m);
  for (const auto& [d1, d2] : distances)
    line2 += FormatText("%d  %d\t", ChannelNOofRecLoc(table, d1) - first + 1,
                        ChannelNOofRecLoc(table, d2) - first + 1);
}

void InsertRecLocInArray(OffsetVector<double>& table, double distance) {
  for (double value : table)
    if (value == distance) return;
  for (double& value : table) {
    if (value != 0.0) continue;
    value = distance;
    return;
  }
}

int ChannelNOofRecLoc(const OffsetVector<double>& table, double distance) {
  for (int i = table.lo(); i <= table.hi(); ++i)
    if (table[i] == distance) return i;
  return 1;
}

}  // namespace sondera
