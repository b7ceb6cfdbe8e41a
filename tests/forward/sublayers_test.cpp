// sublayers_test.cpp - cutting layers into sublayers, evenly and by zones.
#include "forward/sublayers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "forward/point_load_site.h"

namespace sondera {
namespace {

using test::Site;

/// All outputs of FS_GetSubLParm, cleared before the call.
struct Parm {
  int nTop = 0, nBot = 0, zoneTop = 0, zoneBot = 0;
  double hTop = 0.0, hBot = 0.0;
};
Parm Get(const Site& site, int layer, int nSub, double t0, double maxDepth) {
  Parm p;
  FS_GetSubLParm(site.in.layers, layer, nSub, t0, maxDepth, p.nTop, p.hTop, p.nBot, p.hBot, p.zoneTop,
                 p.zoneBot);
  return p;
}

std::unique_ptr<Site> Layers(std::vector<double> thickness) {
  std::vector<truth::Layer> layers;
  for (double h : thickness) layers.push_back({h, 200.0, 1.9, 0.3, 0.02});
  return std::make_unique<Site>(layers);
}

TEST(SubLayerCount, IsTheNextIntegerAndAtLeastOne) {
  EXPECT_EQ(SubLayerCount(2.385), 3);
  EXPECT_EQ(SubLayerCount(3.0), 3);
  EXPECT_EQ(SubLayerCount(0.2), 1);
  EXPECT_EQ(SubLayerCount(0.0), 1);
  EXPECT_EQ(SubLayerCount(-7.0), 1);
}

TEST(SubLayerCount, NoiseAboveAnIntegerAddsNone) {
  EXPECT_EQ(SubLayerCount(3.0 + 9e-10), 3);
  EXPECT_EQ(SubLayerCount(3.0 - 9e-10), 3);
  EXPECT_EQ(SubLayerCount(3.0 + 2e-9), 4);
  EXPECT_EQ(SubLayerCount((0.1 + 0.2) / 0.1), 3);
}

TEST(SubLayerCount, HugeRatiosAndNotANumberAreBounded) {
  for (double x : {1e10, 1e300, HUGE_VAL, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(SubLayerCount(x), 2'000'000'000);
  }
}

TEST(ZoneThickness, DoublesFromTheThirdZoneUpToTheWavelength) {
  const double expected[] = {0, 0.5, 0.5, 1.0, 2.0, 4.0, 8.0, 8.0, 8.0};
  for (int k = 1; k <= 8; ++k) EXPECT_EQ(ZoneThickness(k, 16, 0.5), expected[k]);
}

// Zones for nSub 4, t0 1: 0-1, 1-2, 2-4, 4-8, 8-12, ...
TEST(GetSubLParm, LayerWithinOneZoneIsCutOnce) {
  const auto site = Layers({2.5, 1.0, 100.0});
  const Parm p = Get(*site, 2, 4, 1.0, 20.0);  // 2.5 to 3.5, zone 3, target 0.5
  EXPECT_EQ(p.zoneTop, 3);
  EXPECT_EQ(p.nTop, 2);
  EXPECT_DOUBLE_EQ(p.hTop, 0.5);
  EXPECT_EQ(p.zoneBot, 3);
}

TEST(GetSubLParm, LayerOverSeveralZonesHasAPartAtEachEnd) {
  const auto site = Layers({1.25, 4.15, 100.0});
  const Parm p = Get(*site, 2, 4, 1.0, 20.0);  // 1.25 to 5.4
  EXPECT_EQ(p.zoneTop, 2);
  EXPECT_EQ(p.nTop, 3);  // 0.75 in steps of 0.25
  EXPECT_DOUBLE_EQ(p.hTop, 0.25);
  EXPECT_EQ(p.zoneBot, 4);
  EXPECT_EQ(p.nBot, 2);  // 1.4 in steps of at most 1
  EXPECT_NEAR(p.hBot, 0.7, 1e-12);
}

TEST(GetSubLParm, LayerBelowTheMeshGetsNothing) {
  const auto site = Layers({5.0, 3.0, 100.0});
  for (int layer : {2, 3}) {
    Parm p{7, 7, 7, 7, 7.0, 7.0};  // all are set, cleared or not
    FS_GetSubLParm(site->in.layers, layer, 4, 1.0, 5.0, p.nTop, p.hTop, p.nBot, p.hBot, p.zoneTop, p.zoneBot);
    EXPECT_EQ(p.nTop, 0);
    EXPECT_EQ(p.nBot, 0);
    EXPECT_EQ(p.zoneTop, 0);
    EXPECT_EQ(p.zoneBot, 0);
    EXPECT_EQ(p.hTop, 0.0);
    EXPECT_EQ(p.hBot, 0.0);
  }
}

TEST(GetSubLParm, LayerEndingOnAZoneBoundaryHasNoPartInTheNextZone) {
  const auto site = Layers({4.0, 3.0, 100.0});
  const Parm p = Get(*site, 1, 4, 1.0, 20.0);
  EXPECT_EQ(p.zoneBot, 4);
  EXPECT_EQ(p.nBot, 0);
  EXPECT_EQ(p.hBot, 0.0);
}

TEST(GetSubLParm, PartWithinRoundingOfABoundaryCountsAsNothing) {
  for (double noise : {1e-10, -1e-10}) {
    const auto site = Layers({4.0 + noise, 3.0, 100.0});
    const Parm upper = Get(*site, 1, 4, 1.0, 20.0), lower = Get(*site, 2, 4, 1.0, 20.0);
    if (noise > 0.0) {
      EXPECT_EQ(upper.zoneBot, 4);
      EXPECT_EQ(upper.nBot, 0);
    } else {
      EXPECT_EQ(lower.zoneTop, 3);
      EXPECT_EQ(lower.nTop, 0);
    }
  }
}

TEST(GetSubLParm, PartInTheTopZoneIsNotCutAtTheEndOfTheMesh) {
  const auto site = Layers({4.5, 100.0});
  const Parm p = Get(*site, 2, 4, 1.0, 6.0);  // zone 4 goes from 4 to 8, the mesh ends at 6
  EXPECT_EQ(p.nTop, 4);                       // all 3.5 down to the zone's end
  EXPECT_DOUBLE_EQ(p.hTop, 3.5 / 4);
}

TEST(GetSubLParm, BeyondTheHundredthZoneOutputsStay) {
  const auto site = Layers({500.0, 100.0});
  Parm p{7, 7, 7, 7, 7.0, 7.0};
  FS_GetSubLParm(site->in.layers, 2, 4, 1.0, 1e9, p.nTop, p.hTop, p.nBot, p.hBot, p.zoneTop, p.zoneBot);
  EXPECT_EQ(p.nTop, 7);
  EXPECT_EQ(p.zoneBot, 7);
}

TEST(CountNLA, StopsAtTheSublayerThatReachesTheDepth) {
  int nSub = 10, count = 3;
  double depth = 1.0, thick = 0.5, maxDepth = 2.5;
  FS_CountNLA(&nSub, &depth, &thick, &count, &maxDepth);
  EXPECT_EQ(count, 6);  // 1.5, 2.0, 2.5
  EXPECT_DOUBLE_EQ(depth, 2.5);
}

TEST(SetMesh, TakesAllPropertiesOfTheLayer) {
  Site site({{2.0, 150.0, 1.8, 0.3, 0.03}, {50.0, 300.0, 2.0, 0.4, 0.01}});
  SubLayerMesh mesh;
  mesh.Start(10);
  int nSub = 2;
  double depth = 2.0, thick = 0.25, maxDepth = 9.0;
  FS_SetMesh(site.in.layers, 2, &nSub, &depth, &thick, mesh, &maxDepth);
  ASSERT_EQ(mesh.count, 2);
  EXPECT_EQ(mesh.thick[2], 0.25);
  EXPECT_EQ(mesh.G[2], 2.0 * 300.0 * 300.0);
  EXPECT_EQ(mesh.rho[2], 2.0);
  EXPECT_EQ(mesh.nu[2], 0.4);
  EXPECT_EQ(mesh.damp[2], 0.01);
  EXPECT_EQ(mesh.Vs[2], 300.0);
  EXPECT_DOUBLE_EQ(mesh.lambda[2], 2.0 * 0.4 * 180000.0 / (1.0 - 0.8));
  EXPECT_DOUBLE_EQ(mesh.bulk[2], 0.6666667 * 180000.0 * 1.4 / (1.0 - 0.8));
  EXPECT_NE(mesh.bulk[2], 2.0 / 3.0 * 180000.0 * 1.4 / (1.0 - 0.8));
  EXPECT_DOUBLE_EQ(mesh.bottom[2], 2.5);
}

TEST(CalcNLA, CountsTheEvenMeshDownToItsDepth) {
  const auto site = Layers({1.1, 3.0, 100.0});
  site->in.mesh = {8, 1.75, false};
  const double x[] = {0.0, 16.0};  // L = 4, target 0.5, depth 7
  // 3 of 1.1/3, 6 of 0.5, then 0.5 from 4.1 to the first at 7 or below: 6
  EXPECT_EQ(FS_CalcNLA(site->in.layers, site->in.mesh, x, 1, false), 3 + 6 + 6);
  EXPECT_EQ(FS_CalcNLA(site->in.layers, site->in.mesh, x, 1, true), 3 + 6 + 6 + 1);
}

TEST(CalcNLA, ThinLastLayerEndsTheMeshEarly) {
  const auto site = Layers({1.0, 0.5});
  site->in.mesh = {8, 1.75, false};
  const double x[] = {0.0, 16.0};
  EXPECT_EQ(FS_CalcNLA(site->in.layers, site->in.mesh, x, 1, false), 3);
}

TEST(CalcNLA, ThickHalfSpaceKeepsTheTargetThickness) {
  const auto site = Layers({1e7});
  site->in.mesh = {16, 1.75, false};
  SubLayerMesh mesh;
  mesh.Start(kMaxSubLayers);
  FillEvenMesh(site->in.layers, site->in.mesh, 2.0, mesh);
  EXPECT_EQ(mesh.count, 28);
  EXPECT_NEAR(mesh.thick[5], 0.125, 1e-9);
}

TEST(DiscritizLayers, ZonesOfAUniformSiteHaveTheSameNumberOfSublayers) {
  const auto site = Layers({1000.0});
  site->in.mesh = {16, 4.0, true};
  EXPECT_EQ(FS_DiscritizLayers(1, site->in.layers, site->in.mesh, 8.0, false, nullptr), 8 * 16);
  EXPECT_EQ(FS_DiscritizLayers(1, site->in.layers, site->in.mesh, 8.0, true, nullptr), 8 * 16 + 1);
  SubLayerMesh mesh;
  mesh.Start(200);
  EXPECT_EQ(FS_DiscritizLayers(0, site->in.layers, site->in.mesh, 8.0, true, &mesh), 0);
  ASSERT_EQ(mesh.count, 8 * 16);
  EXPECT_DOUBLE_EQ(mesh.thick[1], 0.5 / 16);
  EXPECT_DOUBLE_EQ(mesh.thick[17], 0.5 / 16);
  EXPECT_DOUBLE_EQ(mesh.thick[33], 1.0 / 16);
  EXPECT_DOUBLE_EQ(mesh.thick[81], 8.0 / 16);
  EXPECT_DOUBLE_EQ(mesh.thick[128], 8.0 / 16);
  EXPECT_NEAR(mesh.depth, 32.0, 1e-12);
}

TEST(DiscritizLayers, MiddleZonesAreFilledBetweenBothEnds) {
  const auto site = Layers({1.25, 7.95, 100.0});
  site->in.mesh = {4, 5.0, true};
  SubLayerMesh mesh;
  mesh.Start(100);
  FS_DiscritizLayers(0, site->in.layers, site->in.mesh, 4.0, false, &mesh);
  // zones of L = 4: 0-1, 1-2, 2-4, 4-8, 8-12, 12-16, 16-20
  // layer 1: 4 + 1, layer 2 to 9.2: 3 + 4 + 4 + 2, layer 3: 3 + 4 + 4
  EXPECT_EQ(mesh.count, 5 + 13 + 11);
  EXPECT_NEAR(mesh.bottom[5], 1.25, 1e-12);
  EXPECT_NEAR(mesh.bottom[18], 9.2, 1e-12);
  EXPECT_NEAR(mesh.depth, 20.0, 1e-12);
}

// Counting and filling use the same loop, for every layering.
TEST(Sublayers, CountAndMeshAgreeOnRandomSites) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> u(0.0, 1.0);
  for (int it = 0; it < 3000; ++it) {
    Site site(test::RandomLayers(random));
    if (it % 5 == 0) site.h[site.in.layers.nLayersCur] = 2.0 * u(random);
    if (it % 7 == 0) site.h[1] = 0.25;
    site.in.mesh = {1 + static_cast<int>(24 * u(random)), 0.5 + 4.0 * u(random), false};
    const double L = it % 3 == 0 ? 4.0 : std::pow(10.0, -0.3 + 2.2 * u(random));
    const double x[] = {0.0, 4.0 * L};
    SubLayerMesh even, graded;
    even.Start(kMaxSubLayers);
    FillEvenMesh(site.in.layers, site.in.mesh, L, even);
    const int n = FS_CalcNLA(site.in.layers, site.in.mesh, x, 1, false);
    if (n > kMaxSubLayers) continue;
    ASSERT_EQ(even.count, n);
    graded.Start(kMaxSubLayers);
    FS_DiscritizLayers(0, site.in.layers, site.in.mesh, L, false, &graded);
    ASSERT_EQ(graded.count, FS_DiscritizLayers(1, site.in.layers, site.in.mesh, L, false, nullptr));
    // both reach the depth of the mesh, or the end of the layers
    double total = 0.0;
    for (int l = 1; l <= site.in.layers.nLayersCur; ++l) total += site.h[l];
    const double end = std::min(total, L * site.in.mesh.fDispBulb);
    ASSERT_GT(even.depth, end * (1.0 - 1e-9));
    ASSERT_GT(graded.depth, end * (1.0 - 1e-8));
    // the graded mesh is never coarser than the even one of its largest zone
    for (int j = 1; j <= graded.count; ++j)
      ASSERT_LE(graded.thick[j], L / site.in.mesh.nSubLayers * (1.0 + 1e-8));
  }
}

TEST(Sublayers, HostileSettingsEndAtTheLimit) {
  const auto site = Layers({3.0, 1e9});
  const double x[] = {0.0, 8.0};
  for (int nSub : {1, 16, 1'000'000, 2'000'000'000}) {
    for (double bulb : {1.75, 1e9, 1e300}) {
      site->in.mesh = {nSub, bulb, false};
      EXPECT_LE(FS_CalcNLA(site->in.layers, site->in.mesh, x, 1, true), kMaxSubLayers + 2);
      EXPECT_LE(FS_DiscritizLayers(1, site->in.layers, site->in.mesh, 2.0, true, nullptr), kMaxSubLayers + 2);
      SubLayerMesh mesh;
      mesh.Start(kMaxSubLayers);
      FillEvenMesh(site->in.layers, site->in.mesh, 2.0, mesh);
      EXPECT_LE(mesh.count, kMaxSubLayers);
    }
  }
}

}  // namespace
}  // namespace sondera
