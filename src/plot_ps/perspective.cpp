// perspective.cpp - see perspective.h.
#include "plot_ps/perspective.h"

#include <algorithm>
#include <cmath>

#include "plot_ps/outline.h"
#include "plot_ps/path.h"
#include "plot_ps/shapes.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"

namespace sondera {
namespace {

constexpr int kAxes = 3, kCorners = 8;
constexpr float kFullTurn = 6.2831855f;
constexpr float kFaceShade[kAxes] = {0.8f, 1.0f, 0.6f};  // of a face across x, y, z

/// A cuboid in the scaled coordinates.
struct Cuboid {
  double low[kAxes], high[kAxes];

  /// Coordinate of corner 0..7: if bit i of the corner is set, the high end of axis i.
  double At(int corner, int axis) const { return corner >> axis & 1 ? high[axis] : low[axis]; }
};

double Scaled(int axis, double value) {
  const PerspectiveState& p = plotPs.perspective;
  return p.length[axis] * (value - p.lowest[axis]) / (p.highest[axis] - p.lowest[axis]);
}

Cuboid ScaledCuboid(const double (&from)[kAxes], const double (&to)[kAxes]) {
  Cuboid box{};
  for (int i = 0; i < kAxes; ++i) {
    const double one = Scaled(i, from[i]), other = Scaled(i, to[i]);
    box.low[i] = std::min(one, other);
    box.high[i] = std::max(one, other);
  }
  return box;
}

/// The box of all ranges.
Cuboid WholeBox() {
  const PerspectiveState& p = plotPs.perspective;
  return ScaledCuboid(p.lowest, p.highest);
}

/// False where the point is not visible. u, v in cm.
bool Project(double X, double Y, double Z, double& u, double& v) {
  const PerspectiveState& p = plotPs.perspective;
  const double cosA = std::cos(p.a), sinA = std::sin(p.a), cosB = std::cos(p.b), sinB = std::sin(p.b);
  const double W = p.D - cosB * Y - cosA * sinB * Z - sinA * sinB * X;
  u = v = 0.0;
  if (!(W > 0.0)) return false;
  const double right = p.E * (cosA * X - sinA * Z) / W;
  const double up = p.E * (sinB * Y - cosB * cosA * Z - sinA * cosB * X) / W;
  if (!std::isfinite(right) || !std::isfinite(up)) return false;
  u = right;
  v = up;
  return true;
}

bool CornerOnPage(const Cuboid& box, int corner, PagePoint& point) {
  double u = 0.0, v = 0.0;
  if (!Project(box.At(corner, 0), box.At(corner, 1), box.At(corner, 2), u, v)) return false;
  point = {static_cast<float>(u) * kPointsPerCm, static_cast<float>(v) * kPointsPerCm};
  return IsOnPage(point.x, point.y);
}

void DrawEdge(const Cuboid& box, int from, int to) {
  PagePoint one, other;
  if (!CornerOnPage(box, from, one) || !CornerOnPage(box, to, other)) return;
  MoveTo(one);
  DrawTo(other);
}

/// Whether the eye is on the outer side of a face: the high or low one across an axis.
bool IsNear(const Cuboid& box, int axis, bool high) {
  const PerspectiveState& p = plotPs.perspective;
  const double eye[kAxes] = {p.D * std::sin(p.a) * std::sin(p.b), p.D * std::cos(p.b),
                             p.D * std::cos(p.a) * std::sin(p.b)};
  return high ? eye[axis] > box.high[axis] : eye[axis] < box.low[axis];
}

/// Draws the edges between two near faces, or all others.
void DrawEdges(bool betweenNear) {
  const Cuboid box = WholeBox();
  for (int axis = 0; axis < kAxes; ++axis) {
    const int second = (axis + 1) % kAxes, third = (axis + 2) % kAxes;
    for (int corner = 0; corner < kCorners; ++corner) {
      if (corner >> axis & 1) continue;
      const bool bothNear =
          IsNear(box, second, corner >> second & 1) && IsNear(box, third, corner >> third & 1);
      if (bothNear == betweenNear) DrawEdge(box, corner, corner | 1 << axis);
    }
  }
  StrokePending();
}

void DrawNearFaces(const Cuboid& box, float gray) {
  StrokePending();
  for (int axis = 0; axis < kAxes; ++axis) {
    for (const bool high : {false, true}) {
      if (!IsNear(box, axis, high)) continue;
      const int second = 1 << (axis + 1) % kAxes, third = 1 << (axis + 2) % kAxes,
                first = high ? 1 << axis : 0;
      const int corners[] = {first, first | second, first | second | third, first | third};
      PagePoint points[4];
      bool seen = true;
      for (int i = 0; i < 4; ++i) seen = CornerOnPage(box, corners[i], points[i]) && seen;
      if (!seen) continue;
      if (PaintOutline(points,
                       {.outlined = true, .filled = true, .gray = HeldToOne(gray) * kFaceShade[axis]}))
        MoveTo(points[0]);
    }
  }
}

}  // namespace

void ps_3Dsetup(float lx, float ly, float lz, float xmin, float xmax, float ymin, float ymax, float zmin,
                float zmax, float a, float b, float D, float E) {
  const auto folded = [](float angle) { return static_cast<double>(std::fmod(angle, kFullTurn)); };
  plotPs.perspective = {.length = {lx, ly, lz},
                        .lowest = {xmin, ymin, zmin},
                        .highest = {xmax, ymax, zmax},
                        .a = folded(a),
                        .b = folded(b),
                        .D = D,
                        .E = E};
}

int ps_3Dcalcul(float x, float y, float z, float* u, float* v) {
  double right = 0.0, up = 0.0;
  const bool seen = Project(Scaled(0, x), Scaled(1, y), Scaled(2, z), right, up);
  *u = static_cast<float>(right);
  *v = static_cast<float>(up);
  return seen ? 1 : 0;
}

void ps_3Daxes() {
  const Cuboid box = WholeBox();
  for (int axis = 0; axis < kAxes; ++axis) DrawEdge(box, 0, 1 << axis);
  StrokePending();
}

void ps_3Dframe() {
  DrawEdges(false);
}

void ps_3Dclosebox() {
  DrawEdges(true);
}

void ps_3Dbar(float x1, float x2, float y, float z1, float z2, float gray) {
  ps_3Dbox(x1, x2, static_cast<float>(plotPs.perspective.lowest[1]), y, z1, z2, gray);
}

void ps_3Dbox(float x1, float x2, float y1, float y2, float z1, float z2, float gray) {
  const double from[kAxes] = {x1, y1, z1}, to[kAxes] = {x2, y2, z2};
  DrawNearFaces(ScaledCuboid(from, to), gray);
}

}  // namespace sondera
