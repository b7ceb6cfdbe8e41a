// plane_wave_curve_test.cpp - treatment of the roots of several wavelengths: stray ones dropped, gaps filled.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "forward/plane_wave.h"

namespace sondera {
namespace {

constexpr double kUntouched = -7.25;

/// Velocities of the roots of each wavelength, to frequencies.
struct Curve {
  Curve(std::vector<double> wavelengths, const std::vector<std::vector<double>>& velocities)
      : waves(static_cast<int>(wavelengths.size())),
        L(1, 0.0),
        counts(1, 0),
        store(1 + wavelengths.size() * 5, 0.0) {
    L.insert(L.end(), wavelengths.begin(), wavelengths.end());
    for (std::size_t i = 0; i < velocities.size(); ++i) {
      counts.push_back(static_cast<int>(velocities[i].size()));
      for (std::size_t k = 0; k < velocities[i].size(); ++k) {
        F()(static_cast<int>(i) + 1, static_cast<int>(k) + 1) = velocities[i][k] / wavelengths[i];
      }
    }
  }
  FlatMatrix F() { return {store.data(), waves}; }
  double velocity(int i, int k) { return F()(i, k) * L[static_cast<std::size_t>(i)]; }
  int waves;
  std::vector<double> L;
  std::vector<int> counts;
  std::vector<double> store;
};

TEST(FsClean, DropsRootsOutsideTheWindowFromBothEnds) {
  // The window of a wavelength reaches from 0.666 of the first to 1.5 of the last root kept beside it.
  Curve curve({1, 2, 3, 4, 5}, {{100}, {60, 105, 170}, {50, 110}, {112, 400}, {120}});
  FS_clean_(curve.waves, curve.F(), curve.L.data(), curve.counts.data());
  EXPECT_EQ(curve.counts, (std::vector<int>{0, 1, 1, 1, 1, 1}));
  EXPECT_NEAR(curve.velocity(2, 1), 105.0, 1e-9);
  EXPECT_NEAR(curve.velocity(3, 1), 110.0, 1e-9);
  EXPECT_NEAR(curve.velocity(4, 1), 112.0, 1e-9);
}

TEST(FsClean, KeepsASingleRootEvenBelowTheWindowAndDropsAllAboveIt) {
  Curve below({1, 2, 3}, {{100}, {20}, {100}});
  FS_clean_(below.waves, below.F(), below.L.data(), below.counts.data());
  EXPECT_EQ(below.counts[2], 1);
  Curve above({1, 2, 3}, {{100}, {150, 300}, {100}});  // 150 = 1.5 * 100 and not below it
  FS_clean_(above.waves, above.F(), above.L.data(), above.counts.data());
  EXPECT_EQ(above.counts[2], 0);
}

TEST(FsClean, LowEndOfTheWindowIsTheSinglePrecisionFactor) {
  // Beside a root at 100 the window begins at 66.60000085830688, not at 66.6.
  for (auto [v, kept] : {std::pair{66.6000004, 1}, {66.6000013, 2}}) {
    Curve down({1, 2, 3}, {{100}, {v, 101}, {90}}), up({1, 2, 3}, {{90}, {v, 101}, {100}});
    for (Curve* curve : {&down, &up}) {
      FS_clean_(curve->waves, curve->F(), curve->L.data(), curve->counts.data());
      EXPECT_EQ(curve->counts[2], kept) << v;
    }
  }
}

TEST(FsClean, HighEndIsOneAndAHalfTimesTheLastRootAndExcluded) {
  for (auto [v, kept] : {std::pair{149.999, 2}, {150.0, 1}, {153.0, 1}}) {
    Curve curve({1, 2, 4, 8}, {{100}, {100}, {120, v}, {120}});
    FS_clean_(curve.waves, curve.F(), curve.L.data(), curve.counts.data());
    EXPECT_EQ(curve.counts[3], kept) << v;
  }
}

TEST(FsClean, LeavesOneAndTwoWavelengthsAlone) {
  Curve curve({1, 2}, {{100}, {10, 105, 900}});
  FS_clean_(curve.waves, curve.F(), curve.L.data(), curve.counts.data());
  EXPECT_EQ(curve.counts[2], 3);
}

TEST(FsClean, WavelengthsWithoutRootsKeepTheWindow) {
  Curve curve({1, 2, 3, 4}, {{100}, {}, {104, 300}, {108}});
  FS_clean_(curve.waves, curve.F(), curve.L.data(), curve.counts.data());
  EXPECT_EQ(curve.counts, (std::vector<int>{0, 1, 0, 1, 1}));
  Curve none({1, 2, 3}, {{}, {}, {}});
  FS_clean_(none.waves, none.F(), none.L.data(), none.counts.data());
  EXPECT_EQ(none.counts, (std::vector<int>{0, 0, 0, 0}));
}

TEST(FsIntp, FillsGapsBetweenWavelengthsAndLeavesThoseAtTheEnds) {
  Curve curve({1, 2, 4, 8, 10, 11}, {{}, {100}, {}, {}, {140, 190}, {}});
  std::vector<double> c(7, kUntouched);
  FS_intp_(curve.waves, curve.F(), curve.L.data(), c.data(), curve.counts.data(), 1);
  EXPECT_EQ(c[1], kUntouched);
  EXPECT_DOUBLE_EQ(c[2], 100.0);
  EXPECT_DOUBLE_EQ(c[3], 110.0);
  EXPECT_DOUBLE_EQ(c[4], 130.0);
  EXPECT_DOUBLE_EQ(c[5], 140.0);
  EXPECT_EQ(c[6], kUntouched);
}

TEST(FsIntp, OtherSelectorsTakeTheLastRoot) {
  Curve curve({1, 2}, {{90, 150}, {100, 160, 220}});
  std::vector<double> c(3, kUntouched);
  FS_intp_(curve.waves, curve.F(), curve.L.data(), c.data(), curve.counts.data(), 2);
  EXPECT_DOUBLE_EQ(c[1], 150.0);
  EXPECT_DOUBLE_EQ(c[2], 220.0);
}

}  // namespace
}  // namespace sondera
