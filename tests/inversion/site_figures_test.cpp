// Tests of the average velocities and site classes of a profile, on examples that were computed apart.
#include "inversion/site_figures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

#include "inversion/site_classes.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// Thickness and velocity from the surface down; the last layer is the half-space.
SiteProfile Profile(const std::vector<std::array<double, 2>>& layers, double longestWavelength = 60.0) {
  SiteProfile profile;
  for (const auto& [h, v] : layers) profile.layers.push_back({h, v, {}, {}, {}});
  profile.longestWavelength = longestWavelength;
  return profile;
}
SiteProfile WithBand(SiteProfile profile, double share) {
  for (FigureLayer& layer : profile.layers) {
    layer.low = layer.vs * (1.0 - share);
    layer.high = layer.vs * (1.0 + share);
  }
  return profile;
}

const SiteProfile kA = Profile({{5, 150}, {10, 250}, {0, 400}});
const SiteProfile kB = Profile({{0, 200}});
const SiteProfile kC = Profile({{3, 120}, {7, 180}, {20, 300}, {0, 700}});
const SiteProfile kD = Profile({{4, 180}, {8, 260}, {0, 900}});
const SiteProfile kF = Profile({{1, 117}, {1.5, 139}, {2.5, 196}, {3, 178}, {4, 185}, {0, 247}}, 24.0);

SiteFigures Figures(const SiteProfile& profile, bool extend = false) {
  SiteFigures figures;
  EXPECT_EQ(FiguresOf(profile, extend, figures), "");
  return figures;
}
std::vector<std::string> Classes(const SiteProfile& profile, bool extend = false) {
  std::vector<std::string> values;
  for (const SiteClass& c : ClassesOf(profile, Figures(profile, extend)))
    values.push_back(c.value.value_or("none"));
  return values;
}

TEST(SiteFigures, WorkedAveragesToFourDecimals) {
  struct Row {
    const SiteProfile& profile;
    double v10, v20, v30, v100ft;
  };
  const Row rows[] = {{kA, 187.5000, 233.0097, 270.6767, 272.0619},
                      {kB, 200, 200, 200, 200},
                      {kC, 156.5217, 205.7143, 229.7872, 232.2440},
                      {kD, 220.7547, 323.2044, 411.0070, 414.5541},
                      {kF, 167.3410, 194.2545, 209.1415, 209.6476}};
  for (const Row& row : rows) {
    EXPECT_NEAR(AverageVelocity(row.profile, 10), row.v10, 5e-5);
    EXPECT_NEAR(AverageVelocity(row.profile, 20), row.v20, 5e-5);
    EXPECT_NEAR(AverageVelocity(row.profile, 30), row.v30, 5e-5);
    EXPECT_NEAR(AverageVelocity(row.profile, kHundredFeet), row.v100ft, 5e-5);
  }
}

TEST(SiteFigures, WorkedClasses) {
  EXPECT_THAT(Classes(kA), ElementsAre("C", "C or F", "D", "D"));
  EXPECT_THAT(Classes(kB), ElementsAre("C", "D or F", "D", "DE"));
  EXPECT_THAT(Classes(kC), ElementsAre("C", "D or F", "D", "D"));
  EXPECT_THAT(Classes(kD), ElementsAre("E", "E", "C", "CD"));
  EXPECT_EQ(ClassEn2004(*Figures(kD).figures[0].value), "B") << "by the number alone";
}

TEST(SiteFigures, SoftLayersOverRockSayWhereTheRockIs) {
  const auto classes = ClassesOf(kD, Figures(kD));
  EXPECT_THAT(classes[1].notes, ElementsAre("to be confirmed",
                                            "800 m/s is reached at 12 m; the average above is 226.4516 m/s"));
  EXPECT_THAT(ClassesOf(kA, Figures(kA))[1].notes,
              ElementsAre("to be confirmed", "open: 800 m/s was not reached in the 30 m that are known"));
}

TEST(SiteFigures, SeenToThirtyMetresIsMeasuredOverAHundredFeetToo) {
  const SiteFigures figures = Figures(kA);
  EXPECT_EQ(figures.seen.depth, 30.0);
  ASSERT_EQ(figures.figures.size(), 2u);
  EXPECT_EQ(figures.figures[0].name, "vs30");
  EXPECT_EQ(figures.figures[0].status, FigureStatus::Measured);
  EXPECT_EQ(figures.figures[1].depth, 30.48);
  EXPECT_EQ(figures.figures[1].status, FigureStatus::Measured);
  EXPECT_FALSE(figures.figures[0].low);
  EXPECT_FALSE(figures.figures[0].spread);
}

TEST(SiteFigures, NotSeenToThirtyMetresIsNotAvailableUnlessExtended) {
  const SiteFigures figures = Figures(kF);
  ASSERT_EQ(figures.figures.size(), 2u);
  EXPECT_EQ(figures.figures[0].name, "vs30");
  EXPECT_FALSE(figures.figures[0].value);
  EXPECT_EQ(StatusName(figures.figures[0].status), "not-available");
  EXPECT_EQ(
      figures.figures[0].reason,
      "the ground was seen to 12 m: half the longest wavelength is 12 m, and the resolution of the layers is "
      "not known");
  EXPECT_EQ(figures.figures[1].name, "vsz");
  EXPECT_EQ(figures.figures[1].depth, 12.0);
  EXPECT_NEAR(*figures.figures[1].value, 170.0463, 5e-5);
  EXPECT_THAT(Classes(kF), IsEmpty());

  const SiteFigures extended = Figures(kF, true);
  EXPECT_NEAR(*extended.figures[0].value, 209.1415, 5e-5);
  EXPECT_NEAR(*extended.figures[1].value, 209.6476, 5e-5);
  EXPECT_EQ(StatusName(extended.figures[0].status), "extended");
  EXPECT_THAT(extended.figures[0].reason, HasSubstr("generally gives too low an average"));
  EXPECT_THAT(Classes(kF, true), ElementsAre("C", "D or F", "D", "DE"));
}

TEST(SiteFigures, SeenIsTheLesserOfWavelengthAndResolution) {
  SiteProfile profile = kC;
  for (FigureLayer& layer : profile.layers) layer.resolution = 0.9;
  EXPECT_EQ(SeenDepthOf(profile).depth, 30.0) << "the half-space counts down to half a wavelength";
  profile.layers[3].resolution = 0.2;
  profile.layers[2].resolution = 0.29;
  EXPECT_EQ(SeenDepthOf(profile).depth, 10.0);
  EXPECT_EQ(*SeenDepthOf(profile).byResolution, 10.0);
  EXPECT_THAT(
      Figures(profile).figures[0].reason,
      HasSubstr("half the longest wavelength is 30 m, and layers have a resolution of 0.3 down to 10 m"));
  profile.layers[2].resolution = 0.3;
  EXPECT_EQ(SeenDepthOf(profile).depth, 30.0);
  for (FigureLayer& layer : profile.layers) layer.resolution = 0.1;
  EXPECT_EQ(SeenDepthOf(profile).depth, 0.0);
  ASSERT_EQ(Figures(profile).figures.size(), 1u) << "no average down to nothing";
  EXPECT_THAT(Figures(profile).figures[0].reason, HasSubstr("no layer has a resolution of 0.3"));
  profile.longestWavelength = 0.0;
  EXPECT_EQ(Figures(profile).figures[0].reason, "no curve tells how deep the ground was seen");
}

TEST(SiteFigures, OuterRangeHasAllLayersAtOneEnd) {
  const SiteFigure figure = Figures(WithBand(kA, 0.10)).figures[0];
  EXPECT_NEAR(*figure.low, 243.6090, 5e-5);
  EXPECT_NEAR(*figure.high, 297.7444, 5e-5);
  std::mt19937 random(5);
  std::uniform_real_distribution<double> share(0.0, 1.0);
  for (int round = 0; round < 200; ++round) {
    SiteProfile profile = kC;
    for (FigureLayer& layer : profile.layers) {
      layer.low = layer.vs * (1.0 - share(random) * 0.9);
      layer.high = layer.vs * (1.0 + share(random));
    }
    const SiteFigure f = Figures(profile).figures[0];
    EXPECT_LE(*f.low, *f.value);
    EXPECT_GE(*f.high, *f.value);
  }
  SiteProfile below = WithBand(kA, 0.1);
  below.layers[1].low = 0.0;
  EXPECT_FALSE(Figures(below).figures[0].low) << "a band that reaches 0 has no average";
}

/// Covariance of deviations of 5 % with correlations between layers 1-2, 1-3 and 2-3.
SiteProfile WithCovariance(SiteProfile profile, double r12, double r13, double r23) {
  const double r[3][3] = {{1, r12, r13}, {r12, 1, r23}, {r13, r23, 1}};
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j)
      profile.covariance.push_back(r[i][j] * 0.05 * profile.layers[i].vs * 0.05 * profile.layers[j].vs);
  return profile;
}

TEST(SiteFigures, SpreadIsThatOfTheCovariance) {
  const std::vector<double> g = AverageGradient(kA, 30);
  EXPECT_NEAR(g[0], 0.54271016, 5e-9);
  EXPECT_NEAR(g[1], 0.39075131, 5e-9);
  EXPECT_NEAR(g[2], 0.22895585, 5e-9);
  EXPECT_NEAR(*Figures(WithCovariance(kA, 0, 0, 0)).figures[0].spread / 2, 7.8354, 5e-5);
  EXPECT_NEAR(*Figures(WithCovariance(kA, 1, 1, 1)).figures[0].spread / 2, 13.5338, 5e-5);
  EXPECT_NEAR(*Figures(WithCovariance(kA, -0.5, 0, -0.3)).figures[0].spread / 2, 5.3002, 5e-5);
}

TEST(SiteFigures, GradientIsTheDifferenceQuotient) {
  for (double depth : {4.0, 12.0, 30.0, 30.48}) {
    const std::vector<double> g = AverageGradient(kC, depth);
    for (std::size_t i = 0; i < g.size(); ++i) {
      SiteProfile up = kC, down = kC;
      up.layers[i].vs += 1e-3;
      down.layers[i].vs -= 1e-3;
      EXPECT_NEAR(g[i], (AverageVelocity(up, depth) - AverageVelocity(down, depth)) / 2e-3, 1e-7);
    }
  }
}

TEST(SiteFigures, DepthInsideALayerOnABoundaryAndInTheFirst) {
  EXPECT_EQ(AverageVelocity(kA, 3), 150.0);
  EXPECT_EQ(AverageVelocity(kA, 5), 150.0);
  EXPECT_NEAR(AverageVelocity(kA, 15), 15 / (5 / 150.0 + 10 / 250.0), 1e-12);
  EXPECT_NEAR(AverageVelocity(kA, 10), 10 / (5 / 150.0 + 5 / 250.0), 1e-12);
  // Second route: the travel time through a metre after a centimetre.
  double time = 0.0;
  for (int i = 0; i < 3000; ++i) {
    const double z = (i + 0.5) * 0.01;
    time += 0.01 / (z < 3 ? 120 : z < 10 ? 180 : 300);
  }
  EXPECT_NEAR(AverageVelocity(kC, 30), 30 / time, 1e-8);
}

TEST(SiteFigures, ProfilesThatCannotBeAreRefused) {
  SiteFigures figures;
  EXPECT_EQ(FiguresOf(Profile({}), false, figures), "the profile has no layers");
  EXPECT_EQ(FiguresOf(Profile({{5, 0}, {0, 400}}), false, figures), "layer 1 has a shear-wave velocity of 0");
  EXPECT_EQ(FiguresOf(Profile({{0, 150}, {0, 400}}), false, figures), "layer 1 has a thickness of 0");
  EXPECT_EQ(FiguresOf(Profile({{5, 150}, {0, std::numeric_limits<double>::quiet_NaN()}}), true, figures),
            "layer 2 has a shear-wave velocity of nan");
  SiteProfile profile = kA;
  profile.covariance.assign(4, 1.0);
  EXPECT_EQ(FiguresOf(profile, false, figures), "the covariance does not belong to the layers");
  EXPECT_THAT(figures.figures, IsEmpty());
}

TEST(SiteFigures, FeetGiveTheSameMetresASecond) {
  SiteProfile feet = kC;
  feet.lengthUnit = 0.3048;
  feet.longestWavelength /= 0.3048;
  for (FigureLayer& layer : feet.layers) {
    layer.thickness /= 0.3048;
    layer.vs /= 0.3048;
  }
  EXPECT_NEAR(*Figures(feet).figures[0].value, *Figures(kC).figures[0].value, 1e-10);
  EXPECT_EQ(Classes(feet), Classes(kC));
}

// ---- limits of the classes --------------------------------------------------------------------------------

TEST(SiteClasses, LimitsOfAsce722AreInclusiveAtTheirUpperEnd) {
  const std::pair<double, std::array<const char*, 2>> limits[] = {
      {152.4, {"E", "DE"}},  {213.36, {"DE", "D"}}, {304.8, {"D", "CD"}}, {441.96, {"CD", "C"}},
      {640.08, {"C", "BC"}}, {914.4, {"BC", "B"}},  {1524.0, {"B", "A"}}};
  for (const auto& [v, names] : limits) {
    EXPECT_EQ(Classes(Profile({{0, v}}))[3], names[0]) << v;
    EXPECT_EQ(Classes(Profile({{3, v}, {11, v}, {0, v}}))[3], names[0]) << v << " in equal layers";
    EXPECT_EQ(Classes(Profile({{0, std::nextafter(v, 1e9)}}))[3], names[1]) << v;
    EXPECT_EQ(Classes(Profile({{0, v + 1e-6}}))[3], names[1]) << v;
  }
}

TEST(SiteClasses, LimitsOfTheOtherCodes) {
  EXPECT_EQ(ClassEn2004(180), "C");
  EXPECT_EQ(ClassEn2004(std::nextafter(180.0, 0.0)), "D");
  EXPECT_EQ(ClassEn2004(360), "B");
  EXPECT_EQ(ClassEn2004(std::nextafter(360.0, 0.0)), "C");
  EXPECT_EQ(ClassEn2004(800), "B");
  EXPECT_EQ(ClassEn2004(800 + 1e-6), "A");
  EXPECT_EQ(ClassAsce716(182.88), "D");
  EXPECT_EQ(ClassAsce716(182.88 - 1e-6), "E");
  EXPECT_EQ(ClassAsce716(365.76), "D");
  EXPECT_EQ(ClassAsce716(365.76 + 1e-6), "C");
  EXPECT_EQ(ClassAsce716(762 + 1e-6), "B");
  EXPECT_EQ(ClassAsce716(1524 + 1e-6), "A");
}

TEST(SiteClasses, ClassENeedsFiveToTwentyMetresOfSoftGroundOnRock) {
  const auto en2004 = [](const SiteProfile& p) { return Classes(p)[0]; };
  EXPECT_EQ(en2004(Profile({{5, 200}, {0, 801}})), "E");
  EXPECT_EQ(en2004(Profile({{20, 300}, {0, 801}})), "E");
  EXPECT_EQ(en2004(Profile({{4.9, 200}, {0, 900}})), "B");
  EXPECT_EQ(en2004(Profile({{20.1, 300}, {0, 900}})), "B");
  EXPECT_EQ(en2004(Profile({{10, 200}, {0, 800}})), "B") << "800 is not more than 800";
  EXPECT_EQ(en2004(Profile({{10, 360}, {0, 900}})), "B") << "360 is type B";
  EXPECT_EQ(en2004(Profile({{10, 200}, {5, 900}, {0, 500}})), "C") << "rock all the way down";
}

TEST(SiteClasses, SecondGenerationByDepthToRock) {
  const auto second = [](const SiteProfile& p) { return Classes(p)[1]; };
  EXPECT_EQ(second(Profile({{0, 800}})), "A");
  EXPECT_EQ(second(Profile({{5, 300}, {0, 800}})), "A");
  EXPECT_EQ(second(Profile({{5, 200}, {0, 800}})), "E");
  EXPECT_EQ(second(Profile({{30, 500}, {0, 800}})), "B");
  EXPECT_EQ(second(Profile({{30, 300}, {0, 800}})), "E");
  EXPECT_EQ(second(Profile({{60, 300}, {0, 800}}, 130)), "C") << "seen to 65 m";
  EXPECT_EQ(second(Profile({{60, 300}, {0, 800}})), "C or F") << "seen to 30 m";
  EXPECT_EQ(second(Profile({{150, 300}, {0, 800}}, 250)), "F") << "not reached in 125 m";
  EXPECT_EQ(second(Profile({{0, 500}})), "B");
  EXPECT_EQ(second(Profile({{0, 100}})), "none") << "below the table";
}

TEST(SiteClasses, RangeIsPrintedWhereItsEndsDiffer) {
  const auto classes = ClassesOf(WithBand(kC, 0.4), Figures(WithBand(kC, 0.4)));
  EXPECT_EQ(ClassText(classes[3]), "ASCE 7-22: D (E to CD)");
  EXPECT_EQ(ClassText(ClassesOf(kC, Figures(kC))[3]), "ASCE 7-22: D");
  EXPECT_EQ(ClassText(ClassesOf(kC, Figures(kC))[0]), "EN 1998-1:2004: C");
  EXPECT_EQ(ClassText(ClassesOf(kD, Figures(kD))[1]), "EN 1998-1-1:2024: E");
}

}  // namespace
}  // namespace sondera::testing
