// plane_wave_identity_test.cpp - the fast path of the plane-wave solver against its plain formula, over
// random ground.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <ostream>
#include <random>
#include <vector>

#include "forward/plane_wave.h"
#include "forward/plane_wave_lanes.h"
#include "forward/plane_wave_reference.h"
#include "forward/plane_wave_solve.h"

namespace sondera {
namespace {

using plain::Ground;

#ifdef SONDERA_CHECK_BOUNDS
constexpr int kModels = 300;  // the checked build is about twenty times slower
#else
constexpr int kModels = 3000;
#endif

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  double Uniform(double a, double b) { return a + (b - a) * static_cast<double>(engine_() >> 11) * 0x1p-53; }
  double Log(double a, double b) { return std::exp(Uniform(std::log(a), std::log(b))); }
  int Int(int a, int b) { return a + static_cast<int>(engine_() % static_cast<unsigned>(b - a + 1)); }

 private:
  std::mt19937_64 engine_;
};

/// Limits of a family of random ground.
struct Family {
  const char* name;
  double hMin, hMax;
  double stepMin, stepMax;  ///< ratio of a layer's Vs to the one above
  double LMin, LMax;
};

void PrintTo(const Family& f, std::ostream* out) {
  *out << f.name;
}

Ground Make(const Family& f, Random& random) {
  Ground g;
  double Vs = random.Log(50.0, 1000.0);
  for (int l = random.Int(1, 10); l > 0; --l) {
    g.h.push_back(random.Log(f.hMin, f.hMax));
    g.Vs.push_back(Vs);
    g.rho.push_back(random.Uniform(1.2, 2.6));
    g.nu.push_back(random.Uniform(0.05, 0.499));
    Vs *= random.Log(f.stepMin, f.stepMax);
  }
  return g;
}

class PlaneWaveIdentity : public ::testing::TestWithParam<Family> {};

TEST_P(PlaneWaveIdentity, FastPathGivesThePlainFormulasVelocity) {
  Random random(20240611);
  int found = 0;
  for (int i = 0; i < kModels; ++i) {
    const Ground g = Make(GetParam(), random);
    const double L = random.Log(GetParam().LMin, GetParam().LMax);
    double expected = 0.0;
    plain::PhaseVelocity(g, L, &expected);
    const double c = PlaneWaveVelocity(g, L);
    ASSERT_NEAR(c, expected, 1e-12 * expected) << "model " << i << ", " << g.h.size() << " layers, L " << L;
    found += expected > 0.0;
  }
  EXPECT_GT(found, kModels / 2);
}

INSTANTIATE_TEST_SUITE_P(Random, PlaneWaveIdentity,
                         ::testing::Values(Family{"StifferWithDepth", 0.1, 20.0, 1.0, 1.6, 0.05, 200.0},
                                           Family{"SofterWithDepth", 0.1, 20.0, 0.6, 1.0, 0.05, 200.0},
                                           Family{"UpAndDown", 0.05, 50.0, 0.4, 2.5, 0.05, 200.0},
                                           Family{"NearlyUniform", 0.05, 10.0, 0.98, 1.02, 0.05, 200.0},
                                           Family{"ThinLayersLongWaves", 0.001, 0.2, 0.4, 2.5, 20.0, 200.0},
                                           Family{"ThickLayersShortWaves", 2.0, 80.0, 0.4, 2.5, 0.05, 5.0},
                                           Family{"SoftAndVeryStiff", 0.05, 5.0, 0.03, 30.0, 2.0, 200.0},
                                           Family{"SweepOfASite", 0.5, 8.0, 0.8, 1.6, 0.5, 60.0}),
                         [](const auto& instance) { return instance.param.name; });

/// Stack as the solver builds it.
std::vector<LaneLayer> Table(const Ground& g, double L) {
  std::vector<LaneLayer> table;
  for (std::size_t l = 0; l < g.h.size(); ++l) {
    const double V2 = g.Vs[l] * g.Vs[l], ratio = (1.0 - 2.0 * g.nu[l]) / (2.0 * (1.0 - g.nu[l]));
    table.push_back({2.0 * std::acos(-1.0) / L * g.h[l], 1.0 / V2, 1.0 / V2 * ratio, V2 * g.rho[l]});
  }
  return table;
}

const Family kWide{"", 0.05, 20.0, 0.4, 2.5, 0.5, 100.0};

TEST(PlaneWaveLanes, AllInstructionSetsGiveTheSameBits) {
  Random random(7);
  const LaneFunction portable = LanesFor(LaneSet::kPortable);
  ASSERT_NE(portable, nullptr);
  EXPECT_NE(BestLanes(), nullptr);
  for (LaneSet set : {LaneSet::kAvx2, LaneSet::kAvx512}) {
    const LaneFunction lanes = LanesFor(set);
    if (lanes == nullptr) continue;
    for (int i = 0; i < kModels; ++i) {
      const Ground g = Make(kWide, random);
      const double L = random.Log(0.5, 100.0), c0 = random.Log(0.5, 3.0) * g.Vs[0];
      const auto table = Table(g, L);
      const LaneStack stack{table.data(), static_cast<int>(table.size())};
      double c[kLanes], a[kLanes], b[kLanes];
      for (int k = 0; k < kLanes; ++k) c[k] = c0 * (1.0 + 0.03 * k);
      ASSERT_EQ(portable(stack, c, a), lanes(stack, c, b));
      ASSERT_EQ(std::memcmp(a, b, sizeof a), 0) << "model " << i;
    }
  }
}

TEST(PlaneWaveLanes, SignsAreThoseOfThePlainFormulaAtEveryTrial) {
  Random random(11);
  int sure = 0, all = 0;
  for (int i = 0; i < kModels; ++i) {
    Ground g = Make(kWide, random);
    const double L = random.Log(2.0, 100.0);
    double depth = 0.0;
    std::size_t kept = 0;
    while (kept < g.h.size() && depth < 2.0 * L) depth += g.h[kept++];
    const auto table = Table(g, L);
    const LaneStack stack{table.data(), static_cast<int>(kept)};
    double c[kLanes], value[kLanes];
    for (double& x : c) x = random.Log(0.5, 3.0) * g.Vs[0];
    const unsigned doubt = BestLanes()(stack, c, value);
    for (int k = 0; k < kLanes; ++k, ++all) {
      if (doubt >> k & 1u) continue;
      double trial = c[k];
      ASSERT_EQ(plain::CharacteristicValue(g, L, &trial) > 0.0, value[k] > 0.0)
          << "model " << i << " lane " << k;
      ++sure;
    }
  }
  EXPECT_GT(sure, all - all / 20) << "the complex formulas are for the exceptions";
}

TEST(PlaneWaveLanes, LayersBeyondTheExponentThatEndsTheStackAreGivenBack) {
  // k h is 19.8, and the exponent of the compression wave passes 18 within the lanes while the shear wave
  // turns.
  const Ground g{{3.0, 1.0}, {100.0, 400.0}, {1.8, 1.8}, {0.45, 0.3}};
  const auto table = Table(g, 2.0 * std::acos(-1.0) / 6.6);
  const LaneStack stack{table.data(), 2};
  double c[kLanes], value[kLanes];
  for (int k = 0; k < kLanes; ++k) c[k] = 110.0 + 8.0 * k;
  const unsigned doubt = BestLanes()(stack, c, value);
  int within = 0;
  for (int k = 0; k < kLanes; ++k) {
    const bool ends = std::sqrt(1.0 - c[k] * c[k] * table[0].iP2) * table[0].kh > 18.0;
    EXPECT_EQ((doubt >> k & 1u) != 0, ends) << c[k];
    within += !ends;
  }
  EXPECT_GT(within, 2);
  EXPECT_LT(within, kLanes - 2);
}

TEST(PlaneWaveLanes, DirectionOfTravelDoesNotMatter) {
  const Ground g{{4.0, 1.0}, {100.0, 400.0}, {1.8, 1.8}, {0.4, 0.3}};
  const auto table = Table(g, 5.0);
  const LaneStack stack{table.data(), 2};
  double c[kLanes], back[kLanes], value[kLanes], same[kLanes];
  for (int k = 0; k < kLanes; ++k) back[k] = -(c[k] = 90.0 + 37.0 * k);
  EXPECT_EQ(BestLanes()(stack, c, value), BestLanes()(stack, back, same));
  EXPECT_EQ(std::memcmp(value, same, sizeof value), 0);
}

TEST(PlaneWaveLanes, DoubtfulLanesAreGivenBack) {
  const Ground g{{1.0, 1.0}, {128.0, 300.0}, {1.8, 1.8}, {0.0, 0.3}};
  const auto table = Table(g, 5.0);
  const LaneStack stack{table.data(), 2};
  const double nan = std::nan("");
  const double c[kLanes] = {150.0, 128.0, 100.0, nan, 0.0, 128.0 * 1.41421356237309515, 140.0, 1e200};
  double value[kLanes];
  const unsigned doubt = BestLanes()(stack, c, value);
  EXPECT_EQ(doubt & 0b01000101u, 0u) << "plain velocities";
  EXPECT_EQ(doubt & 0b10111010u, 0b10111010u) << "Vs, NaN, zero, Vp, overflow";
}

}  // namespace
}  // namespace sondera
