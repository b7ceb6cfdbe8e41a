// draw_symbol.cpp - see draw_symbol.h.
#include "report/draw_symbol.h"

#include <algorithm>
#include <iterator>

#include "plot_ps/plot_ps.h"

namespace sondera {
namespace {

constexpr float kLineWidth = 0.25f, kMarkSize = 0.1f, kGreyOfMark = 0.7f;
constexpr float kThird = 1.0f / 3.0f;

/// Corners in fractions of width and height.
struct Outline {
  int n;
  float x[4], y[4];
};
constexpr Outline kOutlines[] = {
    {4, {-0.5f, -0.5f, 0.5f, 0.5f}, {-0.5f, 0.5f, 0.5f, -0.5f}},  // square
    {3, {-0.5f, 0.5f, 0.0f}, {-kThird, -kThird, 2 * kThird}},     // triangle up
    {3, {-0.5f, 0.5f, 0.0f}, {kThird, kThird, -2 * kThird}},      // down
    {3, {kThird, kThird, -2 * kThird}, {-0.5f, 0.5f, 0.0f}},      // left
    {3, {-kThird, -kThird, 2 * kThird}, {-0.5f, 0.5f, 0.0f}},     // right
    {4, {-0.5f, 0.0f, 0.5f, 0.0f}, {0.0f, 0.5f, 0.0f, -0.5f}},    // diamond
};
static_assert(std::size(kOutlines) + 1 == kSymbolShapes);

}  // namespace

void DrawSymbol(float x, float y, float diameter, float width, float height, int shape, float gray,
                bool filled) {
  const int which = ((shape % kSymbolShapes) + kSymbolShapes) % kSymbolShapes;
  ps_gray(gray);
  ps_line_width(kLineWidth);
  if (which == 0) {
    ps_movea(x, y);
    filled ? ps_disk(diameter, gray) : ps_circle(diameter);
    return;
  }
  const Outline& outline = kOutlines[which - 1];
  float xs[5], ys[5];
  for (int i = 0; i <= outline.n; ++i) {
    xs[i] = x + width * outline.x[i % outline.n];
    ys[i] = y + height * outline.y[i % outline.n];
  }
  if (filled)
    ps_filled_area(xs, ys, outline.n);
  else
    ps_polyline(xs, ys, outline.n + 1, 0, 0, 0.0f);
}

CurveMark MarkOfCurve(int c) {
  constexpr int kKinds = 3;
  const int from0 = std::max(c - 1, 0);
  return {from0 % kSymbolShapes, from0 % kKinds};
}

void DrawMark(float x, float y, CurveMark mark) {
  DrawSymbol(x, y, kMarkSize, kMarkSize, kMarkSize, mark.shape, mark.kind == 2 ? kGreyOfMark : 0.0f,
             mark.kind != 0);
}

}  // namespace sondera
