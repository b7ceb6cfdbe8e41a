// graph_axes.cpp - see graph_axes.h.
#include "report/graph_axes.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "plot_ps/plot_ps.h"
#include "report/graph_state.h"
#include "report/sheet.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kLargest = 1e30;
constexpr float kLabelHeight = 0.3f, kNumberHeight = 0.25f, kHeightDown = 0.2f;
constexpr float kLabelSize = 12.0f, kLabelSizeDown = 5.0f, kNumberSize = 10.0f, kNumberSizeDown = 6.0f;
constexpr float kTickLength = 0.2f, kThin = 0.1f, kFrameWidth = 0.5f;
constexpr float kGridDash = 1.0f, kLogGridDash = 0.1f;

/// Positions of the lines of an axis, cm from the corner.
using Places = std::vector<float>;

void Line(float x1, float y1, float x2, float y2) {
  ps_movea(x1, y1);
  ps_drawa(x2, y2);
}

/// A change of dash would also affect a line that is not stroked yet.
void InkLine() {
  ps_home();
}

/// Ticks at both edges, then the lines of the grid. `across` is the axis with these ticks: true for x.
void DrawTicksAndGrid(const Places& places, bool across, float dash) {
  ps_cms();
  ps_gray(0.0f);
  ps_solid_line();
  ps_line_width(kThin);
  const float end = across ? graph.axLenY : graph.axLenX;
  const auto line = [across](float at, float from, float to) {
    across ? Line(at, from, at, to) : Line(from, at, to, at);
  };
  for (const float at : places) {
    line(at, 0.0f, kTickLength);
    line(at, end, end - kTickLength);
  }
  InkLine();
  ps_dashed_line(dash, dash, 0.0f);
  for (const float at : places) line(at, 0.0f, end);
  InkLine();
  ps_solid_line();
}

Places EvenPlaces(int divisions, float length) {
  Places places;
  for (int i = 0; i <= divisions; ++i)
    places.push_back(length * static_cast<float>(i) / static_cast<float>(divisions));
  return places;
}

double ValueAt(int i, int divisions, double min, double max) {
  if (i == divisions) return max;
  const double value = min + i * ((max - min) / divisions);
  // A zero within the range may come out as a rounding error.
  return std::fabs(value) < 1e-12 * std::fabs(max - min) ? 0.0 : value;
}

void PutNumberX(float x, double value, bool depthDown) {
  constexpr float kUp = 0.4f;
  putString(kBelow, x, depthDown ? graph.axLenY + kUp : 0.0f, FormatText("%g", value), 0.0f,
            depthDown ? kNumberSizeDown : kNumberSize);
}

/// Whether m * 10^d lies on the x axis; its limits do.
bool OnLogAxis(double value) {
  constexpr double kSlack = 1e-9;
  return value >= graph.axMinX * (1.0 - kSlack) && value <= graph.axMaxX * (1.0 + kSlack);
}

}  // namespace

float Plottable(double v) {
  return std::fabs(v) <= kLargest ? static_cast<float>(v) : std::numeric_limits<float>::quiet_NaN();
}

void RangeOf(const double* v, int n, double& min, double& max) {
  min = max = 0.0;
  bool first = true;
  for (int i = 0; i < n; ++i) {
    if (!(std::fabs(v[i]) <= kLargest)) continue;
    if (first || v[i] < min) min = v[i];
    if (first || v[i] > max) max = v[i];
    first = false;
  }
}

bool HasRange() {
  const auto differ = [](double min, double max) {
    return std::fabs(min) <= kLargest && std::fabs(max) <= kLargest && min != max &&
           std::isfinite(1.0 / (max - min));
  };
  return differ(graph.axMinX, graph.axMaxX) && differ(graph.axMinY, graph.axMaxY);
}

void EnterGraph() {
  ps_cms();
  ps_origin(graph.axOrgX, graph.axOrgY, 0.0f, 0.0f);
}

void LeaveGraph() {
  ps_cms();
  ps_origin(-graph.axOrgX, -graph.axOrgY, 0.0f, 0.0f);
}

void DrawLabels(const GraphTexts& texts) {
  constexpr float kBelowFrame = -0.7f, kAboveFrame = 0.7f, kLeft = -1.7f, kTitleUp = 0.2f, kUpright = 90.0f;
  ps_cms();
  ps_gray(0.0f);
  ps_size(texts.depthDown ? kHeightDown : kLabelHeight);
  if (texts.showX && !graph.labelX.empty())
    putString(kCentred, graph.axLenX / 2.0f, texts.depthDown ? graph.axLenY + kAboveFrame : kBelowFrame,
              graph.labelX, 0.0f, texts.depthDown ? kLabelSizeDown : kLabelSize);
  if (texts.showY && !graph.labelY.empty())
    putString(kCentredUpright, kLeft, graph.axLenY / 2.0f, graph.labelY, kUpright, kLabelSize);
  if (texts.showTitle && !graph.title.empty()) ps_writea(kLeft, graph.axLenY + kTitleUp, graph.title, 0.0f);
}

void DrawLinearX(const GraphTexts& texts) {
  const Places places = EvenPlaces(graph.nDivX, graph.axLenX);
  ps_size(texts.depthDown ? kHeightDown : kNumberHeight);
  for (int i = 0; texts.showX && i <= graph.nDivX; ++i)
    PutNumberX(places[static_cast<std::size_t>(i)], ValueAt(i, graph.nDivX, graph.axMinX, graph.axMaxX),
               texts.depthDown);
  DrawTicksAndGrid(places, true, kGridDash);
}

void DrawLinearY(const GraphTexts& texts) {
  constexpr float kNumbersX = -1.4f;
  const Places places = EvenPlaces(graph.nDivY, graph.axLenY);
  ps_size(texts.depthDown ? kHeightDown : kNumberHeight);
  for (int j = 0; texts.showY && j <= graph.nDivY; ++j)
    putString(kFromPoint, kNumbersX, places[static_cast<std::size_t>(j)],
              FormatText("%6g", ValueAt(j, graph.nDivY, graph.axMinY, graph.axMaxY)), 0.0f, kNumberSize);
  DrawTicksAndGrid(places, false, kGridDash);
}

void DrawLogX(const GraphTexts& texts) {
  constexpr int kFewDecades = 2, kMultipliers = 9;
  const double low = std::log10(graph.axMinX), length = std::log10(graph.axMaxX) - low;
  const int first = static_cast<int>(std::floor(low)), last = static_cast<int>(std::floor(low + length));
  int powers = 0;
  for (int d = first; d <= last; ++d) powers += OnLogAxis(std::pow(10.0, d)) ? 1 : 0;
  Places places;
  ps_size(kNumberHeight);
  for (int d = first; d <= last; ++d) {
    for (int m = 1; m <= kMultipliers; ++m) {
      const double value = m * std::pow(10.0, d);
      if (!OnLogAxis(value)) continue;
      places.push_back(static_cast<float>(graph.axLenX * (std::log10(value) - low) / length));
      const bool numbered = m == 1 || (powers < kFewDecades && (m == 2 || m == 5));
      if (texts.showX && numbered) PutNumberX(places.back(), value, false);
    }
  }
  DrawTicksAndGrid(places, true, kLogGridDash);
}

void DrawFrame() {
  ps_cms();
  ps_solid_line();
  ps_line_width(kFrameWidth);
  ps_home();
  ps_frame(graph.axLenX, graph.axLenY);
}

}  // namespace sondera
