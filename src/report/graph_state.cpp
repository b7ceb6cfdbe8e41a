// graph_state.cpp - see graph_state.h.
#include "report/graph_state.h"

#include <algorithm>
#include <cmath>

#include "numeric/scale_arithmetic.h"
#include "plot_ps/text.h"

namespace sondera {

GraphState graph;

void ResetGraphState() {
  graph = GraphState{};
}

void PG_Init(const std::string& labelX, const std::string& labelY, const std::string& title, bool keepRange) {
  const GraphState first;
  SetAxSize(first.axLenX, first.axLenY, first.axOrgX, first.axOrgY);
  SetTics(first.nDivX, first.nDivY, first.nMinorX, first.nMinorY);
  if (!keepRange) SetAxRange(0.0, 0.0, 0.0, 0.0);
  SetLabel(labelX, labelY, title);
  ps_font("Courier", 0.0f);
}

void SetAxSize(float lenX, float lenY, float orgX, float orgY) {
  graph.axLenX = lenX;
  graph.axLenY = lenY;
  graph.axOrgX = orgX;
  graph.axOrgY = orgY;
}

void SetTics(int nDivX, int nDivY, int nMinorX, int nMinorY) {
  constexpr int kMostDivisions = 1000;
  graph.nDivX = std::clamp(nDivX, 1, kMostDivisions);
  graph.nDivY = std::clamp(nDivY, 1, kMostDivisions);
  graph.nMinorX = nMinorX;
  graph.nMinorY = nMinorY;
}

void SetAxRange(double minX, double maxX, double minY, double maxY) {
  graph.axMinX = minX;
  graph.axMaxX = maxX;
  graph.axMinY = minY;
  graph.axMaxY = maxY;
}

void SetLabel(const std::string& x, const std::string& y, const std::string& title) {
  graph.labelX = x;
  graph.labelY = y;
  graph.title = title;
}

int NdivVal(double v) {
  if (!std::isfinite(v) || v <= 0.0) return 1;
  const double decade = std::pow(10.0, std::trunc(std::log(v) / std::log(10.0)));
  return std::max(TruncToInt(v / decade), 1);
}

int GetNoDigits(double v) {
  if (v > 10.0) return 0;
  if (v > 1.0) return 1;
  if (v > 0.0 && v < 1.0) return TruncToInt(std::fabs(std::log10(v))) + 2;
  return 2;
}

}  // namespace sondera
