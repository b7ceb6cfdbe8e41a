// measured_curves.cpp - see measured_curves.h.
#include "run/measured_curves.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "records/measdb.h"
#include "records/settings_capacity.h"
#include "runtime/text_format.h"
#include "runtime/text_reader.h"
#include "signal/rep_curves.h"

namespace sondera {
namespace {

constexpr const char* kNoReceivers = "Please configure the receiver setup.";
constexpr const char* kBadReceivers = "Please configure the receiver setup properly.";
constexpr const char* kSeparators = ",\t\n";
constexpr double kSameFrequency = 1e-9;  // relative; rows of a common grid are equal to the last bit

/// Number of valid points.
int Points(const DispInfo& curve) {
  return std::clamp(curve.nPoints, 0, std::min({curve.freq.hi(), curve.vel.hi(), curve.wlen.hi()}));
}

MeasuredPoints CopyOf(const DispInfo& gd) {
  MeasuredPoints curve;
  for (int i = 1; i <= Points(gd); ++i) {
    curve.vel.push_back(gd.vel[i]);
    curve.freq.push_back(gd.freq[i]);
    curve.wlen.push_back(gd.wlen[i]);
  }
  return curve;
}

int NextInt(Tokenizer& tokens) {
  const auto token = tokens.Next();
  return token ? ParseInt(*token) : 0;
}

/// The pairs of the receiver lines, with the array curve of each or null.
std::vector<const DispInfo*> CurvesOfPairs() {
  std::vector<const DispInfo*> curves;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    std::string projID, measID;
    if (IncludedPoints(pair) == 0 || !GetIDfromKey(pair.key, projID, measID)) continue;
    DispInfo* ad = nullptr;
    curves.push_back(GetADispFromKey(pair.key, pair.refChan, pair.dspChan, ad) > 0 ? ad : nullptr);
  }
  return curves;
}

/// Row of a frequency among the rows, usually where the search begins; -1 when there is none.
int RowOf(const std::vector<double>& freq, int rows, int guess, double f) {
  const auto same = [&](int row) {
    const double g = freq[static_cast<std::size_t>(row)];
    return std::fabs(f - g) <= kSameFrequency * std::fabs(g);
  };
  if (guess < rows && same(guess)) return guess;
  for (int row = 0; row < rows; ++row)
    if (same(row)) return row;
  return -1;
}

/// Points of a curve without a row.
int TakeArrayCurve(ModelRecord& m, const DispInfo& ad, std::size_t column) {
  const std::size_t curves = static_cast<std::size_t>(m.nDispCurves);
  const int n = Points(ad);
  int lost = 0;
  for (int i = n; i >= 1; --i) {
    const int row = RowOf(m.freq, m.nDispPoints, n - i, ad.freq[i]);
    if (row >= 0)
      m.vel[static_cast<std::size_t>(row) * curves + column] = ad.vel[i];
    else if (ad.vel[i] > 0.0)
      ++lost;
  }
  return lost;
}

std::string TakeArrayCurves(ModelRecord& m, int& lost) {
  std::vector<const DispInfo*> list = CurvesOfPairs();
  list.resize(static_cast<std::size_t>(m.nDispCurves), nullptr);
  const auto first = std::find_if(list.begin(), list.end(), [](const DispInfo* ad) { return ad != nullptr; });
  const int points = first == list.end() ? 0 : Points(**first);
  std::string complaint = ReserveArrayCurves(m, points);
  if (!complaint.empty()) return complaint;
  for (int i = points; i >= 1; --i) m.freq[static_cast<std::size_t>(points - i)] = (*first)->freq[i];
  for (std::size_t c = 0; c < list.size(); ++c)
    if (list[c]) lost += TakeArrayCurve(m, *list[c], c);
  return "";
}

}  // namespace

void TakeGlobalCurve(ModelRecord& m, const MeasuredPoints& curve) {
  const int n = static_cast<int>(curve.vel.size());
  ReservePoints(m, n);
  m.nDispPointsG = n;
  std::copy(curve.vel.begin(), curve.vel.end(), m.globalVel.begin());
  std::copy(curve.freq.begin(), curve.freq.end(), m.globalFreq.begin());
  std::copy(curve.wlen.begin(), curve.wlen.end(), m.globalWlen.begin());
  if (n > 0) {
    const auto [low, high] = std::minmax_element(curve.wlen.begin(), curve.wlen.end());
    m.xMinGlobal = *low;
    m.xMaxGlobal = *high;
  }
  m.xDomainType = 1;
}

std::string TakeReceivers(ModelRecord& m, const std::string& line1, const std::string& line2) {
  Tokenizer places(line1, kSeparators);
  const int receivers = NextInt(places);
  if (receivers < 1) return kNoReceivers;
  std::string complaint = CheckArrayCounts(0, 0, receivers);
  if (!complaint.empty()) return complaint;
  ReserveReceivers(m, receivers);
  m.nReceivers = receivers;
  for (std::size_t r = 0; r < static_cast<std::size_t>(receivers); ++r) {
    const auto token = places.Next();
    if (!token) return kBadReceivers;
    m.recLoc[r] = ParseReal(*token);
    if (r > 0 && !(m.recLoc[r] >= m.recLoc[r - 1])) return kBadReceivers;
  }

  Tokenizer pairs(line2, kSeparators);
  const int curves = NextInt(pairs);
  complaint = CheckArrayCounts(0, curves, receivers);
  if (!complaint.empty()) return complaint;
  ReservePairs(m, curves);
  m.nDispCurves = curves;
  for (std::size_t c = 0; c < static_cast<std::size_t>(curves); ++c) {
    const auto token = pairs.Next();
    if (!token) return kBadReceivers;
    std::size_t used = 0;
    m.pairRec1[c] = ParseInt(*token, &used);
    m.pairRec2[c] = ParseInt(token->substr(used));
    if (m.pairRec1[c] < 0 || m.pairRec2[c] < 0) return kBadReceivers;
  }
  return "";
}

/// Ratio of a geometric grid between the limits, and the range of each pair.
void FinishArrayCurves(ModelRecord& m) {
  const std::size_t points = static_cast<std::size_t>(m.nDispPoints);
  const std::size_t curves = static_cast<std::size_t>(m.nDispCurves);
  for (std::size_t p = 0; p < points; ++p)
    for (std::size_t c = 0; c < curves; ++c)
      m.wlen[p * curves + c] = m.freq[p] != 0.0 ? m.vel[p * curves + c] / m.freq[p] : 0.0;

  if (points > 0) {
    const auto end = m.freq.begin() + static_cast<std::ptrdiff_t>(points);
    const auto [low, high] = std::minmax_element(m.freq.begin(), end);
    if (*low > 0.0) m.incRatio = std::pow(*high / *low, 1.0 / (m.nDispPoints - 1));
  }

  for (std::size_t c = 0; c < curves; ++c) {
    double low = 1e35, high = 0.0;
    for (std::size_t p = 0; p < points; ++p) {
      if (!(m.vel[p * curves + c] > 0.0)) continue;
      low = std::min(low, m.freq[p]);
      high = std::max(high, m.freq[p]);
    }
    if (high == 0.0) continue;  // no velocity: the pair keeps its limits
    m.pairMin[c] = low;
    m.pairMax[c] = high;
  }
}

std::string ReserveArrayCurves(ModelRecord& m, int points) {
  std::string complaint = CheckArrayCounts(points, m.nDispCurves, m.nReceivers);
  if (!complaint.empty()) return complaint;
  ReservePoints(m, points);
  ReserveCurves(m, points, m.nDispCurves);
  m.nDispPoints = points;
  for (auto table : {&ModelRecord::vel, &ModelRecord::wlen})
    std::fill((m.*table).begin(), (m.*table).end(), 0.0);
  return "";
}

void MarkAsData(ModelRecord& m, Switches& switches) {
  m.DispCurvInfo = 1;
  switches.iHaveData = 1;
}

Refusal TakeCurvesInMemory(ModelRecord& m, Switches& switches, int& leftOut) {
  leftOut = 0;
  if (MeasDB.gDispList.empty()) return "No dispersion curves available in memory.";
  for (const DispInfo& gd : MeasDB.gDispList) TakeGlobalCurve(m, CopyOf(gd));
  if (MeasDB.aDispList.empty()) return Refusal::WithoutReason();

  std::string line1, line2;
  GetReceiverArrays(line1, line2);
  std::string complaint = ReceiverLinesFault();
  if (complaint.empty()) complaint = TakeReceivers(m, line1, line2);
  if (complaint.empty()) complaint = TakeArrayCurves(m, leftOut);
  if (!complaint.empty()) return complaint;
  FinishArrayCurves(m);
  MarkAsData(m, switches);
  return {};
}

}  // namespace sondera
