// fit_curves.cpp - see fit_curves.h.
#include "report/fit_curves.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "records/inv_records.h"
#include "records/model_records.h"
#include "run/result_entries.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

double At(const std::vector<double>& v, int i) {
  return i >= 0 && static_cast<std::size_t>(i) < v.size() ? v[static_cast<std::size_t>(i)] : 0.0;
}

void AddPoint(ReportCurve& curve, double vel, double freq, double wlen) {
  if (!(vel > 0.0)) return;
  curve.vel.push_back(vel);
  curve.freq.push_back(freq);
  curve.wlen.push_back(wlen);
}

/// Distances of a pair's receivers from the source.
std::string PlacesOfCurve(const ModelRecord& m, int curve) {
  const auto at = static_cast<std::size_t>(curve);
  if (at >= m.pairRec1.size() || at >= m.pairRec2.size()) return {};
  const double first = At(m.recLoc, m.pairRec1[at] - 1), second = At(m.recLoc, m.pairRec2[at] - 1);
  return first != second ? FormatText("%.6g to %.6g", first, second) : std::string();
}

}  // namespace

std::vector<ReportCurve> MeasuredCurves() {
  const ModelRecord& m = FModelParam;
  const bool global = StoredIsGlobal();
  const int count = global ? 1 : std::clamp(m.nDispCurves, 0, static_cast<int>(m.vel.size()));
  std::vector<ReportCurve> curves(static_cast<std::size_t>(count));
  if (!global)
    for (int c = 0; c < count; ++c) curves[static_cast<std::size_t>(c)].label = PlacesOfCurve(m, c);
  const std::size_t held =
      global ? m.globalVel.size() : m.vel.size() / std::max<std::size_t>(curves.size(), 1);
  const int points = std::clamp(global ? m.nDispPointsG : m.nDispPoints, 0, static_cast<int>(held));
  for (int p = 0; p < points; ++p) {
    for (int c = 0; c < count; ++c) {
      ReportCurve& curve = curves[static_cast<std::size_t>(c)];
      if (global)
        AddPoint(curve, At(m.globalVel, p), At(m.globalFreq, p), At(m.globalWlen, p));
      else
        AddPoint(curve, At(m.vel, p * count + c), At(m.freq, p), At(m.wlen, p * count + c));
    }
  }
  return curves;
}

std::vector<ReportCurve> ComputedCurves(int entry) {
  const InvRecord& r = InvParam;
  const int count = std::clamp(r.nCurves, 1, std::max(r.vel.colHi() + 1, 1));
  const int points = std::min({r.nPoints, r.freq.colHi() + 1, (r.vel.colHi() + 1) / count});
  std::vector<ReportCurve> curves(static_cast<std::size_t>(count));
  for (int p = 0; p < points; ++p)
    for (int c = 0; c < count; ++c)
      AddPoint(curves[static_cast<std::size_t>(c)], r.vel(entry, p * count + c), r.freq(entry, p),
               r.waveL(entry, p * count + c));
  return curves;
}

Residuals ResidualsOf(const ReportCurve& measured, const ReportCurve& computed) {
  Residuals residuals;
  std::size_t next = 0;
  for (std::size_t i = 0; i < measured.freq.size(); ++i) {
    const double freq = measured.freq[i];
    std::size_t at = next;
    while (at < computed.freq.size() && !(std::fabs(computed.freq[at] - freq) <= 1e-9 * std::fabs(freq)))
      ++at;
    if (at == computed.freq.size()) continue;
    next = at + 1;
    residuals.difference.push_back(computed.vel[at] - measured.vel[i]);
    residuals.freq.push_back(freq);
    residuals.wlen.push_back(measured.wlen[i]);
  }
  return residuals;
}

}  // namespace sondera
