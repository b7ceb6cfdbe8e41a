// point_load_test.cpp - node line, unwrapping, repetition and failures of the point-load solver.
#include "forward/point_load.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>

#include "forward/point_load_site.h"
#include "numeric/allocation_count.h"
#include "support/odd_numbers.h"

namespace sondera {
namespace {

using test::AllocationCount;
using test::Site;

std::vector<truth::Layer> Normal() {
  return {{3.0, 150.0, 1.8, 0.3, 0.02}, {5.0, 220.0, 1.9, 0.3, 0.02}, {100.0, 320.0, 2.0, 0.3, 0.02}};
}

/// One evaluation with its results; velocity and amplitude go in as the seed's.
struct Outcome {
  double vel[2] = {0.0, 111.0}, amp[2] = {0.0, 0.7}, recAmp[3] = {0.0, 5.0, 5.0};
  PointLoadWork work;
  int result = -1;

  void operator()(const Site& site, double freq, double wavelength, int slot = 1) {
    const double f[2] = {0.0, freq}, L[2] = {0.0, wavelength};
    vel[1] = 111.0;
    amp[1] = 0.7;
    result = FS_SASW3D(site.in, work, f, vel, amp, L, -1, slot, nullptr, recAmp);
  }
};

/// At the plane-wave velocity of a wavelength.
Outcome Evaluate(const Site& site, double wavelength) {
  Outcome run;
  run(site, site.Seed(wavelength) / wavelength, wavelength);
  return run;
}

// --- node line ---

/// The line for spacing 0.5 (wavelength 2).
int Line(const Site& site, PointLoadWork& work) {
  work.nSpatialNodes = FS_GetNoSpatialNodes(site.in, 0.5, 2.0);
  return FS_SetUpNodes(site.in, work, -1, 0.5);
}
int Node(const Site& site, const PointLoadWork& work, int side, int setup) {
  return work.recIdx[(side - 1) * std::max(3, site.in.nRecSetups) + setup];
}

TEST(SetUpNodes, BuiltInPairsUseTaggedNodesOfTheGrid) {
  Site site(Normal());
  PointLoadWork work;
  EXPECT_EQ(Line(site, work), 16);
  EXPECT_EQ(work.line.size(), 18u);  // nodes 4 and 8 are entered twice, for two set-ups each
  for (int i = 1; i <= 16; ++i) EXPECT_EQ(work.x[i], 0.5 * i);
  EXPECT_EQ(Node(site, work, 1, 1), 2);
  EXPECT_EQ(Node(site, work, 2, 1), 4);
  EXPECT_EQ(Node(site, work, 1, 2), 4);
  EXPECT_EQ(Node(site, work, 2, 2), 8);
  EXPECT_EQ(Node(site, work, 1, 3), 8);
  EXPECT_EQ(Node(site, work, 2, 3), 16);
}

TEST(SetUpNodes, ExplicitPairBetweenTheNodesIsInserted) {
  Site site(Normal());
  site.Pair(1.7, 4.3);
  PointLoadWork work;
  EXPECT_EQ(Line(site, work), 18);
  EXPECT_EQ(Node(site, work, 1, 4), 4);
  EXPECT_EQ(work.x[4], 1.7);
  EXPECT_EQ(Node(site, work, 2, 4), 10);
  EXPECT_EQ(work.x[10], 4.3);
  EXPECT_EQ(Node(site, work, 2, 3), 18);  // the built-in ones move with it
  EXPECT_EQ(work.x[18], 8.0);
}

TEST(SetUpNodes, ExplicitPairOnTheGridSharesItsNumbers) {
  Site site(Normal());
  site.Pair(1.5, 4.0);
  PointLoadWork work;
  EXPECT_EQ(Line(site, work), 16);
  EXPECT_EQ(Node(site, work, 1, 4), 3);
  EXPECT_EQ(Node(site, work, 2, 4), 8);
  EXPECT_EQ(Node(site, work, 1, 3), 8);
}

TEST(SetUpNodes, PairWithoutNearerReceiverIsSkipped) {
  Site site(Normal());
  site.Pair(0.0, 4.3);
  PointLoadWork work;
  EXPECT_EQ(Line(site, work), 16);
  EXPECT_EQ(Node(site, work, 1, 4), 0);
  EXPECT_EQ(Node(site, work, 2, 4), 0);
}

TEST(SetUpNodes, NodeAtTheSourceGetsNoNumber) {
  Site site(Normal());
  site.Pair(1.5, 0.0);
  PointLoadWork work;
  EXPECT_EQ(Line(site, work), 16);
  EXPECT_EQ(Node(site, work, 2, 4), 0);
}

TEST(SetUpNodes, ExtraNodesAreSpreadFromTheSource) {
  Site site(Normal());
  site.in.extraNodeOn = true;
  site.in.extraNodes = 5;
  site.in.extraSpan = 2.8;
  PointLoadWork work;
  EXPECT_EQ(Line(site, work), 20);  // 16 of the grid, 0.7, 1.4, 2.1, 2.8
  EXPECT_EQ(work.nSpatialNodes, 21);
  EXPECT_NEAR(work.x[2], 0.7, 1e-15);
  EXPECT_EQ(Node(site, work, 2, 3), 20);
}

TEST(GetNoSpatialNodes, ReachesFourWavelengthsOrTheFarthestReceiver) {
  Site site(Normal());
  EXPECT_EQ(FS_GetNoSpatialNodes(site.in, 0.5, 2.0), 16);
  site.Pair(3.0, 9.1);
  EXPECT_EQ(FS_GetNoSpatialNodes(site.in, 0.5, 2.0), 19);
  site.Pair(3.0, 7.9);
  EXPECT_EQ(FS_GetNoSpatialNodes(site.in, 0.5, 2.0), 16);
  site.Pair(3.0, 1e12);
  EXPECT_EQ(FS_GetNoSpatialNodes(site.in, 0.5, 2.0), kMaxLineNodes + 1);
}

TEST(LocateInsertNode, FindsTheLastNodeUpToThePosition) {
  const std::vector<LineNode> line = {{0.5, 0, 0}, {1.0, 1, 1}, {1.0, 2, 2}, {2.0, 0, 0}};
  EXPECT_EQ(FS_LocateInsertNode(line, 0.2), -1);
  EXPECT_EQ(FS_LocateInsertNode(line, 0.5), 0);
  EXPECT_EQ(FS_LocateInsertNode(line, 1.0), 2);  // a later entry stays after an earlier one
  EXPECT_EQ(FS_LocateInsertNode(line, 1.5), 2);
  EXPECT_EQ(FS_LocateInsertNode(line, 7.0), 3);
  EXPECT_EQ(FS_LocateInsertNode({}, 1.0), -1);
}

TEST(StackRec, NewDistanceIsEnteredInOrderAndGivesZero) {
  StackList list;
  EXPECT_EQ(FS_stackRec(list, 4.0), 0);
  EXPECT_EQ(FS_stackRec(list, 2.0), 0);
  EXPECT_EQ(FS_stackRec(list, 8.0), 0);
  EXPECT_EQ(list.nStackRec, 3);
  EXPECT_EQ(FS_stackRec(list, 2.0), 1);
  EXPECT_EQ(FS_stackRec(list, 4.0), 2);
  EXPECT_EQ(FS_stackRec(list, 8.0), 3);
  EXPECT_EQ(FS_stackRec(list, 8.0 + 1e-14), 0);  // exact equality
  EXPECT_EQ(list.nStackRec, 4);
}

// --- unwrapping and repetition ---

TEST(UnwrapLine, EachTurnFromPositiveToNegativeAddsACycle) {
  double phi[] = {0, 80.0, 170.0, -100.0, -10.0, 90.0, 179.0, -91.0};
  UnwrapLine(phi, 7);
  const double expected[] = {0, 80.0, 170.0, 260.0, 350.0, 450.0, 539.0, 629.0};
  for (int i = 1; i <= 7; ++i) EXPECT_EQ(phi[i], expected[i]);
}

TEST(UnwrapLine, NegativeStartAndExactZeroBeginACycle) {
  double phi[] = {0, -20.0, -10.0, 0.0, 5.0, 0.0};
  UnwrapLine(phi, 5);
  const double expected[] = {0, 340.0, 350.0, 360.0, 365.0, 720.0};
  for (int i = 1; i <= 5; ++i) EXPECT_EQ(phi[i], expected[i]);
}

TEST(JudgePass, SeedLimitOfExactlyFiveIsAcceptedButDoesNotRepeat) {
  EXPECT_EQ(JudgePass(0.1, 5.0, 0.2, 1), PassOutcome::kAccept);
  EXPECT_EQ(JudgePass(0.3, 5.0, 0.2, 1), PassOutcome::kGiveUp);
  EXPECT_EQ(JudgePass(0.3, 4.99, 0.2, 1), PassOutcome::kRepeat);
  EXPECT_EQ(JudgePass(0.1, 5.01, 0.2, 1), PassOutcome::kGiveUp);
}

TEST(JudgePass, FifthPassIsTheLast) {
  EXPECT_EQ(JudgePass(0.3, 1.0, 0.2, 4), PassOutcome::kRepeat);
  EXPECT_EQ(JudgePass(0.3, 1.0, 0.2, 5), PassOutcome::kGiveUp);
  EXPECT_EQ(JudgePass(0.2, 1.0, 0.2, 5), PassOutcome::kAccept);
}

TEST(JudgePass, PhaseThatDoesNotGrowEndsIt) {
  EXPECT_EQ(JudgePass(999.0, 1.0, 0.2, 10), PassOutcome::kGiveUp);
  EXPECT_EQ(JudgePass(kNaN, kNaN, 0.2, 1), PassOutcome::kGiveUp);
}

TEST(SASW3D, WavelengthWithinToleranceOnTheFirstPassIsAcceptedAtOnce) {
  Site site({{100.0, 200.0, 1.9, 0.3, 0.02}});
  site.Type(4, 1.75);
  const Outcome run = Evaluate(site, 6.0);
  EXPECT_EQ(run.result, 0);
  EXPECT_EQ(run.work.status, PointLoadStatus::kResult);
  EXPECT_EQ(run.work.passes, 1);
  EXPECT_NEAR(run.vel[1], 185.0, 2.0);  // Rayleigh velocity 0.9274 Vs
}

TEST(SASW3D, SeedOffByMoreThanTheToleranceRepeats) {
  Site site({{100.0, 200.0, 1.9, 0.3, 0.02}});
  site.Type(3, 1.75);
  Outcome run;
  run(site, 30.0, 9.0);  // 185 / 30 is 6.2
  EXPECT_EQ(run.work.status, PointLoadStatus::kResult);
  EXPECT_GT(run.work.passes, 1);
  EXPECT_LE(run.work.passes, 5);
  EXPECT_NEAR(run.vel[1], 185.0, 4.0);
}

TEST(SASW3D, ToleranceDecidesOnTheNumberOfPasses) {
  Site site(Normal());
  site.Type(3, 1.75);
  const Outcome coarse = Evaluate(site, 12.0);
  site.in.wlTolerance = 0.001;
  const Outcome fine = Evaluate(site, 12.0);
  ASSERT_EQ(coarse.work.status, PointLoadStatus::kResult);
  ASSERT_EQ(fine.work.status, PointLoadStatus::kResult);
  EXPECT_LT(coarse.work.passes, fine.work.passes);
}

TEST(SASW3D, SeedFarOffGivesNoVelocity) {
  Site site({{100.0, 200.0, 1.9, 0.3, 0.02}});
  site.Type(3, 1.75);
  Outcome run;
  run(site, 30.0, 0.5);  // the true wavelength is twelve times as long
  EXPECT_EQ(run.work.status, PointLoadStatus::kNoResult);
  EXPECT_EQ(run.vel[1], 0.0);
  EXPECT_EQ(run.amp[1], 0.0);
}

TEST(SASW3D, AmplitudesAreModuliAndTheirRatio) {
  Site site(Normal());
  site.Type(4, 1.75);
  const Outcome run = Evaluate(site, 5.0);
  ASSERT_EQ(run.work.status, PointLoadStatus::kResult);
  EXPECT_GT(run.recAmp[1], run.recAmp[2]);
  EXPECT_GT(run.recAmp[2], 0.0);
  EXPECT_NEAR(run.amp[1], run.recAmp[2] / run.recAmp[1], 1e-14);
  const dcomplex u = run.work.u[8];
  EXPECT_DOUBLE_EQ(run.recAmp[1], std::hypot(u.re, u.im));
}

TEST(SASW3D, NegativePhaseDifferenceGivesNoVelocity) {
  Site site(Normal());
  site.Type(3, 1.75);
  site.Pair(9.0, 4.0);  // the farther receiver nearer to the source
  const Outcome run = Evaluate(site, 5.0);
  EXPECT_EQ(run.work.status, PointLoadStatus::kNoResult);
  EXPECT_EQ(run.vel[1], 0.0);
  EXPECT_EQ(run.amp[1], 0.0);
  EXPECT_EQ(run.work.passes, 1);
}

TEST(SASW3D, NoPhaseDifferenceGivesNoVelocity) {
  Site site(Normal());
  site.Type(3, 1.75);
  site.Pair(6.2, 6.2);
  const Outcome run = Evaluate(site, 5.0);
  EXPECT_EQ(run.work.status, PointLoadStatus::kNoResult);
  EXPECT_EQ(run.vel[1], 0.0);
}

TEST(SASW3D, SkippedPairGivesNoVelocity) {
  Site site(Normal());
  site.Type(3, 1.75);
  site.Pair(0.0, 6.2);
  const Outcome run = Evaluate(site, 5.0);
  EXPECT_EQ(run.work.status, PointLoadStatus::kNoResult);
  EXPECT_EQ(run.vel[1], 0.0);
}

TEST(SASW3D, ExplicitPairAtTwoAndFourWavelengthsEqualsTheBuiltInOne) {
  Site site({{100.0, 200.0, 1.9, 0.3, 0.02}});
  site.Type(3, 1.75);
  const Outcome builtIn = Evaluate(site, 5.0);
  site.Pair(10.0, 20.0);
  const Outcome pair = Evaluate(site, 5.0);
  ASSERT_EQ(builtIn.work.passes, 1);
  EXPECT_EQ(pair.vel[1], builtIn.vel[1]);
  EXPECT_EQ(pair.amp[1], builtIn.amp[1]);
}

TEST(SASW3D, LoadRadiusFollowsTheWavelengthOfTheCall) {
  Site site(Normal());
  site.Type(3, 1.75);
  const Outcome own = Evaluate(site, 5.0);
  site.in.loadRadius = 0.0001 * 5.0;
  const Outcome given = Evaluate(site, 5.0);
  EXPECT_EQ(own.recAmp[1], given.recAmp[1]);
  site.in.loadRadius = 1.0;
  const Outcome wide = Evaluate(site, 5.0);
  EXPECT_NE(own.recAmp[1], wide.recAmp[1]);
}

TEST(SASW3D, FailedModesKeepTheSeed) {
  Site site(Normal());
  site.Type(3, 1.75);
  Outcome run;
  run(site, 30.0, 1e-150);  // stiffnesses whose products are beyond a double
  EXPECT_EQ(run.work.status, PointLoadStatus::kSeedKept);
  EXPECT_EQ(run.vel[1], 111.0);
  EXPECT_EQ(run.amp[1], 0.7);
  EXPECT_EQ(run.recAmp[1], 0.0);
  EXPECT_EQ(run.recAmp[2], 0.0);
}

TEST(SASW3D, StackTakesTheSpectraOfBothReceivers) {
  Site site(Normal());
  site.Type(3, 1.75);
  site.Pair(6.0, 13.0);
  StackList list;
  list.stackRecX = {0.0, 6.0, 13.0};
  list.nStackRec = 2;
  site.in.stackRec = &list;
  const double f[2] = {0.0, site.Seed(5.0) / 5.0}, L[2] = {0.0, 5.0};
  double vel[2] = {}, amp[2] = {}, recAmp[3] = {};
  dcomplex stack[3] = {};
  PointLoadWork work;
  FS_SASW3D(site.in, work, f, vel, amp, L, -1, 1, stack, recAmp);
  ASSERT_EQ(work.status, PointLoadStatus::kResult);
  EXPECT_DOUBLE_EQ(std::hypot(stack[1].re, stack[1].im), recAmp[1]);
  EXPECT_DOUBLE_EQ(std::hypot(stack[2].re, stack[2].im), recAmp[2]);
}

TEST(SASW3D, WorkSpaceRemembersNothing) {
  Site soft(Normal()), stiff({{2.0, 400.0, 2.0, 0.2, 0.01}, {100.0, 150.0, 1.8, 0.4, 0.04}});
  soft.Type(3, 1.75);
  stiff.Type(4, 4.0);
  stiff.Pair(3.0, 7.0);
  const Outcome fresh = Evaluate(soft, 5.0);
  Outcome used;
  used(stiff, 40.0, 8.0);
  used(soft, soft.Seed(5.0) / 5.0, 5.0);
  EXPECT_EQ(used.vel[1], fresh.vel[1]);
  EXPECT_EQ(used.amp[1], fresh.amp[1]);
}

TEST(SASW3D, RepeatedEvaluationAllocatesNothing) {
  Site site(Normal());
  site.Type(4, 1.75);
  site.in.wlTolerance = 0.001;
  site.Pair(6.0, 13.0);
  Outcome run;
  const double L = 9.0, f = site.Seed(L) / L;
  run(site, f, L);
  EXPECT_GT(run.work.passes, 1);
  const long before = AllocationCount();
  run(site, f, L);
  EXPECT_EQ(AllocationCount(), before);
}

// --- mesh ---

TEST(PreMesh, HalfSpaceElementCopiesTheLastSublayer) {
  Site site(Normal());
  site.Type(3, 1.0);
  PointLoadWork work;
  ASSERT_TRUE(FS_PreMesh(site.in, work, 5.0));  // to 5.0: layers 1 and 2
  const auto n = static_cast<std::size_t>(work.mesh.count);
  EXPECT_EQ(work.matrices.N, 2 * work.mesh.count);
  EXPECT_EQ(work.mesh.thick[n], work.mesh.thick[n - 1]);
  EXPECT_EQ(work.mesh.Vs[n], 220.0);
  EXPECT_EQ(work.mesh.top[1], 0.0);
  EXPECT_NEAR(work.mesh.top[n], 5.0, 0.3);
  // complex velocities of 220 and 0.3: real parts grow a little, by the hysteretic damping
  const std::complex<double> c(1.0, 0.04), Vs = 220.0 * std::sqrt(c);
  EXPECT_NEAR(work.matrices.VsStar.re, Vs.real(), 1e-10);
  EXPECT_NEAR(work.matrices.VsStar.im, Vs.imag(), 1e-10);
  EXPECT_NEAR(work.matrices.VpStar.re / work.matrices.VsStar.re, std::sqrt(2.0 * 0.7 / 0.4), 1e-12);
  EXPECT_NEAR(work.matrices.Gstar.im, 0.04 * 1.9 * 220.0 * 220.0, 1e-6);
}

TEST(PreMesh, TooManySublayersMakeNoMesh) {
  Site site(Normal());
  PointLoadWork work;
  site.in.mesh = {1000, 4.0, false};
  EXPECT_FALSE(FS_PreMesh(site.in, work, 5.0));
  site.in.mesh.iMeshGraded = true;
  EXPECT_FALSE(FS_PreMesh(site.in, work, 5.0));
}

// --- hostile input ---

TEST(CheckPointLoadInput, NamesTheSettingThatIsOutOfRange) {
  struct Case {
    const char* word;
    void (*spoil)(Site&);
  };
  const Case cases[] = {
      {"sublayers", [](Site& s) { s.in.mesh.nSubLayers = 0; }},
      {"sublayers", [](Site& s) { s.in.mesh.nSubLayers = 1000000; }},
      {"depth factor", [](Site& s) { s.in.mesh.fDispBulb = 1e9; }},
      {"depth factor", [](Site& s) { s.in.mesh.fDispBulb = kNaN; }},
      {"depth factor", [](Site& s) { s.in.mesh.fDispBulb = -1.0; }},
      {"tolerance", [](Site& s) { s.in.wlTolerance = kNaN; }},
      {"load radius", [](Site& s) { s.in.loadRadius = -1.0; }},
      {"S-wave", [](Site& s) { s.Vs[2] = 0.0; }},
      {"S-wave", [](Site& s) { s.Vs[2] = -100.0; }},
      {"S-wave", [](Site& s) { s.Vs[1] = kNaN; }},
      {"shear modulus", [](Site& s) { s.G[2] = 0.0; }},
      {"density", [](Site& s) { s.rho[3] = 0.0; }},
      {"Poisson", [](Site& s) { s.nu[1] = 0.5; }},
      {"Poisson", [](Site& s) { s.nu[1] = kNaN; }},
      {"damping", [](Site& s) { s.damp[1] = -0.01; }},
      {"thickness", [](Site& s) { s.h[1] = -3.0; }},
      {"thickness", [](Site& s) { s.h[2] = 0.0; }},
      {"thickness", [](Site& s) { s.h[2] = HUGE_VAL; }},
      {"layer", [](Site& s) { s.in.layers.nLayersCur = 0; }},
      {"receiver distance", [](Site& s) { s.Pair(-2.0, 4.0); }},
      {"receiver distance", [](Site& s) { s.Pair(2.0, kNaN); }},
  };
  for (const Case& c : cases) {
    Site site(Normal());
    site.Type(3, 1.75);
    ASSERT_TRUE(CheckPointLoadInput(site.in, nullptr));
    c.spoil(site);
    std::string why;
    EXPECT_FALSE(CheckPointLoadInput(site.in, &why)) << c.word;
    EXPECT_NE(why.find(c.word), std::string::npos) << why;
    Outcome run;
    run(site, 30.0, 5.0);
    EXPECT_EQ(run.work.status, PointLoadStatus::kBadInput) << why;
    EXPECT_EQ(run.vel[1], 0.0);
    EXPECT_EQ(run.result, 0);
  }
}

TEST(CheckPointLoadInput, GradedMeshTakesALayerWithoutThickness) {
  Site site(Normal());
  site.Type(4, 1.75);
  site.h[2] = 0.0;
  EXPECT_TRUE(CheckPointLoadInput(site.in, nullptr));
  Outcome run;
  run(site, 32.0, 5.0);
  EXPECT_EQ(run.work.status, PointLoadStatus::kResult);
}

TEST(SASW3D, BadSeedsAndSlotsGiveNoVelocity) {
  Site site(Normal());
  site.Type(3, 1.75);
  Outcome run;
  for (double f : {0.0, -3.0, kNaN, HUGE_VAL}) {
    run(site, f, 5.0);
    EXPECT_EQ(run.work.status, PointLoadStatus::kBadInput) << f;
    EXPECT_EQ(run.vel[1], 0.0);
  }
  for (double L : {0.0, -3.0, kNaN, HUGE_VAL}) {
    run(site, 30.0, L);
    EXPECT_EQ(run.work.status, PointLoadStatus::kBadInput) << L;
  }
  for (int slot : {0, 2, -1}) {
    run(site, 30.0, 5.0, slot);
    EXPECT_EQ(run.work.status, PointLoadStatus::kBadInput) << slot;
  }
  site.setup[1] = 9;  // no such set-up
  run(site, 30.0, 5.0);
  EXPECT_EQ(run.work.status, PointLoadStatus::kBadInput);
}

TEST(SASW3D, ReceiverTooFarForTheLineGivesNoVelocity) {
  Site site(Normal());
  site.Type(3, 1.75);
  site.Pair(1.0, 1e9);
  EXPECT_EQ(Evaluate(site, 5.0).work.status, PointLoadStatus::kBadInput);
}

// For all numbers: the call returns and gives a positive velocity, 0, or the seed with the flag that says so.
TEST(SASW3D, ExtremeNumbersEndHonestly) {
  const double extremes[] = {1e-300, 1e-30, 1e-3, 0.4999999, 1.0, 1e3, 1e30};
  Outcome run;
  for (int type : {3, 4}) {
    for (int which = 0; which < 7; ++which) {
      for (double value : extremes) {
        Site site(Normal());
        site.Type(type, 1.75);
        double f = 30.0, L = 5.0;
        switch (which) {
          case 0:
            site.h[2] = value;
            break;
          case 1:
            site.Vs[2] = value, site.G[2] = site.rho[2] * value * value;
            break;
          case 2:
            site.rho[2] = value, site.G[2] = value * site.Vs[2] * site.Vs[2];
            break;
          case 3:
            site.nu[2] = value;
            break;
          case 4:
            site.damp[2] = value;
            break;
          case 5:
            f = value;
            break;
          default:
            L = value;
        }
        run(site, f, L);
        switch (run.work.status) {
          case PointLoadStatus::kResult:
            EXPECT_GT(run.vel[1], 0.0);
            EXPECT_TRUE(std::isfinite(run.vel[1]) && std::isfinite(run.amp[1]));
            break;
          case PointLoadStatus::kSeedKept:
            EXPECT_EQ(run.vel[1], 111.0);
            EXPECT_EQ(run.amp[1], 0.7);
            break;
          default:
            EXPECT_EQ(run.vel[1], 0.0);
            EXPECT_EQ(run.amp[1], 0.0);
        }
      }
    }
  }
}

TEST(SASW3D, LargestMeshKeepsItsMemorySmall) {
  Site site({{1e6, 200.0, 1.9, 0.3, 0.02}});
  site.in.mesh = {570, 1.75, false};  // 998 sublayers
  const Outcome run = Evaluate(site, 6.0);
  EXPECT_EQ(run.work.status, PointLoadStatus::kResult);
  EXPECT_EQ(run.work.matrices.N, 2 * 999);
  EXPECT_NEAR(run.vel[1], 185.0, 2.0);
  EXPECT_LT(run.work.modes.Phi.capacity() * sizeof(dcomplex), 1u << 20);
}

}  // namespace
}  // namespace sondera
