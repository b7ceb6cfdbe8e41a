// moves.cpp - see moves.h and path.h.
#include "plot_ps/moves.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "plot_ps/path.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"

namespace sondera {
namespace {

constexpr float kFarthestOrigin = 1155.9469f;  // points
constexpr double kFarthestPoint = 1e6;         // points

void PutPoint(float x, float y, std::string_view end) {
  Statement().Tenths(x).Tenths(y).Put(end);
}

void ExtendBox() {
  plotPs.minX = std::min(plotPs.minX, plotPs.curX);
  plotPs.minY = std::min(plotPs.minY, plotPs.curY);
  plotPs.maxX = std::max(plotPs.maxX, plotPs.curX);
  plotPs.maxY = std::max(plotPs.maxY, plotPs.curY);
}

/// Stores the current point in the units of the caller.
void KeepUserPoint(float x, float y, int code, UserPoint kind) {
  if (plotPs.gap) return;
  if (code < relativeMove) {
    plotPs.userX = x;
    plotPs.userY = y;
    plotPs.userPoint = kind;
  } else if (plotPs.userPoint == kind) {
    plotPs.userX += x;
    plotPs.userY += y;
  } else {
    plotPs.userPoint = UserPoint::stale;
  }
}

PagePoint CmStep(float x, float y) {
  return {x * kPointsPerCm, y * kPointsPerCm};
}

PagePoint UserStep(float x, float y) {
  const double dx = x, dy = y, cosA = plotPs.cosA, sinA = plotPs.sinA;
  return {static_cast<float>(plotPs.scaleX * (cosA * dx - sinA * dy)),
          static_cast<float>(plotPs.scaleY * (sinA * dx + cosA * dy))};
}

PagePoint UserPosition(float x, float y) {
  const double dx = x, dy = y, cosA = plotPs.cosA, sinA = plotPs.sinA;
  return {static_cast<float>(plotPs.scaleX * (cosA * dx - sinA * dy) + plotPs.shiftX),
          static_cast<float>(plotPs.scaleY * (sinA * dx + cosA * dy) + plotPs.shiftY)};
}

int Go(float x, float y, int code) {
  return plotPs.cmMode ? traa(x, y, code) : tras(x, y, code);
}

}  // namespace

bool IsOnPage(double x, double y) {
  return std::fabs(x) <= kFarthestPoint && std::fabs(y) <= kFarthestPoint;
}

PagePoint ToPage(float x, float y) {
  return plotPs.cmMode ? CmStep(x, y) : UserPosition(x, y);
}

PagePoint StepToPage(float x, float y) {
  return plotPs.cmMode ? CmStep(x, y) : UserStep(x, y);
}

void MoveTo(PagePoint point) {
  p_depl(point.x, point.y, absoluteMove);
}

void DrawTo(PagePoint point) {
  p_depl(point.x, point.y, absoluteDraw);
}

void BeginPath() {
  PutLine("newpath\n");
  PutPoint(plotPs.curX, plotPs.curY, "M\n");
  plotPs.pathPainted = 0;
}

void StrokePending() {
  if (plotPs.strokePending) StrokePath();
}

void StrokePath() {
  if (!plotPs.strokePending && plotPs.pathPainted) BeginPath();
  PutLine("GSG\n");
  if (plotPs.strokePending) plotPs.pathPainted = 1;
  plotPs.strokePending = 0;
}

int p_depl(float x, float y, int code) {
  if (code < absoluteMove || code > relativeDraw) return 0;
  const bool relative = code >= relativeMove;
  const float endX = relative ? plotPs.curX + x : x, endY = relative ? plotPs.curY + y : y;
  if (!IsOnPage(endX, endY)) {
    plotPs.gap = 1;
    return 1;
  }
  const bool draws = (code == absoluteDraw || code == relativeDraw) && !plotPs.gap;
  plotPs.gap = 0;
  if (draws) {
    if (!plotPs.strokePending) BeginPath();
    plotPs.strokePending = 1;
    PutPoint(x, y, relative ? "rL\n" : "L\n");
  } else if (relative) {
    // Kept: the move comes before the stroke. GSG does not change path and point, so the order does not
    // matter.
    PutPoint(x, y, "rM\n");
    StrokePending();
  } else {
    StrokePending();
    PutPoint(x, y, "M\n");
  }
  plotPs.curX = endX;
  plotPs.curY = endY;
  ExtendBox();
  return 1;
}

int traa(float x, float y, int code) {
  const PagePoint to = CmStep(x, y);
  if (!p_depl(to.x, to.y, code)) {
    Complain("\aIllegal code %d dans TRAA\n", code);
    return 0;
  }
  KeepUserPoint(x, y, code, UserPoint::cm);
  return 1;
}

int tras(float x, float y, int code) {
  const PagePoint to = code < relativeMove ? UserPosition(x, y) : UserStep(x, y);
  if (!p_depl(to.x, to.y, code)) {
    Complain("\aIllegal code %d in TRAS\n", code);
    return 0;
  }
  KeepUserPoint(x, y, code, UserPoint::user);
  return 1;
}

void ps_cms() {
  plotPs.cmMode = 1;
}
void ps_benson() {
  ps_cms();
}
void ps_user() {
  plotPs.cmMode = 0;
}
int ps_is_cms() {
  return plotPs.cmMode;
}

int ps_echel(float sx, float sy, float ox, float oy, float cosA, float sinA) {
  plotPs.cmMode = 1;
  const float scaleX = sx * kPointsPerCm, scaleY = sy * kPointsPerCm;
  for (const float value : {scaleX, scaleY, ox, oy, cosA, sinA})
    if (!std::isfinite(value)) return 0;
  if (scaleX == 0.0f || scaleY == 0.0f || (cosA == 0.0f && sinA == 0.0f)) return 0;
  plotPs.scaleX = scaleX;
  plotPs.scaleY = scaleY;
  plotPs.shiftX = ox * kPointsPerCm;
  plotPs.shiftY = oy * kPointsPerCm;
  plotPs.cosA = cosA;
  plotPs.sinA = sinA;
  if (plotPs.userPoint == UserPoint::user) plotPs.userPoint = UserPoint::stale;
  plotPs.cmMode = 0;
  return 1;
}

int ps_where(float* x, float* y) {
  if (plotPs.userPoint == (plotPs.cmMode ? UserPoint::cm : UserPoint::user)) {
    *x = plotPs.userX;
    *y = plotPs.userY;
  } else if (plotPs.cmMode) {
    *x = plotPs.curX / kPointsPerCm;
    *y = plotPs.curY / kPointsPerCm;
  } else {
    const double X = (plotPs.curX - plotPs.shiftX) / plotPs.scaleX;
    const double Y = (plotPs.curY - plotPs.shiftY) / plotPs.scaleY;
    const double cosA = plotPs.cosA, sinA = plotPs.sinA, square = cosA * cosA + sinA * sinA;
    *x = static_cast<float>((cosA * X + sinA * Y) / square);
    *y = static_cast<float>((cosA * Y - sinA * X) / square);
  }
  return plotPs.cmMode;
}

void ps_origin(float x, float y, float xa, float ya) {
  const PagePoint to = CmStep(x, y);
  if (!IsOnPage(to.x, to.y)) return;
  MoveTo(to);
  PutPoint(to.x, to.y, "translate\n");
  plotPs.curX = plotPs.curY = 0.0f;
  plotPs.userX = plotPs.userY = 0.0f;
  plotPs.userPoint = plotPs.cmMode ? UserPoint::cm : UserPoint::stale;
  const PagePoint told = CmStep(xa, ya);
  if (std::fabs(told.x) <= kFarthestOrigin)
    plotPs.originX = told.x;
  else
    Complain("PLOT_PS: ps_origin warning: XA exceeding limits\n");
  if (std::fabs(told.y) <= kFarthestOrigin)
    plotPs.originY = told.y;
  else
    Complain("PLOT_PS: ps_origin warning: YA exceeding limits\n");
}

int ps_movea(float x, float y) {
  return Go(x, y, absoluteMove);
}
int ps_mover(float x, float y) {
  return Go(x, y, relativeMove);
}
int ps_drawa(float x, float y) {
  return Go(x, y, absoluteDraw);
}
int ps_drawr(float x, float y) {
  return Go(x, y, relativeDraw);
}
int ps_home() {
  return Go(0.0f, 0.0f, absoluteMove);
}

int pmovba(float x, float y) {
  return traa(x, y, absoluteMove);
}
int pmovsa(float x, float y) {
  return tras(x, y, absoluteMove);
}
int pmovbr(float x, float y) {
  return traa(x, y, relativeMove);
}
int pmovsr(float x, float y) {
  return tras(x, y, relativeMove);
}
int plinba(float x, float y) {
  return traa(x, y, absoluteDraw);
}
int plinsa(float x, float y) {
  return tras(x, y, absoluteDraw);
}
int plinbr(float x, float y) {
  return traa(x, y, relativeDraw);
}
int plinsr(float x, float y) {
  return tras(x, y, relativeDraw);
}

}  // namespace sondera
