// The whole loop: a known ground, its computed records, curves of them, and the profile that comes back.
#include <cmath>
#include <sstream>

#include "app/waveform_fixture.h"
#include "forward/point_load.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/session.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

const std::string kFolder = std::filesystem::absolute(SONDERA_SOURCE_DIR "/examples/computed_site").string();

class ComputedSite : public testing::WaveformTest {};

/// Velocity that the solver gives a pair of receivers on the ground of two layers; NaN without a result.
/// @param type  3 even layers, 4 graded mesh, both four wavelengths deep
double SolverVelocity(int type, double first, double second, double f, double velocity) {
  std::vector<double> h = {0.0, 2.0, 1000.0}, Vs = {0.0, 150.0, 300.0}, rho(3, 1.8), nu(3, 0.25),
                      damp(3, 0.02), G(3);
  for (std::size_t l = 1; l <= 2; ++l) G[l] = rho[l] * Vs[l] * Vs[l];
  std::vector<int> count = {0, 1}, setup = {0, 4};
  std::vector<double> rec1(5), rec2(5);
  rec1[4] = first;
  rec2[4] = second;
  PointLoadInput in;
  in.layers = {2, h.data(), Vs.data(), G.data(), rho.data(), nu.data(), damp.data()};
  in.mesh = {16, 4.0, type == 4};
  in.nPoints = 1;
  in.nRecCfgPerPoint = count.data();
  in.recCfgOfPoint = setup.data();
  in.nRecSetups = 4;
  in.rec1Loc = rec1.data();
  in.rec2Loc = rec2.data();
  PointLoadWork work;
  const double freq[2] = {0.0, f}, L[2] = {0.0, velocity / f};
  double vel[2] = {}, amp[2] = {}, recAmp[3] = {};
  FS_SASW3D(in, work, freq, vel, amp, L, -1, 1, nullptr, recAmp);
  return work.status == PointLoadStatus::kResult ? vel[1] : NAN;
}

TEST_F(ComputedSite, PairCurvesAreThoseOfTheSolver) {
  Ground(kTwoLayers, "2,4,8,16");
  ASSERT_NE(Run("waveform fc=60 span=1000 points=1024\nwaveform measurement site\n"
                "pair site 1 2\nphase original\ndisperse alpha=0.01\n"
                "pair site 2 3\nphase original\ndisperse alpha=0.01\n"
                "pair site 3 4\nphase original\ndisperse alpha=0.01\n"),
            1)
      << err;
  const double at[] = {2.0, 4.0, 8.0, 16.0};
  for (int r = 0; r < 3; ++r) {
    const PMeasInfo* pair = FindPair(GetKeyFromID(session.curProjID, "site"), r, r + 1);
    ASSERT_TRUE(pair) << r;
    int compared = 0;
    for (std::size_t i = 0; i < pair->dispFreq.size(); ++i) {
      const double f = pair->dispFreq[i], v = pair->dispVel[i];
      if (f < 9.0 || f > 150.0 || i % 4 != 0) continue;
      const double graded = SolverVelocity(4, at[r], at[r + 1], f, v);
      if (!std::isfinite(graded)) continue;
      ++compared;
      EXPECT_NEAR(v / graded, 1.0, 1e-3) << at[r] << " m, " << f << " Hz";
      if (const double even = SolverVelocity(3, at[r], at[r + 1], f, v); std::isfinite(even)) {
        EXPECT_NEAR(v / even, 1.0, 0.03) << at[r] << " m, " << f << " Hz, even layers";
      }
    }
    EXPECT_GT(compared, 10) << r;
  }
}

TEST_F(ComputedSite, TheExampleFindsTheGroundThatItBeganWith) {
  Write("ground.txt", test::ReadWhole(kFolder + "/ground.txt"));
  const std::string job = test::ReadWhole(kFolder + "/job.txt");
  ASSERT_EQ(Run(job.substr(job.find('\n') + 1)), 0) << err << report;
  EXPECT_TRUE(Exists("record_r5.tim") && Exists("record.pls") && Exists("computed.da"));
  const double truth[] = {150.0, 220.0, 330.0};
  int resolved = 0;
  int last = 3;  // the run may end before
  while (last > 0 && InvParam.rms[last] == 0.0) --last;
  ASSERT_GT(last, 0);
  for (int l = 0; l < 3; ++l) {
    if (!(InvParam.resolution(last, l) > 0.8)) continue;
    ++resolved;
    EXPECT_NEAR(InvParam.Vs(last, l) / truth[l], 1.0, 0.05) << "layer " << l + 1;
  }
  EXPECT_GE(resolved, 2);
}

}  // namespace
}  // namespace sondera
