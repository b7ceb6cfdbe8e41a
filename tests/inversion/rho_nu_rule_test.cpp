// Tests of the rule that gives density and Poisson's ratio for a shear-wave velocity.
#include "inversion/rho_nu_rule.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "runtime/catalogue/meassetup.h"
#include "runtime/controls.h"

namespace sondera {
namespace {

TEST(RuleForVs, TakesSoilUpToTheLimitAndStiffGroundAbove) {
  for (const double Vs : {0.0, 93.7, 420.0}) {
    const DensityAndNu soil = RuleForVs(Vs, 1.0, 0);
    EXPECT_EQ(soil.density, 1800.0) << Vs;
    EXPECT_EQ(soil.nu, 0.3333333) << Vs;
  }
  for (const double Vs : {std::nextafter(420.0, 421.0), 1873.0}) {
    const DensityAndNu stiff = RuleForVs(Vs, 1.0, 0);
    EXPECT_EQ(stiff.density, 2400.0) << Vs;
    EXPECT_EQ(stiff.nu, 0.2) << Vs;
  }
}

TEST(RuleForVs, DividesDensitiesByUnitWithTheDivisorsThatStand) {
  const double divisors[] = {1.0, 0.0018, 16.019, 27080.0};
  for (int unit = 0; unit < 4; ++unit) {
    EXPECT_EQ(RuleForVs(1.0, 1.0, unit).density, 1800.0 / divisors[unit]) << unit;
    EXPECT_EQ(RuleForVs(421.0, 1.0, unit).density, 2400.0 / divisors[unit]) << unit;
  }
}

TEST(RuleForVs, ComparesMetresPerSecondWhateverTheUnit) {
  for (int unit = 0; unit < GetNumListItems(meassetup::LENGTHUNIT); ++unit) {
    const double factor = GetValueFromIndex(meassetup::LENGTHUNIT, unit);
    EXPECT_EQ(RuleForVs(419.0 / factor, factor, unit).nu, 0.3333333) << unit;
    EXPECT_EQ(RuleForVs(421.0 / factor, factor, unit).nu, 0.2) << unit;
  }
}

TEST(RuleForVs, HasARowForEachUnitOfTheRing) {
  EXPECT_EQ(GetNumListItems(meassetup::LENGTHUNIT), 4);
}

TEST(RuleForVs, TakesAnUnknownUnitAsMetres) {
  EXPECT_EQ(RuleForVs(150.0, 1.0, -1).density, 1800.0);
  EXPECT_EQ(RuleForVs(150.0, 1.0, 4).density, 1800.0);
}

TEST(RuleForVs, StaysFiniteForAVelocityThatIsNoNumber) {
  for (const double Vs :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(RuleForVs(Vs, 1.0, 0).density, 2400.0);
    EXPECT_EQ(RuleForVs(Vs, 1.0, 0).nu, 0.2);
  }
}

}  // namespace
}  // namespace sondera
