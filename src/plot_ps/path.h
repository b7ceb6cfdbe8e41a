// path.h - the open path and its stroke. For the files of this folder only.
#pragma once

namespace sondera {

/// A point of the page, points.
struct PagePoint {
  float x = 0.0f, y = 0.0f;
};

/// Whether the point can be written: finite, at most 1e6 points.
bool IsOnPage(double x, double y);

/// Page position of a point in the units of the mode.
PagePoint ToPage(float x, float y);
/// The same for a step.
PagePoint StepToPage(float x, float y);

/// Move and draw to a point of the page.
void MoveTo(PagePoint point);
void DrawTo(PagePoint point);

/// Begins a new path at the current point.
void BeginPath();
/// Strokes a pending path; writes nothing without one.
void StrokePending();
/// Always writes "GSG\n". A path that is already stroked is first replaced by an empty one: GSG keeps the
/// path, and a second stroke would use the grey and dash of another line.
void StrokePath();

}  // namespace sondera
