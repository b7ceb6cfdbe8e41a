// curve_ranges.cpp - see curve_ranges.h.
#include "report/curve_ranges.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "numeric/scale_arithmetic.h"
#include "records/curve_labels.h"
#include "records/measdb.h"
#include "report/graph_axes.h"
#include "report/graph_state.h"
#include "report/unit_labels.h"

namespace sondera {
namespace {

constexpr double kMinSeed = 1e+10, kMaxSeed = 0.0;

bool Counts(double v) {
  return v > 0.0 && !std::isnan(Plottable(v));
}

CurveRanges::Limits LimitsOf(const std::vector<ReportCurve>& curves,
                             std::vector<double> ReportCurve::*column) {
  CurveRanges::Limits limits = {kMinSeed, kMaxSeed};
  for (const ReportCurve& curve : curves) {
    for (const double v : curve.*column) {
      if (!Counts(v)) continue;
      limits.min = std::min(limits.min, v);
      limits.max = std::max(limits.max, v);
    }
  }
  return limits.max > 0.0 ? limits : CurveRanges::Limits{};
}

CurveRanges::Limits Nice(const CurveRanges::Limits& data, bool logarithmic) {
  CurveRanges::Limits nice = data;
  if (data.max > data.min) CalcNiceMinMax(data.min, data.max, logarithmic ? 1 : 0, &nice.min, &nice.max);
  return nice;
}

/// Wavelength of the last point of the last curve with points; 0 without.
double LastWavelength(const std::vector<ReportCurve>& curves) {
  for (auto curve = curves.rbegin(); curve != curves.rend(); ++curve) {
    const auto last = std::find_if(curve->wlen.rbegin(), curve->wlen.rend(), Counts);
    if (last != curve->wlen.rend()) return *last;
  }
  return 0.0;
}

std::size_t PointCount(const PMeasInfo& pair) {
  const std::size_t held = std::min({pair.dispVel.size(), pair.dispFreq.size(), pair.dispWlen.size()});
  return std::min(static_cast<std::size_t>(std::max(pair.nDispPoints, 0)), held);
}

}  // namespace

CurveRanges RangesOfCurves(const std::vector<ReportCurve>& curves) {
  CurveRanges ranges;
  const CurveRanges::Limits wlen = LimitsOf(curves, &ReportCurve::wlen);
  ranges.wlen = Nice(wlen, true);
  ranges.freq = Nice(LimitsOf(curves, &ReportCurve::freq), true);
  ranges.vel = Nice(LimitsOf(curves, &ReportCurve::vel), false);
  const double last = LastWavelength(curves);
  ranges.legendRight = last > 0.0 && std::log10(last) < 0.5 * (std::log10(wlen.min) + std::log10(wlen.max));
  return ranges;
}

std::vector<ReportCurve> IncludedCurves() {
  std::vector<ReportCurve> curves;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    std::string projID, measID;
    const auto n = static_cast<std::ptrdiff_t>(PointCount(pair));
    if (pair.included != 1 || n == 0 || !GetIDfromKey(pair.key, projID, measID)) continue;
    curves.push_back({DispCurveLabel(measID, pair.refChan, pair.dspChan),
                      {pair.dispVel.begin(), pair.dispVel.begin() + n},
                      {pair.dispFreq.begin(), pair.dispFreq.begin() + n},
                      {pair.dispWlen.begin(), pair.dispWlen.begin() + n}});
  }
  return curves;
}

void SetUpCurveGraph(CurveGraph place, CurveDomain domain, const std::string& title,
                     const CurveRanges& ranges, double unitFactor) {
  constexpr float kWidth = 15.0f, kHeight = 9.0f, kLeft = 2.0f, kGap = 2.5f;
  const UnitLabels& labels = LabelsOfUnit(unitFactor);
  const bool overWavelength = domain == CurveDomain::wavelength;
  const CurveRanges::Limits& x = overWavelength ? ranges.wlen : ranges.freq;
  PG_Init(overWavelength ? labels.wavelength : "Frequency, Hz", labels.phaseVelocity, title, false);
  SetAxSize(kWidth, kHeight, kLeft, place == CurveGraph::upper ? kGap + kHeight + kGap : kGap);
  SetTics(NdivVal(x.max), NdivVal(ranges.vel.max), 2, 2);
  SetAxRange(x.min, x.max, ranges.vel.min, ranges.vel.max);
}

const std::vector<double>& AbscissaOf(const ReportCurve& curve, CurveDomain domain) {
  return domain == CurveDomain::wavelength ? curve.wlen : curve.freq;
}

}  // namespace sondera
