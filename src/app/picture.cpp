// picture.cpp - see picture.h.
#include "app/picture.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "app/show.h"
#include "figure/palette.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();
constexpr int kDot = 18;  // in the list of markers
constexpr int kGrey = 0x888888;
constexpr double kRoom = 1.1;    // beyond the largest value
constexpr double kBelow = 1.25;  // the half-space is drawn down to this multiple of its top depth

PlotModel& Add(GraphModel& graph, PlotStyle style, int color, std::string legend) {
  PlotModel& plot = graph.plots.emplace_back();
  plot.handle = graph.nextHandle++;
  plot.style = style;
  plot.color = color;
  if (style == PlotStyle::Scatter) plot.marker = kDot;
  plot.legend = std::move(legend);
  return plot;
}

void Label(AxisModel& axis, std::string label, std::string unit) {
  axis.label = std::move(label);
  axis.unit = std::move(unit);
}

/// Velocity over wavelength.
void CurveAxes(GraphModel& graph, const std::string& unit) {
  Label(graph.xAxis, "Wavelength", unit);
  Label(graph.yAxis, "Phase velocity", unit + "/s");
  graph.xAxis.logarithmic = true;
  double low = std::numeric_limits<double>::max(), high = 0.0;
  for (const PlotModel& plot : graph.plots)
    for (const double y : plot.y) low = std::min(low, y), high = std::max(high, y);
  graph.yAxis.autoScale = false;
  graph.yAxis.min = std::max(0.0, low - (kRoom - 1.0) * high);
  graph.yAxis.max = kRoom * high;
}

void AddCurve(GraphModel& graph, PlotStyle style, int color, std::string legend,
              const std::vector<GroundPoint>& points) {
  PlotModel& plot = Add(graph, style, color, std::move(legend));
  for (const GroundPoint& p : points) {
    plot.x.push_back(p.wavelength);
    plot.y.push_back(p.velocity);
  }
}

/// The known curve within the range of the others.
void AddKnownCurve(GraphModel& graph, const KnownGround& known) {
  double shortest = std::numeric_limits<double>::max(), longest = 0.0;
  for (const PlotModel& plot : graph.plots)
    for (const double x : plot.x) shortest = std::min(shortest, x), longest = std::max(longest, x);
  std::vector<GroundPoint> points;
  for (const GroundPoint& p : known.curve)
    if (p.wavelength >= shortest && p.wavelength <= longest) points.push_back(p);
  if (!points.empty()) AddCurve(graph, PlotStyle::Line, 0, "known", points);
}

std::string DrawCurves(const ProjectTables& t, const KnownGround& known, GraphModel& graph) {
  int n = 0;
  for (const CurveTable& curve : t.curves)
    if (curve.kind == "pair" && curve.isIncluded && !PointsOf(curve).empty())
      AddCurve(graph, PlotStyle::Scatter, OrderColor(n++), NameOf(curve), PointsOf(curve));
  for (const CurveTable& curve : t.curves)
    if (curve.kind == "global" && !PointsOf(curve).empty())
      AddCurve(graph, PlotStyle::ConnectedPoints, 0, NameOf(curve), PointsOf(curve));
  if (graph.plots.empty()) return "no pair has a dispersion curve";
  AddKnownCurve(graph, known);
  CurveAxes(graph, UnitSymbol(t.lengthUnit));
  return "";
}

/// With array curves there is a computed curve for each pair; a run over the global curve has one.
std::string DrawFit(const ProjectTables& t, const KnownGround& known, GraphModel& graph) {
  const auto count =
      std::count_if(t.curves.begin(), t.curves.end(), [](const auto& c) { return c.kind == "computed"; });
  if (count == 0) return "no curve was computed yet";
  const bool hasArray =
      std::any_of(t.curves.begin(), t.curves.end(), [](const auto& c) { return c.kind == "array"; });
  const std::string measured = count > 1 && hasArray ? "array" : "global";
  const auto add = [&](const std::string& kind, PlotStyle style, int color, const char* legend) {
    bool first = true;
    for (const CurveTable& curve : t.curves)
      if (curve.kind == kind && !PointsOf(curve).empty())
        AddCurve(graph, style, color, std::exchange(first, false) ? legend : "", PointsOf(curve));
  };
  add(measured, PlotStyle::Scatter, OrderColor(1), "measured");
  add("computed", PlotStyle::Scatter, OrderColor(0), "computed");
  if (graph.plots.empty()) return "no computed curve has a velocity";
  AddKnownCurve(graph, known);
  CurveAxes(graph, UnitSymbol(t.lengthUnit));
  return "";
}

// --- profile ---

struct Step {
  double top, bottom, value;
};

void AddStairs(GraphModel& graph, int color, LineDash dash, std::string legend,
               const std::vector<Step>& steps) {
  PlotModel& plot = Add(graph, PlotStyle::Line, color, std::move(legend));
  plot.dash = dash;
  plot.width = dash == LineDash::Solid ? 2.0 : 1.0;
  for (const Step& s : steps) {
    plot.x.insert(plot.x.end(), {s.value, s.value});
    plot.y.insert(plot.y.end(), {s.top, s.bottom});
  }
}

std::vector<Step> StepsOf(const ProfileTable& profile, double ProfileLayer::*value, double end) {
  std::vector<Step> steps;
  for (std::size_t i = 0; i < profile.layers.size(); ++i) {
    const ProfileLayer& l = profile.layers[i];
    const double bottom = i + 1 < profile.layers.size() ? l.top + l.thickness : std::max(end, l.top);
    if (std::isfinite(l.*value)) steps.push_back({l.top, bottom, l.*value});
  }
  return steps;
}

std::string DrawProfileGraph(const ProjectTables& t, const KnownGround& known, GraphModel& graph) {
  const ProfileTable* last = FinalProfile(t);
  if (!last || last->layers.empty()) return "there is no profile and no layer table";
  const double end = std::max(1.0, kBelow * last->layers.back().top);
  const int blue = OrderColor(0);
  for (const ProfileTable& p : t.profiles)
    if (p.iteration == 0 && &p != last)
      AddStairs(graph, kGrey, LineDash::Dashed, "starting model", StepsOf(p, &ProfileLayer::vs, end));
  if (const auto low = StepsOf(*last, &ProfileLayer::low, end); !low.empty()) {
    AddStairs(graph, blue, LineDash::Dashed, "95 % band", low);
    AddStairs(graph, blue, LineDash::Dashed, "", StepsOf(*last, &ProfileLayer::high, end));
  }
  AddStairs(graph, blue, LineDash::Solid, last->kind == "given" ? "layers as given" : "last iteration",
            StepsOf(*last, &ProfileLayer::vs, end));
  std::vector<Step> steps;
  for (const KnownLayer& l : known.layers)
    if (l.top < end)
      steps.push_back({l.top, &l == &known.layers.back() ? end : std::min(end, l.top + l.thickness), l.vs});
  if (!steps.empty()) AddStairs(graph, 0, LineDash::Solid, "known", steps);
  const std::string unit = UnitSymbol(t.lengthUnit);
  Label(graph.xAxis, "Shear-wave velocity", unit + "/s");
  Label(graph.yAxis, "Depth", unit);
  double most = 0.0;
  for (const PlotModel& plot : graph.plots)
    for (const double x : plot.x) most = std::max(most, x);
  graph.xAxis.autoScale = false;
  graph.xAxis.max = kRoom * most;
  graph.yAxis.reversed = true;
  graph.yAxis.autoScale = false;
  graph.yAxis.max = end;
  return "";
}

// --- phase ---

/// The axes end where there are no more data.
void TrimGaps(PlotModel& plot) {
  while (!plot.y.empty() && std::isnan(plot.y.back())) plot.x.pop_back(), plot.y.pop_back();
  const auto first = std::find_if(plot.y.begin(), plot.y.end(), [](double y) { return !std::isnan(y); });
  plot.x.erase(plot.x.begin(), plot.x.begin() + (first - plot.y.begin()));
  plot.y.erase(plot.y.begin(), first);
}

std::string DrawPhases(const ProjectTables& t, GraphModel& graph) {
  int n = 0;
  for (const MeasurementTable& m : t.measurements)
    for (const SpectrumTable& s : m.spectra) {
      if (s.unwrapped.empty() ||
          std::none_of(s.unwrapped.begin(), s.unwrapped.end(), [](double p) { return std::isfinite(p); }))
        continue;
      PlotModel& plot =
          Add(graph, PlotStyle::Line, OrderColor(n++), m.id + FormatText("[%d:%d]", s.reference, s.channel));
      for (std::size_t i = 0; i < std::min(s.frequency.size(), s.unwrapped.size()); ++i) {
        plot.x.push_back(s.frequency[i]);
        plot.y.push_back(i < s.masked.size() && s.masked[i] ? kGap : s.unwrapped[i]);  // a mask is a gap
      }
      TrimGaps(plot);
    }
  if (graph.plots.empty()) return "no pair has a phase that was looked at";
  Label(graph.xAxis, "Frequency", "Hz");
  Label(graph.yAxis, "Unwrapped phase", "degrees");
  return "";
}

}  // namespace

std::string PictureOf(const ProjectTables& tables, const std::string& what, const KnownGround& known,
                      GraphModel& graph) {
  graph = {};
  if (what == "curves") return DrawCurves(tables, known, graph);
  if (what == "fit") return DrawFit(tables, known, graph);
  if (what == "profile") return DrawProfileGraph(tables, known, graph);
  if (what == "phase") return DrawPhases(tables, graph);
  return "\"" + what + "\" is not one of " + std::string(kPictures);
}

}  // namespace sondera
