// profile_plot.cpp - see profile_plot.h. Owns no state.
#include "plot/profile_plot.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "numeric/scale_arithmetic.h"
#include "run/result_entries.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kVelocityMargin = 1.2, kDepthMargin = 1.1, kResolutionDepthMargin = 1.2, kErrorMargin = 1.2;
constexpr int kProfileColor = 0x0000FF, kBandColor = 0x808080, kShownColor = 0xFF0000;
constexpr int kSolidCircle = 12;
constexpr double kHalfSpaceShown = 1.25;  // depth of the picture over that of the half-space
constexpr double kProfileWidth = 2.0;

/// Number of valid layers of an entry; 0 for one that is not stored.
int LayersOf(const InvRecord& r, int entry) {
  if (entry < 0 || entry > r.depth.rowHi() || entry > r.rms.hi()) return 0;
  // The end of the last layer needs an extra element.
  return std::clamp(r.nLayers, 0,
                    std::min({r.depth.colHi(), r.H.colHi(), r.Vs.colHi(), r.resolution.colHi()}));
}

void Empty(const GraphControl& graph, const std::string& title) {
  DeleteGraphPlot(graph);
  SetGraphTitle(graph, title);
}

std::string TitleOf(int index) {
  return FormatText("%s %d", index < 0 ? "SMP" : "INV", EntryOfIndex(index));
}

/// Largest finite value; 0 without one above 0.
double Largest(const std::vector<double>& values) {
  double largest = 0.0;
  for (const double v : values)
    if (std::isfinite(v)) largest = std::max(largest, v);
  return largest;
}

bool CanBeLimit(double limit) {
  return limit > 0.0 && std::isfinite(limit);
}

double NiceMax(double limit) {
  double min = 0.0, max = limit;
  CalcNiceMinMax(0.0, limit, 0, &min, &max);
  return max;
}

/// Names of both axes, 0 to these limits, linear.
void SetUpAxes(const GraphControl& graph, double xMax, double yMax, bool downward) {
  SetAxisDivisions(graph, false, 0);
  for (const bool xAxis : {true, false}) {
    SetAxisLogarithmic(graph, xAxis, false);
    SetAxisPrefix(graph, xAxis, "", 1.0);
    SetAxisRange(graph, xAxis, 0.0, xAxis ? xMax : yMax);
  }
  SetAxisReversed(graph, false, downward);
}

struct Stairs {
  std::vector<double> x, y;
};

/// Two points at each boundary 0 to layers: the value above it and the one below.
Stairs StairsOf(int layers, const std::function<double(int)>& value,
                const std::function<double(int)>& boundary) {
  Stairs s;
  for (int i = 0; i <= layers; ++i) {
    for (const int layer : {std::max(i - 1, 0), std::min(i, layers - 1)}) {
      s.x.push_back(value(layer));
      s.y.push_back(boundary(i));
    }
  }
  return s;
}

double EndDepth(InvRecord& r, int entry, int layers) {
  double& end = r.depth(entry, layers);
  if (!(end > 0.0)) end = 0.5 * r.H(entry, std::max(layers - 2, 0)) + r.depth(entry, layers - 1);
  return end;
}

/// What the waves did not reach.
void HatchBelow(const GraphControl& graph, double depthSeen, double bottom) {
  if (depthSeen > 0.0 && depthSeen < bottom)
    PlotHatching(graph, depthSeen, bottom, "below half the longest wavelength");
}

/// Resolution beside the middle of each layer, right of everything that is drawn there.
void NoteResolution(const GraphControl& graph, const InvRecord& r, int entry, const Stairs& upper,
                    int layers) {
  double largest = 0.0;
  for (int i = 0; i < layers; ++i) largest = std::max(largest, r.resolution(entry, i));
  if (!(largest > 0.0)) return;
  for (int i = 0; i < layers; ++i) {
    const std::size_t top = 2 * static_cast<std::size_t>(i) + 1;
    PlotNote(graph, upper.x[top], 0.5 * (upper.y[top] + upper.y[top + 1]),
             FormatText("R %.2f", r.resolution(entry, i)));
  }
}

/// Errors of the entries from `first` on, as far as they are stored and up to the last entry with one.
std::vector<double> Errors(const InvRecord& r, int first, int last) {
  std::vector<double> errors;
  for (int k = std::max(first, r.rms.lo()); k <= std::min(last, r.rms.hi()); ++k) errors.push_back(r.rms[k]);
  while (!errors.empty() && !(errors.back() > 0.0)) errors.pop_back();
  return errors;
}

}  // namespace

void PlotProfile(const GraphControl& graph, int index, const std::string& length, double depthSeen) {
  Empty(graph, TitleOf(index));
  InvRecord& r = RecordOfIndex(index);
  const int entry = EntryOfIndex(index), layers = LayersOf(r, entry);
  if (layers < 1) return;
  const double end = EndDepth(r, entry, layers);
  const auto boundary = [&](int i) { return r.depth(entry, i); };
  const auto velocity = [&](int i) { return r.Vs(entry, i); };
  const auto band = [&](int i) { return 2.0 * PosteriorDeviation(index, i); };
  const Stairs profile = StairsOf(layers, velocity, boundary);
  const Stairs upper = StairsOf(
      layers, [&](int i) { return velocity(i) + band(i); }, boundary);
  const Stairs lower = StairsOf(
      layers, [&](int i) { return velocity(i) - band(i); }, boundary);
  const double xMax = kVelocityMargin * Largest(upper.x);
  const double yMax = kDepthMargin * end;
  if (!CanBeLimit(xMax) || !CanBeLimit(yMax)) return;
  SetUpAxes(graph, NiceMax(xMax), NiceMax(yMax), true);
  SetAxisLabel(graph, true, "Shear Wave Velocity", length + "/s");
  SetAxisLabel(graph, false, "Depth", length);
  PlotXY(graph, profile.x, profile.y, {.color = kProfileColor, .width = kProfileWidth}, "Vs");
  HatchBelow(graph, depthSeen, NiceMax(yMax));
  if (index > 0) NoteResolution(graph, r, entry, upper, layers);
  if (upper.x == profile.x) return;
  PlotLook edge = {.color = kBandColor, .dash = LineDash::Dashed};
  edge.bandTo = PlotXY(graph, lower.x, lower.y, edge, "Vs - 2 s");
  PlotXY(graph, upper.x, upper.y, edge, "Vs + 2 s");
}

void PlotResolution(const GraphControl& graph, int index, const std::string& length, double depthSeen) {
  Empty(graph, TitleOf(index));
  const InvRecord& r = RecordOfIndex(index);
  const int entry = EntryOfIndex(index), layers = LayersOf(r, entry);
  if (layers < 1) return;
  const double yMax = kResolutionDepthMargin * r.depth(entry, layers - 1);
  const Stairs resolution = StairsOf(
      layers, [&](int i) { return r.resolution(entry, i); },
      [&](int i) { return i < layers ? r.depth(entry, i) : NiceMax(yMax); });
  if (!CanBeLimit(yMax) || Largest(resolution.x) == 0.0) return;
  SetUpAxes(graph, 1.0, NiceMax(yMax), true);
  HatchBelow(graph, depthSeen, NiceMax(yMax));
  SetAxisLabel(graph, true, "Resolution of Vs");
  SetAxisLabel(graph, false, "Depth", length);
  PlotXY(graph, resolution.x, resolution.y, {.color = kProfileColor, .width = kProfileWidth},
         "Resolution of Vs");
}

void PlotModelLayers(const GraphControl& graph, const std::vector<double>& thickness,
                     const std::vector<double>& Vs, const std::string& length) {
  Empty(graph, "");
  const int layers = static_cast<int>(std::min(thickness.size(), Vs.size()));
  std::vector<double> boundaries = {0.0};
  for (int i = 0; i + 1 < layers; ++i) {
    const double h = thickness[static_cast<std::size_t>(i)];
    if (!(h >= 0.0)) return;
    boundaries.push_back(boundaries.back() + h);
  }
  const double above = boundaries.back(), xMax = kVelocityMargin * Largest(Vs);
  if (above > 0.0)
    boundaries.push_back(kHalfSpaceShown * above);
  else
    boundaries.push_back(layers == 1 && CanBeLimit(thickness[0]) ? thickness[0] : 1.0);
  if (layers < 1 || !CanBeLimit(xMax) || !CanBeLimit(boundaries.back())) return;
  const Stairs model = StairsOf(
      layers, [&](int i) { return Vs[static_cast<std::size_t>(i)]; },
      [&](int i) { return boundaries[static_cast<std::size_t>(i)]; });
  SetUpAxes(graph, NiceMax(xMax), boundaries.back(), true);
  SetAxisLabel(graph, true, "Vs", length + "/s");
  SetAxisLabel(graph, false, "Depth", length);
  PlotXY(graph, model.x, model.y, {.color = kProfileColor, .width = kProfileWidth}, "");
}

void PlotRMSError(const GraphControl& graph, int index, int iterations, int profiles,
                  const std::string& length) {
  Empty(graph, index < 0 ? "SMP" : "INV");
  const int first = index < 0 ? 1 : 0, last = index < 0 ? profiles : iterations;
  const std::vector<double> errors = Errors(RecordOfIndex(index), first, last);
  if (errors.empty()) return;
  const double xMax = kErrorMargin * Largest(errors);
  if (!CanBeLimit(xMax) || last < 1) return;
  SetUpAxes(graph, NiceMax(xMax), last, true);
  SetAxisLabel(graph, true, "RMS Error", length + "/s");
  SetAxisLabel(graph, false, "Iteration No.");
  SetAxisDivisions(graph, false, last);  // whole numbers
  std::vector<double> entries(errors.size());
  for (std::size_t k = 0; k < entries.size(); ++k) entries[k] = static_cast<double>(k) + first;
  PlotXY(graph, errors, entries,
         {.style = PlotStyle::ConnectedPoints, .marker = kSolidCircle, .color = kProfileColor}, "RMS Error");
  const int shown = EntryOfIndex(index) - first;
  if (shown < 0 || shown >= static_cast<int>(errors.size())) return;
  const auto at = static_cast<std::size_t>(shown);
  PlotXY(graph, {errors[at]}, {entries[at]},
         {.style = PlotStyle::Scatter, .marker = kSolidCircle, .color = kShownColor}, TitleOf(index));
}

}  // namespace sondera
