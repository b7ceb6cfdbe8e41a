// pdf_profile.cpp - the profile over depth, and the table of its layers.
#include <algorithm>
#include <array>
#include <cmath>

#include "figure/graph_painter.h"
#include "numeric/scale_arithmetic.h"
#include "report_pdf/pdf_pages.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kBottomShare = 1.25;  // thickness shown for the half-space
constexpr int kNotSeen = 0x888888;

double BottomOf(const ProfileTable& profile) {
  const double top = profile.layers.empty() ? 0.0 : profile.layers.back().top;
  return std::isfinite(top) && top > 0.0 ? kBottomShare * top : 1.0;
}

double ValueOf(const ProfileLayer& layer, ProfileQuantity quantity) {
  switch (quantity) {
    case ProfileQuantity::Vs:
      return layer.vs;
    case ProfileQuantity::Vp:
      return layer.vp;
    case ProfileQuantity::Density:
      return layer.density;
    case ProfileQuantity::Resolution:
      break;
  }
  return layer.resolution;
}

void AddStairs(GraphModel& graph, const ProfileTable& profile, double bottom, const PlotLook& look,
               const auto& valueOf) {
  PlotModel plot;
  static_cast<PlotLook&>(plot) = look;
  for (std::size_t i = 0; i < profile.layers.size(); ++i) {
    const double end = i + 1 < profile.layers.size() ? profile.layers[i + 1].top : bottom;
    for (const double depth : {profile.layers[i].top, end}) {
      plot.x.push_back(valueOf(profile.layers[i]));
      plot.y.push_back(depth);
    }
  }
  graph.plots.push_back(std::move(plot));
}

double Largest(const GraphModel& graph) {
  double largest = 0.0;
  for (const PlotModel& plot : graph.plots)
    for (const double x : plot.x)
      if (std::isfinite(x)) largest = std::max(largest, x);
  return largest;
}

void SetXAxis(GraphModel& graph, ProfileQuantity quantity, const std::string& unit) {
  struct Name {
    const char *label, *unit;
  };
  constexpr std::array<Name, 4> kNames = {
      {{"Vs", "/s"}, {"Vp", "/s"}, {"Density", ""}, {"Resolution of Vs", ""}}};
  const Name& name = kNames[static_cast<std::size_t>(quantity)];
  graph.xAxis.label = name.label;
  if (*name.unit) graph.xAxis.unit = unit + name.unit;
  graph.xAxis.autoScale = false;
  double low = 0.0, high = 1.0;
  if (quantity != ProfileQuantity::Resolution && Largest(graph) > 0.0)
    CalcNiceMinMax(0.0, 1.05 * Largest(graph), 0, &low, &high);
  graph.xAxis.max = high;
}

std::vector<std::string> RowOf(const ProfileTable& profile, std::size_t i) {
  const ProfileLayer& l = profile.layers[i];
  const bool last = i + 1 == profile.layers.size();
  return {std::to_string(i + 1),
          NumberText(l.top, 2),
          last ? "half-space" : NumberText(l.thickness, 2),
          NumberText(l.vs, 1),
          std::isfinite(l.low) ? NumberText(l.low, 1) + " to " + NumberText(l.high, 1) : "-",
          NumberText(l.resolution, 2),
          NumberText(l.vp, 1),
          NumberText(l.poisson, 3),
          std::isfinite(l.density) ? FormatText("%.5g", l.density) : "-",
          profile.kind != "inverted" ? "-"
          : l.isFixed                ? "fixed"
                                     : "free"};
}

std::vector<TableColumn> ColumnsOf(const std::string& unit) {
  return {{"Layer", 0.7},
          {"Top, " + unit, 0.85},
          {"Thickness, " + unit, 1.4},
          {"Vs, " + unit + "/s", 0.95},
          {"Band, " + unit + "/s", 1.55},
          {"Resolution", 1.25},
          {"Vp, " + unit + "/s", 0.95},
          {"Poisson", 0.95},
          {"Density", 0.95},
          {"Held", 0.75}};
}

std::string TitleOf(const ProfileTable& profile) {
  if (profile.kind == "given") return "Profile: the given model";
  if (profile.kind == "starting") return "Profile: the starting model";
  return "Profile: iteration " + std::to_string(profile.iteration);
}

constexpr double kGraphsHeight = 330.0;

double DepthSeen(const PdfReport& report) {
  return kSeenShare * report.longestWavelength;
}

void DrawGraphs(const PdfReport& report, Canvas& canvas, const Sheet& sheet, double y) {
  constexpr std::array<double, 4> kShares = {1.35, 1.1, 0.9, 0.9};
  double sum = 0.0, from = sheet.left;
  for (const double share : kShares) sum += share;
  for (std::size_t i = 0; i < kShares.size(); ++i) {
    const double width = (sheet.right - sheet.left) * kShares[i] / sum;
    GraphModel graph = ProfileGraph(report, static_cast<ProfileQuantity>(i));
    if (i > 0) graph.yAxis.label.clear();
    if (i > 0) graph.yAxis.unit.clear();
    DrawGraph(graph, canvas, {from, y, from + width - 6.0, y + kGraphsHeight});
    from += width;
  }
}

}  // namespace

std::string ProfileNote(const PdfReport& report) {
  const ProfileTable* profile = ReportedProfile(report);
  std::string note = "Dashed: two standard deviations on each side, by the last step.";
  if (profile && DepthSeen(report) > 0.0 && DepthSeen(report) < BottomOf(*profile))
    note += " Grey: deeper than half the longest wavelength.";
  return note;
}

GraphModel ProfileGraph(const PdfReport& report, ProfileQuantity quantity) {
  GraphModel graph;
  const ProfileTable* profile = ReportedProfile(report);
  const std::string unit = UnitSymbol(report.tables.lengthUnit);
  if (!profile) return graph;
  const double bottom = BottomOf(*profile), seen = DepthSeen(report);
  PlotLook look;
  look.color = 0;
  look.width = 1.6;
  AddStairs(graph, *profile, bottom, look, [&](const ProfileLayer& l) { return ValueOf(l, quantity); });
  if (quantity == ProfileQuantity::Vs) {
    look.width = 0.8;
    look.dash = LineDash::Dashed;
    AddStairs(graph, *profile, bottom, look, [](const ProfileLayer& l) { return l.low; });
    AddStairs(graph, *profile, bottom, look, [](const ProfileLayer& l) { return l.high; });
  }
  SetXAxis(graph, quantity, unit);
  graph.yAxis.label = "Depth";
  graph.yAxis.unit = unit;
  graph.yAxis.reversed = true;
  graph.yAxis.autoScale = false;
  graph.yAxis.max = bottom;
  if (seen > 0.0 && seen < bottom) {
    RectangleModel shade;
    shade.x1 = graph.xAxis.min;
    shade.x2 = graph.xAxis.max;
    shade.y1 = seen;
    shade.y2 = bottom;
    shade.fillColor = kNotSeen;
    graph.rectangles.push_back(shade);
  }
  return graph;
}

PlannedPages ProfilePages(const PdfReport& report) {
  const ProfileTable* profile = ReportedProfile(report);
  if (!profile || profile->layers.empty()) return {};
  constexpr std::size_t kFirstRows = 22, kMoreRows = 48;
  PlannedPages pages;
  for (std::size_t from = 0; from < profile->layers.size();) {
    const bool first = pages.empty();
    const std::size_t to = std::min(profile->layers.size(), from + (first ? kFirstRows : kMoreRows));
    pages.push_back(
        {first ? "Profile" : "", [&report, profile, from, to, first](Canvas& canvas, const Sheet& sheet) {
           double y = WriteHeading(canvas, sheet, TitleOf(*profile) + (first ? "" : ", continued"));
           if (first) {
             DrawGraphs(report, canvas, sheet, y);
             y += kGraphsHeight + 4.0;
             TextLook look;
             look.size = kSmallSize;
             look.color = kFaintInk;
             y = WriteParagraph(canvas, sheet.left, y, sheet.right - sheet.left, ProfileNote(report), look) +
                 8.0;
           }
           std::vector<std::vector<std::string>> rows;
           for (std::size_t i = from; i < to; ++i) rows.push_back(RowOf(*profile, i));
           WriteTable(canvas, sheet.left, y, sheet.right - sheet.left,
                      ColumnsOf(UnitSymbol(report.tables.lengthUnit)), rows);
         }});
    from = to;
  }
  return pages;
}

}  // namespace sondera
