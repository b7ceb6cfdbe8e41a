// Tests of the start of an inversion: its steps, the choice of the starting model, refusals, and whole runs
// on a small plane-wave curve.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>

#include "panels/fmodeling_records.h"
#include "panels/inversion.h"
#include "run/observations.h"
#include "run/run_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/events.h"
#include "runtime/interrupt_hold.h"
#include "support/inv_fixture.h"

namespace sondera::testing {
namespace {

class InvRunTest : public InversionTest {
 protected:
  void SetUp() override {
    InversionTest::SetUp();
    SetUpCase();
    SetCtrlVal(inversion::NITER, 1);
    InstallCallback(inversion::PERFORMINV, PerformInvAnalCallback);
    InstallCallback(mainmenu::RUN_INV_ANAL, Run_InvAnalCallback);
  }
  void TearDown() override {
    InstallCallback(inversion::PERFORMINV, nullptr);
    InstallCallback(mainmenu::RUN_INV_ANAL, nullptr);
    InversionTest::TearDown();
  }
  int Perform() { return Commit(inversion::PERFORMINV); }
  int StartFromMenu() { return Commit(mainmenu::RUN_INV_ANAL); }

  /// Puts starting profiles 1 to 3 into their record and the lists.
  void StoreProfiles() {
    for (int k = 1; k <= 3; ++k) {
      StoreProfile(SMPParam, k, {100.0 + 10 * k, 160.0 + 10 * k, 210.0 + 10 * k});
      for (const RingControl* list : {&exdthd::ITERNO, &inversion::INV_SMP, &fmodeling::COPYPRF})
        InsertListItem(*list, -1, "SMP " + std::to_string(k), -k);
    }
  }
  static std::vector<double> EntryVs(int entry) {
    std::vector<double> Vs;
    for (int i = 0; i < InvParam.nLayers; ++i) Vs.push_back(InvParam.Vs(entry, i));
    return Vs;
  }
  static std::vector<int> ValuesOf(const RingControl& list) {
    std::vector<int> values;
    for (int i = 0; i < GetNumListItems(list); ++i)
      values.push_back(static_cast<int>(GetValueFromIndex(list, i)));
    return values;
  }
};

// ---- from the panel ------------------------------------------------------------------------------------

using PerformInvAnal = InvRunTest;

TEST_F(PerformInvAnal, FindsTheProfileBehindACurve) {
  SetCtrlVal(inversion::NITER, 6);
  SetCtrlVal(inversion::UF_VS, 0.5);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(InvParam.nEntries, 6);
  EXPECT_EQ(EntryVs(0), kStartVs);
  EXPECT_GT(InvParam.rms[0], 10.0);
  const int last = GetNumListItems(exdthd::ITERNO) - 1;  // it may have converged before the sixth
  ASSERT_GT(last, 1);
  EXPECT_LT(InvParam.rms[last], 0.1);
  for (int i = 0; i < 3; ++i) {
    const double truth = kTrueVs[static_cast<std::size_t>(i)];
    EXPECT_NEAR(InvParam.Vs(last, i), truth, 0.01 * truth) << i;
  }
  EXPECT_TRUE(frontEnd.messages.empty()) << Messages();
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(PerformInvAnal, ListsGivenModelAndIterations) {
  SetCtrlVal(inversion::NITER, 2);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(ValuesOf(exdthd::ITERNO), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(ValuesOf(fmodeling::COPYPRF), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(ValuesOf(inversion::INV_SMP), (std::vector<int>{0, 0, 1, 2}));
  EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 0), "Given Model P.");
  EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 3), "INV 2");
}

TEST_F(PerformInvAnal, SelectsTheCurveDisplay) {
  SetCtrlIndex(exdthd::EXDTYPE, 0);
  SetCtrlIndex(exdthd::THDTYPE, 0);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(GetCtrlIndex(exdthd::EXDTYPE), 4);
  EXPECT_EQ(GetCtrlIndex(exdthd::THDTYPE), 1);
  EXPECT_EQ(GetCtrlIndex(exdthd::ARRAYDISPID), 0);
}

TEST_F(PerformInvAnal, ArrayCurvesSelectTheirItemAndWithPlaneWavesHaveNoVelocities) {
  SetArrayCurves(3, 1, {170.0, 180.0, 190.0});
  SetFModelParam();
  EXPECT_EQ(Perform(), -1);
  EXPECT_EQ(GetCtrlIndex(exdthd::EXDTYPE), 5);
  EXPECT_EQ(GetNumListItems(exdthd::ARRAYDISPID), 2);
  EXPECT_NE(Messages().find("No velocities are calculated"), std::string::npos) << Messages();
}

TEST_F(PerformInvAnal, BeginsFromTheSelectedStartingProfileAndTheGivenModelStays) {
  StoreProfiles();
  SetCtrlVal(inversion::INV_SMP, -3);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(EntryVs(0), (std::vector<double>{130.0, 190.0, 240.0}));
  EXPECT_EQ(InvParam.damping(0, 0), 0.03);
  EXPECT_EQ(InvParam.iSelected, 0);  // as the new list has it
  EXPECT_EQ(VsOf(FModelParam), kStartVs);
  EXPECT_EQ(VsOnPanel(), kStartVs);
  EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 0), "Given Model P.");
  // So the next run, on the first item of the list as left by this one, starts from the given model.
  EXPECT_EQ(GetCtrlVal(inversion::INV_SMP), 0);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(EntryVs(0), kStartVs);
}

TEST_F(PerformInvAnal, BeginsFromTheSelectedIteration) {
  SetCtrlVal(inversion::NITER, 2);
  ASSERT_EQ(Perform(), 0) << Messages();
  const std::vector<double> second = EntryVs(2);
  const double misfit = InvParam.rms[2];
  ASSERT_NE(second, kStartVs);
  SetCtrlVal(inversion::INV_SMP, 2);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(EntryVs(0), second);
  EXPECT_NEAR(InvParam.rms[0], misfit, 1e-6);
  EXPECT_EQ(VsOf(FModelParam), kStartVs);
}

TEST_F(PerformInvAnal, TheIterationToBeginFromSurvivesMoreIterationsThanTheRecordHeld) {
  ASSERT_EQ(Perform(), 0) << Messages();
  const std::vector<double> first = EntryVs(1);
  InvParam.nEntries = 60;  // wanted by a start that failed
  SetCtrlVal(inversion::INV_SMP, 1);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(EntryVs(0), first);
}

TEST_F(PerformInvAnal, AProfileWithAnotherNumberOfLayersSizesTheRun) {
  StoreProfile(SMPParam, 1, {140.0, 190.0, 240.0, 280.0, 310.0});
  InsertListItem(inversion::INV_SMP, -1, "SMP 1", -1);
  SetCtrlVal(inversion::INV_SMP, -1);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(InvParam.nLayers, 5);
  EXPECT_EQ(TheoDispInfo.nLayers, 5);
  EXPECT_EQ(FModelParam.nLayers, 3);
  EXPECT_EQ(GetNumTableRows(fmodeling::SOILPROFILE), 3);
}

TEST_F(PerformInvAnal, AnUnusableProfileIsRefusedAndTheGivenModelStays) {
  StoreProfiles();
  SMPParam.H(2, 1) = 0.0;
  SetCtrlVal(inversion::INV_SMP, -2);
  EXPECT_EQ(Perform(), -1);
  EXPECT_EQ(OnlyMessage(), "Invalid value of thickness !");
  EXPECT_EQ(VsOf(FModelParam), kStartVs);
  EXPECT_EQ(VsOnPanel(), kStartVs);
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(PerformInvAnal, RefusesToRunWithoutIterations) {
  InvParam.nEntries = 5;
  for (const int count : {0, -7}) {
    frontEnd.messages.clear();
    SetCtrlVal(inversion::NITER, count);
    EXPECT_EQ(Perform(), -1);
    EXPECT_EQ(OnlyMessage(), "Please enter the number of iterations.");
    EXPECT_FALSE(WaitCursorShown());
  }
  EXPECT_EQ(InvParam.nEntries, 5);
  EXPECT_TRUE(drawn.empty());
}

TEST_F(PerformInvAnal, MoreIterationsThanTheTablesTakeAreRefusedInOneMessage) {
  for (const int count : {INT_MAX, 1000000}) {
    frontEnd.messages.clear();
    SetCtrlVal(inversion::NITER, count);
    EXPECT_EQ(Perform(), -1);
    EXPECT_NE(OnlyMessage().find("too large"), std::string::npos) << OnlyMessage();
  }
  EXPECT_EQ(InvParam.nEntries, 5);
  EXPECT_EQ(InvParam.maxEntries, 50);
}

TEST_F(PerformInvAnal, LayersThatAreRefusedHaveOneMessage) {
  FModelParam.thickness[1] = 0.0;
  EXPECT_EQ(Perform(), -1);
  EXPECT_EQ(OnlyMessage(), "Invalid value of thickness !");
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(PerformInvAnal, MissingCurvesAreRefusedInOneMessage) {
  for (double& v : FModelParam.globalVel) v = 0.0;
  EXPECT_EQ(Perform(), -1);
  EXPECT_EQ(OnlyMessage(), "Global Rep. Disp. Curve is not available.");
}

TEST_F(PerformInvAnal, RecordWinsOverThePanelOfTheForwardModel) {
  SetTableCellVal(fmodeling::SOILPROFILE, 1, 3, 999.0);  // nobody pressed Update
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(InvParam.Vs(0, 0), 185.0);
  EXPECT_EQ(VsOnPanel(), kStartVs);
}

TEST_F(PerformInvAnal, ReadsFactorsBoundsAndDataCovarianceFromThePanel) {
  SetCtrlVal(inversion::UF_H, 0.17);
  SetCtrlVal(inversion::UF_VS, 0.07);
  SetCtrlVal(inversion::UF_H_REL, 0.9);
  SetCtrlVal(inversion::UF_VS_REL, 9.0);
  SetCtrlVal(inversion::UF_VPH, 0.03);
  SetCtrlVal(inversion::CD_COV, 1);
  SetCtrlVal(inversion::LB_H, 0.5);
  SetCtrlVal(inversion::UB_H, 45.0);
  SetCtrlVal(inversion::LB_VS, 60.0);
  SetCtrlVal(inversion::UB_VS, 1500.0);
  SetCtrlVal(inversion::MODELPARM, 3);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(InvParam.ufH, 0.17);
  EXPECT_EQ(InvParam.ufVs, 0.07);
  EXPECT_EQ(run.switches.ufVph, 0.03);
  EXPECT_EQ(run.switches.cdMode, 1);
  EXPECT_EQ(InvParam.minH, 0.5);
  EXPECT_EQ(InvParam.maxH, 45.0);
  EXPECT_EQ(InvParam.minVs, 60.0);
  EXPECT_EQ(InvParam.maxVs, 1500.0);
  EXPECT_EQ(InvParam.MODELPARM, 3);
  EXPECT_EQ(run.parameters.nModelParm, 5);
  EXPECT_FALSE(IsDimmed(inversion::UF_VPH));
  EXPECT_EQ(run.observations.Cd(1, 1), std::pow(0.03 * run.observations.runVel[1], 2));
}

TEST_F(PerformInvAnal, TheSecondModelCovarianceMakesDataWeightsUnityAndBoundsStillApply) {
  const auto smallestVs = [this](double bound) {
    SetCtrlVal(inversion::LB_VS, bound);
    Perform();  // it may end at the bound with its own message
    double smallest = 1e30;
    for (int entry = 0; entry < GetNumListItems(exdthd::ITERNO); ++entry)
      for (const double Vs : EntryVs(entry)) smallest = std::min(smallest, Vs);
    return smallest;
  };
  SetCtrlVal(inversion::CM_COV, 1);
  ASSERT_EQ(MParmCovMatCallback(Panel::INVERSION, &inversion::CM_COV, Event::Commit, 0), 0);
  SetCtrlVal(inversion::UF_VS_REL, 80.0);
  SetCtrlVal(inversion::NITER, 3);
  EXPECT_LT(smallestVs(10.0), 170.0);  // the surface layer wants to go to 150
  EXPECT_GE(smallestVs(180.0), 180.0);
  EXPECT_EQ(run.switches.cdMode, -1);
  ASSERT_GT(run.observations.nObsRows, 0);
  for (int i = 1; i <= run.observations.nObsRows; ++i) EXPECT_EQ(run.observations.Cd(i, i), 1.0) << i;
  EXPECT_EQ(InvParam.ufVs, 80.0);
  EXPECT_EQ(InvParam.ufH, 0.01);
  EXPECT_TRUE(IsDimmed(inversion::UF_VPH));
}

TEST_F(PerformInvAnal, IsRefusedWhileAnAnalysisRuns) {
  int nested = 0;
  frontEnd.onProcessEvents = [&] {
    frontEnd.onProcessEvents = nullptr;
    nested = Perform();
  };
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(nested, -1);
  EXPECT_EQ(OnlyMessage(), "An analysis is running. Please halt it first.");
}

TEST_F(PerformInvAnal, RunThatIsRefusedLeavesTheFormerOneInTheLists) {
  ASSERT_EQ(Perform(), 0) << Messages();
  const std::vector<int> listed = ValuesOf(exdthd::ITERNO);
  const std::vector<double> first = EntryVs(1);
  SetCtrlVal(inversion::CONST_MP_VS, "1 2 3");
  EXPECT_EQ(Perform(), -1);
  EXPECT_EQ(ValuesOf(exdthd::ITERNO), listed);
  EXPECT_EQ(ValuesOf(inversion::INV_SMP).size(), listed.size() + 1);
  EXPECT_EQ(ValuesOf(fmodeling::COPYPRF), listed);
  EXPECT_EQ(EntryVs(1), first);
}

TEST_F(PerformInvAnal, HaltInTheFirstSweepLeavesTheFormerRunInTheLists) {
  ASSERT_EQ(Perform(), 0) << Messages();
  const std::vector<int> listed = ValuesOf(exdthd::ITERNO);
  frontEnd.onProcessEvents = [] { run.course.iHaltRequest = 1; };
  EXPECT_EQ(Perform(), -1);
  EXPECT_EQ(ValuesOf(exdthd::ITERNO), listed);
}

TEST_F(PerformInvAnal, NumberOfIterationsIsThatOfTheStart) {
  SetCtrlVal(inversion::NITER, 3);
  frontEnd.onProcessEvents = [] { InvParam.nEntries = 1; };
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(ValuesOf(exdthd::ITERNO), (std::vector<int>{0, 1, 2, 3}));
}

TEST_F(PerformInvAnal, HaltKeepsWhatWasFinished) {
  SetCtrlVal(inversion::NITER, 3);
  frontEnd.onProcessEvents = [&] {
    if (GetNumListItems(exdthd::ITERNO) < 2) return;  // iteration 1 is listed: halt the second
    frontEnd.confirmAnswers = {true};
    HaltProcessCallback(Panel::EXDTHD, &exdthd::HALT, Event::Commit, 0);
  };
  EXPECT_EQ(Perform(), -1);
  EXPECT_EQ(ValuesOf(exdthd::ITERNO), (std::vector<int>{0, 1}));
  EXPECT_EQ(run.course.iHaltRequest, 0);
  EXPECT_FALSE(WaitCursorShown());
}

// A front end that draws at every change would flash the other model.
TEST_F(PerformInvAnal, AnInterruptWaitsForTheEndOfTheIterationWhereItIsToldTo) {
  const auto lastAfterInterrupt = [this](bool finish) {
    ResetEvents();
    LetRunsFinishSteps(finish);
    frontEnd.messages.clear();
    SetCtrlVal(inversion::NITER, 5);
    int polls = 0;
    // In the sensitivities of the second iteration.
    frontEnd.onProcessEvents = [&polls] {
      if (GetNumListItems(exdthd::ITERNO) == 2 && ++polls == 5) RequestInterrupt();
    };
    EXPECT_EQ(Perform(), -1);
    frontEnd.onProcessEvents = nullptr;
    EXPECT_TRUE(InterruptRequested()) << "it remains for the script";
    EXPECT_EQ(frontEnd.messages.size(), 1u);
    ResetEvents();
    return std::pair(GetNumListItems(exdthd::ITERNO), frontEnd.messages.front());
  };
  EXPECT_EQ(lastAfterInterrupt(false),
            std::pair(2, std::string(
                             "The inversion was halted. Iteration 1 is the last finished one and is kept.")));
  EXPECT_EQ(lastAfterInterrupt(true),
            std::pair(3, std::string(
                             "The inversion was halted. Iteration 2 is the last finished one and is kept.")));
}

TEST_F(PerformInvAnal, ProfileToStartFromIsNeverOnThePanelNorInTheGivenModel) {
  StoreProfiles();
  SetCtrlVal(inversion::INV_SMP, -3);
  std::vector<double> seen = kStartVs;
  const int watcher = AddWatcher([&seen](const Change& c) {
    if (c.control != &fmodeling::SOILPROFILE) return;
    for (const double Vs : VsOnPanel())
      if (Vs != kStartVs[0]) seen.push_back(Vs);
    if (VsOf(FModelParam) != kStartVs) seen.push_back(-1.0);
  });
  ASSERT_EQ(Perform(), 0) << Messages();
  RemoveObserver(watcher);
  EXPECT_EQ(seen, kStartVs);
  EXPECT_EQ(EntryVs(0), (std::vector<double>{130.0, 190.0, 240.0}));
}

// The project file holds the capacity.
TEST_F(PerformInvAnal, ProfileWithMoreLayersRaisesTheCapacityOfTheGivenModel) {
  StoreProfile(SMPParam, 1, {140.0, 190.0, 240.0, 280.0, 310.0});
  FModelParam.capLayers = 3;
  InsertListItem(inversion::INV_SMP, -1, "SMP 1", -1);
  SetCtrlVal(inversion::INV_SMP, -1);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(FModelParam.capLayers, 6) << "doubled";
  EXPECT_EQ(VsOf(FModelParam), kStartVs);
}

TEST_F(PerformInvAnal, OtherEventsDoNothing) {
  EXPECT_EQ(PerformInvAnalCallback(Panel::INVERSION, &inversion::PERFORMINV, Event::GotFocus, 0), 0);
  EXPECT_TRUE(drawn.empty());
}

// ---- from the menu -------------------------------------------------------------------------------------

using RunInvAnalMenu = InvRunTest;

TEST_F(RunInvAnalMenu, WithoutDeviationsEndsWithTheWarningSinceNothingHasSetTheFactorOfTheData) {
  ASSERT_EQ(run.switches.ufVph, 0.0);
  SetCtrlVal(inversion::UF_VPH, 0.05);
  SetCtrlVal(inversion::CD_COV, 1);  // neither is looked at
  EXPECT_EQ(StartFromMenu(), -1);
  EXPECT_EQ(run.switches.ufVph, 0.0);
  EXPECT_EQ(run.switches.cdMode, 0);
  EXPECT_EQ(OnlyMessage(), "Warning: No velocities are calculated at all the given frequencies.\n");
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(RunInvAnalMenu, KeepsTheDataCovarianceOfTheLastUseOfThePanel) {
  SetCtrlVal(inversion::UF_VPH, 0.04);
  SetCtrlVal(inversion::CD_COV, 1);
  ASSERT_EQ(Perform(), 0) << Messages();
  SetCtrlVal(inversion::UF_VPH, 0.4);
  SetCtrlVal(inversion::CD_COV, -1);
  ASSERT_EQ(StartFromMenu(), 0) << Messages();
  EXPECT_EQ(run.switches.ufVph, 0.04);
  EXPECT_EQ(run.switches.cdMode, 1);
}

TEST_F(RunInvAnalMenu, AlwaysReadsTheFirstPairOfFactorsAndLeavesTheDimming) {
  run.switches.ufVph = 0.05;
  SetCtrlVal(inversion::CM_COV, 1);
  SetCtrlVal(inversion::UF_H, 0.12);
  SetCtrlVal(inversion::UF_VS, 0.06);
  ASSERT_EQ(StartFromMenu(), 0) << Messages();
  EXPECT_EQ(InvParam.ufH, 0.12);
  EXPECT_EQ(InvParam.ufVs, 0.06);
  EXPECT_TRUE(IsDimmed(inversion::UF_VPH));  // as it starts
}

TEST_F(RunInvAnalMenu, BeginsFromTheSelectedProfileToo) {
  run.switches.ufVph = 0.05;
  StoreProfiles();
  SetCtrlVal(inversion::INV_SMP, -1);
  ASSERT_EQ(StartFromMenu(), 0) << Messages();
  EXPECT_EQ(EntryVs(0), (std::vector<double>{110.0, 170.0, 220.0}));
  EXPECT_EQ(VsOf(FModelParam), kStartVs);
}

TEST_F(RunInvAnalMenu, AsksForNoEvent) {
  run.switches.ufVph = 0.05;
  EXPECT_EQ(Run_InvAnalCallback(Panel::MAINMENU, nullptr, Event::GotFocus, 0), 0) << Messages();
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 2);
}

TEST_F(RunInvAnalMenu, WithoutIterationsRefusesAndTheListsStay) {
  StoreProfiles();
  SetCtrlVal(inversion::NITER, 0);
  EXPECT_EQ(StartFromMenu(), -1);
  EXPECT_EQ(OnlyMessage(), "Please enter the number of iterations.");
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 3);
}

TEST_F(RunInvAnalMenu, RunThatIsRefusedLeavesTheFormerOneInTheLists) {
  ASSERT_EQ(Perform(), 0) << Messages();
  const std::vector<int> listed = ValuesOf(exdthd::ITERNO);
  SetCtrlVal(inversion::CONST_MP_VS, "1 2 3");
  EXPECT_EQ(StartFromMenu(), -1);
  EXPECT_EQ(ValuesOf(exdthd::ITERNO), listed);
}

TEST_F(RunInvAnalMenu, IsRefusedWhileAnAnalysisRuns) {
  int nested = 0;
  frontEnd.onProcessEvents = [&] {
    frontEnd.onProcessEvents = nullptr;
    nested = StartFromMenu();
    EXPECT_TRUE(WaitCursorShown());  // it belongs to the run
  };
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(nested, -1);
  EXPECT_EQ(OnlyMessage(), "An analysis is running. Please halt it first.");
}

// ---- by the records ------------------------------------------------------------------------------------

using RunInvAnalTest = InvRunTest;

TEST_F(RunInvAnalTest, TakesMeasuredPointsAndTheSelectedLayersFromTheRecords) {
  run.switches.ufVph = 0.05;
  InvParam.nEntries = 1;
  StoreProfiles();
  InvParam.iSelected = -2;
  ASSERT_EQ(RunInvAnal(), 0) << Messages();
  EXPECT_EQ(EntryVs(0), (std::vector<double>{120.0, 180.0, 230.0}));
  EXPECT_EQ(VsOf(FModelParam), kStartVs);
  ASSERT_EQ(run.observations.nObsRows, FModelParam.nDispPointsG);
  for (int i = 1; i <= run.observations.nObsRows; ++i)
    EXPECT_EQ(run.observations.runVel[i], FModelParam.globalVel[static_cast<std::size_t>(i - 1)]) << i;
}

TEST_F(RunInvAnalTest, ASelectionThatIsNotStoredIsRefusedAndTheListsStay) {
  StoreProfiles();
  for (const int index : {-200, INT_MIN, INT_MAX, 7}) {
    frontEnd.messages.clear();
    InvParam.iSelected = index;
    EXPECT_EQ(RunInvAnal(), -1) << index;
    EXPECT_EQ(OnlyMessage().substr(0, 20), "There is no profile ") << OnlyMessage();
  }
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 3);
  EXPECT_EQ(VsOf(FModelParam), kStartVs);
}

TEST_F(RunInvAnalTest, CountersOfADamagedProjectAreRefused) {
  InvParam.nEntries = 1;
  FModelParam.nDispPointsG = 1 << 30;
  EXPECT_EQ(RunInvAnal(), -1);
  EXPECT_NE(OnlyMessage().find("too large"), std::string::npos) << OnlyMessage();
}

TEST(ClearIterBox, EmptiesTheListsWhateverItsArgument) {
  for (const int which : {0, 1}) {
    for (const RingControl* list : {&exdthd::ITERNO, &inversion::INV_SMP, &fmodeling::COPYPRF})
      InsertListItem(*list, -1, "INV 4", 4);
    ClearIterBox(which);
    EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 0);
    EXPECT_EQ(GetNumListItems(fmodeling::COPYPRF), 0);
    ASSERT_EQ(GetNumListItems(inversion::INV_SMP), 1);
    EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 0), "Given Model P.");
    EXPECT_EQ(GetCtrlVal(inversion::INV_SMP), 0);
  }
}

}  // namespace
}  // namespace sondera::testing
