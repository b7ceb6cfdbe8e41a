// point_symbols.cpp - the symbols of ps_point(), see shapes.h.
#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "plot_ps/circle.h"
#include "plot_ps/outline.h"
#include "plot_ps/shapes.h"
#include "plot_ps/state.h"

namespace sondera {
namespace {

enum class Kind { strokes, outline, area, circle, disk };

/// Points in units of half the symbol's width around its centre: pairs of ends for strokes, corners for
/// outlines and areas, the radius in x of the first for round ones.
struct Symbol {
  Kind kind;
  std::vector<PagePoint> points;
};

constexpr float kDiagonal = 0.70710678f, kSixth = 0.8660254f;  // cosines of 45 and 30 degrees
constexpr float kDotRadius = 0.3f;
constexpr std::size_t kMostPoints = 8;  // of a symbol

const std::vector<PagePoint> kSquare = {{-1, -1}, {-1, 1}, {1, 1}, {1, -1}};
const std::vector<PagePoint> kDiamond = {{0, -1}, {-1, 0}, {0, 1}, {1, 0}};
const std::vector<PagePoint> kUp = {{-1, -kSixth}, {0, kSixth}, {1, -kSixth}};
const std::vector<PagePoint> kDown = {{-1, kSixth}, {0, -kSixth}, {1, kSixth}};

/// By code, from 1; the open square, which is used for all other codes, comes first.
const std::vector<Symbol> kSymbols = {
    {Kind::outline, kSquare},
    {Kind::strokes, {{-1, 0}, {1, 0}, {0, -1}, {0, 1}}},
    {Kind::strokes, {{-1, -1}, {1, 1}, {-1, 1}, {1, -1}}},
    {Kind::strokes,
     {{-1, 0},
      {1, 0},
      {0, -1},
      {0, 1},
      {-kDiagonal, -kDiagonal},
      {kDiagonal, kDiagonal},
      {-kDiagonal, kDiagonal},
      {kDiagonal, -kDiagonal}}},
    {Kind::outline, kDiamond},
    {Kind::outline, kUp},
    {Kind::outline, kDown},
    {Kind::circle, {{1, 0}}},
    {Kind::area, kSquare},
    {Kind::area, kDiamond},
    {Kind::area, kUp},
    {Kind::area, kDown},
    {Kind::disk, {{1, 0}}},
    {Kind::outline, {{-1, -1}, {1, 1}, {-1, 1}, {1, -1}}},
    {Kind::outline, {{-1, -1}, {1, 1}, {1, -1}, {-1, 1}}},
    {Kind::outline, {{1, 0}, {0.5f, kSixth}, {-0.5f, kSixth}, {-1, 0}, {-0.5f, -kSixth}, {0.5f, -kSixth}}},
    {Kind::disk, {{kDotRadius, 0}}},
};

}  // namespace

void ps_point(int symbol, float size) {
  constexpr float kUsualSize = 0.2f;  // cm
  const float half = (size == 0.0f ? kUsualSize : std::fabs(size)) / 2.0f * kPointsPerCm;
  if (plotPs.gap || !IsOnPage(half, 0.0)) return;
  const PagePoint centre = {plotPs.curX, plotPs.curY};
  const bool known = symbol >= 1 && symbol < static_cast<int>(kSymbols.size());
  const Symbol& shape = kSymbols[known ? static_cast<std::size_t>(symbol) : 0];
  PagePoint room[kMostPoints];
  const std::span<PagePoint> points(room, shape.points.size());
  for (std::size_t i = 0; i < points.size(); ++i)
    points[i] = {centre.x + half * shape.points[i].x, centre.y + half * shape.points[i].y};
  switch (shape.kind) {
    case Kind::strokes:
      for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
        MoveTo(points[i]);
        DrawTo(points[i + 1]);
      }
      break;
    case Kind::outline:
      PaintOutline(points, {.outlined = true});
      break;
    case Kind::area:
      PaintOutline(points, {.filled = true});
      break;
    case Kind::circle:
      PutCircle(centre, half * shape.points[0].x, kCircleLine);
      break;
    case Kind::disk:
      PutCircle(centre, half * shape.points[0].x, kCircleArea);
      break;
  }
  MoveTo(centre);
}

}  // namespace sondera
