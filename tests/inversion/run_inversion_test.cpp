// Tests of whole inversions: results of an iteration in records, lists and files, the end of a run, and
// invalid curves and settings.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <filesystem>

#include "panels/entry_lists.h"
#include "run/sweep_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "support/odd_numbers.h"
#include "support/run_case.h"

namespace sondera::testing {
namespace {

const std::vector<LayerRow> kTruth = {{2.0, 0.0, 130.0, 1.8, 0.33, 0.02},
                                      {3.0, 0.0, 180.0, 1.8, 0.33, 0.02},
                                      {5.0, 0.0, 260.0, 1.8, 0.33, 0.02}};

class FS_RunIAnalTest : public RunCase {
 protected:
  void SetKnownSite() {
    SetLayers(Uniform(kTruth, 180.0));
    SetCurveOf(kTruth, Wavelengths(2.0, 25.0, 15));
  }

  /// Polls of events from now on until the given one, at which something is done.
  template <class Action>
  void AtPoll(int number, Action action) {
    frontEnd.onProcessEvents = [this, number, action] {
      if (++polls_ == number) action();
    };
  }

  /// All stored numbers of a listed iteration are finite.
  void ExpectFiniteResults() const {
    for (int k = 0; k < Listed(); ++k) {
      EXPECT_TRUE(std::isfinite(InvParam.rms[k])) << k;
      for (int l = 0; l < InvParam.nLayers; ++l) {
        for (auto table : kModelTables) EXPECT_TRUE(std::isfinite((InvParam.*table)(k, l))) << k << ' ' << l;
        EXPECT_TRUE(std::isfinite(InvParam.resolution(k, l))) << k << ' ' << l;
      }
      for (int p = 0; p < InvParam.nPoints; ++p)
        EXPECT_TRUE(std::isfinite(InvParam.vel(k, p))) << k << ' ' << p;
    }
    for (const char* extension : {".fdp", ".fmp", ".pfl", ".fsp", ".pcm", ".n", ".r"}) {
      const std::string text = File(extension);
      EXPECT_EQ(text.find("nan"), std::string::npos) << extension;
      EXPECT_EQ(text.find("inf"), std::string::npos) << extension;
    }
  }
  int Heads(const char* extension) const { return Count(File(extension), "Iteration no. :"); }

 private:
  int polls_ = 0;
};

// --- What a run leaves ---

TEST_F(FS_RunIAnalTest, OneIterationLeavesFilesOfIterationsZeroAndOne) {
  SetKnownSite();
  ASSERT_EQ(RunIterations(1), 0) << Messages();
  for (const char* extension : {".fdp", ".fmp", ".pfl"}) {
    EXPECT_EQ(Heads(extension), 2) << extension;
    EXPECT_NE(File(extension).find("Iteration no. :  0 (2-D Inversion)"), std::string::npos) << extension;
    EXPECT_NE(File(extension).find("Iteration no. :  1 (2-D Inversion)"), std::string::npos) << extension;
  }
  for (const char* extension : {".fsp", ".pcm", ".n", ".r"}) {
    EXPECT_EQ(Heads(extension), 1) << extension;
    EXPECT_NE(File(extension).find("Iteration no. :  1"), std::string::npos) << extension;
  }
}

TEST_F(FS_RunIAnalTest, FiveIterationsLeaveSixCurvesAndFiveStatistics) {
  SetKnownSite();
  ASSERT_EQ(RunIterations(5), 0) << Messages();
  EXPECT_EQ(Heads(".fdp"), 6);
  EXPECT_EQ(Heads(".fmp"), 6);
  EXPECT_EQ(Heads(".pfl"), 6);
  EXPECT_EQ(Heads(".pcm"), 5);
  EXPECT_EQ(Heads(".fsp"), 5);
  EXPECT_EQ(Heads(".r"), 5);
  EXPECT_EQ(run.course.iCurIterNo, 5);
  ExpectFiniteResults();
}

TEST_F(FS_RunIAnalTest, EveryIterationIsListedAndTheLastIsSelected) {
  SetKnownSite();
  ASSERT_EQ(RunIterations(2), 0);
  ASSERT_EQ(GetNumListItems(exdthd::ITERNO), 3);
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(GetLabelFromIndex(exdthd::ITERNO, k), "INV " + std::to_string(k));
    EXPECT_EQ(GetValueFromIndex(exdthd::ITERNO, k), k);
    EXPECT_GE(FindListItem(inversion::INV_SMP, "INV " + std::to_string(k)), 0);
    EXPECT_GE(FindListItem(fmodeling::COPYPRF, "INV " + std::to_string(k)), 0);
  }
  EXPECT_EQ(GetCtrlVal(exdthd::ITERNO), 2);
  EXPECT_TRUE(IsPanelShown(Panel::EXDTHD));
}

TEST_F(FS_RunIAnalTest, EntriesHoldTheModelTheCurveAndTheMisfit) {
  SetKnownSite();
  ASSERT_EQ(RunIterations(3), 0);
  for (int l = 0; l < 3; ++l) EXPECT_EQ(InvParam.Vs(0, l), 180.0);
  for (int k = 0; k <= 3; ++k) {
    std::vector<LayerRow> model = kTruth;
    for (std::size_t l = 0; l < 3; ++l) model[l].Vs = InvParam.Vs(k, static_cast<int>(l));
    double sum = 0.0;
    for (int p = 0; p < 15; ++p) {
      const std::size_t i = static_cast<std::size_t>(p);
      const double c = PlaneWave(model, FModelParam.globalWlen[i]);
      EXPECT_NEAR(InvParam.vel(k, p), c, 1e-4) << k << ' ' << p;
      sum += std::pow(c - FModelParam.globalVel[i], 2);
    }
    EXPECT_NEAR(InvParam.rms[k], std::sqrt(sum / 15.0), 1e-3) << k;
  }
  EXPECT_EQ(GetCtrlVal(exdthd::RMSERROR), InvParam.rms[3]);
  EXPECT_LT(InvParam.rms[3], 0.1 * InvParam.rms[0]);
}

TEST_F(FS_RunIAnalTest, SideGraphIsDrawnByItsChoice) {
  std::string drawn;
  RedrawHandlers handlers;
  handlers.exdThdCurvPlot = [&drawn] { drawn += "c"; };
  handlers.drawProfile = [&drawn](int k) { drawn += "p" + std::to_string(k); };
  handlers.drawResolution = [&drawn](int k) { drawn += "r" + std::to_string(k); };
  handlers.drawRMSerror = [&drawn](int k) { drawn += "e" + std::to_string(k); };
  InstallRedrawHandlers(handlers);
  const char* const expected[] = {"cp0cp1", "cr0cr1", "ce0ce1"};
  for (int choice = 0; choice < 3; ++choice) {
    SetKnownSite();
    SetCtrlVal(exdthd::PLOT_INV, choice);
    drawn.clear();
    ASSERT_EQ(RunIterations(1), 0);
    EXPECT_EQ(drawn, expected[choice]);
  }
  InstallRedrawHandlers({});
}

TEST_F(FS_RunIAnalTest, StatusTellsTheIterationAndItsEnd) {
  SetKnownSite();
  ASSERT_EQ(RunIterations(2), 0);
  EXPECT_TRUE(Shown(status, "Inv. Analysis: "));
  EXPECT_TRUE(Shown(process, "Evaluating the initial layer system. "));
  EXPECT_TRUE(Shown(status, "Inv. Analysis: Iter. No = 2"));
  EXPECT_TRUE(Shown(process, "Evaluating the updated layer system..."));
  EXPECT_TRUE(Shown(process, "Refreshing the plots..."));
  EXPECT_TRUE(Shown(status, "End of the iteration No. 2:     The computation time : [0hr 0min "));
}

TEST_F(FS_RunIAnalTest, TitleGoesByTheAnalysis) {
  const char* const title[] = {"(2-D Inversion)", "(3-D Inversion)", "(Enhanced3-D Inversion)"};
  for (int analysis = 2; analysis <= 4; ++analysis) {
    SetLayers({{2.0, 0.0, 150.0, 1.8, 0.33, 0.02}, {8.0, 0.0, 190.0, 1.8, 0.33, 0.02}});
    SetCurve({4.0}, {150.0});
    FModelParam.analysis = TheoDispInfo.analysis = analysis;
    FModelParam.nSubLayers = TheoDispInfo.nSubLayers = 6;
    FModelParam.fDispBulb = TheoDispInfo.fDispBulb = 2.0;
    ASSERT_EQ(RunIterations(1), 0) << Messages();
    EXPECT_EQ(Count(File(".fdp"), title[analysis - 2]), 2) << File(".fdp");
  }
}

std::string Fixed(double x) {
  char text[40];
  std::snprintf(text, sizeof text, "%lf", x);
  return text;
}

TEST_F(FS_RunIAnalTest, SingularValuesOfTheSensitivitiesStandBehindTheirSwitch) {
  SetLayers({{4.0, 0.0, 180.0, 1.8, 0.33, 0.02}});
  SetCurve({3.0, 9.0}, {150.0, 152.0});
  run.switches.reportSwitch[0] = true;
  ASSERT_EQ(RunIterations(1), 0);
  // One layer: both rows are c over Vs, so U is (1, 1) over the root of two up to sign.
  const double w = std::hypot(run.update.GMatrix(1, 1), run.update.GMatrix(2, 1)),
               u = run.update.GMatrix(1, 1) / w;
  const std::string text = File(".svd");
  const auto matches = [&](double sign) {
    return text == "\n\nIteration no. :  1 ...U ... \n" + Fixed(sign * u) + "\n" +
                       Fixed(sign * run.update.GMatrix(2, 1) / w) + "\nW ... \n" + Fixed(w) + "\nV ... \n" +
                       Fixed(sign) + "\n";
  };
  EXPECT_TRUE(matches(1.0) || matches(-1.0)) << text;
}

// --- How a run ends ---

TEST_F(FS_RunIAnalTest, PerfectStartEndsOnlyAfterTheFirstIteration) {
  SetKnownSite();
  SetLayers(kTruth);
  ASSERT_EQ(RunIterations(5), 0);
  EXPECT_LE(InvParam.rms[0], 1e-5);
  EXPECT_LE(InvParam.rms[1], 1e-5);
  EXPECT_EQ(Listed(), 2);
  EXPECT_EQ(Heads(".fdp"), 2);
}

TEST_F(FS_RunIAnalTest, NoIterationsLeaveTheStartingModel) {
  for (const int n : {0, -3}) {
    SetKnownSite();
    ClearEntryLists();
    EXPECT_EQ(RunIterations(n), 0);
    EXPECT_EQ(Listed(), 1);
    EXPECT_EQ(Heads(".fdp"), 1);
    EXPECT_EQ(File(".pcm"), "");
  }
}

TEST_F(FS_RunIAnalTest, HaltKeepsTheLastFinishedIteration) {
  SetKnownSite();
  // 15 points: the first sweep, then 6 sweeps of the matrix and one after the update, then into the second.
  AtPoll(15 * 8 + 40, [] { run.course.iHaltRequest = 1; });
  EXPECT_EQ(RunIterations(5), -1);
  EXPECT_EQ(run.course.iHaltRequest, 0);
  EXPECT_EQ(Listed(), 2);
  EXPECT_EQ(Heads(".fdp"), 2);
  EXPECT_GT(InvParam.Vs(1, 0), 0.0);
  EXPECT_NE(InvParam.Vs(1, 0), InvParam.Vs(0, 0));
  EXPECT_NE(Messages().find("halted"), std::string::npos) << Messages();
  ExpectFiniteResults();
}

TEST_F(FS_RunIAnalTest, HaltAnywhereLeavesWholeIterationsAndOneMessage) {
  for (int poll = 1; poll < 15 * 17; poll += 13) {
    SCOPED_TRACE(poll);
    SetKnownSite();
    ClearEntryLists();
    InitializeInvAnal();
    InvParam.ufVs = 0.3;
    frontEnd.messages.clear();
    int count = 0;
    frontEnd.onProcessEvents = [&count, poll] {
      if (++count == poll) run.course.iHaltRequest = 1;
    };
    const int result = RunIterations(2);
    frontEnd.onProcessEvents = nullptr;
    EXPECT_LE(frontEnd.messages.size(), 1u);
    EXPECT_EQ(result, frontEnd.messages.empty() ? 0 : -1);
    EXPECT_EQ(run.course.iHaltRequest, 0);
    if (Listed() == 0) {
      EXPECT_TRUE(folder.Names().empty());
      continue;
    }
    EXPECT_EQ(Heads(".fdp"), Listed());
    ExpectFiniteResults();
  }
}

TEST_F(FS_RunIAnalTest, InterruptOfTheTerminalHaltsToo) {
  SetKnownSite();
  AtPoll(15 * 8 + 20, [] { RequestInterrupt(); });
  EXPECT_EQ(RunIterations(5), -1);
  EXPECT_EQ(Listed(), 2);
}

/// Finished results can be read in the temporary files; the result files are those of the run before.
TEST_F(FS_RunIAnalTest, KilledProcessLeavesTheFormerFilesAndWholeBlocksBesideThem) {
  for (const int poll : {20, 15 * 8 + 3, 15 * 12, 15 * 16 + 1}) {
    SetKnownSite();
    for (const char* extension : {".fdp", ".fmp", ".pcm"})
      test::WriteWhole(Base() + extension, "former run\n");
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      AtPoll(poll, [] { raise(SIGKILL); });
      (void)RunIterations(4);
      _exit(0);
    }
    int state = 0;
    ASSERT_EQ(waitpid(child, &state, 0), child);
    ASSERT_TRUE(WIFSIGNALED(state));
    const auto unfinished = [&](const char* extension) {
      return test::ReadWhole(Base() + extension + ".saving-" + std::to_string(child) + "-0");
    };
    const auto headsOf = [&](const char* extension) {
      return Count(unfinished(extension), "Iteration no. :");
    };
    const int heads = headsOf(".fdp");
    EXPECT_EQ(heads, 1 + (poll - 15) / (15 * 7 + 4));  // about seven sweeps and the polls of the inverses
    EXPECT_EQ(headsOf(".fmp"), heads);
    EXPECT_EQ(headsOf(".pfl"), heads);
    EXPECT_EQ(headsOf(".pcm"), heads - 1);
    EXPECT_EQ(Count(unfinished(".fdp"), "\n"), heads * (2 + 15));
    for (const char* extension : {".fdp", ".fmp", ".pcm"})
      EXPECT_EQ(test::ReadWhole(Base() + extension), "former run\n");
    for (const char* extension : {".pfl", ".fsp", ".n", ".r"})
      EXPECT_FALSE(std::filesystem::exists(Base() + extension)) << extension;
  }
}

TEST_F(FS_RunIAnalTest, TrappedRunEndsAndKeepsWhatItHas) {
  SetKnownSite();
  InvParam.minVs = 179.999;
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(RunIterations(8), -1);
  EXPECT_NE(::testing::internal::GetCapturedStdout().find("Inversion analysis is trapped."),
            std::string::npos);
  EXPECT_EQ(OnlyMessage(), "Warning: Reduce the uncertainty factor for shear wave velocity.");
  EXPECT_GE(Listed(), 2);
  EXPECT_LT(Listed(), 9);
  EXPECT_EQ(Heads(".fdp"), Listed());
  ExpectFiniteResults();
}

// --- Rows ---

TEST_F(FS_RunIAnalTest, RowThatFailedOnceStaysOutOfTheFit) {
  SetKnownSite();
  TheoDispInfo.globalVel[3] = 0.0;  // no wavelength, no root
  ASSERT_EQ(RunIterations(3), 0) << Messages();
  EXPECT_EQ(run.observations.iNoVelocity[4], 1);
  for (int i = 1; i <= 15; ++i) EXPECT_EQ(run.observations.iNoVelocity[i], i == 4 ? 1 : 0);
  EXPECT_EQ(run.update.GActive.rows(), 14);
  for (int k = 0; k <= 3; ++k) EXPECT_EQ(InvParam.vel(k, 3), 0.0);
  EXPECT_LT(InvParam.rms[3], 1.0);
  ExpectFiniteResults();
}

TEST_F(FS_RunIAnalTest, RowOutsideTheScanOfTheStartingModelStaysOutWhenTheModelHasMoved) {
  // The scan ends a little above the Rayleigh velocity of the stiffest layer with the density of the first.
  // Under a uniform Vs a heavier half-space brings long waves beyond that: those points are lost to the run,
  // although the model of later iterations has a velocity for them.
  std::vector<LayerRow> heavier = kTruth;
  heavier[2].density = 2.0;
  SetLayers(Uniform(heavier, 180.0));
  SetCurveOf(heavier, Wavelengths(2.0, 25.0, 15));
  ASSERT_EQ(RunIterations(3), 0) << Messages();
  EXPECT_EQ(InvParam.vel(0, 14), 0.0);
  EXPECT_GT(InvParam.vel(3, 14), 0.0);
  EXPECT_EQ(run.observations.iNoVelocity[15], 1);
  EXPECT_EQ(run.observations.iNoVelocity[1], 0);
  EXPECT_LT(run.update.GActive.rows(), 15);
  EXPECT_EQ(SweepReport(), "");  // there are no points after the lost ones
}

/// Its row is left out in residuals and sensitivities alike: the points after it keep their own measured
/// values.
TEST_F(FS_RunIAnalTest, LostPointThatIsFoundAgainMovesNoOtherPoint) {
  std::vector<LayerRow> heavier = kTruth;
  heavier[2].density = 2.0;
  SetLayers(Uniform(heavier, 180.0));
  SetCurveOf(heavier, Wavelengths(25.0, 2.0, 15));  // the long waves, which get lost, in front
  ASSERT_EQ(RunIterations(3), 0) << Messages();
  EXPECT_EQ(InvParam.vel(0, 0), 0.0);
  EXPECT_GT(InvParam.vel(1, 0), 0.0);
  EXPECT_EQ(run.observations.iNoVelocity[1], 1);
  EXPECT_EQ(SweepReport(), "");
  EXPECT_LT(InvParam.rms[2], InvParam.rms[1]);
  EXPECT_LT(InvParam.rms[3], InvParam.rms[2]);
}

TEST_F(FS_RunIAnalTest, FlagOfAnEarlierRunDoesNotOutliveIt) {
  SetKnownSite();
  TheoDispInfo.globalVel[3] = 0.0;
  ASSERT_EQ(RunIterations(1), 0);
  SetKnownSite();
  ASSERT_EQ(RunIterations(1), 0);
  EXPECT_EQ(run.observations.iNoVelocity[4], 0);
}

TEST_F(FS_RunIAnalTest, DataWithoutDeviationEndWithTheWarning) {
  SetKnownSite();
  run.switches.cdMode = 0;
  run.switches.ufVph = 0.0;
  EXPECT_EQ(RunIterations(2), -1);
  EXPECT_EQ(OnlyMessage(), "Warning: No velocities are calculated at all the given frequencies.\n");
  EXPECT_EQ(Listed(), 1);  // the starting model has been evaluated
}

/// Kept: the correction of the data-space form is computed relative to the prior model and subtracted from
/// the present one. The two are equal in the first iteration only; afterwards the model moves beyond the fit.
TEST_F(FS_RunIAnalTest, MoreLayersThanDataFitInTheFirstIterationAndDriftAfterwards) {
  std::vector<LayerRow> layers;
  for (int l = 0; l < 9; ++l) layers.push_back({1.0, 0.0, 150.0, 1.8, 0.33, 0.02});
  SetLayers(layers);
  SetCurveOf(kTruth, Wavelengths(3.0, 20.0, 4));
  ASSERT_EQ(RunIterations(3), 0) << Messages();
  EXPECT_LT(InvParam.rms[1], 0.5 * InvParam.rms[0]);
  EXPECT_GT(InvParam.rms[2], InvParam.rms[1]);
  EXPECT_GT(InvParam.rms[3], InvParam.rms[2]);
  EXPECT_EQ(run.update.InvHData.rows(), 4);
  EXPECT_EQ(Listed(), 4);  // worse steps are kept
  const std::string note =
      "fewer points (4) than free parameters (9): only iteration 1 is a step towards the curve";
  EXPECT_EQ(SweepReport(), note);
  EXPECT_TRUE(GetCtrlVal(exdthd::STATUSMSG).find(note) != std::string::npos) << GetCtrlVal(exdthd::STATUSMSG);

  ASSERT_EQ(RunIterations(1), 0);  // no note for the first one
  EXPECT_EQ(SweepReport(), "");
  ExpectFiniteResults();
}

TEST_F(FS_RunIAnalTest, ModelWithoutAnyVelocityIsNoConvergence) {
  SetKnownSite();
  AtPoll(15 * 7 + 1, [] {  // after the sensitivities: the points of the next sweep have no wavelength
    for (int i = 1; i <= 15; ++i) run.observations.runFreq[i] = 0.0;
  });
  EXPECT_EQ(RunIterations(5), -1);
  EXPECT_NE(Messages().find("No point has a velocity after iteration 1"), std::string::npos) << Messages();
  EXPECT_EQ(Listed(), 2);
}

TEST_F(FS_RunIAnalTest, LowerBoundOfWhatIsFreeIsAboveZero) {
  for (const double bound : {0.0, -50.0}) {
    SetKnownSite();
    InvParam.minVs = bound;
    EXPECT_EQ(RunIterations(2), -1);
    EXPECT_NE(Messages().find("The lower bound of Vs is"), std::string::npos) << Messages();
    InvParam.minVs = 10.0;
    InvParam.minH = bound;  // not free
    SetKnownSite();
    EXPECT_EQ(RunIterations(1), 0);
    InvParam.minH = 0.01;
  }
}

TEST_F(FS_RunIAnalTest, OfAllButtonsOnlyHaltAnswersDuringARun) {
  SetKnownSite();
  int pressed = 0;
  AtPoll(20, [&pressed] {
    ++pressed;
    EXPECT_EQ(Commit(exdthd::RUN_FMODEL), -1);
    EXPECT_EQ(SendEvent(exdthd::RUN_FMODEL, Event::LeftClick), 0);
  });
  EXPECT_EQ(RunIterations(1), 0);
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(OnlyMessage(), "An analysis is running. Please halt it first.");
  EXPECT_EQ(Commit(exdthd::RUN_FMODEL), 0);  // no callback here: nothing refuses it
}

TEST_F(FS_RunIAnalTest, HaltFromBeforeIsForgotten) {
  SetKnownSite();
  run.course.iHaltRequest = 1;
  EXPECT_EQ(RunIterations(1), 0);
}

// --- invalid curves ---

TEST_F(FS_RunIAnalTest, HostileCurvesGiveAMessageOrFiniteResults) {
  const std::vector<double> L = {2.0, 4.0, 8.0, 16.0};
  const std::vector<std::vector<double>> curves = {
      {0, 0, 0, 0},             // nothing measured
      {0, 150, 0, 0},           // one point
      {300, 200, 140, 60},      // descending
      {150, kNaN, 180, 200},    // a damaged file
      {kInf, 160, 180, 200},    //
      {-150, 160, 180, 200},    //
      {1e-300, 160, 180, 200},  //
      {1e300, 160, 180, 200},   //
      {150, 150, 150, 150},     // no dispersion
  };
  for (std::size_t k = 0; k < curves.size(); ++k) {
    SCOPED_TRACE(k);
    InitializeInvAnal();
    InvParam.ufVs = 0.3;
    ClearEntryLists();
    frontEnd.messages.clear();
    SetLayers(Uniform(kTruth, 180.0));
    SetCurve(L, curves[k]);
    const int result = RunIterations(3);
    EXPECT_EQ(result < 0, !frontEnd.messages.empty()) << result << ' ' << Messages();
    const bool hopeless = k == 0 || k == 3 || k == 4 || k == 7, sound = k == 1 || k == 8;
    EXPECT_EQ(result, hopeless ? -1 : sound ? 0 : result) << Messages();
    ExpectFiniteResults();
  }
}

TEST_F(FS_RunIAnalTest, IncompressibleLayersAreRefusedWithTheReason) {
  SetKnownSite();
  std::vector<LayerRow> layers = Uniform(kTruth, 180.0);
  layers[1].nu = 0.5;
  SetLayers(layers);
  EXPECT_EQ(RunIterations(2), -1);
  EXPECT_EQ(
      frontEnd.messages,
      std::vector<std::string>{"Poisson's ratio of layer 2 is 0.5. It must be above -1 and below 0.5: at 0.5 "
                               "the P-wave velocity is infinite."});
}

TEST_F(FS_RunIAnalTest, HostileLayersAndSettingsGiveAMessageOrFiniteResults) {
  struct Setting {
    double ufVs, minVs, maxVs, ufVph, Vs, thickness, nu;
  };
  const Setting settings[] = {
      {0.0, 10, 1e5, 0.05, 180, 2, 0.33},     // no free parameter
      {-0.1, 10, 1e5, 0.05, 180, 2, 0.33},    // no prior
      {0.3, 300, 400, 0.05, 180, 2, 0.33},    // starts below its bounds
      {0.3, 10, 100, 0.05, 180, 2, 0.33},     // starts above them
      {0.3, 180, 180, 0.05, 180, 2, 0.33},    // no range to move
      {0.3, 500, 100, 0.05, 180, 2, 0.33},    // bounds in the wrong order
      {kNaN, 10, 1e5, 0.05, 180, 2, 0.33},    //
      {0.3, kNaN, kNaN, 0.05, 180, 2, 0.33},  //
      {0.3, 10, 1e5, kNaN, 180, 2, 0.33},     //
      {0.3, 10, 1e5, 1e-12, 180, 2, 0.33},    // far too small deviations
      {1e9, 10, 1e5, 0.05, 180, 2, 0.33},     //
      {0.3, 10, 1e5, 0.05, 0, 2, 0.33},       //
      {0.3, 10, 1e5, 0.05, 180, 0, 0.33},     //
      {0.3, 10, 1e5, 0.05, 180, 2, 0.49999},  //
  };
  int k = 0;
  for (const Setting& s : settings) {
    SCOPED_TRACE(k++);
    InitializeInvAnal();
    ClearEntryLists();
    frontEnd.messages.clear();
    std::vector<LayerRow> layers = Uniform(kTruth, s.Vs);
    for (LayerRow& row : layers) {
      row.thickness *= s.thickness / 2.0;
      row.nu = s.nu;
    }
    SetLayers(layers);
    SetCurveOf(kTruth, Wavelengths(2.0, 25.0, 6));
    InvParam.ufVs = s.ufVs;
    InvParam.minVs = s.minVs;
    InvParam.maxVs = s.maxVs;
    run.switches.ufVph = s.ufVph;
    ::testing::internal::CaptureStdout();
    const int result = RunIterations(4);
    ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(result < 0, !frontEnd.messages.empty()) << result << ' ' << Messages();
    ExpectFiniteResults();
  }
}

}  // namespace
}  // namespace sondera::testing
