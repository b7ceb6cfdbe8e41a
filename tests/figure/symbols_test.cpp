#include "figure/symbols.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <tuple>

namespace sondera {
namespace {

/// Shape, filling and size: the visible differences of symbols.
auto LookOf(int marker) {
  const Symbol& s = SymbolOf(marker);
  return std::tuple(s.circle, s.outline.data(), s.strokes.data(), s.fill, s.size);
}

TEST(Symbols, AreAllDifferent) {
  std::set<decltype(LookOf(0))> looks;
  for (int marker = 0; marker < kSymbolCount; ++marker) looks.insert(LookOf(marker));
  EXPECT_EQ(looks.size(), static_cast<std::size_t>(kSymbolCount));
}

TEST(Symbols, StayWithinTheirSizeAndRoundTheirPoint) {
  for (int marker = 0; marker < kSymbolCount; ++marker) {
    const Symbol& s = SymbolOf(marker);
    EXPECT_EQ((s.circle ? 1 : 0) + (s.outline.empty() ? 0 : 1) + (s.strokes.empty() ? 0 : 1), 1) << marker;
    EXPECT_EQ(s.strokes.size() % 2, 0u);
    double sumX = 0.0;
    for (const auto& points : {s.outline, s.strokes}) {
      for (const SymbolPoint& p : points) {
        EXPECT_LE(std::hypot(p.x, p.y), 0.65) << marker;
        sumX += p.x;
      }
    }
    EXPECT_NEAR(sumX, 0.0, 1e-12) << marker;
  }
}

TEST(Symbols, FollowTheNamesOfTheRing) {
  EXPECT_EQ(SymbolOf(0).fill, SymbolFill::Empty);
  EXPECT_EQ(SymbolOf(1).fill, SymbolFill::Solid);
  EXPECT_EQ(SymbolOf(11).fill, SymbolFill::Dotted);
  EXPECT_TRUE(SymbolOf(12).circle);
  EXPECT_LT(SymbolOf(13).size, SymbolOf(10).size);
  EXPECT_EQ(SymbolOf(9).outline.size(), 3u);
  EXPECT_EQ(SymbolOf(15).strokes.size(), 6u);
}

TEST(Symbols, OfACounterThatRunsOnBeginAnew) {
  EXPECT_EQ(&SymbolOf(19), &SymbolOf(0));
  EXPECT_EQ(&SymbolOf(-1), &SymbolOf(18));
}

}  // namespace
}  // namespace sondera
