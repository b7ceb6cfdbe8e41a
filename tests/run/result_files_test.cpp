// Tests of the result files: exact bytes from small prepared runs.
#include "run/result_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "run/observations.h"
#include "run/receiver_setups.h"
#include "run/report_file.h"
#include "run/result_entries.h"
#include "run/result_statistics.h"
#include "run/run_files.h"
#include "run/run_sizes.h"
#include "support/failing_file_driver.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

/// A run as its driver has it before the solvers, on two layers.
class ResultFiles : public RunTest {
 protected:
  void SetUp() override {
    RunTest::SetUp();
    SetPlainLayers(2);
  }

  const OffsetVector<double> none{};
};

TEST_F(ResultFiles, HeadLineHasTheAmplitudeOnlyWhereItIsInUse) {
  run.course.runTitle = "3-D Inversion";
  EXPECT_EQ(IterationHead(run.course, run.switches, 3, 1.25, 0.5),
            "Iteration no. :  3 (3-D Inversion) ... RMS error (Vel=1.25)\n");
  run.switches.iUseAmplitude = 1;
  EXPECT_EQ(IterationHead(run.course, run.switches, 12, 1.25, 0.5),
            "Iteration no. : 12 (3-D Inversion) ... RMS error (Vel=1.25, Amp=0.5)\n");
}

TEST_F(ResultFiles, PlaneWaveCurveByWavelength) {
  SetGlobalCurve(2);
  StartRun(kForwardRun, 2);
  FS_SaveDspCurve(0, Values({99.0, 126.0}), none, 2.5, 0.0);
  EXPECT_EQ(File(".fdp"),
            "Iteration no. :  0 (2-D) ... RMS error (Vel=2.5)\n"
            "wavelength  freq(obs)   vel(obs)  freq(cal) vel(cal)   \n"
            "   11.00000    10.00000   110.00000     9.00000    99.00000\n"
            "    6.00000    20.00000   120.00000    21.00000   126.00000\n");
  EXPECT_FALSE(run.course.timeText.empty());
}

TEST_F(ResultFiles, WavelengthOfZeroHasNoFrequency) {
  SetGlobalCurve(1);
  StartRun(kForwardRun, 2);
  run.observations.runLambda[1] = 0.0;
  FS_SaveDspCurve(0, Values({99.0}), none, 1.0, 0.0);
  EXPECT_EQ(File(".fdp").substr(File(".fdp").find("vel(cal)   \n") + 12),
            "    0.00000     0.00000   110.00000     0.00000    99.00000\n");
}

TEST_F(ResultFiles, PointWithoutComputedVelocityPrintsZeros) {
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  FS_SaveDspCurve(0, Values({0.0, 130.0}), none, 10.0, 0.0);
  EXPECT_EQ(File(".fdp"),
            "Iteration no. :  0 (3-D) ... RMS error (Vel=10)\n"
            "frequency wavel(obs)   vel(obs)  wavel(cal) vel(cal)   \n"
            "   10.00000    11.00000   110.00000     0.00000     0.00000\n"
            "   20.00000     6.00000   120.00000     6.50000   130.00000\n");
}

TEST_F(ResultFiles, ArrayCurvesStandInThreeBlocks) {
  SetArrayCurves(2, 2, {100.0, 0.0, 110.0, 120.0});
  StartRun(kForwardRun, 4);
  FS_SaveDspCurve(0, Values({101.0, 111.0, 0.0}), Values({0.5, 0.25, 0.0}), 1.0, 0.0);
  EXPECT_EQ(
      File(".fdp"),
      "Iteration no. :  0 (Enhanced 3-D) ... RMS error (Vel=1)\n"
      "      freq.    vel(obs)    vel(cal)    vel(obs)    vel(cal) \n"
      "    5.00000   100.00000   101.00000 -           -\n"
      "   10.00000   110.00000   111.00000   120.00000     0.00000 \n"
      "\n\n"
      " waveL(obs)   vel(obs)  waveL(calc)   vel(calc)    waveL(obs)   vel(obs)  waveL(calc)   vel(calc) "
      "  \n"
      "   20.00000   100.00000    20.20000   101.00000   -          -           -            -\n"
      "   11.00000   110.00000    11.10000   111.00000      12.00000   120.00000     0.00000     0.00000   "
      "\n"
      "\n\n"
      "      freq.    Amp(obs)    Amp(cal)    Amp(obs)    Amp(cal) \n"
      "    5.00000     0.00000     0.50000 -           -\n"
      "   10.00000     0.00000     0.25000     0.00000     0.00000 \n"
      "\n\n");
}

TEST_F(ResultFiles, ModelTableOfAForwardRun) {
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  FS_SaveModelPar(0, 0.5, 0.0);
  EXPECT_EQ(
      File(".fmp"),
      "Iteration no. :  0 (3-D) ... RMS error (Vel=0.5)\n"
      "Layer No.    Depth       Thick.        Cp           Cs      Cs(Lower)   Cs(Upper)     Rho          Nu "
      "      damping\n"
      "--------- ----------- ----------- ----------- ----------- ----------- ----------- ----------- "
      "----------- -----------\n"
      "    1        0.000        2.000      187.083     100.000     100.000     100.000     2.000       "
      "0.300 "
      "      0.020\n"
      "    2        2.000        2.000      224.499     120.000     120.000     120.000     2.000       "
      "0.300 "
      "      0.020\n"
      "\n");
}

TEST_F(ResultFiles, BandIsTwoDeviationsOfTheEntryBefore) {
  SetGlobalCurve(2);
  StartRun(kInversionRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  run.ground.layerVs[1] = 140.0;
  ASSERT_EQ(FS_RefreshModelPar(1), 0);
  InvParam.ufVs = 0.05;
  InvParam.resolution(1, 0) = 0.75;
  EXPECT_DOUBLE_EQ(PosteriorDeviation(1, 0), 0.5 * 0.05 * 100.0);
  EXPECT_DOUBLE_EQ(PosteriorDeviation(0, 0), 0.0);
  EXPECT_DOUBLE_EQ(PosteriorDeviation(-1, 0), 0.0);
  FS_SaveModelPar(1, 0.5, 0.0);
  EXPECT_NE(File(".fmp").find("     140.000     135.000     145.000"), std::string::npos) << File(".fmp");
}

TEST_F(ResultFiles, FactorOfExactlyOneIsARatioAndAboveAnAbsoluteDeviation) {
  SetGlobalCurve(2);
  StartRun(kInversionRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  ASSERT_EQ(FS_RefreshModelPar(1), 0);
  InvParam.ufVs = 1.0;
  EXPECT_DOUBLE_EQ(PosteriorDeviation(1, 1), 120.0);
  InvParam.ufVs = 25.0;
  EXPECT_DOUBLE_EQ(PosteriorDeviation(1, 1), 25.0);
  InvParam.resolution(1, 1) = 1.0 + 1e-15;
  EXPECT_DOUBLE_EQ(PosteriorDeviation(1, 1), 0.0);
}

TEST_F(ResultFiles, ProfileIsAStairThatEndsOnTheTopOfTheHalfSpace) {
  SetPlainLayers(3);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 2);
  FS_SaveProfile(0, 0.5, 0.0);
  EXPECT_EQ(File(".pfl"),
            "Iteration no. :  0 (2-D) ... RMS error (Vel=0.5)\n"
            "Velocity  Depth\n"
            "   100.00000      0.00000\n"
            "   100.00000      2.00000\n"
            "   120.00000      2.00000\n"
            "   120.00000      4.00000\n"
            "   140.00000      4.00000\n"
            "\n");
}

TEST_F(ResultFiles, ProfileOfOneLayerPrintsOnlyTheHalfSpaceRow) {
  SetPlainLayers(1);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 2);
  FS_SaveProfile(0, 0.5, 0.0);
  EXPECT_EQ(File(".pfl"),
            "Iteration no. :  0 (2-D) ... RMS error (Vel=0.5)\nVelocity  Depth\n"
            "   100.00000      0.00000\n\n");
}

TEST_F(ResultFiles, ForwardModelColumnsGiveDerivedValuesAsZero) {
  SetLayers({{2.0, 0.0, 100.0, 2.0, 0.3, 0.02}, {2.0, 400.0, 200.0, 0.0, 0.0, 0.03}});
  SetGlobalCurve(2);
  StartRun(kInversionRun, 3);
  FS_SaveSMPfile(1, 0.5, 0.0);
  EXPECT_EQ(File(".fsp"),
            "Iteration no. :  1 (3-D Inversion) ... RMS error (Vel=0.5)\n"
            "       2.00000        0.00000      100.00000        2.00000        0.30000        0.02000\n"
            "       2.00000      400.00000      200.00000        0.00000        0.00000        0.03000\n"
            "\n");
}

TEST_F(ResultFiles, IterationsStandOneAfterTheOther) {
  SetGlobalCurve(2);
  StartRun(kInversionRun, 3);
  for (int i = 0; i <= 5; ++i) FS_SaveDspCurve(i, Values({100.0, 110.0}), none, 1.0, 0.0);
  const std::string text = File(".fdp");
  int heads = 0;
  for (std::size_t at = 0; (at = text.find("Iteration no. :", at)) != std::string::npos; ++at) ++heads;
  EXPECT_EQ(heads, 6);
  EXPECT_LT(text.find("Iteration no. :  0"), text.find("Iteration no. :  5"));
}

TEST_F(ResultFiles, LostBlockIsToldOnceAndTheRunGoesOn) {
  SetGlobalCurve(2);
  StartRun(kInversionRun, 3);
  const test::FailingFileDriver fullDisk({.failWrite = 1, .everAfter = true, .error = ENOSPC});
  FS_SaveDspCurve(0, Values({100.0, 110.0}), none, 1.0, 0.0);
  EXPECT_EQ(OnlyMessage(),
            "Cannot write " + Base() +
                ".fdp: No space left on device.\nThe result files of this run are not written. "
                "Those of the former run stay.");
  FS_SaveModelPar(0, 1.0, 0.0);
  FS_SaveProfile(0, 1.0, 0.0);
  FS_SaveSMPfile(1, 1.0, 0.0);
  FS_SavePostMPar(1, 1.0);
  FS_CloseFiles(kInversionRun);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(ResultFiles, FileThatTheRunDidNotOpenAndCannotBeOpenedIsTold) {
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  run.switches.baseName = folder.File("missing/site");
  FS_SaveSMPfile(1, 1.0, 0.0);
  EXPECT_THAT(OnlyMessage(),
              ::testing::StartsWith("Error in opening file " + run.switches.baseName + ".fsp\n"));
}

}  // namespace
}  // namespace sondera::testing
