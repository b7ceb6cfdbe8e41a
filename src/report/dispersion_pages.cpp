// dispersion_pages.cpp - see dispersion_pages.h.
#include "report/dispersion_pages.h"

#include <algorithm>
#include <string>
#include <vector>

#include "plot_ps/plot_ps.h"
#include "records/curve_labels.h"
#include "records/measdb.h"
#include "report/curve_ranges.h"
#include "report/data_text.h"
#include "report/plot_disp_curv.h"
#include "report/sheet.h"

namespace sondera {
namespace {

constexpr float kLegendRight = 12.0f, kLegendLeft = 1.0f;

ReportCurve CurveOf(const DispInfo& d, const std::string& label) {
  const int held = std::min({d.vel.size(), d.freq.size(), d.wlen.size()});
  const int n = std::clamp(d.nPoints, 0, held);
  return {label,
          {d.vel.begin(), d.vel.begin() + n},
          {d.freq.begin(), d.freq.begin() + n},
          {d.wlen.begin(), d.wlen.begin() + n}};
}

std::vector<ReportCurve> ArrayCurves() {
  std::vector<ReportCurve> curves;
  for (const DispInfo& d : MeasDB.aDispList) {
    std::string projID, measID;
    if (CheckADisp(d.key) != 1 || d.nPoints < 1 || !GetIDfromKey(d.key, projID, measID)) continue;
    curves.push_back(CurveOf(d, DispCurveLabel(measID, d.refChan, d.dspChan)));
  }
  return curves;
}

std::vector<ReportCurve> GlobalCurves() {
  std::vector<ReportCurve> curves;
  for (const DispInfo& d : MeasDB.gDispList)
    if (d.nPoints > 0) curves.push_back(CurveOf(d, d.label));
  return curves;
}

/// Shortens a label so that its channels, at its end, stay on the sheet.
std::string LegendText(const std::string& label, float legendX) {
  constexpr float kAxisX = 2.0f, kTextRight = 0.22f, kHeight = 0.25f;
  return PageText(label, LettersToTheEdge(kAxisX + legendX + kTextRight, kHeight), CutAt::front);
}

/// Curves one after another on the present axes.
void DrawCurves(const std::vector<ReportCurve>& curves, CurveDomain domain, bool legendRight) {
  const float legendX = legendRight ? kLegendRight : kLegendLeft;
  const int count = static_cast<int>(curves.size());
  for (int c = 1; c <= count; ++c) {
    const ReportCurve& curve = curves[static_cast<std::size_t>(c - 1)];
    PlotGraf_DispCurv_Log(AbscissaOf(curve, domain).data(), curve.vel.data(),
                          static_cast<int>(curve.vel.size()), true, true,
                          c == 1 ? Axes::drawn : Axes::leftOut, MarkOfCurve(c),
                          RowOfCurve(c, count, legendX, LegendText(curve.label, legendX)));
  }
}

}  // namespace

int CheckADisp(int key) {
  const PMeasInfo* pair = MeasDB.pMeasList.at(MeasDB.pMeasList.findKey(key));
  return pair && pair->included == 1 ? 1 : 0;
}

bool HaveDispersionCurves() {
  return !IncludedCurves().empty();
}

void PrintPsDispCurv(const ReportInput& input) {
  PageFooter(input.projectFile);
  const std::vector<ReportCurve> pairs = IncludedCurves();
  if (pairs.empty()) return;
  const CurveRanges ranges = RangesOfCurves(pairs);
  const auto draw = [&](CurveGraph place, CurveDomain domain, const char* title,
                        const std::vector<ReportCurve>& curves) {
    SetUpCurveGraph(place, domain, title, ranges, input.unitFactor);
    DrawCurves(curves, domain, ranges.legendRight);
  };
  draw(CurveGraph::upper, CurveDomain::wavelength, "Phase-Velocity Dispersion Curve in Wavelength Domain",
       pairs);
  draw(CurveGraph::lower, CurveDomain::frequency, "Phase-Velocity Dispersion Curve in Frequency Domain",
       pairs);

  const std::vector<ReportCurve> array = ArrayCurves(), global = GlobalCurves();
  if (array.empty() && global.empty()) return;
  ps_newpage();
  PageFooter(input.projectFile);
  draw(CurveGraph::upper, CurveDomain::wavelength, "Array Representative Dispersion Curve", array);
  draw(CurveGraph::lower, CurveDomain::wavelength, "Global Representative Dispersion Curve", global);
}

}  // namespace sondera
