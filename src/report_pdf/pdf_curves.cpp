// pdf_curves.cpp - the dispersion curves, and the fit of the profile to them.
#include <algorithm>
#include <cmath>

#include "figure/graph_painter.h"
#include "report/fit_curves.h"
#include "report_pdf/pdf_pages.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kLeftOutColor = 0x999999, kLeftOutMarker = 16;

void NameAxes(GraphModel& graph, const PdfReport& report, bool byWavelength) {
  const std::string unit = UnitSymbol(report.tables.lengthUnit);
  graph.xAxis.logarithmic = true;
  graph.xAxis.label = byWavelength ? "Wavelength" : "Frequency";
  graph.xAxis.unit = byWavelength ? unit : "Hz";
  graph.yAxis.label = "Phase velocity";
  graph.yAxis.unit = unit + "/s";
}

const Column& Abscissa(const CurveTable& curve, bool byWavelength) {
  return byWavelength ? curve.wavelength : curve.frequency;
}

void AddCurve(GraphModel& graph, const Column& x, const Column& y, const PlotLook& look,
              const std::string& legend) {
  PlotModel plot;
  static_cast<PlotLook&>(plot) = look;
  const std::size_t n = std::min(x.size(), y.size());
  plot.x.assign(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(n));
  plot.y.assign(y.begin(), y.begin() + static_cast<std::ptrdiff_t>(n));
  plot.legend = legend;
  graph.plots.push_back(std::move(plot));
}

/// The global curve: the one solid line of the graph, with its deviation on either side.
void AddGlobal(GraphModel& graph, const CurveTable& curve, bool byWavelength) {
  PlotLook look;
  look.color = 0;
  look.width = 2.0;
  AddCurve(graph, Abscissa(curve, byWavelength), curve.velocity, look, "representative curve");
  look.width = 0.6;
  look.dash = LineDash::Dashed;
  for (const double side : {-1.0, 1.0}) {
    Column bound;
    for (std::size_t i = 0; i < curve.velocity.size() && i < curve.velocitySd.size(); ++i)
      bound.push_back(curve.velocitySd[i] > 0.0 ? curve.velocity[i] + side * curve.velocitySd[i] : NAN);
    AddCurve(graph, Abscissa(curve, byWavelength), bound, look,
             side < 0.0 ? "one deviation on each side" : "");
    look.inLegend = false;
  }
}

/// The representative curve of a pair: never solid, and different from five others without colours.
void AddArrayCurve(GraphModel& graph, const CurveTable& curve, bool byWavelength, int number) {
  constexpr LineDash kDashes[] = {LineDash::Dashed, LineDash::DashDotted, LineDash::Dotted};
  PlotLook look = LookOfCurve(number, PlotStyle::Line);
  look.dash = kDashes[number % 3];
  look.width = (number / 3) % 2 == 0 ? 0.9 : 2.0;
  AddCurve(graph, Abscissa(curve, byWavelength), curve.velocity, look,
           FormatText("array %s [%d:%d]", curve.measurement.c_str(), curve.reference, curve.channel));
}

GraphModel DispersionGraph(const PdfReport& report, bool byWavelength) {
  GraphModel graph;
  NameAxes(graph, report, byWavelength);
  int number = 0;
  for (const CurveTable& curve : report.tables.curves) {
    if (curve.kind != "pair") continue;
    PlotLook look = LookOfCurve(number++, PlotStyle::Scatter);
    if (!curve.isIncluded) {
      look.marker = kLeftOutMarker;
      look.color = kLeftOutColor;
    }
    AddCurve(graph, Abscissa(curve, byWavelength), curve.velocity, look,
             FormatText("%s [%d:%d]", curve.measurement.c_str(), curve.reference, curve.channel) +
                 (curve.isIncluded ? "" : ", left out"));
  }
  number = 0;
  for (const CurveTable& curve : report.tables.curves) {
    if (curve.kind == "global") AddGlobal(graph, curve, byWavelength);
    if (curve.kind == "array") AddArrayCurve(graph, curve, byWavelength, number++);
  }
  return graph;
}

// ---- the fit ------------------------------------------------------------------------------------------------------------

bool HasPoints(const std::vector<ReportCurve>& curves) {
  return std::any_of(curves.begin(), curves.end(),
                     [](const ReportCurve& curve) { return !curve.vel.empty(); });
}

/// "measured", with the receivers of the curve where there are several.
std::string FitName(const PdfReport& report, const char* what, std::size_t c) {
  if (report.measured.size() < 2) return what;
  const std::string label = c < report.measured.size() ? report.measured[c].label : "";
  return FormatText("%s, ", what) + (label.empty() ? FormatText("curve %zu", c + 1) : label);
}

GraphModel FitGraph(const PdfReport& report) {
  GraphModel graph;
  NameAxes(graph, report, true);
  graph.title = "Measured and computed";
  const bool several = report.measured.size() > 1;
  for (std::size_t c = 0; c < report.measured.size(); ++c) {
    PlotLook look = LookOfCurve(static_cast<int>(c), PlotStyle::Scatter);
    AddCurve(graph, report.measured[c].wlen, report.measured[c].vel, look, FitName(report, "measured", c));
  }
  for (std::size_t c = 0; c < report.computed.size(); ++c) {
    PlotLook look = LookOfCurve(static_cast<int>(c), PlotStyle::Line);
    if (!several) look.color = 0xD55E00;
    look.width = (c / 4) % 2 == 0 ? 1.2 : 2.4;  // the dashes are used again then
    AddCurve(graph, report.computed[c].wlen, report.computed[c].vel, look, FitName(report, "computed", c));
  }
  return graph;
}

/// Computed minus measured, at the frequencies that both have.
GraphModel ResidualGraph(const PdfReport& report) {
  GraphModel graph;
  NameAxes(graph, report, true);
  graph.title = "Computed less measured";
  graph.yAxis.label = "Difference";
  for (std::size_t c = 0; c < std::min(report.measured.size(), report.computed.size()); ++c) {
    const Residuals residuals = ResidualsOf(report.measured[c], report.computed[c]);
    AddCurve(graph, residuals.wlen, residuals.difference,
             LookOfCurve(static_cast<int>(c), PlotStyle::Scatter), "");
  }
  return graph;
}

GraphModel RmsGraph(const PdfReport& report) {
  GraphModel graph;
  graph.title = "RMS error by iteration";
  graph.xAxis.label = "Iteration";
  graph.yAxis.label = "RMS error";
  graph.yAxis.unit = UnitSymbol(report.tables.lengthUnit) + "/s";
  PlotLook look = LookOfCurve(0, PlotStyle::ConnectedPoints);
  Column x, y;
  double most = 0.0;
  for (const ProfileTable& profile : report.tables.profiles) {
    if (profile.iteration < 0) continue;
    x.push_back(profile.iteration);
    y.push_back(profile.rms);
    if (std::isfinite(profile.rms)) most = std::max(most, profile.rms);
  }
  graph.xAxis.autoScale = graph.yAxis.autoScale = false;
  graph.xAxis.max = x.empty() ? 1.0 : std::max(x.back(), 1.0);
  graph.yAxis.max = most > 0.0 ? 1.1 * most : 1.0;
  if (x.size() > 1 && x.size() < 14) graph.xAxis.divisions = static_cast<int>(graph.xAxis.max);
  AddCurve(graph, x, y, look, "");
  return graph;
}

}  // namespace

PlannedPages DispersionPages(const PdfReport& report) {
  const bool any = std::any_of(report.tables.curves.begin(), report.tables.curves.end(),
                               [](const CurveTable& curve) { return curve.kind != "computed"; });
  if (!any) return {};
  return {{"Dispersion curves", [&report](Canvas& canvas, const Sheet& sheet) {
             const double top = WriteHeading(canvas, sheet, "Dispersion curves");
             const double middle = 0.5 * (top + sheet.bottom);
             DrawGraph(DispersionGraph(report, true), canvas, {sheet.left, top, sheet.right, middle - 8.0});
             DrawGraph(DispersionGraph(report, false), canvas,
                       {sheet.left, middle + 8.0, sheet.right, sheet.bottom});
           }}};
}

PlannedPages FitPages(const PdfReport& report) {
  if (!HasPoints(report.measured) || !HasPoints(report.computed)) return {};
  return {{"Fit", [&report](Canvas& canvas, const Sheet& sheet) {
             const ProfileTable* profile = ReportedProfile(report);
             std::string heading = "Fit";
             if (profile && profile->iteration >= 0)
               heading += ": iteration " + std::to_string(profile->iteration);
             const double top = WriteHeading(canvas, sheet, heading), height = sheet.bottom - top;
             const GraphModel fit = FitGraph(report);
             GraphModel residuals = ResidualGraph(report);
             const AxisLimits limits = LimitsInForce(fit).x;
             residuals.xAxis.autoScale = false;
             residuals.xAxis.min = limits.min;
             residuals.xAxis.max = limits.max;
             GraphStyle style;
             style.leftRoom = 44.0;
             const PixelArea frame =
                 DrawGraph(fit, canvas, {sheet.left, top, sheet.right, top + 0.5 * height}, style);
             style.rightRoom = sheet.right - frame.right;  // in line with the fit beside its legend
             DrawGraph(residuals, canvas, {sheet.left, top + 0.52 * height, sheet.right, top + 0.76 * height},
                       style);
             DrawGraph(RmsGraph(report), canvas, {sheet.left, top + 0.78 * height, sheet.right, sheet.bottom},
                       style);
           }}};
}

}  // namespace sondera
