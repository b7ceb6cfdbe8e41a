// Tests of the table of phase velocities: against the solver at single wavelengths.
#include "forward/plane_wave_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "forward/plane_wave.h"

namespace sondera {
namespace {

const std::vector<PlaneWaveLayer> kGround = {
    {2.0, 150.0, 1.8, 0.25}, {4.0, 220.0, 1.8, 0.3}, {8.0, 300.0, 1.9, 0.3}, {0.0, 400.0, 2.0, 0.25}};

double Solved(double wavelength) {
  const int n = 4, one = 1;
  const double h[] = {0, 2, 4, 8, 0}, Vs[] = {0, 150, 220, 300, 400}, rho[] = {0, 1.8, 1.8, 1.9, 2.0},
               nu[] = {0, 0.25, 0.3, 0.3, 0.25}, L[] = {0, wavelength};
  double c[] = {0, 0};
  FS_SASW2D(&n, h, Vs, nullptr, nullptr, rho, nullptr, nu, &one, L, c);
  return c[1];
}

TEST(PlaneWaveTable, IsTheSolverAtAnyFrequencyAndWavelength) {
  const PlaneWaveTable table(kGround);
  EXPECT_TRUE(table.Whole());
  for (double f = 1.0; f < 400.0; f *= 1.237) {
    const double c = table.Velocity(f);
    EXPECT_NEAR(Solved(c / f) / c, 1.0, 1e-4) << f;
  }
  for (double L = 0.5; L < 500.0; L *= 1.237)
    EXPECT_NEAR(table.VelocityAtWavelength(L) / Solved(L), 1.0, 1e-4) << L;
}

TEST(PlaneWaveTable, IsLevelBeyondItsEnds) {
  const PlaneWaveTable table(kGround);
  EXPECT_EQ(table.Velocity(1e-6), table.VelocityAtWavelength(1e9));
  EXPECT_NEAR(table.Velocity(1e-6), 0.9194 * 400.0, 4.0);
  EXPECT_NEAR(table.Velocity(1e6), 0.9194 * 150.0, 0.2);
}

TEST(PlaneWaveTable, OneLayerIsTheRayleighWave) {
  const PlaneWaveTable table({{0.0, 200.0, 1.8, 0.25}});
  EXPECT_NEAR(table.Velocity(33.0), 200.0 * std::sqrt(2.0 - 2.0 / std::sqrt(3.0)), 0.01);
}

/// The solver finds no root at long wavelengths: its range ends at the Rayleigh velocity for the first layer's
/// Poisson's ratio, 0.9194 of 300, and the wave is faster, 0.9535 of 300.
TEST(PlaneWaveTable, AGroundWithoutARootAtLongWavelengthsKeepsTheOthers) {
  const int n = 2, one = 1;
  const double h[] = {0, 2, 0}, Vs[] = {0, 150, 300}, rho[] = {0, 1.8, 1.8}, nu[] = {0, 0.25, 0.49};
  const auto solved = [&](double wavelength) {
    const double L[] = {0, wavelength};
    double c[] = {0, 0};
    FS_SASW2D(&n, h, Vs, nullptr, nullptr, rho, nullptr, nu, &one, L, c);
    return c[1];
  };
  ASSERT_EQ(solved(200.0), 0.0);

  const PlaneWaveTable table({{2.0, 150.0, 1.8, 0.25}, {0.0, 300.0, 1.8, 0.49}});
  EXPECT_FALSE(table.Whole());
  for (double L = 0.5; L < 16.0; L *= 1.237) {
    ASSERT_GT(solved(L), 0.0) << L;
    EXPECT_NEAR(table.VelocityAtWavelength(L) / solved(L), 1.0, 1e-4) << L;
  }
  EXPECT_NEAR(table.Velocity(1.0), 0.9194 * 300.0, 3.0);
  EXPECT_EQ(table.Velocity(1.0), table.VelocityAtWavelength(200.0));
}

}  // namespace
}  // namespace sondera
