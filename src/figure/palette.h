// palette.h - colours of graphs: an order for all kinds of colour vision, contrast against the background,
// and colours of maps. Colours are 0xRRGGBB. The same rules for windows and figures. No state.
//
// Sources: order of curves by Okabe and Ito; contrast and luminance as in the Web Content Accessibility Guidelines 2.1;
// the even scale is viridis (Smith and van der Walt).
#pragma once

#include <array>
#include <span>
#include <vector>

#include "runtime/graphs.h"

namespace sondera {

inline constexpr int kPaper = 0xFFFFFF;
/// Least contrast of a line or marker against its background.
inline constexpr double kLeastContrast = 3.0;

/// Colours for curves that have none of their own: blue, vermilion, green, purple, orange, sky, black, grey.
inline constexpr std::array<int, 8> kOrderColors = {0x0072B2, 0xD55E00, 0x009E73, 0xCC79A7,
                                                    0xE69F00, 0x56B4E9, 0x000000, 0x777777};
/// Colour of the n-th curve (from 0), repeated cyclically.
int OrderColor(int n);

/// Contrast of two colours, 1 to 21.
double Contrast(int a, int b);
/// share of b in a: 0 is a, 1 is b.
int MixColors(int a, int b, double share);
inline bool IsDark(int background) {
  return Contrast(background, 0) < Contrast(background, 0xFFFFFF);
}

/// How to draw a colour so that it is visible on a background.
struct Ink {
  int color = 0;
  bool edged = false;  ///< drawn over an edge that is a little wider
  int edge = 0;        ///< colour of the edge
};
/// Light background: the colour stays, and pale ones get a grey edge. Dark background: dark greys are
/// inverted (black becomes white), other dark colours are lightened until they have the least contrast.
Ink InkFor(int color, int background);

/// Colour of a value on a map: interpolated between the levels, beyond them that of the last level. Levels
/// may have any order; without a level, or for a NaN, `missing`.
int MapColor(std::span<const ColorLevel> levels, double value, int missing);

/// Levels of a scale with steps that look even and stay in order in grey, from low to high.
std::vector<ColorLevel> EvenScale(double low, double high);

}  // namespace sondera
