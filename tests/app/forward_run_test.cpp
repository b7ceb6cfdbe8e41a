// Forward runs as a person starts them: settings of the panel, the button, then curve and files.
#include <cmath>

#include "app/commands.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/events.h"
#include "support/app_fixture.h"
#include "support/site_records.h"

namespace sondera {
namespace {

using namespace fmodeling;

class ForwardRun : public testing::AppTest {
 protected:
  /// Ground that stiffens with depth: 100, 150, 200 m/s; nu 0.3333, damping 0.02. The thickness of the last
  /// layer is the depth to which the point-load solver may mesh it.
  void EnterGround() {
    constexpr double kThickness[] = {1.0, 3.0, 1000.0}, kVs[] = {100.0, 150.0, 200.0};
    Commit(exdthd::FMODELPARAM);
    SetCtrlVal(NLAYERS, 3);
    Commit(NLAYERS);
    for (int row = 1; row <= 3; ++row) {
      const double cells[] = {kThickness[row - 1], 0.0, kVs[row - 1], 1800.0, 0.3333, 0.02};
      for (int column = 1; column <= 6; ++column)
        SetTableCellVal(SOILPROFILE, row, column, cells[column - 1]);
    }
  }
  /// Global curve at generated points, receivers at two and four wavelengths.
  void AskForGlobalCurve(int analysis, int domain, double from, double to, int points) {
    EnterGround();
    SetCtrlVal(GLOBAL_ARRAY, 1);
    Commit(GLOBAL_ARRAY);
    SetCtrlVal(ANALYSISTYPE, analysis);
    SetCtrlVal(XDOMAIN_TYPE, domain);
    SetCtrlVal(XMIN, from);
    SetCtrlVal(XMAX, to);
    SetCtrlVal(NDISPPOINTS, points);
    FModelParam.DispCurvInfo = 0;
  }
  /// Velocities of the run's curve that stand for a result.
  std::vector<double> GlobalVelocities() {
    std::vector<double> velocities;
    for (int i = 0; i < TheoDispInfo.nDispPointsG; ++i)
      velocities.push_back(TheoDispInfo.globalVel[static_cast<std::size_t>(i)]);
    return velocities;
  }
};

TEST_F(ForwardRun, EveryAnalysisAndDomainGivesACurveBetweenTheVelocitiesOfTheGround) {
  for (int analysis : {2, 3, 4}) {
    for (int domain : {1, 2}) {
      SCOPED_TRACE(::testing::Message() << "analysis " << analysis << " domain " << domain);
      StartSession();
      AskForGlobalCurve(analysis, domain, domain == 1 ? 1.0 : 5.0, domain == 1 ? 20.0 : 60.0, 8);
      ASSERT_EQ(Commit(exdthd::RUN_FMODEL), 0);
      const std::vector<double> velocities = GlobalVelocities();
      ASSERT_EQ(velocities.size(), 8u);
      for (double v : velocities) {
        EXPECT_GT(v, 85.0);
        EXPECT_LT(v, 200.0);
      }
      for (const char* name : {"ProjID.fdp", "ProjID.fmp", "ProjID.pfl"}) EXPECT_TRUE(Exists(name)) << name;
      EXPECT_TRUE(GetCtrlVal(exdthd::STATUSMSG).starts_with("End of Forward Modeling Analysis:"))
          << GetCtrlVal(exdthd::STATUSMSG);
    }
  }
  EXPECT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
}

TEST_F(ForwardRun, BothSolversAgreeWhereTheWaveIsPlane) {
  // Far from the source on steady ground the apparent velocity is that of the fundamental mode, within some
  // per cent.
  AskForGlobalCurve(2, 1, 2.0, 4.0, 4);
  ASSERT_EQ(Commit(exdthd::RUN_FMODEL), 0);
  const std::vector<double> plane = GlobalVelocities();
  AskForGlobalCurve(4, 1, 2.0, 4.0, 4);
  ASSERT_EQ(Commit(exdthd::RUN_FMODEL), 0);
  const std::vector<double> point = GlobalVelocities();
  ASSERT_EQ(plane.size(), point.size());
  for (std::size_t i = 0; i < plane.size(); ++i) EXPECT_NEAR(point[i] / plane[i], 1.0, 0.08) << i;
}

TEST_F(ForwardRun, AMeasuredRecordIsComparedWithItsGround) {
  test::WriteSitePair(folder.File("H31.hyx"), 20.0, 50.0);
  Write("job.txt", "import H31 H31 20 50\nmasking H31 0 400 300 90 70\ncalcVel\nexport x H31 1 2 -1\n");
  session.projectFileName = folder.File("site.da");
  ASSERT_EQ(ProcessCommands(0, "job.txt"), -1) << "stops at its last line, so that the session stays";
  ASSERT_GT(MeasDB.aDispList.count(), 0);
  EnterGround();
  SetCtrlVal(ANALYSISTYPE, 3);
  SetCtrlVal(GLOBAL_ARRAY, 2);
  ASSERT_EQ(Commit(LOADDISPCURV), 0);
  Commit(GLOBAL_ARRAY);
  ASSERT_EQ(Commit(UPDATE), 0);
  ASSERT_EQ(Commit(exdthd::RUN_FMODEL), 0);
  int results = 0;
  for (int i = 0; i < TheoDispInfo.nDispPoints * TheoDispInfo.nDispCurves; ++i)
    if (TheoDispInfo.vel[static_cast<std::size_t>(i)] > 0.0) ++results;
  EXPECT_GT(results, 10);
  EXPECT_GT(GetCtrlVal(exdthd::RMSERROR), 0.0);
  EXPECT_TRUE(std::isfinite(GetCtrlVal(exdthd::RMSERROR)));
}

TEST_F(ForwardRun, AZeroThicknessIsRefusedWithItsMessage) {
  AskForGlobalCurve(2, 1, 1.0, 20.0, 5);
  SetTableCellVal(SOILPROFILE, 3, 1, 0.0);
  EXPECT_EQ(Commit(exdthd::RUN_FMODEL), -1);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"Invalid value of thickness !"});
}

}  // namespace
}  // namespace sondera
