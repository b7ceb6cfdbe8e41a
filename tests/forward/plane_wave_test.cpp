// plane_wave_test.cpp - rules of the plane-wave solver: range, scan, bisection, velocities equal to those of
// a layer, truncation, and invalid data.
#include "forward/plane_wave.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <cmath>
#include <vector>

#include "forward/plane_wave_reference.h"
#include "support/odd_numbers.h"

namespace sondera {
namespace {

using plain::Ground;

constexpr double kUntouched = -7.25;
constexpr double kVelocityShift = 0.9998999834060669;

/// The layers in the solver's form, from 1.
struct Layers {
  explicit Layers(const Ground& g) : n(static_cast<int>(g.h.size())) {
    for (auto [from, to] : {std::pair{&g.h, &h}, {&g.Vs, &Vs}, {&g.rho, &rho}, {&g.nu, &nu}}) {
      to->assign(1, 0.0);
      to->insert(to->end(), from->begin(), from->end());
    }
    depth.assign(2, 0.0);
    for (int l = 1; l <= n; ++l) depth.push_back(depth.back() + h[static_cast<std::size_t>(l)]);
  }
  int n;
  std::vector<double> h, Vs, rho, nu, depth;
};

std::vector<double> Sasw2d(const Ground& g, const std::vector<double>& wavelengths) {
  const Layers a(g);
  const int waves = static_cast<int>(wavelengths.size());
  std::vector<double> L(1, 0.0), c(wavelengths.size() + 1, kUntouched);
  L.insert(L.end(), wavelengths.begin(), wavelengths.end());
  FS_SASW2D(&a.n, a.h.data(), a.Vs.data(), nullptr, nullptr, a.rho.data(), nullptr, a.nu.data(), &waves,
            L.data(), c.data());
  return {c.begin() + 1, c.end()};
}

double Sasw2d(const Ground& g, double L) {
  return Sasw2d(g, std::vector<double>{L})[0];
}

struct Found {
  int count;
  std::vector<double> c, f;  // from 1
};

Found Search(const Ground& g, double L, double cLow, double cHigh, int modeCount) {
  const Layers a(g);
  Found found{modeCount, std::vector<double>(26, kUntouched), std::vector<double>(26, kUntouched)};
  FS_search_(L, cLow, cHigh, a.h.data(), a.depth.data(), a.Vs.data(), a.nu.data(), a.rho.data(), a.n,
             &found.count, found.c.data(), found.f.data(), 0);
  return found;
}

/// Rayleigh velocity over Vs from Rayleigh's equation.
double RayleighRatio(double nu) {
  const double kappa = (1.0 - 2.0 * nu) / (2.0 * (1.0 - nu));
  double lo = 0.3, hi = 1.0 - 1e-13;
  for (int i = 0; i < 60; ++i) {
    const double x = 0.5 * (lo + hi), x2 = x * x;
    const double value = (2.0 - x2) * (2.0 - x2) - 4.0 * std::sqrt(1.0 - x2) * std::sqrt(1.0 - kappa * x2);
    (value < 0.0 ? lo : hi) = x;
  }
  return lo;
}

const Ground kGradient{
    {2.0, 3.0, 5.0, 1.0}, {120.0, 180.0, 260.0, 400.0}, {1.7, 1.8, 1.9, 2.0}, {.3, .3, .35, .4}};

/// Roots of the plain formula and of FS_search_ in collect mode.
void ExpectSameRoots(const Ground& g, double L, double cLow, double cHigh, std::size_t atLeast = 1) {
  const auto expected = plain::Roots(g, L, cLow, cHigh, 25);
  const Found found = Search(g, L, cLow, cHigh, 0);
  EXPECT_GE(expected.size(), atLeast);
  ASSERT_EQ(static_cast<std::size_t>(found.count), expected.size());
  for (std::size_t k = 0; k < expected.size(); ++k) {
    EXPECT_NEAR(found.c[k + 1], expected[k].c, 1e-12 * expected[k].c);
    EXPECT_NEAR(found.f[k + 1], expected[k].f, 1e-12 * expected[k].f);
  }
}

// --- range of the scan ---

TEST(FsSasw2d, UniformHalfSpaceHasOneRootAtTheSameVelocityForAnyWavelength) {
  const Ground g{{3.7}, {213.0}, {1.93}, {0.31}};
  const double first = Sasw2d(g, 0.05);
  EXPECT_NEAR(first, 213.0 * RayleighRatio(0.31), 2e-7 * first);
  for (double L : {0.37, 1.0, 2.385, 14.0, 61.3, 200.0, 1e4}) EXPECT_NEAR(Sasw2d(g, L), first, 1e-12 * first);
  double cMin = 0.0, cMax = 0.0;
  ASSERT_TRUE(plain::ScanRange(g, &cMin, &cMax));
  EXPECT_NEAR(cMin, 213.0 * 0.8, 1e-5);
  EXPECT_NEAR(cMax / first, 1.001, 2e-7);
  EXPECT_EQ(Search(g, 2.385, cMin, cMax, 0).count, 1);
}

TEST(FsSasw2d, UpperEndUsesThePoissonsRatioOfTheFirstLayer) {
  // A thin cover on ground of nearly the same stiffness: at long wavelengths the wave has the velocity of the
  // ground.
  Ground g{{0.1, 1.0}, {299.0, 300.0}, {1.8, 1.8}, {0.05, 0.49}};
  const double ground = 300.0 * RayleighRatio(0.49);
  ASSERT_GT(ground, 1.001 * 300.0 * RayleighRatio(0.05));
  EXPECT_EQ(Sasw2d(g, 150.0), kUntouched) << "the scan ends below the root";
  g.nu[0] = 0.49;
  EXPECT_NEAR(Sasw2d(g, 150.0), ground, 1e-3 * ground);
}

TEST(FsSasw2d, StiffLayerBelowTwiceTheWavelengthMovesTheTrialsButNotTheRoot) {
  Ground soft = kGradient, stiff = kGradient;
  stiff.Vs[3] = 900.0;  // its top is at 10
  double low = 0.0, high = 0.0, higher = 0.0;
  ASSERT_TRUE(plain::ScanRange(soft, &low, &high));
  ASSERT_TRUE(plain::ScanRange(stiff, &low, &higher));
  EXPECT_GT(higher, 2.0 * high);
  for (double L : {1.0, 3.0, 5.0}) {
    EXPECT_NEAR(Sasw2d(soft, L), Sasw2d(stiff, L), 2e-7 * Sasw2d(soft, L));
    const Found a = Search(soft, L, low, high, 1), b = Search(stiff, L, low, high, 1);
    EXPECT_EQ(a.c[1], b.c[1]) << "on the same trials the very same root";
  }
}

TEST(FsSasw2d, SoftLayerBetweenStiffOnesHasItsRootWellAboveTheLowerEnd) {
  const Ground g{{1.0, 3.0, 1.0}, {300.0, 100.0, 310.0}, {1.9, 1.7, 1.9}, {0.3, 0.4, 0.3}};
  const double c = Sasw2d(g, 6.0);
  EXPECT_GT(c, 1.2 * 80.0);
  EXPECT_LT(c, 310.0);
}

TEST(FsSasw2d, WithoutARootInRangeTheOutputStaysAsItWas) {
  const Ground g{{0.1, 0.1, 1.0}, {300.0, 200.0, 310.0}, {1.9, 1.7, 1.9}, {0.1, 0.45, 0.49}};
  EXPECT_EQ(Sasw2d(g, 200.0), kUntouched);
}

TEST(FsSasw2d, DensityScaleAndUnitsOfLengthDoNotMatter) {
  Ground feet = kGradient;
  for (std::size_t l = 0; l < 4; ++l) {
    feet.h[l] /= 0.3048;
    feet.Vs[l] /= 0.3048;
    feet.rho[l] *= 1940.0;
  }
  for (double L : {2.0, 9.0, 33.0}) {
    EXPECT_NEAR(Sasw2d(feet, L / 0.3048) * 0.3048, Sasw2d(kGradient, L), 2e-7 * Sasw2d(kGradient, L));
  }
}

TEST(FsSasw2d, LayersOfOneMaterialAreAHalfSpace) {
  const Ground g{{0.5, 1.5, 4.0, 1.0}, {240, 240, 240, 240}, {1.8, 1.8, 1.8, 1.8}, {.35, .35, .35, .35}};
  for (double L : {0.3, 1.0, 4.0, 25.0}) EXPECT_NEAR(Sasw2d(g, L) / (240.0 * RayleighRatio(0.35)), 1.0, 2e-7);
}

TEST(FsSasw2d, SeveralWavelengthsAtOnceGiveTheValuesOfSingleCalls) {
  const std::vector<double> L{1.0, 1.7, 3.1, 5.9, 9.7, 17.0, 30.0, 58.0};
  const std::vector<double> c = Sasw2d(kGradient, L);
  for (std::size_t i = 0; i < L.size(); ++i) EXPECT_EQ(c[i], Sasw2d(kGradient, L[i])) << L[i];
  const std::vector<double> two = Sasw2d(kGradient, {3.1, 30.0});
  EXPECT_EQ(two[0], c[2]);
  EXPECT_EQ(two[1], c[6]);
}

// --- search ---

TEST(FsSearch, CollectsAllRootsOfTheScanInOrder) {
  ExpectSameRoots(kGradient, 2.0, 96.0, 380.0, 3);
  ExpectSameRoots({{4.0, 1.0}, {100.0, 900.0}, {1.7, 2.3}, {0.4, 0.25}}, 3.0, 80.0, 830.0, 6);
}

TEST(FsSearch, StopsAtTwentyFiveRoots) {
  const Ground waveguide{{40.0, 1.0}, {100.0, 4000.0}, {1.7, 2.3}, {0.4, 0.25}};
  const Found found = Search(waveguide, 21.0, 80.0, 3600.0, 0);
  EXPECT_EQ(found.count, 25);
  ExpectSameRoots(waveguide, 21.0, 80.0, 3600.0, 25);
}

TEST(FsSearch, SingleRootModeKeepsTheFirstAtIndexOne) {
  const Found all = Search(kGradient, 2.0, 96.0, 380.0, 0), one = Search(kGradient, 2.0, 96.0, 380.0, 1);
  ASSERT_GT(all.count, 1);
  EXPECT_EQ(one.count, 1);
  EXPECT_EQ(one.c[1], all.c[1]);
  EXPECT_EQ(one.f[1], all.c[1] / 2.0);
  EXPECT_EQ(one.c[2], kUntouched);
}

TEST(FsSearch, NoRootLeavesTheVectorsAndCountsZero) {
  for (int mode : {0, 1}) {
    const Found found = Search(kGradient, 2.0, 20.0, 60.0, mode);
    EXPECT_EQ(found.count, 0);
    EXPECT_EQ(found.c[1], kUntouched);
    EXPECT_EQ(found.f[1], kUntouched);
  }
}

TEST(FsSearch, ScanMayRunDownwards) {
  ExpectSameRoots(kGradient, 2.0, 380.0, 96.0, 3);
}

TEST(FsSearch, NudgedTrialIsTheEndOfItsBracket) {
  // Trial 51 is the Vs of the first layer, 128; at this wavelength the root is between trial 50 and it.
  const Ground g{{1.0, 2.0, 1.0}, {128.0, 192.0, 512.0}, {1.7, 1.8, 2.0}, {0.0, 1.0 / 3.0, 0.25}};
  double shorter = 1.0, longer = 10.0;
  while (longer - shorter > 1e-9) {
    const double L = 0.5 * (shorter + longer);
    (Sasw2d(g, L) < 127.6 ? shorter : longer) = L;
  }
  const Found found = Search(g, longer, 78.0, 178.0, 0);
  ASSERT_GE(found.count, 1);
  EXPECT_NEAR(found.c[1], 127.6, 1e-3);
  ExpectSameRoots(g, longer, 78.0, 178.0);
  double lo = 127.0, hi = 128.0 * kVelocityShift, mid = 0.0;
  double atHi = hi;
  const double fHi = plain::CharacteristicValue(g, longer, &atHi);
  while (std::fabs((hi - lo) / hi) >= 1e-07) {
    double c = mid = (lo + hi) / 2.0;
    (plain::CharacteristicValue(g, longer, &c) * fHi < 0.0 ? lo : hi) = mid;
  }
  EXPECT_EQ(found.c[1], mid) << "the midpoints start from the nudged velocity";
}

TEST(FsSearch, TrialsAtVelocitiesOfSeveralLayersGiveThePlainRoots) {
  const Ground g{{1.0, 2.0, 1.0}, {128.0, 192.0, 512.0}, {1.7, 1.8, 2.0}, {0.0, 1.0 / 3.0, 0.25}};
  for (double L : {1.3, 2.0, 3.7, 8.0}) {
    ExpectSameRoots(g, L, 128.0 - 25.0, 128.0 + 75.0, 0);
    ExpectSameRoots(g, L, 192.0 - 100.0, 192.0 + 300.0);
  }
}

TEST(FsSearch, LayersAtTwiceTheWavelengthAreLeftOut) {
  Ground g = kGradient;  // tops at 0, 2, 5, 10
  const Found atTop = Search(g, 5.0, 96.0, 380.0, 0), above = Search(g, 5.0001, 96.0, 380.0, 0);
  g.Vs[3] = 1000.0;
  EXPECT_EQ(Search(g, 5.0, 96.0, 380.0, 0).c, atTop.c);
  EXPECT_NE(Search(g, 5.0001, 96.0, 380.0, 0).c, above.c) << "the higher modes reach the layer";
}

// --- bisection ---

struct Bracket {
  double lo, hi;
  dcomplex fLo, fHi;
};

Bracket Sub(const Ground& g, double L, Bracket b) {
  const Layers a(g);
  LayerStiffness K;
  FS_sub_(&b.lo, &b.hi, &b.fLo, &b.fHi, L, a.n, &K, a.Vs.data(), a.nu.data(), a.rho.data(), a.h.data(),
          a.depth.data(), 0);
  return b;
}

double Value(const Ground& g, double L, double c) {
  return plain::CharacteristicValue(g, L, &c);
}

TEST(FsSub, ReturnsTheLastMidpointOfAPlainBisection) {
  for (double L : {2.0, 7.3, 30.0}) {
    const double root = Sasw2d(kGradient, L);
    double lo = root * 0.99, hi = root * 1.007;
    const double fHi = Value(kGradient, L, hi);
    ASSERT_LT(Value(kGradient, L, lo) * fHi, 0.0);
    const Bracket b = Sub(kGradient, L, {lo, hi, {-fHi, 0.0}, {fHi, 0.0}});
    double mid = 0.0;
    while (std::fabs((hi - lo) / hi) >= 1e-07) {
      mid = (lo + hi) / 2.0;
      (Value(kGradient, L, mid) * fHi < 0.0 ? lo : hi) = mid;
    }
    EXPECT_EQ(b.hi, mid);
    EXPECT_EQ(b.lo, lo);
  }
}

TEST(FsSub, NarrowBracketIsLeftAsItIs) {
  const Bracket b = Sub(kGradient, 2.0, {112.0, 112.000011, {-1.0, 0.0}, {1.0, 0.0}});
  EXPECT_EQ(b.hi, 112.000011);
}

TEST(FsSub, ZeroEndsItAtOnce) {
  const Ground weightless{{1.0}, {200.0}, {0.0}, {0.3}};
  EXPECT_EQ(Sub(weightless, 2.0, {100.0, 180.0, {-1.0, 0.0}, {1.0, 0.0}}).hi, 140.0);
}

TEST(FsSub, NotANumberEndsIt) {
  const Ground broken{{1.0, 1.0}, {kNaN, 200.0}, {1.8, 1.8}, {0.3, 0.3}};
  EXPECT_EQ(Sub(broken, 2.0, {100.0, 180.0, {-1.0, 0.0}, {1.0, 0.0}}).hi, 140.0);
  EXPECT_EQ(Sub(kGradient, 2.0, {100.0, 180.0, {-1.0, 0.0}, {kNaN, 0.0}}).hi, 140.0);
  Sub(kGradient, 2.0, {kNaN, 180.0, {-1.0, 0.0}, {1.0, 0.0}});
  Sub(kGradient, 2.0, {100.0, kInf, {-1.0, 0.0}, {1.0, 0.0}});
  Sub(kGradient, 2.0, {-kInf, kInf, {-1.0, 0.0}, {1.0, 0.0}});
  Sub(kGradient, 2.0, {0.0, 5e-324, {-1.0, 0.0}, {1.0, 0.0}});
  Sub(kGradient, 2.0, {-1.0, 0.0, {-1.0, 0.0}, {1.0, 0.0}});
}

// --- condensation and half-space ---

struct Strat {
  LayerStiffness K;
  double c;
  int stopLayer = -1;
  dcomplex D{1.0, 0.0};
};

Strat Condense(const Ground& g, double omega, double c, int nl) {
  const Layers a(g);
  Strat s{{}, c};
  FS_strat_(&s.K, omega, &s.c, a.h.data(), a.Vs.data(), a.nu.data(), a.rho.data(), nl, &s.stopLayer, &s.D);
  return s;
}

TEST(FsStrat, TrialAtVsOrVpIsNudgedForThatTrialWhileOmegaStays) {
  const Ground g{{1.0, 2.0, 1.0}, {128.0, 192.0, 512.0}, {1.7, 1.8, 2.0}, {0.0, 0.3, 0.25}};
  const double omega = 400.0;
  const double Vp = 192.0 * std::sqrt(2.0 * (1.0 - 0.3) / (1.0 - 2.0 * 0.3));
  for (double c : {128.0, Vp}) {
    const Strat at = Condense(g, omega, c, 2);
    EXPECT_EQ(at.c, c * kVelocityShift);
    EXPECT_EQ(at.stopLayer, 0);
  }
  const Strat hit = Condense(g, omega, 128.0, 2), beside = Condense(g, omega, 128.0 * kVelocityShift, 2);
  for (int i = 1; i <= 2; ++i) {
    for (int j = i; j <= 2; ++j) EXPECT_EQ(hit.K(i, j).re, beside.K(i, j).re);
  }
  const Strat below =
      Condense(g, omega, 192.0, 2);  // the second layer's: the first keeps the velocity as it was
  EXPECT_EQ(below.c, 192.0 * kVelocityShift);
  EXPECT_NE(below.K(1, 1).re, Condense(g, omega, 192.0 * kVelocityShift, 2).K(1, 1).re);
  EXPECT_EQ(Condense(g, omega, 150.0, 2).c, 150.0);
}

TEST(FsStrat, HalfSpaceAtItsOwnVelocityIsNotNudged) {
  const Ground g{{1.0}, {128.0}, {1.7}, {0.0}};
  double c = 128.0;
  const double value = plain::CharacteristicValue(g, 2.0, &c);
  EXPECT_EQ(c, 128.0);
  const Layers a(g);
  const dcomplex F = FS_hspace(LayerStiffness{}, 2.0 * std::acos(-1.0) * 64.0, 128.0, 1, a.Vs.data(),
                               a.nu.data(), a.rho.data(), {1.0, 0.0});
  EXPECT_EQ(F.re, value);
}

TEST(FsStrat, StopsAboveTheLayerWhoseExponentExceedsEighteen) {
  // So slow that r and s are 1 to the last bit, so the exponent is k h exactly.
  const double c = std::ldexp(1.0, -30), omega = 18.0 * c;
  Ground g{{0.25, 1.0, 0.5, 1.0}, {1, 1, 1, 1}, {1, 1, 1, 1}, {.25, .25, .25, .25}};
  EXPECT_EQ(Condense(g, omega, c, 3).stopLayer, 0) << "18 itself is no stop";
  g.h[1] = 1.0 + 1e-9;
  EXPECT_EQ(Condense(g, omega, c, 3).stopLayer, 2);
  EXPECT_EQ(Condense(g, omega, c, 1).stopLayer, 0) << "the layer is not asked for";
  g.h[0] = 2.0;
  const Strat s = Condense(g, omega, c, 3);
  EXPECT_EQ(s.stopLayer, 1);
  EXPECT_EQ(s.K(1, 1).re, 0.0) << "nothing is assembled before the test";
  EXPECT_EQ(s.D.re, 1.0);
}

TEST(FsStrat, StopsWhereOnlyTheCompressionWaveIsTooThick) {
  const Ground g{{3.0, 1.0}, {100.0, 400.0}, {1.8, 1.8}, {0.45, 0.3}};
  const double c = 150.0, omega = 7.0 * c;  // s is imaginary, r k h is 18.6
  EXPECT_EQ(Condense(g, omega, c, 1).stopLayer, 1);
}

TEST(FsStrat, CondensedStackOfOneMaterialActsAsTheHalfSpace) {
  const Ground g{{0.7, 1.1, 1.0}, {200, 200, 200}, {1.8, 1.8, 1.8}, {.3, .3, .3}};
  const Layers a(g);
  for (double c : {150.0, 170.0, 184.0, 186.0, 195.0}) {
    const double omega = 3.0 * c;
    const Strat s = Condense(g, omega, c, 2);
    const dcomplex layered = FS_hspace(s.K, omega, c, 3, a.Vs.data(), a.nu.data(), a.rho.data(), s.D);
    const dcomplex uniform =
        FS_hspace(LayerStiffness{}, omega, c, 3, a.Vs.data(), a.nu.data(), a.rho.data(), {1.0, 0.0});
    EXPECT_EQ(std::signbit(layered.re), std::signbit(uniform.re)) << c;
    EXPECT_NEAR(std::fabs(layered.re), 1.0, 1e-12) << "real below Vs";
    EXPECT_EQ(layered.im, 0.0);
  }
}

TEST(FsHspace, ValueIsTheCosineOfThePhase) {
  const Ground g{{1.0, 1.0}, {300.0, 150.0}, {1.9, 1.7}, {0.3, 0.35}};
  const Layers a(g);
  bool between = false;
  for (double c = 130.0; c < 290.0; c += 7.0) {  // above 150 the wave leaks into the half-space
    const double omega = 4.0 * c;
    Strat s = Condense(g, omega, c, 1);
    dcomplex F{9.0, 9.0};
    FS_hspace_(s.K, omega, s.c, 2, a.Vs.data(), a.nu.data(), a.rho.data(), &F, s.D);
    EXPECT_LE(std::fabs(F.re), 1.0 + 1e-15);
    EXPECT_EQ(F.im, 0.0);
    EXPECT_NEAR(F.re, Value(g, 2.0 * std::acos(-1.0) / 4.0, c), 1e-9);
    between = between || std::fabs(F.re) < 0.9;
    const int stop = FS_strat(&s.K, omega, &c, a.h.data(), a.Vs.data(), a.nu.data(), a.rho.data(), 1, &s.D);
    EXPECT_EQ(stop, 0);
  }
  EXPECT_TRUE(between);
}

TEST(FsHspace, ZeroDeterminantGivesZero) {
  const Ground g{{1.0}, {200.0}, {0.0}, {0.3}};
  const Layers a(g);
  dcomplex F{9.0, 9.0};
  FS_hspace_(LayerStiffness{}, 300.0, 150.0, 1, a.Vs.data(), a.nu.data(), a.rho.data(), &F, {1.0, 0.0});
  EXPECT_EQ(F.re, 0.0);
}

// --- invalid data ---

const double kHostile[] = {0.0,    -0.0,  -1.0, kNaN, kInf,         -kInf, 1e308, -1e308, 1e-308,
                           5e-324, 1e-12, 1e12, 0.5,  0.4999999999, 1.0,   2.0,   200.0};

TEST(FsSasw2d, HostileLayersGiveNoRootOrAFiniteOneAndNeverHang) {
  for (int n : {1, 2, 3}) {
    for (int layer = 0; layer < n; ++layer) {
      for (int field = 0; field < 5; ++field) {
        for (double x : kHostile) {
          Ground g{{2.0, 3.0, 5.0}, {120.0, 180.0, 260.0}, {1.7, 1.8, 1.9}, {.3, .3, .35}};
          for (auto* v : {&g.h, &g.Vs, &g.rho, &g.nu}) v->resize(static_cast<std::size_t>(n));
          double L = 7.0;
          std::vector<double>* fields[] = {&g.h, &g.Vs, &g.rho, &g.nu};
          (field < 4 ? (*fields[field])[static_cast<std::size_t>(layer)] : L) = x;
          const double c = Sasw2d(g, L);
          EXPECT_TRUE(c == kUntouched || (c > 0.0 && std::isfinite(c))) << n << layer << field << ' ' << x;
        }
      }
    }
  }
}

TEST(FsSasw2d, LayersThatCannotBeGroundHaveNoVelocity) {
  const auto with = [](auto change) {
    Ground g = kGradient;
    change(g);
    return Sasw2d(g, 20.0);
  };
  EXPECT_EQ(with([](Ground& g) { g.Vs[1] = 0.0; }), kUntouched);
  EXPECT_EQ(with([](Ground& g) { g.Vs[1] = -180.0; }), kUntouched);
  EXPECT_EQ(with([](Ground& g) { g.h[1] = -3.0; }), kUntouched);
  EXPECT_EQ(with([](Ground& g) { g.h[1] = 0.0; }), kUntouched);
  EXPECT_EQ(with([](Ground& g) { g.rho[2] = 0.0; }), kUntouched);
  EXPECT_EQ(with([](Ground& g) { g.nu[2] = 0.51; }), kUntouched);
  EXPECT_EQ(with([](Ground& g) { g.nu[2] = 1.5; }), kUntouched);
  EXPECT_EQ(with([](Ground& g) { g.nu[0] = kNaN; }), kUntouched);
  EXPECT_GT(with([](Ground& g) { g.h[3] = -3.0; }), 0.0) << "the half-space has no thickness";
  EXPECT_GT(with([](Ground& g) { g.nu[1] = 0.5; }), 0.0) << "incompressible is ground";
}

TEST(FsSasw2d, WavelengthsThatAreNoneHaveNoVelocity) {
  for (double L : {0.0, -1.0, kNaN, kInf, -kInf}) EXPECT_EQ(Sasw2d(kGradient, L), kUntouched) << L;
  EXPECT_EQ(Sasw2d(kGradient, {3.0, kNaN, 0.0, 9.0})[2], kUntouched);
  int n = 0, waves = 1;
  double c[] = {0.0, kUntouched};
  FS_SASW2D(&n, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &waves, nullptr, c);
  n = -3;
  FS_SASW2D(&n, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &waves, nullptr, c);
  EXPECT_EQ(c[1], kUntouched);
}

Ground ManyLayers(int n) {
  Ground g;
  for (int l = 0; l < n; ++l) {
    g.h.push_back(0.1 + 0.001 * l);
    g.Vs.push_back(120.0 + l);
    g.rho.push_back(1.8);
    g.nu.push_back(0.3333);
  }
  return g;
}

TEST(FsSasw2d, FourHundredLayersAgreeWithThePlainFormula) {
  const Ground g = ManyLayers(400);
  for (double L : {0.5, 8.0, 60.0}) {
    double expected = 0.0;
    plain::PhaseVelocity(g, L, &expected);
    EXPECT_GT(expected, 0.0);
    EXPECT_NEAR(Sasw2d(g, L), expected, 1e-12 * expected);
  }
}

TEST(FsSasw2d, CallsDoNotGrowTheHeap) {
  const Ground g = kGradient, large = ManyLayers(400);
  const Layers a(g), b(large);
  const int one = 1;
  const auto solve = [&](const Layers& s, double wavelength) {
    const double L[] = {0.0, wavelength};
    double c[] = {0.0, 0.0};
    FS_SASW2D(&s.n, s.h.data(), s.Vs.data(), nullptr, nullptr, s.rho.data(), nullptr, s.nu.data(), &one, L,
              c);
  };
  solve(a, 5.0);
  solve(b, 5.0);
  const auto before = mallinfo2().uordblks;
  for (int i = 0; i < 200; ++i) solve(a, 0.5 + 0.3 * i);
  for (int i = 0; i < 5; ++i) solve(b, 1.0 + 10.0 * i);
  EXPECT_EQ(mallinfo2().uordblks, before);
}

}  // namespace
}  // namespace sondera
