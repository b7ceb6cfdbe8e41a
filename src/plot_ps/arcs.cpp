// arcs.cpp - see arcs.h and circle.h.
#include "plot_ps/arcs.h"

#include <cmath>

#include "plot_ps/circle.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"

namespace sondera {
namespace {

constexpr int kFineDecimals = 6;

/// Radius in points; below 0 when nothing can be drawn.
float Radius(float cm) {
  const float points = std::fabs(cm) * kPointsPerCm;
  return plotPs.gap || !IsOnPage(points, 0.0) ? -1.0f : points;
}

/// Grey below 0: the circle gets the current one.
void PutDisk(PagePoint centre, float radius, float gray) {
  if (gray < 0.0f) return PutCircle(centre, radius, kCircleArea);
  StrokePending();
  Statement line;
  line.Word("newpath ").Tenths(centre.x).Tenths(centre.y).Tenths(radius).Word("0 360 arc ");
  line.Number(HeldToOne(gray), kFineDecimals).Put("setgray fill stroke \n");
  plotPs.pathPainted = 0;
}

/// Draws within a y axis that is scaled by a/b, then moves the pen back to the centre.
template <class Draw>
void DrawScaled(float a, float b, Draw draw) {
  constexpr double kMostStretched = 1000.0;
  const float radius = Radius(a / 2.0f);
  const double factor = std::fabs(static_cast<double>(a) / static_cast<double>(b));
  if (radius < 0.0f || !(factor >= 1.0 / kMostStretched && factor <= kMostStretched)) return;
  const PagePoint centre = {plotPs.curX, plotPs.curY};
  StrokePending();
  Statement().Word("1 ").Number(factor, kFineDecimals).Put("scale\n");
  draw(PagePoint{centre.x, static_cast<float>(centre.y / factor)}, radius);
  Statement().Word("1 ").Number(1.0 / factor, kFineDecimals).Put("scale\n");
  MoveTo(centre);
}

}  // namespace

void PutCircle(PagePoint centre, float radius, const char* end) {
  StrokePending();
  Statement().Word("newpath ").Tenths(centre.x).Tenths(centre.y).Tenths(radius).Put(end);
  plotPs.pathPainted = 0;  // painting has removed the path
}

void ps_arc(float r, float a1, float a2) {
  const float radius = Radius(r);
  if (radius < 0.0f) return;
  const PagePoint centre = {plotPs.curX, plotPs.curY};
  StrokePending();
  PutLine("newpath\n");  // else a line would lead from the centre to the arc
  Statement line;
  line.Tenths(centre.x).Tenths(centre.y).Tenths(radius);
  line.Whole(WholeDegrees(a1)).Whole(WholeDegrees(a2)).Put("arc\n");
  plotPs.strokePending = 1;
  MoveTo(centre);
}

void ps_circle(float r) {
  const float radius = Radius(r);
  if (radius < 0.0f) return;
  const PagePoint centre = {plotPs.curX, plotPs.curY};
  PutCircle(centre, radius, kCircleLine);
  MoveTo(centre);
}

void ps_disk(float r, float gray) {
  const float radius = Radius(r);
  if (radius < 0.0f) return;
  const PagePoint centre = {plotPs.curX, plotPs.curY};
  PutDisk(centre, radius, gray);
  MoveTo(centre);
}

void ps_ellipse(float a, float b) {
  DrawScaled(a, b, [](PagePoint centre, float radius) { PutCircle(centre, radius, kCircleLine); });
}

void ps_ellip_disk(float a, float b, float gray) {
  DrawScaled(a, b, [gray](PagePoint centre, float radius) { PutDisk(centre, radius, gray); });
}

}  // namespace sondera
