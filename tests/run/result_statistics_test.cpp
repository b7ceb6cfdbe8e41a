// Tests of the posterior statistics: exact bytes from prepared matrices.
#include "run/result_statistics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "run/observations.h"
#include "run/result_entries.h"
#include "run/run_sizes.h"
#include "support/failing_file_driver.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class ResultStatistics : public RunTest {
 protected:
  void Start(int modelParm, int layers = 2) {
    SetPlainLayers(layers);
    SetGlobalCurve(3);
    InvParam.MODELPARM = modelParm;
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
    ASSERT_EQ(FS_GetStartMP(), 0);
    run.switches.cdMode = 1;
    run.switches.ufVph = 0.1;
    ASSERT_EQ(FS_SetUpObsData(run.switches.iDispSource), 0);
    run.course.iCurIterNo = 1;
  }
};

TEST_F(ResultStatistics, PosteriorTableOfVs) {
  Start(1);
  run.parameters.Cm(1, 1) = 16.0;
  run.parameters.Cm(2, 2) = 25.0;
  run.update.InvH(1, 1) = 4.0;
  run.update.InvH(2, 2) = 25.0;
  FS_SavePostMPar(1, 2.5);
  EXPECT_EQ(File(".pcm"),
            "Iteration no. :  1 (3-D Inversion) ... RMS error (Vel=2.5)\n"
            "Model Parameter : Shear Wave Velocity\n"
            "Layer   postV/priV      Var.       Std Dev. L.Bound(95%)  U.Bound(95%)\n"
            "  1      0.25000      4.00000      2.00000     96.00000    104.00000\n"
            "  2      1.00000     25.00000      5.00000    110.00000    130.00000\n");
}

TEST_F(ResultStatistics, FiveIterationsLeaveFiveBlocks) {
  Start(1);
  for (int i = 1; i <= 5; ++i) FS_SavePostMPar(i, 1.0);
  const std::string text = File(".pcm");
  int heads = 0;
  for (std::size_t at = 0; (at = text.find("Iteration no. :", at)) != std::string::npos; ++at) ++heads;
  EXPECT_EQ(heads, 5);
}

TEST_F(ResultStatistics, FreeThicknessNeverAppearsForTheLastLayer) {
  Start(2, 3);
  FS_SavePostMPar(1, 1.0);
  const std::string text = File(".pcm");
  EXPECT_NE(text.find("Model Parameter : Thickness\n"), std::string::npos);
  EXPECT_NE(text.find("\n  2 "), std::string::npos);
  EXPECT_EQ(text.find("\n  3 "), std::string::npos);
  EXPECT_EQ(text.find("Shear Wave Velocity"), std::string::npos);
}

TEST_F(ResultStatistics, RowOfVpGoesByTheNameOfPoissonsRatioAndShowsNu) {
  Start(1);
  run.parameters.MapEntry(kQuantityVs, 2) = 0;
  run.parameters.MapEntry(kQuantityVp, 2) = 2;
  FS_SavePostMPar(1, 1.0);
  EXPECT_NE(File(".pcm").find("Model Parameter : Poisson's Ratio\n"), std::string::npos);
  EXPECT_NE(File(".pcm").find("     0.30000      0.30000\n"), std::string::npos);
}

TEST_F(ResultStatistics, WithoutFreeThicknessItsBlockIsAbsent) {
  Start(1);
  ColumnMatrix G(3, 2);
  run.update.Weight = ColumnMatrix(2, 3);
  FS_SaveGaussParam(G, run.observations.runVel);
  FS_SavePostMPar(1, 1.0);
  EXPECT_EQ(File(".r").find("Thickness"), std::string::npos);
  EXPECT_EQ(File(".pcm").find("Thickness"), std::string::npos);
  EXPECT_NE(File(".r").find("Shear Wave Velocity"), std::string::npos);
}

TEST_F(ResultStatistics, ResolutionFilesOfTwoRowsInUse) {
  Start(1);
  run.observations.iNoVelocity[2] = 1;  // the second of three observations is out
  ColumnMatrix G(2, 2);
  G(1, 1) = 1.0;
  G(1, 2) = 0.5;
  G(2, 1) = 3.0;
  G(2, 2) = 4.0;
  run.update.Weight = ColumnMatrix(2, 2);
  run.update.Weight(1, 1) = 0.5;
  run.update.Weight(1, 2) = 0.25;
  run.update.Weight(2, 2) = 0.125;
  OffsetVector<double> velocity(1, 3);
  velocity[1] = 111.0;
  velocity[3] = 126.0;
  FS_SaveGaussParam(G, velocity);
  // N = G W has the diagonal 0.5, 1.25; compact row 2 is observation 3 at 30 Hz.
  EXPECT_EQ(File(".n"),
            "\n\nIteration no. :  1 ...\n"
            "   1   1.0000000e+01   1.1100000e+01   5.0000000e-01\n"
            "   2   3.0000000e+01   4.2000000e+00   1.2500000e+00\n"
            "\n");
  // R = W G = (1.25, 1.25; 0.375, 0.5)
  EXPECT_EQ(
      File(".r"),
      "\n\nIteration no. :  1 ... \n"
      "Model Parameter = Shear Wave Velocity\n"
      " No.\t      Depth\t   G(maxWaveL)\t   G(diagonal)\t    Diagonal\t Backus-Gilbert\t    Dirichlet\n"
      "  1\t  2.0000000e+00\t  3.0000000e+00\t  3.1622777e+00\t  1.2500000e+00\t  1.5625000e+00\t  "
      "1.6250000e+00\n"
      "  2\t  4.0000000e+00\t  4.0000000e+00\t  4.0311289e+00\t  5.0000000e-01\t  1.4062500e-01\t  "
      "3.9062500e-01\n"
      "Backus-Gilbert spread function ...   1.7031250e+00\n"
      "Dirichlet spread function  .......   2.0156250e+00\n");
  EXPECT_DOUBLE_EQ(InvParam.resolution(1, 0), 1.25);
  EXPECT_DOUBLE_EQ(InvParam.resolution(1, 1), 0.5);
}

TEST_F(ResultStatistics, FixedLayerIsFullyResolvedAndHasNoBand) {
  Start(2);
  ColumnMatrix G(3, 1);
  run.update.Weight = ColumnMatrix(1, 3);
  FS_SaveGaussParam(G, run.observations.runVel);
  EXPECT_DOUBLE_EQ(InvParam.resolution(1, 0), 1.0);
  EXPECT_DOUBLE_EQ(InvParam.resolution(1, 1), 1.0);
  EXPECT_DOUBLE_EQ(PosteriorDeviation(1, 1), 0.0);
}

TEST_F(ResultStatistics, WholeMatricesStandBehindTheirSwitches) {
  Start(1);
  run.switches.reportSwitch[1] = run.switches.reportSwitch[2] = run.switches.reportSwitch[3] = true;
  ColumnMatrix G(1, 2);
  G(1, 1) = 2.0;
  run.update.Weight = ColumnMatrix(2, 1);
  run.update.Weight(1, 1) = 0.5;
  FS_SaveGaussParam(G, run.observations.runVel);
  EXPECT_EQ(File(".N"), "\n\nIteration no. :  1 ...\n  1   1   1.0000000e+00\n\n\n\n");
  EXPECT_EQ(File(".R0"),
            "\n\nIteration no. :  1 ...Model Parameter = Shear Wave Velocity\n"
            "1 1   1.0000000e+00\n1 2   0.0000000e+00\n2 1   0.0000000e+00\n2 2   0.0000000e+00\n");
  EXPECT_EQ(File(".R1"),
            "\n\nIteration no. :  1 ...Model Parameter = Shear Wave Velocity\n"
            "1 1   1.0000000e+00\n1 2   0.0000000e+00\n\n2 1   0.0000000e+00\n2 2   0.0000000e+00\n\n");
}

/// A lost block is a failure in every one of these files.
TEST_F(ResultStatistics, LostBlockIsTold) {
  const ColumnMatrix G(3, 2);
  const std::string extensions[] = {".pcm", ".n", ".r"};
  for (int k = 0; k < 3; ++k) {
    Start(1);
    frontEnd.messages.clear();
    run.update.Weight = ColumnMatrix(2, 3);
    const test::FailingFileDriver fullDisk({.failWrite = k + 1, .error = ENOSPC});
    FS_SavePostMPar(1, 1.0);
    FS_SaveGaussParam(G, run.observations.runVel);
    EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("site" + extensions[k] + ": No space left on device"));
  }
}

}  // namespace
}  // namespace sondera::testing
