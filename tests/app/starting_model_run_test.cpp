// Starting models of a record, by commands of the command script: import, curves, layers, profiles.
//
// The ground is known: Vs 150 m/s down to 2 m, 220 to 6 m, 300 to 14 m, 400 below. The pair sees wavelengths
// of 3 to 30 m well, and so depths of 1.5 to 12 m.
#include <cmath>
#include <filesystem>

#include "app/commands.h"
#include "panels/inversion_start.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/events.h"
#include "support/app_fixture.h"
#include "support/site_records.h"

namespace sondera {
namespace {

constexpr const char* kToCurves = "import pair pair 20 50\nmasking pair 0 600 450 110 80\ncalcVel\n";
constexpr const char* kStop = "export x pair 1 2 -1\n";  // ends the script early, so that the session stays

class StartingModelRun : public testing::AppTest {
 protected:
  void RunScript(const std::string& commands) {
    test::WriteSitePair(folder.File("pair.hyx"), 20.0, 50.0, 129);
    Write("job.txt", commands + kStop);
    session.projectFileName = folder.File("site.da");
    ASSERT_EQ(ProcessCommands(0, "job.txt"), -1);
  }
  /// Mean of 1 / Vs over a range of depths, as the velocity of a wave through it.
  static double VsBetween(int slot, double top, double bottom) {
    double time = 0.0;
    for (int l = 0; l < SMPParam.nLayers; ++l) {
      const double from = SMPParam.depth(slot, l);
      const double to = l + 1 < SMPParam.nLayers ? from + SMPParam.H(slot, l) : 1e9;
      const double part = std::min(to, bottom) - std::max(from, top);
      if (part > 0.0) time += part / SMPParam.Vs(slot, l);
    }
    return (bottom - top) / time;
  }
};

TEST_F(StartingModelRun, CurvesBringALayerTableWithThem) {
  RunScript(kToCurves);
  ASSERT_GT(MeasDB.aDispList.count(), 0);
  const double depth = GetCtrlVal(fmodeling::MAXDEPTH);
  EXPECT_GT(depth, 5.0);
  EXPECT_LT(depth, 100.0);
  const int n = GetCtrlVal(fmodeling::NLAYERS);
  ASSERT_GT(n, 5);
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 1, 1), 0.5);
  EXPECT_GT(GetCtrlVal(fmodeling::TOTALDEPTH), depth);
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, n, 1), 1000.0 * GetCtrlVal(fmodeling::TOTALDEPTH));
  EXPECT_EQ(FModelParam.nLayers, n);
}

TEST_F(StartingModelRun, ProfilesLieNearTheGround) {
  // Given layers: a thick last one, so that the mesh of the solver is deep enough.
  RunScript(std::string(kToCurves) + "preInversion 0 0 0 0.5 9 0.5 0.5 1 1 1 2 2 4 500\n");
  EXPECT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
  ASSERT_EQ(SMPParam.nEntries, 10);
  ASSERT_EQ(SMPParam.nLayers, 9);
  for (int k = 1; k <= 10; ++k) {
    EXPECT_GT(SMPParam.rms[k], 0.0);
    EXPECT_LT(SMPParam.rms[k], 40.0) << "velocities are 140 to 300 m/s";
    for (int l = 0; l < 9; ++l) EXPECT_TRUE(SMPParam.Vs(k, l) > 20.0 && SMPParam.Vs(k, l) < 400.0);
    EXPECT_NEAR(VsBetween(k, 1.0, 2.0), 150.0, 25.0) << k;
    EXPECT_NEAR(VsBetween(k, 2.0, 6.0), 220.0, 25.0) << k;
    EXPECT_NEAR(VsBetween(k, 2.0, 8.0), 241.0, 20.0) << k << ": 4 m of 220 m/s and 2 m of 300";
  }
}

TEST_F(StartingModelRun, BestProfileIsOnThePanelAndInTheProject) {
  RunScript(std::string(kToCurves) + "preInversion 1 0 1 0.5\n");
  EXPECT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
  const int best = BestStartingProfile();
  ASSERT_GE(best, 1);
  for (int k = 1; k <= 10; ++k) EXPECT_GE(SMPParam.rms[k], SMPParam.rms[best]);
  EXPECT_EQ(GetCtrlVal(fmodeling::COPYPRF), -best);
  for (int l = 0; l < SMPParam.nLayers; ++l)
    EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, l + 1, 3), SMPParam.Vs(best, l));
  EXPECT_TRUE(Exists("site.da"));
  for (const char* name : {"ProjID.fdp", "ProjID.fmp", "ProjID.pfl"}) EXPECT_TRUE(Exists(name)) << name;
}

TEST_F(StartingModelRun, HaltInTheMiddleKeepsTheFinishedProfilesAndSavesNothing) {
  frontEnd.onProcessEvents = [] {
    if (GetNumListItems(exdthd::ITERNO) == 3) RequestInterrupt();
  };
  RunScript(kToCurves);
  std::filesystem::remove(folder.File("site.da"));
  const double Vs = GetTableCellVal(fmodeling::SOILPROFILE, 1, 3);
  EXPECT_EQ(Commit(inversion::EVALSMPARAM), -1);
  frontEnd.onProcessEvents = nullptr;
  ClearInterrupt();
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 3);
  for (int k = 1; k <= 10; ++k) EXPECT_EQ(SMPParam.rms[k] > 0.0, k <= 3) << k;
  EXPECT_LE(BestStartingProfile(), 3);
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 1, 3), Vs) << "no profile is taken";
  EXPECT_FALSE(Exists("site.da"));
}

TEST_F(StartingModelRun, SettingsThatTheSolverRefusesAreToldOnceAndNotForEveryRatio) {
  RunScript(kToCurves);
  frontEnd.messages.clear();
  SetTableCellVal(fmodeling::SOILPROFILE, 2, 1, 1e300);
  EXPECT_EQ(Commit(inversion::EVALSMPARAM), -1);
  EXPECT_EQ(frontEnd.messages,
            std::vector<std::string>{"The thickness of layer 2 is 1e+300. It must be from 0 to 1e+30."});
}

}  // namespace
}  // namespace sondera
