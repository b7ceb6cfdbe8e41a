// shapes.cpp - see shapes.h and outline.h. Round shapes: arcs.cpp; symbols: point_symbols.cpp.
#include "plot_ps/shapes.h"

#include <cmath>
#include <vector>

#include "plot_ps/moves.h"
#include "plot_ps/outline.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"

namespace sondera {
namespace {

constexpr int kGreyDecimals = 6;

/// Points of the page; the first one that can be drawn in `first`, -1 without one.
std::vector<PagePoint> PagePoints(const float* x, const float* y, int n, int& first) {
  std::vector<PagePoint> points;
  first = -1;
  for (int i = 0; i < n; ++i) {
    points.push_back(ToPage(x[i], y[i]));
    if (first < 0 && IsOnPage(points.back().x, points.back().y)) first = i;
  }
  return points;
}

void PaintCurve(const float* x, const float* y, int n, const Paint& paint) {
  int first = -1;
  const std::vector<PagePoint> points = PagePoints(x, y, n, first);
  if (PaintOutline(points, paint)) ps_movea(x[first], y[first]);
}

}  // namespace

bool PaintOutline(std::span<const PagePoint> points, const Paint& paint) {
  const PagePoint* first = nullptr;
  for (const PagePoint& point : points) {
    if (!IsOnPage(point.x, point.y)) continue;
    if (!first) MoveTo(point);
    if (!first) first = &point;
    DrawTo(point);
  }
  if (!first) return false;
  PutLine("closepath\n");
  if (paint.outlined) PutLine("gsave\nstroke\ngrestore\n");
  if (paint.filled && paint.gray < 0.0f) PutLine("gsave fill grestore\n");
  if (paint.filled && paint.gray >= 0.0f)
    Statement().Word("gsave ").Number(HeldToOne(paint.gray), kGreyDecimals).Put("setgray fill grestore\n");
  // The outline is complete, even when it was not visible: no later stroke may draw it.
  plotPs.strokePending = 0;
  plotPs.pathPainted = 1;
  return true;
}

void ps_polyline(const float* x, const float* y, int n, int marked, int symbol, float size) {
  if (n <= 0) return;
  StrokePending();
  ps_movea(x[0], y[0]);
  for (int i = 0; i < n; ++i) {
    ps_drawa(x[i], y[i]);
    if (marked) ps_point(symbol, size);
  }
  if (!marked) StrokePath();
}

void ps_polydots(const float* x, const float* y, int n, int symbol, float size) {
  for (int i = 0; i < n; ++i) {
    ps_movea(x[i], y[i]);
    ps_point(symbol, size);
  }
}

void ps_closed_curve(const float* x, const float* y, int n, int outlined, int filled, float gray) {
  PaintCurve(x, y, n, {.outlined = outlined != 0, .filled = filled != 0, .gray = HeldToOne(gray)});
}

void ps_filled_area(const float* x, const float* y, int n) {
  PaintCurve(x, y, n, {.filled = true});
}

void ps_rectangle(float x, float y, float w, float h) {
  if (!std::isfinite(x + w) || !std::isfinite(y + h)) return;
  const float xs[] = {x, x + w, x + w, x}, ys[] = {y + h, y + h, y, y};
  ps_filled_area(xs, ys, 4);
}

void ps_frame(float w, float h) {
  ps_drawr(0.0f, h);
  ps_drawr(w, 0.0f);
  ps_drawr(0.0f, -h);
  ps_drawr(-w, 0.0f);
}

void ps_bezier(const float* x, const float* y, int marked, int symbol, float size) {
  constexpr int kPoints = 3;
  PagePoint points[kPoints];
  for (int i = 0; i < kPoints; ++i) {
    points[i] = ToPage(x[i], y[i]);
    if (!IsOnPage(points[i].x, points[i].y)) return;
  }
  if (plotPs.gap) {  // no first point
    ps_movea(x[kPoints - 1], y[kPoints - 1]);
    return;
  }
  if (!plotPs.strokePending && plotPs.pathPainted) BeginPath();
  Statement line;
  for (const PagePoint& point : points) line.Tenths(point.x).Tenths(point.y);
  line.Put("curveto\n");
  plotPs.strokePending = 1;
  StrokePath();
  ps_movea(x[kPoints - 1], y[kPoints - 1]);
  if (!marked) return;
  ps_polydots(x, y, kPoints, symbol, size);
}

}  // namespace sondera
