// path.h - the open path and its ink. For the files of this folder only.
#pragma once

namespace sondera {

/// A point of the page, points.
struct PagePoint {
  float x = 0.0f, y = 0.0f;
};

/// Whether the file can have this point: numbers of at most 1e6 points.
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
/// Gives a pending path its ink; writes nothing without one.
void StrokePending();
/// "GSG\n" in any case. A path that has its ink already is replaced by an empty one first: GSG keeps the
/// path, and a second stroke would be in the grey and dash of another line.
void StrokePath();

}  // namespace sondera
