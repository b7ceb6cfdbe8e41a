// shapes.h - lines through points, filled areas, curves, and symbols at points.
//
// Positions in the units of the mode (see moves.h), symbol sizes in cm. x, y: n values from index 0. Every
// shape strokes a pending path first. A point that is not finite makes a gap in a line and is left out of an
// area.
#pragma once

namespace sondera {

/// Line through n points. marked != 0: ps_point(symbol, size) at each of them.
void ps_polyline(const float* x, const float* y, int n, int marked, int symbol, float size);

/// ps_point(symbol, size) at n points.
void ps_polydots(const float* x, const float* y, int n, int symbol, float size);

/// Closed line through n points: its outline (outlined != 0), then its area in its own grey (filled != 0);
/// the current point is point 0 afterwards.
void ps_closed_curve(const float* x, const float* y, int n, int outlined, int filled, float gray);

/// Area within n points, in the current grey. The current point is point 0 afterwards.
void ps_filled_area(const float* x, const float* y, int n);

/// Filled rectangle, in the current grey, with its lower left corner at (x, y) for positive w and h.
void ps_rectangle(float x, float y, float w, float h);

/// Rectangle from the current point: up h, right w, down, left. The path stays open for more.
void ps_frame(float w, float h);

/// Curve from the current point to the third of 3 points; the first two are its control points. marked != 0:
/// ps_point(symbol, size) at the three.
void ps_bezier(const float* x, const float* y, int marked, int symbol, float size);

/// Symbol of this width (cm; 0: 0.2) around the current point, which does not change:
///    1 plus            5 triangle up      9 filled diamond         13 hourglass
///    2 cross           6 triangle down   10 filled triangle up     14 bow tie
///    3 asterisk        7 circle          11 filled triangle down   15 hexagon
///    4 diamond         8 filled square   12 filled circle          16 dot
/// Any other code is an open square. Outlines have the current grey, width and dash.
void ps_point(int symbol, float size);

}  // namespace sondera
