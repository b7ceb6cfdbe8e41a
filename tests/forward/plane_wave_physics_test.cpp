// plane_wave_physics_test.cpp - the plane-wave solver against Rayleigh's equation and against modes computed
// by the compound vector of the motion-stress equations. Neither shares code with the solver.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <vector>

#include "forward/plane_wave.h"
#include "forward/plane_wave_solve.h"
#include "forward/rayleigh_modes.h"

namespace sondera {
namespace {

constexpr double kAgreement = 2e-6;

/// Rayleigh's equation as the cubic in x = (c / Vs)^2: x^3 - 8 x^2 + (24 - 16 q) x - 16 (1 - q) = 0, q = (Vs
/// / Vp)^2.
double RayleighVelocity(double Vs, double nu) {
  const double q = (1.0 - 2.0 * nu) / (2.0 * (1.0 - nu));
  double x = 0.85;
  for (int i = 0; i < 60; ++i) {
    const double f = ((x - 8.0) * x + (24.0 - 16.0 * q)) * x - 16.0 * (1.0 - q);
    x -= f / ((3.0 * x - 16.0) * x + 24.0 - 16.0 * q);
  }
  return Vs * std::sqrt(x);
}

TEST(PlaneWavePhysics, UniformHalfSpaceObeysRayleighsEquation) {
  for (double nu : {0.0, 0.05, 0.1, 0.2, 0.25, 0.3, 0.3333, 0.4, 0.45, 0.48, 0.495, 0.499, 0.4999, 0.5}) {
    for (double Vs : {61.0, 213.7, 1480.0}) {
      const double expected = RayleighVelocity(Vs, nu);
      for (double L : {0.05, 2.385, 60.0})
        EXPECT_NEAR(PlaneWaveVelocity<modes::Ground>({{1.0}, {Vs}, {1.9}, {nu}}, L) / expected, 1.0, 2e-7)
            << nu;
    }
  }
  EXPECT_NEAR(RayleighVelocity(1.0, 0.25), 0.919401687, 1e-9) << "the known value of a Poisson solid";
}

/// A site, and the wavelengths at which its wave leaks into the layer that replaces the half-space.
struct Site {
  const char* name;
  modes::Ground ground;
  std::vector<double> leaks;
};

void PrintTo(const Site& site, std::ostream* out) {
  *out << site.name;
}

const std::vector<double> kWavelengths{0.7, 2.0, 5.0, 10.0, 20.0, 40.0, 80.0};

const Site kSites[] = {
    {"TwoLayers", {{4, 1}, {150, 300}, {1.8, 1.9}, {.33, .33}}, {}},
    {"GradientOfFour", {{2, 3, 5, 1}, {120, 180, 260, 400}, {1.7, 1.8, 1.9, 2.0}, {.3, .3, .35, .4}}, {}},
    {"GradientOfSeven",
     {{.5, 1, 1.5, 2, 3, 4, 1},
      {110, 140, 170, 210, 260, 330, 450},
      {1.8, 1.8, 1.8, 1.9, 1.9, 2, 2},
      {.35, .35, .4, .4, .45, .45, .48}},
     {}},
    {"WaterTable", {{2, 4, 6, 1}, {140, 200, 280, 380}, {1.8, 2, 2, 2.1}, {.3, .49, .495, .49}}, {}},
    {"RockBelowSoftSoil", {{5, 1}, {100, 800}, {1.7, 2.3}, {.4, .25}}, {}},
    {"SoftSecondLayer", {{2, 2, 4, 1}, {220, 140, 260, 400}, {1.8, 1.7, 1.9, 2}, {.33, .4, .33, .3}}, {2.0}},
    {"SoftThirdLayer",
     {{1.5, 2, 3, 5, 1}, {180, 260, 150, 300, 450}, {1.8, 1.9, 1.7, 1.9, 2}, {.33, .33, .42, .35, .3}},
     {2.0}},
    {"ThinSoftSeam", {{3, .3, 4, 1}, {200, 80, 240, 360}, {1.8, 1.6, 1.8, 1.9}, {.33, .45, .33, .33}}, {}},
    {"StiffCrust", {{.5, 3, 1}, {320, 180, 420}, {2, 1.8, 2}, {.25, .35, .3}}, {0.7}},
    {"Pavement", {{.15, .3, 1.5, 1}, {1400, 350, 150, 400}, {2.4, 2.1, 1.8, 2}, {.2, .3, .35, .35}}, {0.7}},
    {"StiffTopOnHalfSpace", {{1, 1}, {300, 250}, {1.9, 1.8}, {.3, .3}}, {0.7, 2.0}},
    {"TenLayersUpAndDown",
     {{.5, .5, 1, 1, 1.5, 1.5, 2, 3, 4, 1},
      {200, 150, 180, 140, 220, 200, 280, 240, 320, 420},
      {1.8, 1.8, 1.8, 1.8, 1.9, 1.9, 1.9, 1.9, 2, 2},
      {.3, .35, .3, .4, .35, .3, .35, .3, .35, .3}},
     {}},
};

class PlaneWaveModes : public ::testing::TestWithParam<Site> {};

TEST_P(PlaneWaveModes, VelocityIsTheFundamentalModeOfTheGroundAboveTwiceTheWavelength) {
  const Site& site = GetParam();
  for (double L : kWavelengths) {
    const double c = PlaneWaveVelocity(site.ground, L);
    const modes::Ground cut = modes::CutAt(site.ground, 2.0 * L);
    const double deepest = cut.Vs.back(), slowest = *std::min_element(cut.Vs.begin(), cut.Vs.end());
    const auto found = modes::Modes(cut, L, 0.3 * slowest, deepest * (1.0 - 1e-9), 1);
    const bool leaks = std::find(site.leaks.begin(), site.leaks.end(), L) != site.leaks.end();
    if (leaks) {  // stiff over soft: no mode below the deepest layer's Vs, and the solver's root is above it
      EXPECT_TRUE(found.empty()) << L;
      EXPECT_GT(c, deepest) << L;
    } else {
      ASSERT_FALSE(found.empty()) << L;
      EXPECT_NEAR(c / found[0], 1.0, kAgreement) << L;
    }
  }
}

TEST_P(PlaneWaveModes, WithAllLayersAboveTwiceTheWavelengthTheFullGroundCounts) {
  const modes::Ground& g = GetParam().ground;
  const auto found = modes::Modes(g, 80.0, 0.3 * *std::min_element(g.Vs.begin(), g.Vs.end()), g.Vs.back(), 1);
  ASSERT_FALSE(found.empty());
  EXPECT_NEAR(PlaneWaveVelocity(g, 80.0) / found[0], 1.0, kAgreement);
}

INSTANTIATE_TEST_SUITE_P(Sites, PlaneWaveModes, ::testing::ValuesIn(kSites),
                         [](const auto& instance) { return instance.param.name; });

TEST(PlaneWavePhysics, TruncationAtTwiceTheWavelengthIsSeenAgainstTheFullGround) {
  const modes::Ground g{{5, 1}, {100, 800}, {1.7, 2.3}, {.4, .25}};
  const double L = 2.0, c = PlaneWaveVelocity(g, L);  // rock at a depth of 2.5 L is not seen
  const auto full = modes::Modes(g, L, 30.0, 790.0, 1);
  ASSERT_FALSE(full.empty());
  EXPECT_GT(std::fabs(c / full[0] - 1.0), kAgreement);
  EXPECT_LT(std::fabs(c / full[0] - 1.0), 1e-4);
  EXPECT_NEAR(c / RayleighVelocity(100.0, 0.4), 1.0, 2e-7);
}

TEST(PlaneWavePhysics, PairOfRootsBetweenNeighbouringTrialsIsSkipped) {
  // Two soft layers with guided modes of nearly the same velocity: a pair closer than a step of the scan.
  const modes::Ground g{
      {6, 2, 6, 2, 1}, {300, 110, 300, 119, 311.8}, {1.9, 1.7, 1.9, 1.7, 1.9}, {.3, .4, .3, .4, .3}};
  const double L = 10.0, c = PlaneWaveVelocity(g, L);
  const auto found = modes::Modes(g, L, 60.0, 305.0, 3);
  ASSERT_EQ(found.size(), 3u);
  const double low = 0.8 * 110.0, step = (1.001 * RayleighVelocity(311.8, 0.3) - low) / 100.0;
  ASSERT_EQ(std::floor((found[0] - low) / step), std::floor((found[1] - low) / step))
      << "between the same trials";
  EXPECT_NEAR(c / found[2], 1.0, kAgreement) << "the first root that the scan sees is the third mode";
}

}  // namespace
}  // namespace sondera
