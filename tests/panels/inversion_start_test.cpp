// Tests of the starting model from the panels: the table of layers, the evaluation of depth-to-wavelength ratios, the
// choice.
#include "panels/inversion_start.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>

#include "app/callbacks.h"
#include "panels/fmodeling.h"
#include "records/measdb.h"
#include "records/result_capacity.h"
#include "records/session.h"
#include "run/run_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/events.h"
#include "support/inv_fixture.h"

namespace sondera::testing {
namespace {

using Numbers = std::vector<double>;

// --- table of layers ---

class LayerTable : public InversionTest {
 protected:
  void SetUp() override {
    InversionTest::SetUp();
    InstallCallbacks();
  }
  /// Global curve, and the array curve of one pair, at wavelengths up to the given one.
  DispInfo& Curves(double longest, int included = 1) {
    MeasurementPlan plan;
    site = AddMeasurement(plan);
    site.setup->recLoc = {10.0, 20.0};
    PMeasInfo& pair = *MeasDB.pMeasList.append();
    SetupPairMeasArrays(pair, 4);
    pair.key = site.key;
    pair.dspChan = 1;
    pair.included = included;
    pair.nDispPoints = 3;
    DispInfo& global = *MeasDB.gDispList.append();
    global.refChan = global.dspChan = 1;
    DispInfo& array = *MeasDB.aDispList.append();
    array.key = site.key;
    array.dspChan = 1;
    for (DispInfo* d : {&global, &array}) {
      SetupDispArrays(*d, 3);
      d->nPoints = 3;
      for (int i = 1; i <= 3; ++i) {
        d->wlen[i] = longest * i / 3.0;
        d->vel[i] = 140.0 + 10.0 * i;
        d->freq[i] = d->vel[i] / d->wlen[i];
      }
    }
    return array;
  }
  static Numbers Column(int column) {
    Numbers values;
    for (int row = 1; row <= GetNumTableRows(fmodeling::SOILPROFILE); ++row)
      values.push_back(GetTableCellVal(fmodeling::SOILPROFILE, row, column));
    return values;
  }
  TestMeasurement site;
};

TEST_F(LayerTable, DepthOfTenGivesElevenLayersAndAHalfSpace) {
  Curves(20.0);
  ASSERT_EQ(AutoSetupStartingModelParameters(1), 0) << Messages();
  EXPECT_EQ(Column(1), (Numbers{0.5, 0.5, 0.5, 0.5, 1, 1, 1, 1, 2, 2, 2, 12000}));
  EXPECT_EQ(GetCtrlVal(fmodeling::MAXDEPTH), 10.0);
  EXPECT_EQ(GetCtrlVal(fmodeling::TOTALDEPTH), 12.0);
  EXPECT_EQ(GetCtrlVal(fmodeling::NLAYERS), 12);
  EXPECT_EQ(Column(2), Numbers(12, 0.0));
  EXPECT_EQ(Column(3), Numbers(12, 150.0));
  EXPECT_EQ(Column(4), Numbers(12, 1800.0));
  EXPECT_EQ(Column(5), Numbers(12, 0.3333));
  EXPECT_EQ(Column(6), Numbers(12, 0.02));
}

TEST_F(LayerTable, ArrayCurvesAreLoadedAndThePanelIsTakenOverAndClosed) {
  Curves(20.0);
  SetCtrlVal(fmodeling::GLOBAL_ARRAY, 1);
  ASSERT_EQ(AutoSetupStartingModelParameters(1), 0);
  EXPECT_EQ(GetCtrlVal(fmodeling::GLOBAL_ARRAY), 2);
  EXPECT_EQ(FModelParam.dispCurvType, 2);
  EXPECT_EQ(FModelParam.nDispCurves, 1);
  EXPECT_EQ(FModelParam.nDispPointsG, 3);
  EXPECT_EQ(FModelParam.nLayers, 12);
  EXPECT_EQ(FModelParam.thickness[11], 12000.0);
  EXPECT_EQ(GetCtrlVal(inversion::UF_VS), 0.05) << "factors that go with array curves";
  EXPECT_FALSE(IsPanelShown(Panel::FMODELING));
}

TEST_F(LayerTable, FirstLayerIsLimitedByTheDepthInOneFigure) {
  Curves(2.9);  // depth 1.45, 0.3 of it 0.435
  ASSERT_EQ(AutoSetupStartingModelParameters(1), 0);
  EXPECT_EQ(Column(1), (Numbers{0.4, 0.4, 0.4, 0.4, 1600}));
}

TEST_F(LayerTable, DefaultsFollowTheUnitOfLength) {
  const double thickness[] = {0.5, 50.0, 2.0, 24.0}, Vs[] = {150, 15000, 450, 1143},
               density[] = {1800, 0.0018, 112.5, 0.0651};
  for (int unit = 0; unit < 4; ++unit) {
    ResetEverything();
    InitializeFModel();
    SetCtrlIndex(meassetup::LENGTHUNIT, unit);
    Curves(2000.0);
    ASSERT_EQ(AutoSetupStartingModelParameters(1), 0) << Messages();
    EXPECT_EQ(Column(1)[0], thickness[unit]);
    EXPECT_EQ(Column(3)[0], Vs[unit]);
    EXPECT_EQ(Column(4)[0], density[unit]);
  }
}

TEST_F(LayerTable, OnlyCurvesOfIncludedPairsCount) {
  Curves(20.0);
  DispInfo& stranger = *MeasDB.aDispList.append();  // a curve of a pair that nobody included
  stranger.key = site.key;
  stranger.dspChan = 7;
  SetupDispArrays(stranger, 1);
  stranger.nPoints = 1;
  stranger.wlen[1] = 400.0;
  ASSERT_EQ(AutoSetupStartingModelParameters(1), 0);
  EXPECT_EQ(GetCtrlVal(fmodeling::MAXDEPTH), 10.0);
}

TEST_F(LayerTable, WavelengthsThatAreNoNumbersDoNotCount) {
  DispInfo& array = Curves(20.0);
  array.wlen[1] = std::numeric_limits<double>::quiet_NaN();
  array.wlen[2] = std::numeric_limits<double>::infinity();
  ASSERT_EQ(AutoSetupStartingModelParameters(1), 0) << Messages();
  EXPECT_EQ(GetCtrlVal(fmodeling::MAXDEPTH), 10.0);
  array.nPoints = 1000;  // more than there are
  EXPECT_EQ(AutoSetupStartingModelParameters(1), 0);
  EXPECT_EQ(GetCtrlVal(fmodeling::MAXDEPTH), 10.0);
}

TEST_F(LayerTable, WithoutACurveTheTableStaysAndOneMessageSaysWhy) {
  SetTableCellVal(fmodeling::SOILPROFILE, 1, 1, 7.7);
  SetCtrlVal(fmodeling::MAXDEPTH, 3.0);
  for (int included : {-1, 0}) {
    frontEnd.messages.clear();
    if (included == 0) Curves(20.0, 0);
    EXPECT_EQ(AutoSetupStartingModelParameters(1), -1);
    EXPECT_EQ(OnlyMessage(), "No dispersion curves available in memory.");
    EXPECT_EQ(Column(1)[0], 7.7);
    EXPECT_EQ(GetCtrlVal(fmodeling::MAXDEPTH), 3.0);
  }
}

TEST_F(LayerTable, DepthOfThePanelLeavesNoThicknessAndThePanelRefusesThat) {
  Curves(20.0);
  SetCtrlVal(fmodeling::MAXDEPTH, 8.0);
  EXPECT_EQ(AutoSetupStartingModelParameters(0), -1);
  EXPECT_EQ(Column(1), Numbers(401, 0.0)) << "a hundred groups of four, and the half-space";
  EXPECT_EQ(GetCtrlVal(fmodeling::MAXDEPTH), 8.0);
  EXPECT_EQ(GetCtrlVal(fmodeling::TOTALDEPTH), 0.0);
  EXPECT_EQ(OnlyMessage(), "Invalid value of thickness !");
}

TEST_F(LayerTable, ThicknessesOfTheTableStayWithTheOtherLayering) {
  Curves(20.0);
  SetCtrlVal(fmodeling::AUTOLAYERTYPE, 1);
  SetCtrlVal(fmodeling::NLAYERS, 3);
  Commit(fmodeling::NLAYERS);
  const double H[] = {1.0, 2.5, 400.0};
  for (int row = 1; row <= 3; ++row) SetTableCellVal(fmodeling::SOILPROFILE, row, 1, H[row - 1]);
  for (int useData : {0, 1}) {
    ASSERT_EQ(AutoSetupStartingModelParameters(useData), 0) << Messages();
    EXPECT_EQ(Column(1), (Numbers{1.0, 2.5, 400.0}));
    EXPECT_EQ(Column(3), Numbers(3, 150.0));
    EXPECT_EQ(GetCtrlVal(fmodeling::TOTALDEPTH), 3.5);
  }
  EXPECT_EQ(GetCtrlVal(fmodeling::MAXDEPTH), 10.0);
}

TEST_F(LayerTable, EmptyTableIsRefused) {
  Curves(20.0);
  SetCtrlVal(fmodeling::AUTOLAYERTYPE, 1);
  SetCtrlVal(fmodeling::NLAYERS, 0);
  EXPECT_EQ(AutoSetupStartingModelParameters(1), -1);
  EXPECT_EQ(OnlyMessage(), "The layer table is empty.");
}

TEST_F(LayerTable, AlternativeSetUpHasNoLimitAndNoHalfSpace) {
  Curves(2.9);
  SetCtrlVal(fmodeling::MAXDEPTH, 99.0);
  ASSERT_EQ(SetupStartingModelParameters(), 0);
  EXPECT_EQ(Column(1), (Numbers{0.5, 0.5, 0.5}));
  EXPECT_EQ(GetCtrlVal(fmodeling::MAXDEPTH), 1.45);
  EXPECT_EQ(GetCtrlVal(fmodeling::TOTALDEPTH), 1.5);
}

TEST_F(LayerTable, ButtonsTakeTheDepthOfTheCurvesOrOfThePanel) {
  Curves(20.0);
  EXPECT_EQ(Commit(inversion::AUTOSETUPSMP), 0);
  EXPECT_EQ(GetCtrlVal(fmodeling::TOTALDEPTH), 12.0);
  EXPECT_EQ(Commit(fmodeling::SETUPLAYERING), -1) << "by the depth of the panel";
  EXPECT_EQ(OnlyMessage(), "Invalid value of thickness !");
  EXPECT_EQ(SendEvent(inversion::AUTOSETUPSMP, Event::LeftClick), 0);
  EXPECT_EQ(GetCtrlVal(fmodeling::TOTALDEPTH), 0.0);
}

// --- evaluation ---

class Evaluation : public InversionTest {
 protected:
  void SetUp() override {
    InstallCallbacks();  // first: it registers drawing functions, and the case its own after it
    InversionTest::SetUp();
    SetUpCase();
    SetCtrlVal(inversion::ALPHA_POINT, 4);
    SetCtrlVal(inversion::ALPHA_FROM, 0.35);
    SetCtrlVal(inversion::ALPHA_TO, 0.65);
    AddMeasurement();
    session.projectFileName = folder.File("site.da");
    shown = AddWatcher([this](const Change& c) {
      if (c.control == &exdthd::PROCESSMSG) processes.push_back(GetCtrlVal(exdthd::PROCESSMSG));
      if (c.control == &exdthd::STATUSMSG) statuses.push_back(GetCtrlVal(exdthd::STATUSMSG));
    });
  }
  void TearDown() override {
    RemoveObserver(shown);
    InversionTest::TearDown();
  }
  template <class C>
  static std::string Items(const C& list) {
    std::string all;
    for (int i = 0; i < GetNumListItems(list); ++i)
      all += GetLabelFromIndex(list, i) + "=" + std::to_string(static_cast<int>(GetValueFromIndex(list, i))) +
             " ";
    return all;
  }
  static Numbers VsOfSlot(int k) {
    Numbers Vs;
    for (int i = 0; i < SMPParam.nLayers; ++i) Vs.push_back(SMPParam.Vs(k, i));
    return Vs;
  }
  bool Saved() const { return std::filesystem::exists(folder.File("site.da")); }

  int shown = 0;
  std::vector<std::string> processes, statuses;
};

TEST_F(Evaluation, EachRatioLeavesAProfileWithItsCurveAndMisfit) {
  ASSERT_EQ(EvalSMParam(), 0) << Messages();
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_EQ(SMPParam.nEntries, 4);
  EXPECT_EQ(SMPParam.nLayers, 3);
  EXPECT_EQ(SMPParam.nPoints, 12);
  for (int k = 1; k <= 4; ++k) {
    EXPECT_GT(SMPParam.rms[k], 0.0);
    EXPECT_LT(SMPParam.rms[k], 40.0);
    EXPECT_GT(SMPParam.vel(k, 0), 0.0);
    const Numbers Vs = VsOfSlot(k);
    EXPECT_NEAR(Vs[0], kTrueVs[0], 0.15 * kTrueVs[0]);
    EXPECT_GT(Vs[2], Vs[0]);
    if (k > 1) {
      EXPECT_NE(Vs, VsOfSlot(k - 1));
    }
  }
  EXPECT_EQ(VsOnPanel(), kStartVs) << "the given model stays";
}

TEST_F(Evaluation, ListsNameTheProfiles) {
  InsertListItem(exdthd::ITERNO, -1, "INV 1", 1);
  InsertListItem(fmodeling::COPYPRF, -1, "INV 1", 1);
  ASSERT_EQ(EvalSMParam(), 0);
  EXPECT_EQ(Items(exdthd::ITERNO), "SMP 1=-1 SMP 2=-2 SMP 3=-3 SMP 4=-4 ");
  EXPECT_EQ(Items(fmodeling::COPYPRF), "SMP 1=-1 SMP 2=-2 SMP 3=-3 SMP 4=-4 ");
  EXPECT_EQ(Items(inversion::INV_SMP), "Given Model P.=0 SMP 1=-1 SMP 2=-2 SMP 3=-3 SMP 4=-4 ");
  EXPECT_EQ(GetCtrlVal(exdthd::ITERNO), -4);
  EXPECT_EQ(GetCtrlVal(inversion::INV_SMP), 0);
}

TEST_F(Evaluation, ProgressNamesProfileAndRatio) {
  ASSERT_EQ(EvalSMParam(), 0);
  EXPECT_EQ(processes, (std::vector<std::string>{"Calculating 1th profile (Depth/waveL = 0.350000)",
                                                 "Calculating 2th profile (Depth/waveL = 0.450000)",
                                                 "Calculating 3th profile (Depth/waveL = 0.550000)",
                                                 "Calculating 4th profile (Depth/waveL = 0.650000)"}));
  std::vector<std::string> heads;
  for (const std::string& s : statuses)
    if (s.starts_with("Starting")) heads.push_back(s);
  EXPECT_EQ(heads, (std::vector<std::string>{
                       "Starting Model P. 1 : alpha=0.35", "Starting Model P. 2 : alpha=0.45",
                       "Starting Model P. 3 : alpha=0.55", "Starting Model P. 4 : alpha=0.65"}));
}

TEST_F(Evaluation, ProfileIsDrawnBySelector) {
  SetCtrlVal(inversion::ALPHA_POINT, 1);
  const char* const kinds[] = {"profile", "resolution", "rms"};
  for (int plot = 0; plot < 3; ++plot) {
    drawn.clear();
    SetCtrlVal(exdthd::PLOT_INV, plot);
    ASSERT_EQ(EvalSMParam(), 0);
    EXPECT_EQ(drawn, "curves " + std::string(kinds[plot]) + " -1 " + kinds[plot] + " -1 ");
  }
}

TEST_F(Evaluation, OneRatioIsTheFirst) {
  SetCtrlVal(inversion::ALPHA_POINT, 4);
  ASSERT_EQ(EvalSMParam(), 0);
  const Numbers first = VsOfSlot(1);
  SetCtrlVal(inversion::ALPHA_POINT, 1);
  ASSERT_EQ(EvalSMParam(), 0);
  EXPECT_EQ(run.switches.alphaDepth, 0.35);
  EXPECT_EQ(VsOfSlot(1), first);
  EXPECT_EQ(SMPParam.rms[2], -1.0) << "no profile of the former evaluation is left over";
  EXPECT_EQ(Items(exdthd::ITERNO), "SMP 1=-1 ");
}

TEST_F(Evaluation, WithoutAGlobalCurveNothingChanges) {
  SMPParam.rms[1] = 12.5;
  InsertListItem(exdthd::ITERNO, -1, "INV 1", 1);
  std::fill(FModelParam.globalVel.begin(), FModelParam.globalVel.end(), 0.0);
  EXPECT_EQ(EvalSMParam(), -1);
  EXPECT_EQ(OnlyMessage(), "Please calculate the global rep. dispersion curve, first.");
  EXPECT_EQ(frontEnd.messageTitles.back(), session.appTitle);
  EXPECT_EQ(SMPParam.rms[1], 12.5);
  EXPECT_EQ(Items(exdthd::ITERNO), "INV 1=1 ");
  FModelParam.globalVel[2] = std::numeric_limits<double>::quiet_NaN();
  FModelParam.globalVel[3] = -5.0;
  EXPECT_EQ(Commit(inversion::EVALSMPARAM), -1);
  EXPECT_EQ(frontEnd.messages.size(), 2u);
  EXPECT_FALSE(Saved());
}

TEST_F(Evaluation, NoRatiosAreRefusedByBothButtons) {
  SetCtrlVal(inversion::ALPHA_POINT, 0);
  for (const Control* c : {static_cast<const Control*>(&inversion::EVALSMPARAM),
                           static_cast<const Control*>(&mainmenu::DETERMINE_SMP)}) {
    frontEnd.messages.clear();
    EXPECT_EQ(Commit(*c), -1);
    EXPECT_EQ(OnlyMessage(), "Please enter the number of Depth-to-WaveL Ratios.");
    EXPECT_EQ(SendEvent(*c, Event::GotFocus), 0);
  }
  EXPECT_FALSE(Saved());
}

TEST_F(Evaluation, NumberOfRatiosBeyondReasonAllocatesNothing) {
  for (int count : {-1, 1001, 2000000000, std::numeric_limits<int>::min()}) {
    frontEnd.messages.clear();
    SetCtrlVal(inversion::ALPHA_POINT, count);
    EXPECT_EQ(Commit(inversion::EVALSMPARAM), -1);
    EXPECT_EQ(OnlyMessage(), "The number of Depth-to-WaveL Ratios is " + std::to_string(count) +
                                 ". It must be from 1 to 1000.");
    EXPECT_EQ(SMPParam.rms.hi(), 50);
    EXPECT_EQ(SMPParam.nEntries, 10);
  }
}

TEST_F(Evaluation, MoreRatiosThanTheRecordHasSlotsMakeRoom) {
  SetCtrlVal(inversion::ALPHA_POINT, 60);
  ASSERT_EQ(EvalSMParam(), 0);
  EXPECT_GE(SMPParam.rms.hi(), 60);
  EXPECT_GT(SMPParam.rms[1], 0.0);
  EXPECT_GT(SMPParam.rms[60], 0.0);
  EXPECT_EQ(VsOfSlot(60).size(), 3u);
}

TEST_F(Evaluation, RatioThatIsNoneEndsWithOneMessage) {
  SetCtrlVal(inversion::ALPHA_FROM, 0.0);
  EXPECT_EQ(Commit(inversion::EVALSMPARAM), -1);
  EXPECT_EQ(OnlyMessage(), "The Depth-to-WaveL ratio is 0. It must be above 0.");
  EXPECT_EQ(Items(exdthd::ITERNO), "");
  EXPECT_FALSE(WaitCursorShown());
  EXPECT_FALSE(Saved());
}

TEST_F(Evaluation, ProfileWhoseRunFailedNeverWinsAndTheOthersStay) {
  SetCtrlVal(inversion::ALPHA_FROM, 0.5);
  SetCtrlVal(inversion::ALPHA_TO, -0.4);  // 0.5, 0.2, -0.1: the third fails
  EXPECT_EQ(Commit(inversion::EVALSMPARAM), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u) << Messages();
  EXPECT_EQ(Items(fmodeling::COPYPRF), "SMP 1=-1 SMP 2=-2 ");
  EXPECT_GT(SMPParam.rms[2], 0.0);
  EXPECT_EQ(SMPParam.rms[3], -1.0);
  EXPECT_EQ(SMPParam.rms[4], -1.0);
  const int best = BestStartingProfile();
  EXPECT_EQ(best, SMPParam.rms[1] <= SMPParam.rms[2] ? 1 : 2);
  EXPECT_EQ(VsOnPanel(), VsOfSlot(best)) << "the better of the two is taken";
  EXPECT_TRUE(Saved());
}

TEST_F(Evaluation, HaltKeepsWhatIsThere) {
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] {
    if (++polls == 20) run.course.iHaltRequest = 1;  // 12 points make a run
  };
  EXPECT_EQ(EvalSMParam(), -1);
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_EQ(Items(exdthd::ITERNO), "SMP 1=-1 ");
  EXPECT_GT(SMPParam.rms[1], 0.0);
  EXPECT_EQ(SMPParam.rms[2], -1.0);
  EXPECT_EQ(BestStartingProfile(), 1);
  EXPECT_EQ(run.course.iHaltRequest, 0);
}

TEST_F(Evaluation, InterruptOfTheTerminalEndsThePress) {
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] {
    if (++polls == 20) RequestInterrupt();
  };
  EXPECT_EQ(Commit(inversion::EVALSMPARAM), -1);
  ClearInterrupt();
  EXPECT_EQ(Items(exdthd::ITERNO), "SMP 1=-1 ");
  EXPECT_GT(SMPParam.rms[1], 0.0);
  EXPECT_EQ(VsOnPanel(), kStartVs) << "no profile is taken";
  EXPECT_FALSE(Saved());
}

TEST_F(Evaluation, HaltOfAFormerPressDoesNotEndTheNext) {
  NoteHalt();
  EXPECT_EQ(Commit(inversion::EVALSMPARAM), 0) << Messages();
  EXPECT_EQ(VsOnPanel(), VsOfSlot(BestStartingProfile()));
  EXPECT_TRUE(Saved());
}

// --- choice ---

TEST_F(Evaluation, ButtonTakesTheBestProfileToThePanelAndSaves) {
  ASSERT_EQ(Commit(inversion::EVALSMPARAM), 0) << Messages();
  const int best = BestStartingProfile();
  ASSERT_GE(best, 1);
  for (int k = 1; k <= 4; ++k) EXPECT_GE(SMPParam.rms[k], SMPParam.rms[best]);
  EXPECT_EQ(GetCtrlVal(fmodeling::COPYPRF), -best);
  EXPECT_EQ(VsOnPanel(), VsOfSlot(best));
  EXPECT_EQ(VsOf(FModelParam), VsOfSlot(best));
  for (int row = 1; row <= 3; ++row)
    EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, row, 2), 0.0) << "Vp follows from the ratio again";
  EXPECT_FALSE(IsPanelShown(Panel::FMODELING));
  EXPECT_FALSE(WaitCursorShown());
  EXPECT_TRUE(Saved());
}

TEST_F(Evaluation, MenuEvaluatesAndTakesNothing) {
  ASSERT_EQ(Commit(mainmenu::DETERMINE_SMP), 0);
  EXPECT_EQ(Items(exdthd::ITERNO), "SMP 1=-1 SMP 2=-2 SMP 3=-3 SMP 4=-4 ");
  EXPECT_EQ(VsOnPanel(), kStartVs);
  EXPECT_FALSE(Saved());
}

TEST_F(Evaluation, PressesComeInTheirOrder) {
  static std::vector<std::string>* order = nullptr;
  std::vector<std::string> pressed;
  order = &pressed;
  const Callback remember = [](Panel, ControlId c, Event, long) {
    order->push_back(std::string(c->name));
    return 0;
  };
  ASSERT_EQ(EvalSMParam(), 0);
  for (const Control* c :
       {static_cast<const Control*>(&fmodeling::NLAYERS),
        static_cast<const Control*>(&fmodeling::COPYFROMPRF),
        static_cast<const Control*>(&fmodeling::UPDATE_PROFILE2),
        static_cast<const Control*>(&fmodeling::UPDATE), static_cast<const Control*>(&fmodeling::CLOSE),
        static_cast<const Control*>(&measpanel::F6)})
    InstallCallback(*c, remember);
  EXPECT_EQ(RunAutoPreInversion(), 0);
  EXPECT_EQ(pressed,
            (std::vector<std::string>{"NLAYERS", "COPYFROMPRF", "UPDATE_PROFILE2", "UPDATE", "CLOSE", "F6"}));
  InstallCallback(measpanel::F6, [](Panel, ControlId, Event, long) { return -1; });
  EXPECT_EQ(RunAutoPreInversion(), -1) << "a save that failed is no success";
  order = nullptr;
  InstallCallbacks();
}

TEST_F(Evaluation, EarliestOfEqualMisfitsWins) {
  SMPParam.nLayers = 3;
  const double rms[] = {9.0, 5.0, 7.0, 5.0};
  for (int k = 1; k <= 4; ++k) SMPParam.rms[k] = rms[k - 1];
  SMPParam.rms[5] = 1.0;  // beyond the number of ratios
  EXPECT_EQ(BestStartingProfile(), 2);
}

TEST_F(Evaluation, MisfitsThatAreNoneAreNotChosen) {
  SMPParam.nLayers = 3;
  const double rms[] = {-1.0, std::numeric_limits<double>::quiet_NaN(), 1e30, 2e30};
  for (int k = 1; k <= 4; ++k) SMPParam.rms[k] = rms[k - 1];
  EXPECT_EQ(BestStartingProfile(), 0);
  EXPECT_EQ(RunAutoPreInversion(), -1);
  EXPECT_FALSE(Saved());
  SMPParam.rms[4] = 0.0;  // a perfect fit is one
  EXPECT_EQ(BestStartingProfile(), 4);
}

TEST_F(Evaluation, FreshRecordHasNoProfileToTake) {
  EXPECT_EQ(SMPParam.rms[1], 0.0);
  EXPECT_EQ(BestStartingProfile(), 0);
  EXPECT_EQ(RunAutoPreInversion(), -1);
}

TEST_F(Evaluation, RunsWithoutAVelocityAreTold) {
  SetCtrlVal(inversion::ALPHA_POINT, 2);
  SetCtrlVal(fmodeling::ANALYSISTYPE, 3);
  SetCtrlVal(fmodeling::GLOBAL_REC_TYPE, 4);  // two receivers at one place see no wavelength
  SetCtrlVal(fmodeling::R1_LOC, 5.0);
  SetCtrlVal(fmodeling::R2_LOC, 5.0);
  EXPECT_EQ(Commit(inversion::EVALSMPARAM), -1);
  EXPECT_EQ(SMPParam.rms[1], -1.0);
  EXPECT_EQ(SMPParam.rms[2], -1.0);
  EXPECT_EQ(OnlyMessage(), "None of the starting profiles has a theoretical curve.");
  EXPECT_EQ(VsOnPanel(), kStartVs);
  EXPECT_FALSE(Saved());
}

}  // namespace
}  // namespace sondera::testing
