// graph_style.cpp - see graph_style.h.
#include "gui/graph_style.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "figure/ticks.h"

namespace sondera {
namespace {

constexpr double kFarthest = 1e200, kClosestToZero = 1e-200;  // well within the range of the plot library
constexpr double kLeastRange = 1e-9;                          // of the larger limit; less is rounding
constexpr std::size_t kMostNames = 24;                        // number of curves in a spoken line
constexpr int kFigures = 6;

std::string Number(double value) {
  return ShortNumber(value, kFigures);
}

std::string Count(std::size_t n, std::string_view what) {
  return std::to_string(n) + " " + std::string(what) + (n == 1 ? "" : "s");
}

void Append(std::string& line, std::string_view part) {
  if (part.empty()) return;
  if (!line.empty()) line += "; ";
  line += part;
}

std::string AxisPhrase(const AxisModel& axis, const AxisLimits& limits, std::string_view nameless) {
  std::string phrase(axis.label.empty() ? nameless : std::string_view(axis.label));
  if (limits.known) phrase += " " + Number(limits.min) + " to " + Number(limits.max);
  if (axis.logarithmic) phrase += ", logarithmic";
  if (axis.reversed) phrase += ", reversed";
  return phrase;
}

std::string CurvesPhrase(const GraphModel& g) {
  std::vector<std::string_view> names;
  std::size_t count = 0;
  for (const PlotModel& plot : g.plots) {
    if (!plot.visible) continue;
    ++count;
    if (!plot.legend.empty()) names.push_back(plot.legend);
  }
  if (count == 0) return g.intensity ? "" : "no curves";
  std::string phrase = Count(count, "curve");
  for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i)
    phrase += (i == 0 ? ": " : ", ") + std::string(names[i]);
  if (names.size() > kMostNames) phrase += " and " + std::to_string(names.size() - kMostNames) + " more";
  return phrase;
}

std::string MasksPhrase(const GraphModel& g) {
  if (g.rectangles.empty()) return {};
  std::string phrase = Count(g.rectangles.size(), "mask");
  bool first = true;
  for (const RectangleModel& mask : g.rectangles) {
    phrase += (first ? " " : ", ") + Number(mask.x1) + " to " + Number(mask.x2);
    if (!g.xAxis.unit.empty()) phrase += " " + g.xAxis.unit;
    if (mask.selected) phrase += " (picked)";
    first = false;
  }
  return phrase;
}

std::string HatchingsPhrase(const GraphModel& g) {
  std::string phrase;
  for (const HatchModel& h : g.hatchings)
    phrase += (phrase.empty() ? "hatched " : ", ") + Number(h.y1) + " to " + Number(h.y2) +
              (h.label.empty() ? "" : " (" + h.label + ")");
  return phrase;
}

std::string NotesPhrase(const GraphModel& g) {
  std::string phrase;
  for (const NoteModel& note : g.sideNotes) phrase += (phrase.empty() ? "notes " : ", ") + note.text;
  return phrase;
}

std::string MapPhrase(const GraphModel& g) {
  if (!g.intensity) return {};
  return "map of " + std::to_string(g.intensity->columns) + " by " + std::to_string(g.intensity->rows);
}

std::string MarkersPhrase(const GraphModel& g) {
  std::string phrase;
  for (const CursorModel& cursor : g.cursors)
    phrase +=
        (phrase.empty() ? (g.cursors.size() == 1 ? "marker at " : "markers at ") : ", ") + Number(cursor.x);
  return phrase;
}

}  // namespace

bool HasLine(const PlotLook& look) {
  return look.style != PlotStyle::Scatter;
}

AxisLimits SafeLimits(const AxisLimits& limits, bool logarithmic) {
  const double least = logarithmic ? kClosestToZero : -kFarthest;
  AxisLimits safe = {std::clamp(limits.min, least, kFarthest), std::clamp(limits.max, least, kFarthest),
                     limits.known};
  const double size = std::max(std::fabs(safe.min), std::fabs(safe.max));
  if (safe.max - safe.min >= std::max(kLeastRange * size, kClosestToZero)) return safe;
  const double middle = safe.min / 2.0 + safe.max / 2.0, margin = std::max(1.0, 1e-6 * size);
  if (logarithmic) return {middle / 2.0, middle * 2.0, limits.known};
  return {middle - margin, middle + margin, limits.known};
}

AxisLimits Zoomed(const AxisLimits& shown, const AxisLimits& whole, bool logarithmic, double share,
                  double factor) {
  const auto scale = [&](double value) { return logarithmic ? std::log(value) : value; };
  const auto back = [&](double value) { return logarithmic ? std::exp(value) : value; };
  const double low = scale(shown.min), high = scale(shown.max), still = low + share * (high - low);
  AxisLimits zoomed = {std::max(back(still - factor * (still - low)), whole.min),
                       std::min(back(still + factor * (high - still)), whole.max), shown.known};
  const double least = 1e-9 * std::max(std::fabs(zoomed.min), std::fabs(zoomed.max));
  return zoomed.max - zoomed.min > least ? zoomed : shown;
}

std::string SpokenLine(const GraphModel& g, const GraphLimits& shown) {
  std::string line = AxisPhrase(g.yAxis, shown.y, "y") + " over " + AxisPhrase(g.xAxis, shown.x, "x");
  Append(line, CurvesPhrase(g));
  Append(line, MapPhrase(g));
  Append(line, MasksPhrase(g));
  Append(line, HatchingsPhrase(g));
  Append(line, NotesPhrase(g));
  Append(line, MarkersPhrase(g));
  if (!g.title.empty()) Append(line, "title " + g.title);
  return line;
}

}  // namespace sondera
