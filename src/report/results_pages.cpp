// results_pages.cpp - see results_pages.h.
#include "report/results_pages.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

#include "numeric/scale_arithmetic.h"
#include "plot_ps/plot_ps.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "report/curve_ranges.h"
#include "report/fit_curves.h"
#include "report/graph_axes.h"
#include "report/graph_state.h"
#include "report/plot_disp_curv.h"
#include "report/plot_graf.h"
#include "report/sheet.h"
#include "report/unit_labels.h"
#include "run/result_entries.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

// ---- the strips -----------------------------------------------------------------------------------------

using Column = std::vector<double>;  // of the layers, from 0

/// Layers of an entry, as the strips show them.
struct Profile {
  Column top;  ///< depths of the layers' tops, and the end depth
  Column Vs, Vp, density, nu, resolution, deviation;
  double bottom = 0.0;  ///< end of the depth axis
  int layers() const { return static_cast<int>(Vs.size()); }
};

double NiceMax(double max) {
  double low = 0.0, high = 0.0;
  if (max > 0.0) CalcNiceMinMax(0.0, max, 0, &low, &high);
  return high;
}

/// The end depth; for entries without one, half the thickness of the layer above is used for the half-space.
double EndDepth(int entry, int n) {
  const double end = InvParam.depth(entry, n);
  if (end > 0.0 || n < 2) return end;
  return InvParam.depth(entry, n - 1) + 0.5 * InvParam.H(entry, n - 2);
}

double BottomOf(const Profile& p) {
  constexpr double kShallow = 1.0;
  const int n = p.layers();
  double bottom = p.top.back();
  if (bottom > kShallow && n > 1)
    bottom += 0.5 * (p.top[static_cast<std::size_t>(n - 1)] - p.top[static_cast<std::size_t>(n - 2)]);
  return NiceMax(bottom);
}

Profile ProfileOf(int entry) {
  Profile p;
  const int n = std::min(InvParam.nLayers, InvParam.depth.colHi());
  for (int i = 0; i < n; ++i) {
    p.top.push_back(InvParam.depth(entry, i));
    p.Vs.push_back(InvParam.Vs(entry, i));
    p.Vp.push_back(InvParam.Vp(entry, i));
    p.density.push_back(InvParam.density(entry, i));
    p.nu.push_back(InvParam.nu(entry, i));
    p.resolution.push_back(InvParam.resolution(entry, i));
    p.deviation.push_back(PosteriorDeviation(entry, i));
  }
  if (n < 1) return p;
  p.top.push_back(EndDepth(entry, n));
  p.bottom = BottomOf(p);
  return p;
}

/// Two points a layer.
struct Stairs {
  Column value, depth;
};

Stairs StairsOf(const Profile& p, const Column& column) {
  Stairs stairs;
  for (std::size_t i = 0; i < column.size(); ++i) {
    for (const double depth : {p.top[i], p.top[i + 1]}) {
      stairs.value.push_back(column[i]);
      stairs.depth.push_back(depth);
    }
  }
  return stairs;
}

/// Place and width of a strip, cm.
struct Strip {
  float width, x;
  int divisions;
};

void SetUpStrip(const Strip& strip, const Profile& p, const char* labelX, const char* labelY, double min,
                double max) {
  constexpr float kHeight = 18.0f, kY = 2.5f;
  PG_Init(labelX, labelY, "", false);
  SetAxSize(strip.width, kHeight, strip.x, kY);
  SetTics(strip.divisions, NdivVal(p.bottom), 2, 5);
  SetAxRange(min, max, 0.0, p.bottom);
}

void DrawStairs(const Profile& p, const Column& column, bool showDepth) {
  constexpr float kWidth = 0.5f;
  const Stairs stairs = StairsOf(p, column);
  ps_solid_line();
  ps_line_width(kWidth);
  ps_gray(0.0f);
  PlotGraf(stairs.value.data(), stairs.depth.data(), static_cast<int>(stairs.value.size()), true, true, true,
           showDepth, false, kDepthDown);
}

/// A velocity with its band. A band that extends below 0 is drawn at 0, where the strip ends.
void DrawVelocity(const Strip& strip, const Profile& p, const Column& velocity, const Column& deviation,
                  const char* labelX, const char* labelY) {
  constexpr float kBandWidth = 0.1f, kDash = 0.3f, kSpace = 0.1f;
  constexpr double kDeviations = 2.0;
  Column lower, upper;
  for (std::size_t i = 0; i < velocity.size(); ++i) {
    const double band = kDeviations * deviation[i];
    lower.push_back(std::isfinite(band) ? std::max(velocity[i] - band, 0.0) : band);
    upper.push_back(velocity[i] + band);
  }
  double least = 0.0, most = 0.0, mostUpper = 0.0;
  RangeOf(velocity.data(), p.layers(), least, most);
  RangeOf(upper.data(), p.layers(), least, mostUpper);
  SetUpStrip(strip, p, labelX, labelY, 0.0, NiceMax(std::max(most, mostUpper)));
  DrawStairs(p, velocity, *labelY != '\0');
  ps_line_width(kBandWidth);
  ps_dashed_line(kDash, kSpace, 0.0f);
  for (const Column& side : {lower, upper}) {
    const Stairs stairs = StairsOf(p, side);
    AddLine(stairs.value.data(), stairs.depth.data(), static_cast<int>(stairs.value.size()), true, true,
            kDepthDown);
  }
  ps_solid_line();
}

void DrawColumn(const Strip& strip, const Profile& p, const Column& column, const char* label, double min,
                double max) {
  SetUpStrip(strip, p, label, "", min, max);
  DrawStairs(p, column, false);
}

Column DeviationOfVp(const Profile& p) {
  Column deviation;
  for (std::size_t i = 0; i < p.deviation.size(); ++i)
    deviation.push_back(p.deviation[i] * std::sqrt((2.0 - 2.0 * p.nu[i]) / (1.0 - 2.0 * p.nu[i])));
  return deviation;
}

void DrawStrips(const ReportInput& input, int entry) {
  constexpr Strip kVs = {4.8f, 2.0f, 4}, kVp = {4.8f, 7.0f, 4}, kResolution = {1.3f, 12.0f, 1},
                  kDensity = {1.3f, 13.5f, 1}, kNu = {1.3f, 15.0f, 1};
  constexpr double kLargestNu = 0.5;
  const UnitLabels& labels = LabelsOfUnit(input.unitFactor);
  const Profile p = ProfileOf(entry);
  if (p.layers() < 1) return;
  DrawVelocity(kVs, p, p.Vs, p.deviation, labels.sWaveVelocity, labels.depth);
  DrawVelocity(kVp, p, p.Vp, DeviationOfVp(p), labels.pWaveVelocity, "");
  double least = 0.0, most = 0.0;
  RangeOf(p.resolution.data(), p.layers(), least, most);
  DrawColumn(kResolution, p, p.resolution, "Resol.", 0.0, NiceMax(most));
  RangeOf(p.density.data(), p.layers(), least, most);
  if (least < most) CalcNiceMinMax(least, most, 0, &least, &most);
  DrawColumn(kDensity, p, p.density, "Mass D.", least, most);
  DrawColumn(kNu, p, p.nu, "P.Ratio", 0.0, kLargestNu);
}

// ---- the curves -----------------------------------------------------------------------------------------

std::vector<ReportCurve> WithPoints(std::vector<ReportCurve> curves) {
  std::erase_if(curves, [](const ReportCurve& curve) { return curve.vel.empty(); });
  return curves;
}

struct CurveSet {
  const char* legend;
  float legendY;
  int kind;        ///< of the marks, see CurveMark
  int firstShape;  ///< of curve 1
  std::vector<ReportCurve> curves;
};

void DrawSet(const CurveSet& set, CurveDomain domain, float legendX, Axes axes) {
  bool named = false;
  for (std::size_t c = 0; c < set.curves.size(); ++c) {
    const ReportCurve& curve = set.curves[c];
    const bool first = c == 0 && axes == Axes::drawn;
    if (curve.vel.empty() && !first) continue;
    const LegendRow row = {legendX, set.legendY, named || curve.vel.empty() ? "" : set.legend};
    named = named || !row.text.empty();
    PlotGraf_DispCurv_Log(AbscissaOf(curve, domain).data(), curve.vel.data(),
                          static_cast<int>(curve.vel.size()), true, true, first ? Axes::drawn : Axes::leftOut,
                          {(set.firstShape + static_cast<int>(c)) % kSymbolShapes, set.kind}, row);
  }
}

/// Ranges of the pairs' curves; without one those of the run, and of the entry.
CurveRanges RangesFor(const std::vector<ReportCurve>& measured, const std::vector<ReportCurve>& computed) {
  std::vector<ReportCurve> curves = IncludedCurves();
  if (curves.empty()) curves = WithPoints(measured);
  if (curves.empty()) curves = WithPoints(computed);
  return RangesOfCurves(curves);
}

void DrawFit(const ReportInput& input, int entry) {
  constexpr char kTitle[] = "Experimental vs. Theoretical Dispersion Curves";
  constexpr float kLegendRight = 12.0f, kLegendLeft = 1.0f;
  CurveSet measured{"Experimental", 7.9f, 0, 0, MeasuredCurves()};
  const CurveSet computed{"Theoretical", 7.6f, 1, 1, ComputedCurves(entry)};
  if (measured.curves.empty()) measured.curves.resize(1);  // the axes come with it
  const CurveRanges ranges = RangesFor(measured.curves, computed.curves);
  const float legendX = ranges.legendRight ? kLegendRight : kLegendLeft;
  const auto draw = [&](CurveGraph place, CurveDomain domain) {
    SetUpCurveGraph(place, domain, kTitle, ranges, input.unitFactor);
    SetTics(graph.nDivX, graph.nDivY, 5, 5);
    DrawSet(measured, domain, legendX, Axes::drawn);
    DrawSet(computed, domain, legendX, Axes::leftOut);
  };
  draw(CurveGraph::upper, CurveDomain::wavelength);
  draw(CurveGraph::lower, CurveDomain::frequency);
}

bool IsStored(int entry) {
  return entry >= 0 && entry <= InvParam.rms.hi() && entry <= InvParam.depth.rowHi() &&
         entry <= InvParam.vel.rowHi();
}

std::vector<int> EntriesOf(const ReportInput& input) {
  std::vector<int> entries;
  std::copy_if(input.entries.begin(), input.entries.end(), std::back_inserter(entries),
               [](int entry) { return IsStored(entry) && entry <= std::max(InvParam.nEntries, 0); });
  return entries;
}

}  // namespace

bool HaveResults(const ReportInput& input) {
  return InvParam.nLayers > 0 && !EntriesOf(input).empty();
}

void PrintPsSwavePrf(const ReportInput& input) {
  if (!HaveResults(input)) return PageFooter(input.projectFile);
  bool first = true;
  for (const int entry : EntriesOf(input)) {
    if (!first) ps_newpage();
    first = false;
    PageFooter(input.projectFile);
    PageHeader(FormatText("Iteration No. : %d ....... [RMS Error = %g]", entry, InvParam.rms[entry]));
    DrawStrips(input, entry);
    ps_newpage();
    PageFooter(input.projectFile);
    DrawFit(input, entry);
  }
}

}  // namespace sondera
