// Tests of the inversion in a person's steps: its buttons, lists and menu items through the table of
// callbacks, and a whole run from the first press to the saved project.
#include <algorithm>
#include <filesystem>
#include <vector>

#include "app/inversion_case.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/run_state.h"
#include "run/system_state.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/events.h"

namespace sondera::testing {
namespace {

using InversionButtons = InversionCase;

class OneClick : public InversionCase {
 protected:
  void SetUp() override {
    InversionCase::SetUp();
    EnterCase();
    MeasDB.pMeasList.append();  // without a measurement there is nothing to save
    session.projectFileName = folder.File("site.da");
    SetCtrlVal(inversion::ALPHA_POINT, 3);
    SetCtrlVal(inversion::NITER, 3);
    SetCtrlVal(inversion::UF_VS, 0.4);
  }

  /// Last item of the list of results; 0 in an empty one.
  static int LastEntry() {
    const int n = GetNumListItems(exdthd::ITERNO);
    return n > 0 ? static_cast<int>(GetValueFromIndex(exdthd::ITERNO, n - 1)) : 0;
  }

  /// One press, halted by the Halt button as soon as `when` holds.
  template <class When>
  int HaltedPress(When when) {
    bool halted = false;
    frontEnd.confirmAnswers = {true};
    frontEnd.onProcessEvents = [&halted, when] {
      if (halted || !when()) return;
      halted = true;
      Commit(exdthd::HALT);
    };
    const int result = Commit(inversion::ONECLICK_RUN);
    frontEnd.onProcessEvents = nullptr;
    EXPECT_TRUE(halted);
    return result;
  }
};

TEST_F(InversionButtons, EveryControlOfTheSessionHasItsCallback) {
  for (const Control* c : std::vector<const Control*>{
           &exdthd::RUN_INVERSION, &exdthd::HALT, &exdthd::ITERNO, &exdthd::PLOT_INV, &exdthd::RESULTBOX,
           &analresult::SEL_RESULT, &analresult::CLOSE, &inversion::PERFORMINV, &inversion::CD_COV,
           &inversion::CM_COV, &inversion::CLOSE, &fmodeling::COPYFROMPRF, &mainmenu::OPEN_INV_ANAL_WIN,
           &mainmenu::INV_ANALYSIS_PARAM, &mainmenu::RUN_INV_ANAL})
    EXPECT_NE(CallbackOf(*c), nullptr) << c->name;
}

TEST_F(InversionButtons, RunFromTheFirstPressToTheSavedResults) {
  EnterCase();
  ASSERT_EQ(Commit(exdthd::RUN_INVERSION), 0);
  EXPECT_EQ(InvParam.nLayers, 3);
  EXPECT_EQ(GetCtrlVal(inversion::UB_VS), 100000.0);
  SetCtrlVal(inversion::NITER, 5);
  SetCtrlVal(inversion::UF_VS, 0.4);
  ASSERT_EQ(Commit(inversion::PERFORMINV), 0) << (frontEnd.messages.empty() ? "" : frontEnd.messages[0]);
  const int last = GetNumListItems(exdthd::ITERNO) - 1;
  EXPECT_LT(InvParam.rms[last], 0.02 * InvParam.rms[0]);
  for (const char* extension : {".fdp", ".fmp", ".pfl", ".fsp", ".pcm", ".n", ".r"})
    EXPECT_TRUE(Exists(std::string("site") + extension)) << extension;

  SetCtrlVal(exdthd::ITERNO, 0);
  ASSERT_EQ(Commit(exdthd::ITERNO), 0);
  EXPECT_EQ(GetCtrlVal(exdthd::RMSERROR), InvParam.rms[0]);
  ASSERT_EQ(Commit(exdthd::RESULTBOX), 0);
  SetCtrlIndex(analresult::SEL_RESULT, 3);
  ASSERT_EQ(Commit(analresult::SEL_RESULT), 0);
  EXPECT_NE(GetCtrlVal(analresult::RESULTS).find("Resolution"), std::string::npos);
  ASSERT_EQ(Commit(analresult::CLOSE), 0);
  EXPECT_FALSE(IsPanelShown(Panel::ANALRESULT));

  SetCtrlVal(fmodeling::COPYPRF, last);
  ASSERT_EQ(Commit(fmodeling::COPYFROMPRF), 0);
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 1, 3), InvParam.Vs(last, 0));
  ASSERT_EQ(Commit(inversion::CLOSE), 0);
  EXPECT_FALSE(IsPanelShown(Panel::INVERSION));
}

TEST_F(InversionButtons, MenuItemOpensTheResultsPageInTheFaceOfTheInversion) {
  SetCtrlVal(exdthd::FMDORINV, 1);
  Commit(exdthd::FMDORINV);
  ASSERT_FALSE(IsVisible(exdthd::ITERNO));
  EXPECT_EQ(Commit(mainmenu::OPEN_INV_ANAL_WIN), 0);
  EXPECT_TRUE(IsVisible(exdthd::ITERNO));
  EXPECT_FALSE(IsDimmed(exdthd::RUN_INVERSION));
  EXPECT_TRUE(IsDimmed(exdthd::RUN_FMODEL));
  EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 3);
}

TEST_F(InversionButtons, ChoiceOfTheModelCovarianceReachesTheRun) {
  EnterCase();
  SetCtrlVal(inversion::CM_COV, 1);
  ASSERT_EQ(Commit(inversion::CM_COV), 0);
  EXPECT_EQ(GetCtrlVal(inversion::CD_COV), -1);
  SetCtrlVal(inversion::NITER, 1);
  ASSERT_EQ(Commit(inversion::PERFORMINV), 0) << (frontEnd.messages.empty() ? "" : frontEnd.messages[0]);
  EXPECT_EQ(run.switches.cdMode, -1);
  EXPECT_EQ(run.observations.Cd(1, 1), 1.0);
}

TEST_F(InversionButtons, HaltIsAskedFor) {
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Commit(exdthd::HALT), 0);
  EXPECT_EQ(run.course.iHaltRequest, 1);
  EXPECT_EQ(frontEnd.questions, std::vector<std::string>{"Do you want to halt the process ?"});
}

TEST_F(OneClick, HaltInTheStartingProfilesEndsItBeforeTheInversion) {
  EXPECT_EQ(HaltedPress([] { return LastEntry() == -1; }), -1);
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 1);
  EXPECT_EQ(LastEntry(), -1) << "the finished profile stays, and no iteration comes";
  EXPECT_GT(SMPParam.rms[1], 0.0);
  EXPECT_FALSE(Exists("site.da"));
  EXPECT_FALSE(Exists("site_f.results"));
  EXPECT_FALSE(IsPanelShown(Panel::ANALRESULT));
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(OneClick, HaltInTheInversionKeepsItsIterationsAndSavesNothing) {
  const auto iterationIsDone = [] {
    std::filesystem::remove("site.da");  // that of the starting profiles
    return LastEntry() == 1;
  };
  EXPECT_EQ(HaltedPress(iterationIsDone), -1);
  EXPECT_EQ(LastEntry(), 1);
  EXPECT_GT(InvParam.rms[1], 0.0);
  EXPECT_FALSE(Exists("site.da"));
  EXPECT_FALSE(Exists("site_f.results"));
}

TEST_F(OneClick, WithoutAHaltProjectAndResultsAreSaved) {
  NoteHalt();  // of a former press
  EXPECT_EQ(Commit(inversion::ONECLICK_RUN), 0) << (frontEnd.messages.empty() ? "" : frontEnd.messages[0]);
  EXPECT_TRUE(Exists("site.da"));
  EXPECT_TRUE(Exists("site_f.results"));
}

}  // namespace
}  // namespace sondera::testing
