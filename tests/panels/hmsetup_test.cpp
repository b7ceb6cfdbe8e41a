// Tests of the list of measurements in the set-up dialog.
#include "panels/hmsetup.h"

#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "support/app_fixture.h"

namespace sondera {
namespace {

class MeasurementList : public testing::AppTest {
 protected:
  void Add(const std::string& id) {
    frontEnd.promptAnswers = {id};
    Commit(hmsetup::MEASADD);
  }
  std::string Selected() {
    return GetLabelFromIndex(hmsetup::MEASIDLISTBOX, GetCtrlIndex(hmsetup::MEASIDLISTBOX));
  }
};

TEST_F(MeasurementList, AfterAddingEveryListSelectsTheNewOne) {
  Add("second");
  EXPECT_EQ(frontEnd.prompts.at(0), "Please enter a new measurement ID.");
  EXPECT_EQ(Selected(), "second");
  for (const RingControl* list : {&sasw::DISPAID, &sasw::DISPBID, &measpanel::DISPAID, &measpanel::DISPBID})
    EXPECT_EQ(GetLabelFromIndex(*list, GetCtrlIndex(*list)), "second");
  EXPECT_EQ(MeasDB.rawDataList.count(), 2);
  EXPECT_EQ(GetKeyFromID("ProjID", "second"), 2);
}

TEST_F(MeasurementList, AKnownIdIsRefused) {
  Add("measID");
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"The same measurement ID is in the list."});
  EXPECT_EQ(MeasDB.idList.count(), 1);
}

TEST_F(MeasurementList, AnEmptyOrCancelledPromptAddsNothing) {
  Add("");
  frontEnd.promptAnswers.clear();
  Commit(hmsetup::MEASADD);
  EXPECT_EQ(MeasDB.idList.count(), 1);
}

TEST_F(MeasurementList, ChoosingAnEarlierMeasurementShowsItEverywhere) {
  Add("second");
  SetCtrlIndex(hmsetup::MEASIDLISTBOX, 0);
  EXPECT_EQ(Commit(hmsetup::MEASIDLISTBOX), 0);
  EXPECT_EQ(session.curMeasID, "measID");
  EXPECT_EQ(GetCtrlVal(hmsetup::MEASID), "measID");
  EXPECT_EQ(Selected(), "measID");
  EXPECT_EQ(GetLabelFromIndex(sasw::DISPAID, GetCtrlIndex(sasw::DISPAID)), "measID");
}

TEST_F(MeasurementList, WithoutHardwareSettingsItSaysSo) {
  FreeHWSetupList();
  EXPECT_EQ(Commit(hmsetup::MEASIDLISTBOX), -1);
  EXPECT_EQ(frontEnd.messages,
            std::vector<std::string>{"Software configuation for the hardware was not completed."});
}

TEST_F(MeasurementList, RenamingTheProjectTouchesAllMeasurementsWithTheOldText) {
  Add("second");
  InsertNewIDInfo("other", "third", 0);
  SendEvent(hmsetup::PROJID, Event::GotFocus);
  SetCtrlVal(hmsetup::PROJID, "Oysand");
  Commit(hmsetup::PROJID);
  EXPECT_EQ(GetKeyFromID("Oysand", "measID"), 1);
  EXPECT_EQ(GetKeyFromID("Oysand", "second"), 2);
  EXPECT_EQ(GetKeyFromID("other", "third"), 3);
  EXPECT_EQ(session.curProjID, "Oysand");
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), "Sondera 4.1 - Oysand:second");
}

TEST_F(MeasurementList, ALongProjectTextIsCutSoThatBarsAndNumberFitInTheFile) {
  SendEvent(hmsetup::PROJID, Event::GotFocus);
  SetCtrlVal(hmsetup::PROJID, std::string(300, 'p'));
  Commit(hmsetup::PROJID);
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID.size(), 247u);
}

TEST_F(MeasurementList, EditingTheMeasurementTextRenamesTheOneRemembered) {
  SendEvent(hmsetup::MEASID, Event::GotFocus);
  SetCtrlVal(hmsetup::MEASID, "shot 11");
  Commit(hmsetup::MEASID);
  EXPECT_EQ(GetKeyFromID("ProjID", "shot 11"), 1);
  EXPECT_EQ(Selected(), "shot 11");
}

TEST_F(MeasurementList, RenameAsksThenPrompts) {
  Commit(hmsetup::MEASUPDATE);
  EXPECT_EQ(frontEnd.questions.at(0), "Are you sure to rename the measurement ID of [measID] ?");
  EXPECT_TRUE(frontEnd.prompts.empty());
  frontEnd.confirmAnswers = {true};
  frontEnd.promptAnswers = {"renamed"};
  Commit(hmsetup::MEASUPDATE);
  EXPECT_EQ(frontEnd.prompts.at(0), "Please enter a new measurement ID.");
  EXPECT_EQ(GetKeyFromID("ProjID", "renamed"), 1);
}

TEST_F(MeasurementList, TheLastItemCannotBeRemoved) {
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Commit(hmsetup::MEASREMOVE_4), -1);
  EXPECT_EQ(frontEnd.questions.at(0), "Are you sure to remove the measurement setting for [measID] ?");
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"You can not delete the last item."});
  EXPECT_EQ(MeasDB.idList.count(), 1);
}

TEST_F(MeasurementList, RemovingStepsTheSelectionBackByOne) {
  Add("second");
  Add("third");
  SetCtrlIndex(hmsetup::MEASIDLISTBOX, 2);
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Commit(hmsetup::MEASREMOVE_4), 0);
  EXPECT_EQ(Selected(), "second");
  EXPECT_EQ(session.curMeasID, "second");
  EXPECT_EQ(MeasDB.hwSetupList.count(), 2);
  EXPECT_EQ(GetKeyFromID("ProjID", "third"), -1);
}

TEST_F(MeasurementList, RemovingIsCancelledByNo) {
  Add("second");
  EXPECT_EQ(Commit(hmsetup::MEASREMOVE_4), 0);
  EXPECT_EQ(MeasDB.idList.count(), 2);
}

}  // namespace
}  // namespace sondera
