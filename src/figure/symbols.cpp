// symbols.cpp - see symbols.h.
#include "figure/symbols.h"

#include <array>

namespace sondera {
namespace {

// Shapes of about equal area, so that none dominates.
constexpr SymbolPoint kSquare[] = {{-0.44, -0.44}, {0.44, -0.44}, {0.44, 0.44}, {-0.44, 0.44}};
constexpr SymbolPoint kDiamond[] = {{0, -0.5}, {0.5, 0}, {0, 0.5}, {-0.5, 0}};
constexpr SymbolPoint kTriangle[] = {{-0.5, -0.4}, {0.5, -0.4}, {0, 0.5}};
constexpr SymbolPoint kPlus[] = {{-0.5, 0}, {0.5, 0}, {0, -0.5}, {0, 0.5}};
constexpr SymbolPoint kCross[] = {{-0.42, -0.42}, {0.42, 0.42}, {-0.42, 0.42}, {0.42, -0.42}};
constexpr SymbolPoint kAsterisk[] = {{0, -0.5},     {0, 0.5},       {-0.433, -0.25},
                                     {0.433, 0.25}, {-0.433, 0.25}, {0.433, -0.25}};

constexpr double kSmall = 0.6, kDot = 0.36;
constexpr int kDotNumber = 18;

constexpr Symbol Outlined(std::span<const SymbolPoint> corners, SymbolFill fill, double size = 1.0) {
  return {.fill = fill, .size = size, .circle = false, .outline = corners, .strokes = {}};
}
constexpr Symbol Circle(SymbolFill fill, double size = 1.0) {
  return {.fill = fill, .size = size, .circle = true, .outline = {}, .strokes = {}};
}
constexpr Symbol Strokes(std::span<const SymbolPoint> strokes) {
  return {.fill = SymbolFill::Empty, .size = 1.0, .circle = false, .outline = {}, .strokes = strokes};
}

constexpr std::array<Symbol, kSymbolCount> kSymbols = {
    Outlined(kSquare, SymbolFill::Empty),          // 0
    Outlined(kSquare, SymbolFill::Solid),          // 1
    Outlined(kSquare, SymbolFill::Dotted),         // 2
    Outlined(kSquare, SymbolFill::Empty, kSmall),  // 3
    Outlined(kSquare, SymbolFill::Solid, kSmall),  // 4
    Outlined(kDiamond, SymbolFill::Empty),         // 5
    Outlined(kDiamond, SymbolFill::Solid),         // 6
    Outlined(kDiamond, SymbolFill::Dotted),        // 7
    Outlined(kTriangle, SymbolFill::Empty),        // 8
    Outlined(kTriangle, SymbolFill::Solid),        // 9
    Circle(SymbolFill::Empty),                     // 10
    Circle(SymbolFill::Dotted),                    // 11
    Circle(SymbolFill::Solid),                     // 12
    Circle(SymbolFill::Empty, kSmall),             // 13
    Circle(SymbolFill::Solid, kSmall),             // 14
    Strokes(kAsterisk),                            // 15
    Strokes(kCross),                               // 16
    Strokes(kPlus),                                // 17
    Circle(SymbolFill::Solid, kDot),               // 18
};

}  // namespace

const Symbol& SymbolOf(int marker) {
  return kSymbols[static_cast<std::size_t>(((marker % kSymbolCount) + kSymbolCount) % kSymbolCount)];
}

int SymbolNumber(const PlotLook& look) {
  if (look.style == PlotStyle::Line || look.style == PlotStyle::Steps) return kNoMarker;
  return look.marker == kNoMarker ? kDotNumber : look.marker;
}

std::span<const double> DashLengths(LineDash dash) {
  static constexpr std::array<double, 2> dashed = {8, 4}, dotted = {2, 3.5};
  static constexpr std::array<double, 4> dashDotted = {8, 3.5, 2, 3.5};
  switch (dash) {
    case LineDash::Dashed:
      return dashed;
    case LineDash::Dotted:
      return dotted;
    case LineDash::DashDotted:
      return dashDotted;
    case LineDash::Solid:
      break;
  }
  return {};
}

}  // namespace sondera
