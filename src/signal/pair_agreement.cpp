// pair_agreement.cpp - see pair_agreement.h. Owns no state.
#include "signal/pair_agreement.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "records/curve_labels.h"
#include "records/measdb.h"
#include "runtime/doubt_limits.h"
#include "signal/rep_curves.h"

namespace sondera {
namespace {

constexpr double kWindow = 0.1;     // half width of the fitted line, ln wavelength
constexpr double kGridStep = 0.05;  // ln wavelength

/// Points (ln wavelength in m, velocity in m/s), ascending.
using Points = std::vector<std::pair<double, double>>;

/// A curve on the grid: values at multiples of kGridStep, ascending, only within the range of the curve.
struct GridCurve {
  std::string label;
  std::vector<std::pair<long, double>> values;
};

double MetresPerUnit(int key) {
  const int position = MeasDB.measSetupList.findKey(key);
  const double unit = position > 0 ? MeasDB.measSetupList.at(position)->lengthUnit : 1.0;
  return unit > 0.0 ? unit : 1.0;
}

Points PointsOf(const PMeasInfo& pair, int count) {
  const double unit = MetresPerUnit(pair.key);
  Points points;
  for (std::size_t k = 0; k < static_cast<std::size_t>(count); ++k) {
    const double wavelength = pair.dispWlen[k] * unit, velocity = pair.dispVel[k] * unit;
    if (wavelength > 0.0 && std::isfinite(wavelength) && std::isfinite(velocity))
      points.emplace_back(std::log(wavelength), velocity);
  }
  std::sort(points.begin(), points.end());
  return points;
}

/// Velocity at x by the straight line through the points within kWindow; false without points on both sides.
bool ValueAt(const Points& points, double x, double& velocity) {
  const auto first = std::lower_bound(points.begin(), points.end(), std::make_pair(x - kWindow, -HUGE_VAL));
  const auto last = std::upper_bound(first, points.end(), std::make_pair(x + kWindow, HUGE_VAL));
  if (first == last || first->first > x || (last - 1)->first < x) return false;
  const double n = static_cast<double>(last - first);
  double sx = 0.0, sv = 0.0;
  for (auto p = first; p != last; ++p) {
    sx += p->first - x;
    sv += p->second;
  }
  const double mx = sx / n, mv = sv / n;
  double sxx = 0.0, sxv = 0.0;
  for (auto p = first; p != last; ++p) {
    const double d = p->first - x - mx;
    sxx += d * d;
    sxv += d * (p->second - mv);
  }
  velocity = mv - (sxx > 0.0 ? sxv / sxx : 0.0) * mx;
  return std::isfinite(velocity);
}

std::vector<GridCurve> IncludedCurves() {
  std::vector<GridCurve> curves;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    const int count = IncludedPoints(pair);
    if (count == 0 || MeasDB.idList.findKey(pair.key) < 0) continue;
    const Points points = PointsOf(pair, count);
    if (points.empty()) continue;
    GridCurve curve{RepCurveLabel(pair.key, pair.refChan, pair.dspChan, 1), {}};
    double velocity = 0.0;
    for (long k = std::lround(std::ceil(points.front().first / kGridStep));
         static_cast<double>(k) * kGridStep <= points.back().first; ++k)
      if (ValueAt(points, static_cast<double>(k) * kGridStep, velocity))
        curve.values.emplace_back(k, velocity);
    curves.push_back(std::move(curve));
  }
  return curves;
}

/// Largest relative difference of two curves at a shared wavelength, and that wavelength; -1 without one.
double LargestShare(const GridCurve& a, const GridCurve& b, std::size_t& atA, std::size_t& atB) {
  double largest = -1.0;
  for (std::size_t i = 0, j = 0; i < a.values.size() && j < b.values.size();) {
    const auto& [k1, v1] = a.values[i];
    const auto& [k2, v2] = b.values[j];
    if (k1 == k2) {
      const double share = v1 == v2 ? 0.0 : std::fabs(v1 - v2) / (0.5 * std::fabs(v1 + v2));
      if (share > largest) {
        largest = share;
        atA = i;
        atB = j;
      }
    }
    i += k1 <= k2;
    j += k2 <= k1;
  }
  return largest;
}

}  // namespace

PairAgreement AgreementOfPairs() {
  const std::vector<GridCurve> curves = IncludedCurves();
  PairAgreement result;
  for (std::size_t i = 0; i < curves.size(); ++i) {
    for (std::size_t j = i + 1; j < curves.size(); ++j) {
      const GridCurve &a = curves[i], &b = curves[j];
      std::size_t atA = 0, atB = 0;
      const double share = LargestShare(a, b, atA, atB);
      if (share < 0.0) continue;
      ++result.couples;
      result.beyond += share > kDoubtLimits.disagreement;
      if (result.couples > 1 && share <= result.worst.share) continue;
      const auto& [k, v1] = a.values[atA];
      result.worst = {
          a.label, b.label, std::exp(static_cast<double>(k) * kGridStep), v1, b.values[atB].second, share};
    }
  }
  return result;
}

}  // namespace sondera
