// draw_symbol.h - one marker of a curve.
#pragma once

namespace sondera {

/// Shapes: 0 circle, 1 square, 2 to 5 triangles (up, down, left, right), 6 diamond.
inline constexpr int kSymbolShapes = 7;

/// Marker around (x, y), all in cm, with lines of width 0.25. Kept: a circle has the radius `diameter`, so it
/// is twice as wide as the other shapes of that size.
/// @param shape  taken modulo kSymbolShapes
void DrawSymbol(float x, float y, float diameter, float width, float height, int shape, float gray,
                bool filled);

/// Marker of curve c (from 1): its shape, and open, black or grey in turn.
struct CurveMark {
  int shape = 0;
  int kind = 0;  ///< 0 open, 1 filled black, 2 filled in grey 0.7
};
CurveMark MarkOfCurve(int c);
/// The marker at a point, cm, in the size used for curves.
void DrawMark(float x, float y, CurveMark mark);

}  // namespace sondera
