// symbols.h - dashes of curves, and outlines of their 19 markers, in the order of the marker rings (0 "Empty
// square" to 18 "Dot"). One table for windows and figures. No state.
#pragma once

#include <span>

#include "runtime/graphs.h"

namespace sondera {

inline constexpr int kSymbolCount = 19;

/// In units of the marker's size: 0 the point, x to the right, y upward, the symbol within -0.5 to 0.5.
struct SymbolPoint {
  double x, y;
};

enum class SymbolFill : int {
  Empty,   ///< outline, the background shows through
  Solid,   ///< filled
  Dotted,  ///< outline with a dot in the middle
};

/// One symbol. It is a closed outline, or a circle, or single strokes.
struct Symbol {
  SymbolFill fill = SymbolFill::Empty;
  double size = 1.0;                       ///< fraction of the marker's size
  bool circle = false;                     ///< of diameter 1
  std::span<const SymbolPoint> outline{};  ///< corners of a closed outline
  std::span<const SymbolPoint> strokes{};  ///< pairs of points, each pair one stroke
};
/// Diameter of the dot of a dotted symbol, in units of the marker's size.
inline constexpr double kSymbolDot = 0.3;

/// Symbol of a marker; counters of markers keep increasing, so the number is used modulo kSymbolCount.
const Symbol& SymbolOf(int marker);

/// Number of the symbol of a curve's points: that of its marker; a dot for points without one; kNoMarker for
/// plain lines.
int SymbolNumber(const PlotLook& look);

/// Lengths of strokes and gaps in pixels at scale 1, where a curve of width 1 is 1.5 wide; empty for a solid line.
std::span<const double> DashLengths(LineDash dash);

}  // namespace sondera
